#!/bin/bash
# The Geany plug-in in the real editor: real keys and clicks, and what the documents hold then.
# geany_test.sh LIB — the folder of the built libraries; skipped (77) where programs are missing.
set -u
lib=$(realpath "$1")
for program in geany xvfb-run openbox xdotool xprop import; do
  command -v "$program" >/dev/null || { echo "no $program"; exit 77; }
done
if [ -z "${LISTWRIGHT_DESKTOP:-}" ]; then
  LISTWRIGHT_DESKTOP=1 exec timeout 240 xvfb-run --auto-servernum \
    --server-args "-screen 0 1280x1024x24 -noreset" "$0" "$@"
fi

work=$(mktemp -d)
export HOME=$work XDG_DATA_HOME=$work/data XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work
export LC_ALL=C.UTF-8 NO_AT_BRIDGE=1
unset QT_QPA_PLATFORM WAYLAND_DISPLAY
trap 'kill $(jobs -p) 2>/dev/null; wait; rm -rf "$work"' EXIT
cd "$work" || exit 1
mkfifo pause
failed=0
fail() {
  echo "$*"
  failed=1
}
dialogs() { timeout 20 xdotool search --onlyvisible --name '^Listwright$' 2>/dev/null; }
in_front() { timeout 20 xdotool getactivewindow getwindowname 2>/dev/null; }
press() { timeout 20 xdotool key --clearmodifiers "$@"; }

# await WHAT COMMAND… — asks until it succeeds, for 20 seconds; nothing goes on without it.
await() {
  local what=$1 last=$((SECONDS + 20))
  shift
  until "$@" >/dev/null 2>&1; do
    [ "$SECONDS" -lt "$last" ] || {
      echo "lines ${BASH_LINENO[*]}: never: $what; in front: $(in_front)"
      exit 1
    }
    read -rt 0.02 <>pause
  done
}
# shellcheck disable=SC2053 # a pattern
titled() { [[ "$(in_front)" == $1 ]]; }
no_dialog() { [ -z "$(dialogs)" ]; }
one_dialog() { [ "$(dialogs | wc -l)" -eq 1 ]; }
takes_x() { press x && titled '\*lf.txt *'; }
no_window() { ! xprop -id "$window" WM_NAME; }

# edit OPTION… FILE — starts Geany, or has the one that runs open the file.
edit() { timeout 200 geany --config=config/geany --socket-file="$work/socket" -m -s -n -t "$@"; }
# start PLUGIN — Geany with that plug-in alone, and lf.txt in it.
start() {
  local plugins=$work/config/geany/plugins
  mkdir -p "$plugins" config/geany/filedefs
  ln -sf "$1" "$plugins/listwright.so"
  printf '%s\n' '[geany]' 'editor_font=Liberation Mono 13' 'pref_editor_tab_width=2' \
    '[plugins]' 'load_plugins=true' "active_plugins=$plugins/listwright.so;" \
    >config/geany/geany.conf
  printf '[listwright]\nstep_list=<Primary><Alt>l\nroman_list=<Primary><Alt>r\n' \
    >config/geany/keybindings.conf
  printf '[styling]\ndefault=0xf0e0d0;0x203040;false;false\n' \
    >config/geany/filedefs/filetypes.common
  printf 'one\ntwo\n' >lf.txt
  edit lf.txt >log 2>&1 &
  geany=$!
  await 'Geany' titled 'lf.txt *'
  window=$(xdotool getactivewindow)
  # A key that comes before the document has the focus is lost.
  await 'keys in the document' takes_x
  press ctrl+z
  await 'a document without them' titled 'lf.txt *'
}
quit() {
  press ctrl+q
  wait "$geany" || fail "Geany: exit status $?"
  ! grep CRITICAL log || fail 'Geany complains'
}
# dialog KEY… — the keys that open it.
dialog() {
  press "$@"
  await 'the dialog' titled Listwright
}
# close KEY — the key that closes it.
close() {
  press "$1"
  await 'no dialog' no_dialog
  await 'Geany in front' titled '*Geany*'
}
# saved FILE TEXT — saves the changed document and compares it.
saved() {
  await "$1 changed" titled "\*$1 *"
  press ctrl+s
  await "$1 saved" titled "$1 *"
  # shellcheck disable=SC2059 # a text with escapes
  printf "$2" | cmp - "$1" || fail "$1: $(od -An -c "$1")"
}

openbox --sm-disable >/dev/null 2>&1 &
# It overlooks no window when it does as it is told.
managed() {
  xdotool set_num_desktops 1 2>/dev/null
  [ "$(xdotool get_num_desktops 2>/dev/null)" = 1 ]
}
await 'the window manager' managed
# Two blanks are one indentation here.
numbers='  1. \n  2. \n  3. \n'
romans='    I. \n   II. \n  III. \n'

