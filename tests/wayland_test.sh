#!/bin/bash
# The command on a Wayland compositor: a list that was copied outlives it, and the place where its
# window was kept stays, since nobody is told where windows are there.
# wayland_test.sh BIN — skipped (77) where programs are missing.
set -u
bin=$1
source "$(dirname "$0")/desktop.bash"
need weston wl-paste

weston --no-config --backend=x11-backend.so --use-pixman --socket=compositor >weston.log 2>&1 &
await test -S compositor
export WAYLAND_DISPLAY=compositor

# Its socket may be named by its path.
echo call | WAYLAND_DISPLAY=$work/compositor QT_QPA_PLATFORM=wayland timeout 60 "$bin/stepdrive" \
  --frontend qt - >out 2>err || fail "a path: $(cat err)"
mkdir -p config/listwright
printf '[Listwright]\r\nListwright_LT=2400\r\nListwright_TT=1500\r\n' >config/listwright/steps.ini
WAYLAND_DEBUG=1 QT_QPA_PLATFORM=wayland "$bin/listwright" >out 2>dialog.log &
command=$!
await grep -q 'wl_keyboard@.*\.enter' dialog.log
keys alt+c
wait "$command"
status=$?
[ "$status" -eq 1 ] && [ ! -s out ] || fail "Copy: status $status"
printf '    1. \n    2. \n    3. \n' >wanted
timeout 20 wl-paste --no-newline | cmp - wanted || fail 'Copy: not on the clipboard'
sed '/xdg_toplevel@.*\.destroy/q' dialog.log | grep -q 'wl_data_source@.*\.send' ||
  fail 'the window did not wait until its copy was fetched'
grep -q '^Listwright_LT=2400' config/listwright/steps.ini &&
  grep -q '^Listwright_TT=1500' config/listwright/steps.ini || fail 'the place was not kept'
exit "$failed"
