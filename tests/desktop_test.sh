#!/bin/bash
# The command on a real desktop: real keys into the real window, and what stays on the clipboard.
# desktop_test.sh BIN — skipped (77) where the desktop's programs are missing.
set -u
bin=$(realpath "$1")
source "$(dirname "$0")/desktop.bash"

# use STATUS KEY… — opens the dialog and presses the keys in it; then it ends with that status, and
# has printed nothing unless it is 0.
use() {
  begin "$bin/listwright"
  keys "${@:2}"
  ended "$1"
  [ "$1" -eq 0 ] || [ ! -s out ] || fail "$*: printed $(cat out)"
}
# keeps WHAT — whether the clipboard holds what is wanted
keeps() { timeout 20 xclip -selection clipboard -o | cmp - wanted || fail "$1 is not on the clipboard"; }

use 0 alt+i
printf '    1. \n    2. \n    3. \n' | cmp - out || fail 'Insert: another list'
[ -f data/listwright/Prefix_Step.dat ] && [ -f config/listwright/steps.ini ] ||
  fail 'Insert: nothing was stored in the usual folders'
for key in alt+F4 ctrl+q Escape; do use 1 "$key"; done

# Where nobody reads what Insert prints, the list is on the clipboard, as with --clipboard.
! timeout 20 xclip -selection clipboard -o 2>/dev/null || fail 'Insert: on the clipboard, too'
inserts() {
  begin "${@:3}"
  keys alt+i
  wait "$command" || fail "$1: status $?: $(cat err)"
  printf %s "$2" >wanted
  keeps "$1"
}
inserts 'the list as told' $'    1. \n    2. \n    3. \n' "$bin/listwright" --clipboard
cmp out wanted || fail '--clipboard: nothing printed'
# shellcheck disable=SC2016 # for the shell that it starts
inserts 'no output' $'      I. \n     II. \n    III. \n' sh -c '"$0" --type roman >&-' "$bin/listwright"

# Enter inserts nothing by itself.
use 1 Return alt+c
printf '    1. \n    2. \n    3. \n' >wanted
keeps 'the list'
keeps 'the list, asked for a second time,'

# A slow hand, with the preview: a click marks the number, and the key that closes a message comes up
# in the box behind it.
begin "$bin/listwright"
window=$(xdotool getwindowfocus)
is_wide() { xwininfo -id "$window" | grep -q "Width: $1"; }
keys alt+o Up Return
await is_wide 542
timeout 60 xdotool mousemove --window "$window" 328 178 click 1
keys 2
timeout 60 xdotool mousemove --window "$window" 400 178 click 1
keys BackSpace
await titled 'How many?'
xdotool keydown Return
await titled Listwright
xdotool keyup Return
keys 3 alt+i
wait "$command"
printf '    2. \n    3. \n' | cmp - out || fail 'How many?: another list'

# The host in Python of docs/hosting.md, which a library with sanitizers does not trust by itself. The
# library writes an icon into the folder in which it is.
sed -n '/^```python/,/^```/{/^```/!p}' "$tests/../docs/hosting.md" >host.py
mkdir lib
cp "$bin"/../lib/{libkvrnstep.so,kvrnstep-qt.so} lib
library=lib/libkvrnstep.so
sanitizer=$(ldd "$library" | sed -n 's/.*lib[at]san.* => \([^ ]*\).*/\1/p')
begin env LD_PRELOAD="$sanitizer" ASAN_OPTIONS=detect_leaks=0 \
  /usr/bin/python3 host.py "$library" "$work"
keys alt+i
wait "$command" || fail "Python: $(cat err)"
printf "%s\n" Stepicon.ico "1 b'    I. \\r\\n   II. \\r\\n  III. \\r\\n'" "b'1. one\\n2. two\\n'" | cmp - out ||
  fail "Python: $(cat out)"

# Windows that another program destroys, one tied to the other.
begin timeout 60 "$bin/listwright"
owner=$(xdotool getwindowfocus)
keys alt+e Return
await titled 'Edit Step - Prefixes'
xprop -id "$(xdotool getwindowfocus)" WM_TRANSIENT_FOR | grep -qi "$(printf %x "$owner")" ||
  fail 'the editor is not in front of the dialog'
