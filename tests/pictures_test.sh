#!/bin/sh
# Draws all windows and compares them with the pictures in docs/images: pictures_test.sh PICTURES SOURCE
# "make screenshots" replaces these; look at what has changed before you keep it.
set -eu
pictures=$1 source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$source/tools/screenshots" "$pictures" "$work" 2>"$work/errors" || { cat "$work/errors"; exit 1; }
QT_QPA_PLATFORM=offscreen "$pictures" compare "$source/docs/images" "$work"
