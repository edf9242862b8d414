#!/bin/sh
# Runs a program that opens the dialog, on a display of its own, and presses a key in the dialog.
# in_dialog.sh KEY PROGRAM ARGUMENT… — ends with the program's status; 77 where programs are missing.
set -u
for program in xvfb-run openbox xdotool; do
  command -v "$program" >/dev/null || { echo "no $program"; exit 77; }
done
if [ -z "${IN_DIALOG:-}" ]; then
  unset QT_QPA_PLATFORM WAYLAND_DISPLAY
  IN_DIALOG=1 exec timeout 120 xvfb-run --auto-servernum \
    --server-args "-screen 0 1280x1024x24 -noreset" "$0" "$@"
fi

key=$1
shift
openbox --sm-disable >/dev/null 2>&1 &
manager=$!
trap 'kill "$manager" 2>/dev/null' EXIT
# It has started, and overlooks no window, when it does as it is told.
until [ "$(xdotool get_num_desktops 2>/dev/null)" = 1 ]; do
  kill -0 "$manager" || exit 1
  xdotool set_num_desktops 1 2>/dev/null
done
"$@" &
program=$!
# No key may come before the window has the keyboard.
until [ "$(xdotool getactivewindow getwindowname 2>/dev/null)" = Listwright ]; do
  kill -0 "$program" 2>/dev/null || break
done
xdotool key --clearmodifiers "$key"
wait "$program"
