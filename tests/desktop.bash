# A desktop of a test's own, for tests that use the window as a person does: source it first, with
# `bin` set to the folder of the programs. Skips the test (77) where the desktop's programs are
# missing. Leaves the test in an empty folder that is also its home.

for program in xvfb-run openbox xdotool xclip xprop xwininfo; do
  command -v "$program" >/dev/null || { echo "no $program"; exit 77; }
done
if [ -z "${LISTWRIGHT_DESKTOP:-}" ]; then
  LISTWRIGHT_DESKTOP=1 exec xvfb-run --auto-servernum \
    --server-args "-screen 0 1280x1024x24 -noreset" "$0" "$@"
fi

work=$(mktemp -d)
export HOME=$work XDG_DATA_HOME=$work/data XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work
unset QT_QPA_PLATFORM WAYLAND_DISPLAY
cd "$work" || exit 1
failed=0
fail() {
  echo "$*"
  failed=1
}

openbox --sm-disable >/dev/null 2>&1 &
manager=$!
# The keeper of the clipboard ends with the display, which ends with the test.
trap 'kill $manager; rm -rf "$work"' EXIT
# A window that opens while the window manager starts may be overlooked. It has started when it
# does as it is told.
until [ "$(xdotool get_num_desktops 2>/dev/null)" = 1 ]; do
  kill -0 $manager || exit 1
  xdotool set_num_desktops 1 2>/dev/null
done

# await TITLE — until the window of that title has the keyboard, which the window manager gives it
# when it is on the screen; no key may come before that. Its number stays in $window. Ends early
# when the process $command has ended.
await() {
  until window=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null) &&
    [ "$(xdotool getactivewindow 2>/dev/null)" = "$window" ]; do
    kill -0 "$command" 2>/dev/null || break
  done
}

keys() {
  local key
  for key in "$@"; do timeout 60 xdotool key --clearmodifiers "$key"; done
}

types() {
  timeout 60 xdotool type --clearmodifiers "$1"
}
