# A desktop of a test's own, for tests that use windows as a person does: source it first. Skips the
# test (77) where the desktop's programs are missing. The test's folder is also its home.
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
need xvfb-run openbox xdotool xclip xprop xwininfo
if [ -z "${LISTWRIGHT_DESKTOP:-}" ]; then
  cd "$OLDPWD" && LISTWRIGHT_DESKTOP=1 xvfb-run --auto-servernum \
    --server-args "-screen 0 1280x1024x24 -noreset" "$0" "$@"
  exit
fi
export HOME=$work XDG_DATA_HOME=$work/data XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work
unset QT_QPA_PLATFORM WAYLAND_DISPLAY

# titled PATTERN — whether the window with the keyboard is called like this. No key may come before.
# shellcheck disable=SC2053 # a pattern
titled() { [[ "$(timeout 20 xdotool getwindowfocus getwindowname 2>/dev/null)" == $1 ]]; }
keys() { timeout 60 xdotool key --clearmodifiers "$@"; }
types() { timeout 60 xdotool type --clearmodifiers "$1"; }

# begin COMMAND… — opens the dialog, to be closed by "ended STATUS".
begin() {
  "$@" >out 2>err &
  command=$!
  await titled Listwright
}
ended() {
  wait "$command"
  local status=$?
  [ "$status" -eq "$1" ] || fail "status $status, not $1: $(cat err)"
}

openbox --sm-disable >/dev/null 2>&1 &
# A window that opens while the window manager starts may be overlooked. It has started when it
# does as it is told.
managed() {
  xdotool set_num_desktops 1 && [ "$(xdotool get_num_desktops)" = 1 ]
}
await managed