timeout 20 xdotool getwindowfocus windowclose
await titled Listwright
timeout 20 xdotool getwindowfocus windowclose
wait "$command"
[ $? -eq 1 ] || fail "a window was destroyed: $(cat err)"

# The storage of beginnings takes another size.
begin "$bin/listwright"
keys alt+e Down Down Return
await titled 'Beginning (Storage)'
window=$(xdotool getwindowfocus)
timeout 60 xdotool windowsize "$window" 700 400
await is_wide 700
keys alt+o
await titled Listwright
keys ctrl+q
wait "$command"
# 6 and 31 pixels of every window are its frame's.
grep -q '^StepBE_WT=10590' config/listwright/steps.ini &&
  grep -q '^StepBE_HT=6465' config/listwright/steps.ini || fail 'the new size was not kept'

# Each window comes back onto the screen, at its upper left if it is too large, and is stored where it
# was until the user moves it.
sees() {
  await titled "$1"
  eval "$(timeout 20 xdotool getwindowfocus getwindowgeometry --shell)"
  # The borders are counted twice.
  ((X >= 0 && Y >= 0 && (X <= 2 || X + WIDTH < 1280) && (Y <= 40 || Y + HEIGHT < 1024))) ||
    fail "$1 is at $X, $Y"
}
printf '%s\n' '[Listwright]' Display=FilesPreview {Listwright,StepBE,StepPSEdit}_LT=40000 \
  {Listwright,StepBE,StepPSEdit}_TT=-9000 >config/listwright/steps.ini
for scale in 1 3; do
  begin env QT_SCALE_FACTOR=$scale "$bin/listwright"
  sees Listwright
  keys alt+e Return
  sees 'Edit Step - Prefixes'
  keys Escape
  sees Listwright
  keys alt+e Down Down Return
  sees 'Beginning (Storage)'
  keys Escape
  sees Listwright
  [ $scale = 1 ] && {
    keys Escape
    wait "$command"
  }
done
timeout 20 xdotool mousemove 99 9 mousedown 1
moves() {
  timeout 20 xdotool mousemove 160 90 mousemove 219 129
  xwininfo -id "$WINDOW" | grep -q 'Absolute upper-left X: *121'
}
await moves
timeout 20 xdotool mouseup 1
keys Escape
wait "$command"
[ "$(grep -cE 'Step.*_(LT=40000|TT=-9000)|Listwright_.T=600$' config/listwright/steps.ini)" -eq 6 ] ||
  fail "other places: $(cat config/listwright/steps.ini)"

# A text that goes over in several pieces; it takes the place of the first one.
prefix=$(printf 'é%.0s' $(seq 5000))
printf 'arg sPthStepFolder steps\narg s_IniPathAndName steps.ini\ncall\nset %s "%s"\nset %s\n%s\n' \
  'cboPreSuf(0).text' "$prefix" 'txtBEndAt.text 99' 'click cmdCIC(2)' |
  timeout 60 "$bin/stepdrive" --frontend qt - >out 2>err 9>held ||
  fail "Copy of a long list: $(cat err)"
"$bin/listwright" --list --end 99 --prefix "$prefix" --suffix . --indent-spacing \
  --indentation --right-align --space >wanted
keeps 'a long list'
keeper() { grep -lsxz "TMPDIR=$work" $(pgrep -x kvrnstep-clipbo | sed 's|.*|/proc/&/environ|') /dev/null; }
! readlink "$(dirname "$(keeper)")"/fd/* | grep "$work" || fail 'the clipboard holds a file of its host'

# Another program takes the clipboard, and nobody holds on to it. It says that it is done before
# it is, so it is asked until it is.
printf other | xclip -selection clipboard -i
is_given_up() { [ "$(timeout 20 xclip -selection clipboard -o)" = other ]; }
await is_given_up
await eval '! keeper'

exit "$failed"
