#!/bin/bash
# The command on a real desktop: real keys into the real window, and what stays on the clipboard.
# desktop_test.sh BIN — bounded by the time limit of the test runner; skipped (77) where the desktop's programs are missing.
set -u
bin=$1 source=$(cd "$(dirname "$0")" && pwd)
source "$source/desktop.bash"

# use KEY… — opens the dialog, presses the keys in it, waits for its end; status and output stay.
use() {
  "$bin/listwright" >out 2>err &
  command=$!
  await Listwright
  keys "$@"
  wait "$command"
  status=$?
}

use alt+i
[ "$status" -eq 0 ] || fail "Insert: status $status: $(cat err)"
printf '    1. \n    2. \n    3. \n' | cmp - out || fail 'Insert: another list'
[ -f data/listwright/Prefix_Step.dat ] && [ -f config/listwright/steps.ini ] ||
  fail 'Insert: nothing was stored in the usual folders'

use alt+F4
[ "$status" -eq 1 ] && [ ! -s out ] || fail "close box: status $status"
use ctrl+q
[ "$status" -eq 1 ] && [ ! -s out ] || fail "Ctrl+Q: status $status"

use Escape
[ "$status" -eq 1 ] && [ ! -s out ] || fail "Escape: status $status"

# Enter inserts nothing by itself.
use Return alt+c
[ "$status" -eq 1 ] && [ ! -s out ] || fail "Copy: status $status"
printf '    1. \r\n    2. \r\n    3. \r\n' >wanted
timeout 20 xclip -selection clipboard -o | cmp - wanted || fail 'Copy: not on the clipboard'
timeout 20 xclip -selection clipboard -o | cmp - wanted || fail 'Copy: not there a second time'

# A host in Python, which a library with sanitizers does not trust by itself.
library=$bin/../lib/libkvrnstep.so
sanitizer=$(ldd "$library" | sed -n 's/.*libasan.* => \([^ ]*\).*/\1/p')
LD_PRELOAD=$sanitizer ASAN_OPTIONS=detect_leaks=0 python3 "$source/hosts/python_host.py" "$library" "$work" >out 2>err &
command=$!
await Listwright
keys alt+i
wait "$command" || fail "Python: $(cat err)"
cat >wanted <<'END'
'kvrn Listwright\t2.0.0'
Stepicon.ico
1 '      I. \r\n     II. \r\n    III. \r\n'
END
cmp wanted out || fail "Python: $(cat out)"

# A macro is dragged into the list of prefixes; the storage of beginnings takes another size.
"$bin/listwright" >out 2>err &
command=$!
await Listwright
keys alt+e Return
await 'Edit Step - Prefixes'
timeout 60 xdotool mousemove --window "$window" 198 43 mousedown 1 \
  mousemove --window "$window" 220 35 mousemove --window "$window" 252 24 mouseup 1
keys alt+a alt+o
await Listwright
keys alt+e Down Down Return
await 'Beginning \(Storage\)'
timeout 60 xdotool windowsize "$window" 700 400
until xwininfo -id "$window" | grep -q 'Width: 700'; do kill -0 "$command" || break; done
keys alt+o
await Listwright
keys ctrl+q
wait "$command"
printf '{STEP_#}\r\n' | cmp - data/listwright/Prefix_Step.dat || fail 'the macro was not dropped'
# 6 and 31 pixels of every window are its frame's.
grep -q '^StepBE_WT=10590' config/listwright/steps.ini &&
  grep -q '^StepBE_HT=6465' config/listwright/steps.ini || fail 'the new size was not kept'

# A text that goes over in several pieces; it takes the place of the first one.
prefix=$(printf 'é%.0s' $(seq 5000))
printf 'arg sPthStepFolder steps\narg s_IniPathAndName steps.ini\ncall\nset %s "%s"\nset %s\n%s\n' \
  'cboPreSuf(0).text' "$prefix" 'txtBEndAt.text 99' 'click cmdCIC(2)' |
  timeout 60 "$bin/stepdrive" --frontend qt - >out 2>err || fail "Copy of a long list: $(cat err)"
"$bin/listwright" --list --crlf --end 99 --prefix "$prefix" --suffix . --indent-spacing \
  --indentation --right-align --space >wanted
timeout 20 xclip -selection clipboard -o | cmp - wanted || fail 'a long list on the clipboard'

# Another program takes the clipboard, and nobody holds on to it. It says that it is done before
# it is, so it is asked until it is.
printf other | xclip -selection clipboard -i
for ((asked = 0; asked < 200; ++asked)); do
  [ "$(timeout 20 xclip -selection clipboard -o)" = other ] && break
done
[ "$asked" -lt 200 ] || fail 'the clipboard is held on to'

exit "$failed"