start "$lib/geany/listwright.so"
maps=/proc/$(xdotool getwindowpid "$window")/maps
grep -q listwright.so "$maps" || fail 'the plug-in is not there'
! grep -q -e libkvrnstep -e Qt6 "$maps" || fail 'the library is there before the first dialog'

# At the caret, through the menu; undone at once; not at all.
press Down
dialog alt+t l n
close alt+i
saved lf.txt "one\n${numbers}two\n"
press ctrl+z
saved lf.txt 'one\ntwo\n'
for key in ctrl+q alt+F4; do
  dialog ctrl+alt+l
  close "$key"
  titled 'lf.txt *' || fail "$key changed the document"
done

# In place of the selection.
press ctrl+Home shift+End
dialog ctrl+alt+r
close alt+i
saved lf.txt "$romans\ntwo\n"
press ctrl+z
saved lf.txt 'one\ntwo\n'

# Geany takes nothing while the dialog is open, but runs on: another instance has it open a
# document. The list still goes where it was asked for.
press ctrl+Home
dialog ctrl+alt+l
# A dialog asks for the keyboard once more when it finds itself on the screen. It has done so when
# it takes a key.
shown=$(xdotool getactivewindow)
user_time() { xprop -id "$shown" _NET_WM_USER_TIME; }
before=$(user_time)
took_a_key() { [ "$(user_time)" != "$before" ]; }
press Home
await 'a key in the dialog' took_a_key
timeout 20 xdotool windowfocus "$window"
geany_has_the_keyboard() { [ "$(timeout 20 xdotool getwindowfocus)" = "$window" ]; }
await 'keys for Geany' geany_has_the_keyboard
timeout 20 xdotool type lost
press ctrl+alt+l ctrl+w alt+t l n ctrl+q alt+F4
eval "$(timeout 20 xdotool getwindowgeometry --shell "$window")"
timeout 20 xdotool mousemove $((X + WIDTH - 150)) $((Y + HEIGHT - 150)) click 1
printf 'one\r\ntwo\r\n' >crlf.txt
edit crlf.txt
shows_crlf() { [[ "$(timeout 20 xdotool getwindowname "$window")" == 'crlf.txt '* ]]; }
await 'the other document' shows_crlf
await 'one dialog alone' one_dialog
timeout 20 xdotool windowactivate "$shown"
await 'the dialog in front' titled Listwright
close alt+i
saved lf.txt "${numbers}one\ntwo\n"
edit crlf.txt
await 'the other document' titled 'crlf.txt *'
dialog ctrl+alt+l
close alt+i
saved crlf.txt "${numbers//\\n/\\r\\n}one\r\ntwo\r\n"
press ctrl+w
await 'one document less' titled 'lf.txt *'

# Where no text can go there is no dialog; the key that follows still reaches Geany.
edit -r crlf.txt
await 'a read-only document' titled 'crlf.txt *'
press ctrl+alt+l ctrl+w
await 'no read-only document' titled 'lf.txt *'
press ctrl+w
await 'no document' titled 'Geany*'
press ctrl+alt+l ctrl+n
await 'a new document' titled 'untitled *'
no_dialog || fail 'a dialog for no document'
quit

# Installed: the library lies beside Geany's plug-ins, or is missed without harm.
mkdir -p lib/geany lib/listwright
cp "$lib/geany/listwright.so" lib/geany
start "$work/lib/geany/listwright.so"
press ctrl+alt+l x
saved lf.txt 'xone\ntwo\n'
no_dialog || fail 'a dialog from nowhere'
cp "$lib/libkvrnstep.so.2" "$lib/kvrnstep-qt.so" lib/listwright

# The dialog keeps its settings in Geany's folder, the entry of a type wins over them, and the
# preview looks like the document.
settings=config/geany/plugins/listwright/steps.ini
printf '[Listwright]\nUseDefault=1\nSelection=2\nSuffix=)\nDisplay=Preview\n' >"$settings"
dialog ctrl+alt+l
shown=$(xdotool getactivewindow)
preview_has_colors() {
  local colors
  colors=$(import -window "$shown" -depth 8 -format %c histogram:info:-)
  [[ "$colors" == *'#203040'* && "$colors" == *'#F0E0D0'* ]]
}
await 'a preview with the colours of the document' preview_has_colors
close alt+i
[[ "$(cat "$settings")" == *'EditorFont=Liberation Mono'*'EditorSize=13'* ]] ||
  fail "another font: $(cat "$settings")"
dialog alt+t l n
close alt+i
saved lf.txt "x${romans//./)}${numbers//./)}one\ntwo\n"

# Told to end, Geany does so as soon as the dialog has closed.
dialog ctrl+alt+l
kill -TERM "$(xdotool getwindowpid "$window")"
await 'no window of Geany' no_window
await 'the dialog in front' titled Listwright
press alt+i
wait "$geany" || fail "Geany, told to end: exit status $?"
exit "$failed"
