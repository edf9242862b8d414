#!/bin/bash
# Files that hurt: folders in their place, more than is read, a disk without room, files that others
# change while the dialog is open, a folder that takes no files from an ordinary user. The dialog goes
# on, and what was there stays: files_test.sh STEPDRIVE
set -u
stepdrive=$1
source "$(dirname "$0")/common.bash"

# drive SETTINGS FOLDER [COMMAND…] — a whole script, which ends with Insert; its output goes to "out".
drive() {
  {
    printf 'arg s_IniPathAndName "%s"\narg sPthStepFolder "%s"\ncall\n' "$1" "$2"
    printf '%s\n' "${@:3}" 'click cmdCIC(0)'
  } | timeout 200 "$stepdrive" - >out 2>err || fail "$*: status $?: $(cat err)"
}
inserts() { grep -q '^returned True "    1. \\r\\n    2. \\r\\n    3. \\r\\n"$' out || fail "$1: $(cat out)"; }

# say LINE… — commands for the script that runs
say() { printf '%s\n' "$@" >&"${drive[1]}"; }
# hear START — waits for a line of the output that begins like this, and leaves it in $line
hear() {
  while IFS= read -r -u "${drive[0]}" line; do
    [[ $line != "$1"* ]] || return 0
    [[ $line != impossible* && $line != stepdrive:* ]] || fail "$line"
  done
  fail "the script ended before \"$1\""
  return 1
}
# open_dialog [PROGRAM…] — starts a script, by way of a program if one is given
open_dialog() {
  coproc drive { exec timeout 60 "$@" "$stepdrive" - 2>&1; }
  drive_id=$!
  say 'arg sPthStepFolder steps' 'arg s_IniPathAndName steps.ini' call 'show lstStepf.items'
  hear 'lstStepf.items'
}
# close_dialog — by Insert; the dialog must have gone on to here
close_dialog() {
  say 'click cmdCIC(0)' version
  hear 'version' || true
  eval "exec ${drive[1]}>&-"
  wait "$drive_id" || fail "status $? after $line"
}
# expect_begin COMMAND TEXT — what a command leaves in the box of the beginning
expect_begin() {
  say "$1" 'show txtBegin.text'
  hear 'txtBegin.text' && [ "$line" = "txtBegin.text = \"$2\"" ] || fail "$1: $line, not $2"
}
setup() { printf '0,"%s","","",".",0,1,5,0,0,1,0,0,0,0\r\n' "$1"; }
sum() { find . -type f -exec cksum {} + | sort; }
unchanged() { [ "$(sum)" = "$before" ] || fail "$1: $(sum | diff - <(echo "$before"))"; }

# Folders that are not there, or files; settings and a list that are folders.
mkdir -p settings.ini lists/{Suffix_Step,beginning_step}.dat
echo keep >file
drive missing/folder/steps.ini steps
inserts 'settings in a missing folder'
[ ! -e missing ] || fail 'a folder appeared'
drive steps.ini file
inserts 'a step folder that is a file'
[ "$(cat file)" = keep ] || fail 'the file in place of the step folder was changed'
drive settings.ini lists 'click lblD(5)' 'type txtHold(0) x' close 'click lblD(1)' \
  'type txtAdd x' 'click cmdAdd' 'click cmdOK'
inserts 'settings and lists that are folders'
[ -z "$(find lists -type f -size +0)" ] || fail 'lists that are folders were saved'

# Storage that is too large to be read is not written over.
truncate -s 17M steps/beginning_step.dat
drive steps.ini steps 'click lblD(5)' 'type txtHold(0) x' close
[ "$(stat -c %s steps/beginning_step.dat)" -gt 9999 ] || fail 'storage that was not read was saved'

# Of a list of more lines than are read, the others stay behind those that were edited.
seq 40000 | sed 's/$/\r/' >steps/Prefix_Step.dat
drive steps.ini steps 'choose cboPreSuf(0) 32000' 'show cboPreSuf(0).text' 'choose cboPreSuf(0) 0' \
  'menu mnuEdits(0)' 'click lstEdit 0' 'click cmdDelete' 'click cmdOK'
grep -q '^cboPreSuf(0).text = "32001"$' out || fail 'a long list: not 32,001 lines'
seq 2 40000 | sed 's/$/\r/' | cmp steps/Prefix_Step.dat || fail 'a long list lost lines'

# Anything at all under the name of a step file, and a long text.
head -c 104857600 /dev/zero | tr '\0' '"' >steps/huge.step
seq 1000 >steps/lines.step
mkdir steps/folder.step
long=$(printf 'p%.0s' $(seq 5000))
drive steps.ini steps 'menu mnuOptions(4)' 'show lstStepf.items' 'dblclick lstStepf 0' \
  'dblclick lstStepf 1' "set cboPreSuf(0).text \"$long\"" 'type cboPreSuf(0) x'
grep -q '^lstStepf.items = "huge lines"$' out || fail "odd step files: $(head -n 3 out)"
grep -q "^returned True \"${long}x1\"$" out || fail "odd step files: $(tail -n 1 out)"

printf '0,"","","%0500000d","",0,1,99\n' 0 >steps/much.step
drive steps.ini steps 'dblclick lstStepf 2'
grep -q '^message information "How long?".*16 MiB' out && grep -q '^returned False ""$' out ||
  fail "a list of 50 MB: $(cut -c 1-200 out)"
# Of less characters than that, but more bytes.
{ printf '0,"","","'; printf '€%.0s' {1..57000}; echo '","",0,1,99'; } >steps/text.step
drive steps.ini steps 'dblclick lstStepf 3' 'answer list.txt' 'menu mnuFiles(1)'
[ "$(stat -c %s steps/list.txt)" -gt 16777216 ] || fail 'a text of 17 MB was not saved'

