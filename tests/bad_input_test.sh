#!/bin/bash
# What must not hurt: bad_input_test.sh STEPDRIVE. Every case opens the dialog, inserts, and looks at
# what is left of the files.
set -u
stepdrive=$1
work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT
cd "$work" || exit 1
failed=0
fail() {
  echo "$*"
  failed=1
}

# drive SETTINGS FOLDER [COMMANDS] — the output goes to "out"
drive() {
  printf 'arg sPthStepFolder "%s"\narg s_IniPathAndName "%s"\ncall\n%s\nclick cmdCIC(0)\n' \
    "$2" "$1" "${3:-}" | timeout 60 "$stepdrive" - >out 2>err || fail "$*: status $?: $(cat err)"
}
inserts() { grep -q '^returned True "    1. \\r\\n    2. \\r\\n    3. \\r\\n"$' out || fail "$1: $(cat out)"; }

# A settings file of random bytes keeps every one of them.
for seed in 1 2 3 4 5 6 7 8; do
  LC_ALL=C awk -v seed="$seed" 'BEGIN {
    srand(seed)
    for (i = 0; i < seed * 9001; ++i) printf "%c", int(rand() * 255) + 1
  }' >random.ini
  cp random.ini was.ini
  drive random.ini steps
  inserts "random settings $seed"
  cmp -s <(head -c "$(stat -c %s was.ini)" random.ini) was.ini || fail "random settings $seed: bytes lost"
  drive random.ini steps
  [ "$(grep -ao SpcCount=4 random.ini | wc -l)" -eq 1 ] || fail "random settings $seed: not stored"
done

# Folders that are not there, or files.
drive missing/folder/steps.ini steps
inserts 'settings in a missing folder'
[ ! -e missing ] || fail 'a folder appeared'
echo keep >file
drive steps.ini file
inserts 'a step folder that is a file'
[ "$(cat file)" = keep ] || fail 'the file in place of the step folder was changed'
mkdir settings.ini
drive settings.ini steps
inserts 'settings that are a folder'

# Files that may not be written, not even by root.
printf '[Host]\nkeep=1\n' >readonly.ini
printf 'A\r\n\r\nB\r\n' >steps/Prefix_Step.dat
chmod a-w readonly.ini steps/Prefix_Step.dat
drive readonly.ini steps
inserts 'read-only files'
[ "$(cat readonly.ini)" = $'[Host]\nkeep=1' ] || fail 'read-only settings were changed'
[ "$(stat -c %s steps/Prefix_Step.dat)" -eq 8 ] || fail 'a read-only list was changed'
rm -f steps/Prefix_Step.dat

# A list of more lines than are read stays whole, and so does one that cannot be read.
seq 40000 >lf.dat
sed 's/$/\r/' lf.dat >steps/Prefix_Step.dat
cp steps/Prefix_Step.dat was.dat
drive steps.ini steps 'choose cboPreSuf(0) 32000
show cboPreSuf(0).text
choose cboPreSuf(0) 0
clear cboPreSuf(0)'
inserts 'a list of 40,000 lines'
grep -q '^cboPreSuf(0).text = "32001"$' out || fail 'a long list: not 32,001 lines'
cmp -s steps/Prefix_Step.dat was.dat || fail 'a long list lost lines'
rm -f steps/Suffix_Step.dat
mkdir steps/Suffix_Step.dat
drive steps.ini steps
inserts 'a list that is a folder'
rmdir steps/Suffix_Step.dat

# A disk without room, and a folder that takes no files, leave what is there as it was.
mkdir disk
if mount -t tmpfs -o size=64k none disk 2>err; then
  echo old >disk/one.step
  cp steps.ini disk/steps.ini
  head -c 100000 /dev/zero >disk/filler 2>err
  drive disk/steps.ini disk 'answer one.step
menu mnuFiles(1)
show lstStepf.items'
  inserts 'a full disk'
  [ "$(cat disk/one.step)" = old ] || fail 'a full disk: the step file was lost'
  cmp -s disk/steps.ini steps.ini || fail 'a full disk: the settings were changed'
  [ -z "$(find disk -name '.kvrnstep-*')" ] || fail 'a full disk: a temporary file stays'
  mount -o remount,ro disk
  drive disk/steps.ini disk 'answer two.step
menu mnuFiles(1)'
  inserts 'a folder that takes no files'
  umount disk
else
  echo "no small disk to fill: $(cat err)"
fi

# Anything at all under the name of a step file.
head -c 104857600 /dev/zero | tr '\0' '"' >steps/huge.step
head -c 5000 lf.dat >steps/lines.step
mkdir steps/folder.step
drive steps.ini steps 'menu mnuOptions(4)
show lstStepf.items
dblclick lstStepf 0
dblclick lstStepf 1
show txtBegin.text cboPreSuf(0).text txtBEndAt.text'
grep -q '^lstStepf.items = "huge lines"$' out || fail "odd step files: $(head -n 3 out)"
grep -q '^returned True "a"$' out || fail "odd step files: $(tail -n 1 out)"
rm -rf steps/*.step

# Long texts.
long=$(printf 'p%.0s' $(seq 5000))
drive steps.ini steps "set cboPreSuf(0).text \"$long\"
menu mnuOptions(5)
type cboPreSuf(0) x"
grep -q "^returned True \"    $long""x 1. " out || fail 'a prefix of 5,000 characters'

exit "$failed"
