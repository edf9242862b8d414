#!/bin/bash
# The command on a Wayland compositor: a list that was copied outlives it, and the place where its
# window was kept stays, since nobody is told where windows are there.
# wayland_test.sh BIN — bounded by the time limit of the test runner; skipped (77) where programs are missing.
set -u
bin=$1 source=$(cd "$(dirname "$0")" && pwd)
source "$source/desktop.bash"
for program in weston wl-paste; do
  command -v "$program" >/dev/null || { echo "no $program"; exit 77; }
done

weston --no-config --backend=x11-backend.so --use-pixman --socket=compositor >weston.log 2>&1 &
compositor=$!
trap 'kill $compositor $manager; rm -rf "$work"' EXIT
until [ -S compositor ]; do
  kill -0 $compositor || { cat weston.log; exit 1; }
done
export WAYLAND_DISPLAY=compositor

mkdir -p config/listwright
printf '[Listwright]\r\nListwright_LT=2400\r\nListwright_TT=1500\r\n' >config/listwright/steps.ini
WAYLAND_DEBUG=1 QT_QPA_PLATFORM=wayland "$bin/listwright" >out 2>err &
command=$!
# Until the dialog has the keyboard.
until grep -q 'wl_keyboard@.*\.enter' err; do kill -0 "$command" || break; done
keys alt+c
wait "$command"
status=$?
[ "$status" -eq 1 ] && [ ! -s out ] || fail "Copy: status $status"
printf '    1. \r\n    2. \r\n    3. \r\n' >wanted
timeout 20 wl-paste --no-newline | cmp - wanted || fail 'Copy: not on the clipboard'
grep -q '^Listwright_LT=2400' config/listwright/steps.ini &&
  grep -q '^Listwright_TT=1500' config/listwright/steps.ini || fail 'the place was not kept'
[ "$failed" -eq 0 ] || tail -n 30 err weston.log
exit "$failed"
