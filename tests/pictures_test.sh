#!/bin/sh
# Draws all windows and compares them with the pictures in docs/images: pictures_test.sh PICTURES SOURCE
# Windows that are open when the desktop turns dark must look as if they had opened dark.
# "make screenshots" replaces these; look at what has changed before you keep it.
set -eu
pictures=$1 source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$source/tools/screenshots" "$pictures" "$work" 2>"$work/errors" || { cat "$work/errors"; exit 1; }
QT_QPA_PLATFORM=offscreen "$pictures" compare "$source/docs/images" "$work"

mkdir "$work/dark" "$work/darkened"
cp "$work"/*-100-dark.png "$work/dark"
HOME=$work GTK_THEME=Adwaita QT_SCALE_FACTOR=1 LC_ALL=C.UTF-8 \
  QT_QPA_PLATFORM="offscreen:configfile=$source/tests/offscreen.json" \
  "$pictures" darken "$work/darkened" 100-dark
QT_QPA_PLATFORM=offscreen "$pictures" compare "$work/dark" "$work/darkened"
