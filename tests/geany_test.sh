#!/bin/bash
# The Geany plug-in in the real editor: real keys and clicks, and what the documents hold then.
# geany_test.sh LIB — the folder of the built libraries; skipped (77) where programs are missing.
set -u
lib=$(realpath "$1")
source "$(dirname "$0")/desktop.bash"
need geany import
export LC_ALL=C.UTF-8 NO_AT_BRIDGE=1
dialogs() { timeout 20 xdotool search --onlyvisible --name '^Listwright$' 2>/dev/null; }
no_dialog() { [ -z "$(dialogs)" ]; }
one_dialog() { [ "$(dialogs | wc -l)" -eq 1 ]; }
takes_x() { keys x && titled '\*lf.txt *'; }
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
  printf '%s\n' '[listwright]' 'step_list=<Primary><Alt>l' 'roman_list=<Primary><Alt>r' \
    'number_lines=<Primary><Alt>1' 'unnumber_lists=<Primary><Alt>3' \
    'continue_list=<Primary><Alt>4' >config/geany/keybindings.conf
  printf '[styling]\ndefault=0xf0e0d0;0x203040;false;false\n' \
    >config/geany/filedefs/filetypes.common
  printf 'one\ntwo\n' >lf.txt
  edit lf.txt >log 2>&1 &
  geany=$!
  await titled 'lf.txt *'
  window=$(xdotool getwindowfocus)
  # A key that comes before the document has the focus is lost.
  await takes_x
  keys ctrl+z
  await titled 'lf.txt *'
}
# dialog KEY… — the keys that open it.
dialog() {
  keys "$@"
  await titled Listwright
}
# close KEY — the key that closes it.
close() {
  keys "$1"
  await no_dialog
  await titled '*Geany*'
}
# saved FILE TEXT — saves the changed document and compares it.
saved() {
  await titled "\*$1 *"
  keys ctrl+s
  await titled "$1 *"
  # shellcheck disable=SC2059 # a text with escapes
  printf "$2" | cmp - "$1" || fail "$1: $(od -An -c "$1")"
}

# Two blanks are one indentation here.
numbers='  1. \n  2. \n  3. \n'
romans='    I. \n   II. \n  III. \n'

start "$lib/geany/listwright.so"
maps=/proc/$(xdotool getwindowpid "$window")/maps
grep -q listwright.so "$maps" || fail 'the plug-in is not there'
! grep -q -e libkvrnstep -e Qt6 "$maps" || fail 'the library is there before the first dialog'

# At the caret of an indented line, through the menu; in place of the selection, undone at once; not at all.
keys Down Tab
dialog alt+t l n
close alt+i
saved lf.txt "one\n\t${numbers//\\n/\\n\\t}two\n"
keys ctrl+z ctrl+z ctrl+Home shift+End
dialog ctrl+alt+r
close alt+i
saved lf.txt "$romans\ntwo\n"
keys ctrl+z
saved lf.txt 'one\ntwo\n'
dialog ctrl+alt+l
close ctrl+q
titled 'lf.txt *' || fail 'the document was changed'

# Lines are numbered, moved, set right and lose their labels, and each change is taken back at once.
keys ctrl+Home ctrl+alt+1 x
saved lf.txt '1. xone\n2. two\n'
keys ctrl+z ctrl+z
saved lf.txt 'one\ntwo\n'
keys ctrl+y ctrl+Home shift+Down ctrl+x ctrl+End ctrl+v alt+t l e
saved lf.txt '1. two\n2. one\n'
keys ctrl+z
saved lf.txt '2. two\n1. one\n'
keys ctrl+y ctrl+End ctrl+alt+4 x
saved lf.txt '1. two\n2. one\n3. x\n'
keys ctrl+a ctrl+alt+3
saved lf.txt 'two\none\nx\n'
keys ctrl+z
saved lf.txt '1. two\n2. one\n3. x\n'
keys ctrl+z ctrl+z ctrl+z ctrl+z ctrl+z ctrl+z
saved lf.txt 'one\ntwo\n'

