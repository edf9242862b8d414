#!/bin/bash
# Draws all windows and compares them with the pictures in docs/images: pictures_test.sh PICTURES SOURCE
# Windows that are open when the desktop turns dark must look as if they had opened dark.
# "make screenshots" replaces these; look at what has changed before you keep it.
set -u
pictures=$(realpath "$1") source=$(realpath "$2")
source "$(dirname "$0")/common.bash"
need compare
# same KEPT DRAWN — the same pictures in both folders; a few pixels may look a little different.
same() {
  diff <(cd "$1" && ls ./*.png) <(cd "$2" && ls ./*.png) || fail "other pictures than in $1"
  for picture in "$2"/*.png; do
    name=${picture##*/}
    cmp -s "$1/$name" "$picture" && continue
    differing=$(compare -metric AE -fuzz 5% "$1/$name" "$picture" null: 2>&1)
    [[ $differing =~ ^([0-9]|1[0-2])$ ]] || fail "$name: $differing pixels are different"
  done
}
"$source/tools/screenshots" "$pictures" drawn 2>errors || { cat errors; exit 1; }
same "$source/docs/images" drawn

mkdir dark darkened
cp drawn/*-100-dark.png dark
export HOME=$work GTK_THEME=Adwaita LC_ALL=C.UTF-8 \
  QT_QPA_PLATFORM="offscreen:configfile=$source/tests/offscreen.json"
QT_SCALE_FACTOR=1 "$pictures" darken darkened 100-dark 2>errors || { cat errors; exit 1; }
same dark darkened

# Texts and outlines can be told from what is around them, as the table says.
QT_SCALE_FACTOR=2 "$pictures" contrast >contrasts 2>errors || fail 'a contrast is too low'
diff <(grep '^|' "$source/docs/looks.md") contrasts || fail 'docs/looks.md has other contrasts'
exit "$failed"