# Listed: files and links to files.
rm -rf ./*
long=$(printf 'n%.0s' $(seq 250))
mkdir steps other
for name in apart folder gone link real; do setup "$name" >"steps/$name.step"; done
setup linked >other/linked
ln -sf ../other/linked steps/link.step
ln -s nowhere steps/dangling.step
setup long >"steps/$long.step"
printf '[Listwright]\nDisplay=Files\n' >steps.ini
printf '[Mine]\nkept=1\n' >replacement.ini
open_dialog || exit 1
[ "$line" = "lstStepf.items = \"apart folder gone link $long real\"" ] || fail "listed: $line"
# Two dialogs change a list.
say 'menu mnuEdits(0)' 'type txtAdd mine' 'click cmdAdd' 'show lstEdit.items'
hear 'lstEdit.items'
drive other.ini steps 'menu mnuEdits(0)' 'type txtAdd theirs' 'click cmdAdd' 'click cmdOK'
say 'click cmdOK' 'show cboPreSuf(0).items'
hear 'cboPreSuf(0).items'
[ "$line" = 'cboPreSuf(0).items = "mine theirs"' ] || fail "of two dialogs: $line"
# Others change them.
rm steps/gone.step steps/folder.step
mkdir steps/folder.step
ln -sf nobody steps/apart.step
mv replacement.ini steps.ini
expect_begin 'dblclick lstStepf 5' real
expect_begin 'dblclick lstStepf 2' ''
expect_begin 'dblclick lstStepf 3' linked
expect_begin 'dblclick lstStepf 1' ''
expect_begin 'dblclick lstStepf 0' ''
expect_begin 'dblclick lstStepf 4' long
# What has become a folder is not deleted.
say 'click lstStepf 1' 'rightclick lstStepf' 'menu mnuHidd(2)' 'show lstStepf.items'
hear 'lstStepf.items'
[ -d steps/folder.step ] || fail 'a folder was deleted'
# Saved: over a link, to a link that leads nowhere, under the longest name and one too long.
for name in link dangling "$long" "n$long"; do say "answer $name.step" 'menu mnuFiles(1)'; done
say 'show lstStepf.items'
hear 'lstStepf.items'
[ "$line" = "lstStepf.items = \"dangling link $long real\"" ] || fail "saved: $line"
close_dialog
for file in other/linked steps/nowhere "steps/$long.step"; do
  grep -q '^0,"long"' "$file" || fail "not saved: $file"
done
[ -L steps/link.step ] && [ -L steps/dangling.step ] || fail 'a link was replaced'
head -n 2 steps.ini | cmp -s - <(printf '[Mine]\nkept=1\n') || fail 'the new settings file was lost'
grep -q '^\[Listwright\]' steps.ini || fail 'the settings were not stored in the new file'

# The step folder and the settings go away, and come back as each other.
rm -rf steps/folder.step
open_dialog || exit 1
mv steps was
mv steps.ini steps
mkdir steps.ini
expect_begin 'dblclick lstStepf 0' ''
say 'answer one.step' 'menu mnuFiles(1)' 'menu mnuOptions(0)' 'click lblD(5)' close 'click lblD(1)' \
  'click cmdOK'
close_dialog
[ -f steps ] && [ -d steps.ini ] && [ -z "$(ls -A steps.ini)" ] || fail 'written to something else'
rmdir steps.ini
mv steps steps.ini
mv was steps

# An ordinary user in a folder that is only to be read.
[ "$(id -u)" -ne 0 ] || as_user='setpriv --reuid=65534 --regid=65534 --clear-groups'
chmod 755 "$work"
chmod -R a-w .
before=$(sum)
if ${as_user:-} test -x "$stepdrive" -a -x "$work"; then
  # shellcheck disable=SC2086 # words
  open_dialog ${as_user:-} && {
    expect_begin 'dblclick lstStepf 3' real
    say 'answer one.step' 'menu mnuFiles(1)' 'answer real.step' 'menu mnuFiles(1)' \
      'menu mnuOptions(0)' 'click lblD(5)' 'type txtHold(0) x' close 'click lblD(0)' \
      'type txtAdd x' 'click cmdAdd' 'click cmdOK' 'move 300 300'
    close_dialog
  }
else
  echo 'an ordinary user cannot run stepdrive here'
fi
chmod -R u+w .
unchanged 'a folder to be read only was changed'

# A disk with no room: no file takes more than 1 KiB, and all that are saved need more.
much=$(printf 'm%.0s' $(seq 2000))
setup "$much" >steps/real.step
for name in Prefix_Step beginning_step begin_my_step; do printf '"%s"\r\n' "$much" >"steps/$name.dat"; done
printf '\r\n' >steps/end_my_step.dat
printf '[Mine]\nmuch=%s\n' "$much" >>steps.ini
before=$(sum)
# shellcheck disable=SC2016 # for the shell that it starts
open_dialog bash -c 'ulimit -f 1; exec "$@"' limited && {
  expect_begin 'dblclick lstStepf 3' "$much"
  say 'answer real.step' 'menu mnuFiles(1)' 'menu mnuEdits(0)' 'type txtAdd x' 'click cmdAdd' \
    'click cmdOK' 'menu mnuEdits(3)' 'type txtHold(0) x' close 'menu mnuOptions(0)' \
    'menu mnuOptions(5)' 'move 300 300'
  close_dialog
}
unchanged 'written to a full disk'

[ -z "$(find . -name '.kvrnstep-*')" ] || fail 'a temporary file stays'
exit "$failed"
