#!/bin/bash
# The listwright command without a window: command_test.sh LISTWRIGHT
set -u
listwright=$(realpath "$1")
page=$(realpath "$(dirname "$0")/../docs/number-lines.md")
source "$(dirname "$0")/common.bash"

# check STATUS OUTPUT ERRORS ARGUMENTS… — output and errors with printf's escapes; errors must be
# one line that holds the text.
check() {
  local status=$1 output=$2 errors=$3 got
  shift 3
  timeout 20 "$listwright" "$@" >out 2>err </dev/null
  got=$?
  printf "$output" >wanted
  if [ "$got" -ne "$status" ] || ! cmp -s out wanted ||
    { [ -n "$errors" ] && ! grep -qF -- "$errors" err; } ||
    { [ "$status" -eq 2 ] && [ "$(wc -l <err)" -ne 1 ]; }; then
    fail "listwright $*: status $got: $(diff wanted out; cat err)"
  fi
}

check 0 '1.\r\n2.\r\n3.\r\n' '' --list --end 3 --suffix . --crlf
check 0 'B\n    I)\n   II)\nE' '' --exact --list --type roman --end 2 --upper-case --indent 2 \
  --right-align --prefix ' ' --suffix ')' --beginning $'B\n' --ending $'\nE'
check 0 'B\r\n1\r\nE\r\n' '' --list --end 1 --beginning=$'B\r\n' --ending $'\nE\r\n' --crlf
check 0 '98thof é, \r\n99thof é, \r\n' '' --list --start 98 --end 99 --prefix= --suffix 'of é,' \
  --space --ordinal --line-spacing 0 --beginning= --ending '' --crlf
check 0 'Part III (C)\n\nPart IV (D)\n' '' --list --type prefix-suffix --start 3 --end 4 \
  --prefix 'Part {STEP_R} (' --suffix '{STEP_L})' --line-spacing 1
check 0 '    --end=a--x=\n' '' --list --type alphabetical --end 1 --prefix --end= --suffix=--x= \
  --indentation --indent-spacing
check 0 'kvrn Listwright\t2.0.0\n' '' -V

check 2 '' '1 to 99' --list
for end in '' 0 100 1.5 99999999999999999999; do check 2 '' '1 to 99' --list --end="$end"; done
check 2 '' '--start 5, --end 3' --list --start 5 --end 3
check 2 '' '0 to 9' --list --end 3 --line-spacing 10
check 2 '' '0 to 255' --list --end 3 --indent -1
check 2 '' 'end takes exactly one value' --list --end 3 --end
check 2 '' 'space takes no value' --list --end 3 --space=x
check 2 '' 'numbered, alphabetical, roman and prefix-suffix' --list --end 3 --type Roman
check 2 '' '--bogus; --help' --bogus
check 2 '' '--prefix needs --list, --save or --number' --prefix x
check 0 '1\n' '' --plugin /nowhere/libkvrnstep.so --list --end 1
check 2 '' 'libkvrnstep' --plugin /nowhere/libkvrnstep.so