# Geany takes nothing while the dialog is open, but runs on: another instance has it open a
# document. The list still goes where it was asked for.
keys ctrl+Home
dialog ctrl+alt+l
shown=$(xdotool getwindowfocus)
geany_has_the_keyboard() { [ "$(timeout 20 xdotool getwindowfocus)" = "$window" ]; }
is_in_front() { [[ "$(xprop -root _NET_CLIENT_LIST_STACKING)" == *"$(printf %x "$shown")" ]]; }
# A window manager that ties no dialogs lets Geany lie over it, but not for long.
xprop -id "$shown" -remove WM_TRANSIENT_FOR
timeout 20 xdotool windowraise "$window" windowfocus "$window"
await titled Listwright
await is_in_front
timeout 20 xdotool windowminimize "$shown"
await geany_has_the_keyboard
timeout 20 xdotool type lost
keys ctrl+alt+l ctrl+w alt+t l n ctrl+q alt+F4
eval "$(timeout 20 xdotool getwindowgeometry --shell "$window")"
timeout 20 xdotool mousemove $((X + WIDTH - 150)) $((Y + HEIGHT - 150)) click 1
await titled Listwright
printf 'one\r\ntwo\r\n' >crlf.txt
edit crlf.txt
shows_crlf() { [[ "$(timeout 20 xdotool getwindowname "$window")" == 'crlf.txt '* ]]; }
await shows_crlf
await one_dialog
await titled Listwright
close alt+i
saved lf.txt "${numbers}one\ntwo\n"
edit crlf.txt
await titled 'crlf.txt *'
dialog ctrl+alt+l
close alt+i
saved crlf.txt "${numbers//\\n/\\r\\n}one\r\ntwo\r\n"
keys ctrl+w
await titled 'lf.txt *'

# Where no text can go there is no dialog; the key that follows still reaches Geany.
edit -r crlf.txt
await titled 'crlf.txt *'
keys ctrl+alt+l ctrl+w
await titled 'lf.txt *'
keys ctrl+w
await titled 'Geany*'
keys ctrl+alt+l ctrl+n
await titled 'untitled *'
no_dialog || fail 'a dialog for no document'
keys ctrl+q
wait "$geany" || fail "Geany: exit status $?"
! grep CRITICAL log || fail 'Geany complains'

# Installed: the library lies beside Geany's plug-ins, or is missed without harm.
mkdir -p lib/geany lib/listwright
cp "$lib/geany/listwright.so" lib/geany
start "$work/lib/geany/listwright.so"
keys ctrl+alt+l x
saved lf.txt 'xone\ntwo\n'
no_dialog || fail 'a dialog from nowhere'
cp "$lib/libkvrnstep.so.2" "$lib/kvrnstep-qt.so" lib/listwright

# The dialog has the settings of every editor, the entry of a type wins over them, and the
# preview looks like the document.
settings=config/listwright/steps.ini
[ -f data/listwright/Prefix_Step.dat ] || fail 'another step folder'
printf '[Listwright]\nUseDefault=1\nSelection=2\nSuffix=)\nDisplay=Preview\n' >"$settings"
dialog ctrl+alt+l
shown=$(xdotool getwindowfocus)
preview_has_colors() {
  local colors
  colors=$(import -window "$shown" -depth 8 -format %c histogram:info:-)
  [[ "$colors" == *'#203040'* && "$colors" == *'#F0E0D0'* ]]
}
await preview_has_colors
close alt+i
[[ "$(cat "$settings")" == *'EditorFont=Liberation Mono'*'EditorSize=12.75'* ]] ||
  fail "another font: $(cat "$settings")"
dialog alt+t l n
close alt+i
saved lf.txt "x${romans//./)}${numbers//./)}one\ntwo\n"

# Told to end, Geany does so as soon as the dialog has closed.
dialog ctrl+alt+l
kill -TERM "$(xdotool getwindowpid "$window")"
await no_window
await titled Listwright
keys alt+i
wait "$geany" || fail "Geany, told to end: exit status $?"
exit "$failed"
