#!/bin/bash
# A person without a mouse: builds, saves, reopens and inserts a list, edits both lists of
# favourites, stores and applies a beginning. keyboard_test.sh BIN
set -u
bin=$1
source "$(dirname "$0")/desktop.bash"

# times COUNT KEY
times() {
  local i
  for ((i = 0; i < $1; ++i)); do keys "$2"; done
}

# windows COUNT — whether so many windows and menus are to be seen.
windows() { [ "$(xdotool search --onlyvisible --class '^listwright$' | wc -l)" -eq "$1" ]; }

begin "$bin/listwright"
# Roman numerals from 2 to 4: an arrow of the keyboard is an arrow of the spinner, and F4 asks.
keys Down Down
times 7 Tab
keys Up Tab F4
await titled 'Preset value'
types 4
keys Return
await titled Listwright
# A letter that a dead key makes is no digit.
keys dead_acute e

# "Prefix" is a link. Alt brings a macro into the box, and Enter adds what the box holds.
times 2 Tab
keys space
await titled 'Edit Step - Prefixes'
types 'No '
keys alt+r Return
types Step
keys Return alt+o
await titled Listwright
# The first entry of the list, with the keyboard still on the link; Escape closes what drops down only.
# Keys that come while a list or a menu closes go nowhere, so each is waited for.
keys Tab alt+Down
await windows 2
keys Escape
await windows 1
keys Down

# The suffixes, by the menu: the last entry is deleted, the first one moved down. Space on a macro
# puts it into the box, and the keyboard goes there.
keys alt+e Down Return
await titled 'Edit Step - Suffixes'
for entry in ')' ':' '-'; do
  types "$entry"
  keys Return
done
keys Tab Tab space Tab Up
times 9 Tab
keys space
times 4 shift+Tab
keys space
types =
keys Return alt+o
await titled Listwright

# A beginning, stored in the second slot and applied by the picture beside it. Tab leads to the
# beginning of what is there.
keys alt+e Up Up Return
await titled 'Beginning (Storage)'
keys Tab
types 'do:'
keys Return Tab shift+Tab
types 'To '
keys Tab space
await titled Listwright

# Alt+O is the menu's, not the Open button's. Both panels are shown, and the list is saved.
shows() { xwininfo -id "$(timeout 20 xdotool getwindowfocus)" | grep -q "$1"; }
keys alt+o Up Return
await shows 'Width: 542'
keys alt+o Up Up Return
await shows 'Height: 426'
keys ctrl+s
await titled 'Save As'
keys ctrl+a
types mine
keys Return
await titled Listwright
keys Escape
ended 1

# Shift+Tab leads from the kinds of list over the preview to the step files.
begin "$bin/listwright"
times 5 shift+Tab
keys Down Return alt+i
ended 0
printf 'To do:\n    No II  II. \n    No III III. \n    No IV  IV. \n' | cmp - out || fail "$(cat out)"
[ -f data/listwright/mine.step ] || fail 'the list was not saved'

# The menu key opens the menu of the step files, Shift+F10 too.
begin "$bin/listwright"
times 5 shift+Tab
keys Down shift+F10
await windows 2
keys Escape
await windows 1
keys Menu
await windows 2
keys Down Down Return
await [ ! -f data/listwright/mine.step ]
keys F10
await windows 2
keys Escape
await windows 1
keys ctrl+q
ended 1

printf 'No {STEP_R}\r\nStep\r\n' | cmp - data/listwright/Prefix_Step.dat || fail 'prefixes'
printf ':\r\n)\r\n{STEP_L}=\r\n' | cmp - data/listwright/Suffix_Step.dat || fail 'suffixes'
grep -q 'To do:' data/listwright/beginning_step.dat || fail 'the beginning was not stored'
exit "$failed"