# Step files.
check 0 '' '' --save abc.step --type alphabetical --end 3 --suffix ')' --beginning $'a "b"\r\n'
check 0 'a "b"\na)\nb)\nc)\n' '' abc.step
mkdir -p steps abc data/listwright
printf '0,"","","",".",0,0,2,0,0,1,0,0,0,0\n' >'steps/my list.step'
cp steps/*.step data/listwright/x.step
export XDG_DATA_HOME=$work/data
check 0 '  1.\n  2.\n  1.\n  2.' '' --exact --indent 2 --step-folder steps 'my list' 'my list.step'
check 0 'a "b"\na)\nb)\nc)\n    1.\n    2.\n' '' abc x
echo 'Dear reader, 1, 2, 3' >-file.step
check 2 '' '-file.step is no step file; one begins with a number' -- -file.step
check 2 'a "b"\na)\nb)\nc)\n' "cannot read [a,b]: No such file or directory, nor in $work/data" \
  '[a,b]' abc.step
HOME=$work XDG_DATA_HOME=data check 2 '' "nor in $work/.local/share/listwright" x
check 2 '' 'cannot write no/abc.step: there is no such folder' --save no/abc.step --end 3
check 2 '' 'ends in .step' --save abc.txt --end 3
check 2 '' 'needs a name' --save= --end 3
check 2 '' '--save needs --end' --save abc.step
check 2 '' 'FILE goes without' --list --end 3 abc.step

# Limits.
long=$(printf '%0120000d' 0)
check 2 '' 'longer than 16 MiB' --list --end 99 --prefix "$long" --suffix "$long"
printf '0,"","","%s","%s",0,1,99\n' "$long" "$long" >long.step
truncate -s 1048577 large.step
check 2 '' 'long.step: the list is longer than 16 MiB' long
check 2 '' 'it is larger than 1 MiB' large

# Names that are not UTF-8, and what would command a terminal.
sum=$(find . | sort)
for arguments in "--save é.step --end 3" --settings=é --step-folder=é é; do
  # shellcheck disable=SC2086 # words
  check 2 '' '<E9>' ${arguments//é/$'\xe9'}
done
[ "$(find . | sort)" = "$sum" ] || fail "other files: $(find .)"
check 2 '' 'a^Jb^[: No such file' $'a\nb\e'
export listwright prefix=$'\t\r\e\xc2\x9b\x7f\xe9'
script -qec '"$listwright" --crlf --list --end 1 --prefix "$prefix"' typed >/dev/null
grep -qxF $'\t^M^[<U+009B>^?é1\r\r' typed || fail "on a terminal: $(cat -A typed)"

# Lines. The page about them has a run of each example, with what it prints.
PATH=$(dirname "$listwright"):$PATH
awk '/^```console/ { ++n; next } /^```/ { text = 0; next } n && /^\$ / { text = 1 }
  text { print > ("example-" n) }' "$page"
examples=0
for example in example-*; do
  awk '/^\$ / { sub(/^\$ /, ""); script = 1; inside = 0 } script { print > (FILENAME ".sh") }
    /<<END$/ { inside = 1 } script && (/^END$/ || !inside) { script = 0; next }
    !script { print > (FILENAME ".wanted") }' "$example"
  bash "./$example.sh" 2>&1 | cmp - "$example.wanted" || fail "$example of the page: $(cat "$example")"
  examples=$((examples + 1))
done
[ "$examples" -ge 10 ] || fail "$examples examples"

check 2 '' '--keep-start goes with --renumber' --number --keep-start
check 2 '' '--step: any number but 0' --renumber --step 0
check 2 '' '--end goes with lists' --number --end 3
check 2 '' '--prefix goes without FILE' --number --prefix x abc
check 2 '' '--pad needs --number' --list --end 3 --pad 2
check 2 '' 'goes without another' --number --unnumber
check 2 '' 'no/x: No such file' --number no/x
# check has no text: here there is one.
printf 'a\nb\n' | "$listwright" --number --type roman --start 3999 >out 2>err
[ "$?:$(cat err)" = '1:listwright: line 2: there is no Roman numeral for 4000, they go from 1 to 3999' ] &&
  [ ! -s out ] || fail "a label that cannot be: $(cat out err)"
yes | head -n 100000 >many
(trap '' PIPE; "$listwright" --number <many 2>err | head -n 1 >out; [ "${PIPESTATUS[0]}" -eq 0 ]) &&
  [ ! -s err ] || fail "a pipe that closes early: $(cat err)"
printf 'x\na\r\n\xff\e' | "$listwright" --number | cmp - <(printf '1. x\n2. a\r\n3. \xff\e') ||
  fail 'bytes of a text'
[ "$(read -r x <many; { read -r x; "$listwright" --number | tail -n 1; } <many)" = '99999. y' ] ||
  fail 'the rest of a file'
"$listwright" --number <many >/dev/full 2>err
[ $? -eq 2 ] && grep -q 'cannot write' err || fail 'a full disk goes unnoticed'

# A dialog that cannot be.
touch file
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
check 2 '' 'cannot make the folder file' --step-folder file
check 2 '' 'cannot make the folder' --step-folder steps --settings file/steps.ini
check 2 '' '' --step-folder steps --settings steps.ini
dialog=(--step-folder steps --settings steps.ini)
DISPLAY=:4711 check 2 '' '' "${dialog[@]}"
for platform in 'linuxfb;eglfs:x=1' offscreen:configfile=/nowhere; do
  QT_QPA_PLATFORM=$platform check 2 '' 'QT_QPA_PLATFORM' "${dialog[@]}"
done
serve_badly silent
DISPLAY=$work/silent WAYLAND_DISPLAY=$work/silent check 2 '' 'one that answers' "${dialog[@]}"
if [ -e "$(dirname "$listwright")/../lib/kvrnstep-qt-driven.so" ]; then
  printf 'call\nclick cmdCIC(1)\n' >script
  serve_badly greets $'OK 0123456789abcdef0123456789abcdef\r\n'
  for bus in silent greets; do
    DBUS_SESSION_BUS_ADDRESS=unix:path=$work/$bus QT_QPA_PLATFORM=offscreen timeout 20 \
      "$(dirname "$listwright")/stepdrive" --frontend qt script >out 2>err ||
      fail "a bus that only $bus: $(cat out err)"
  done
fi

# A list that cannot be written.
"$listwright" --list --end 3 >/dev/full 2>err
[ $? -eq 2 ] && grep -q 'cannot write' err || fail 'a full disk goes unnoticed'

exit "$failed"
