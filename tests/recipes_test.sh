#!/bin/bash
# The recipes of docs/editors.md in the real editors, with the lines that the page has: recipes_test.sh
# LISTWRIGHT SOURCE — skipped (77) where an editor is missing.
# shellcheck disable=SC2016,SC2154 # nothing to expand in single quotes; variables of the cases
set -u
source "$(dirname "$0")/editor_cases.bash"
need tmux kak micro nano nvim gedit
unset XDG_CONFIG_HOME XDG_DATA_HOME
exec 3>&1
terminal() { tmux -f /dev/null -S "$work/tmux" "$@"; }
shows() { terminal capture-pane -p >screen.log && grep -qF -- "$1" screen.log; }
hides() { ! shows "$1"; }
has_ended() { ! terminal has-session; }

# recipe EDITOR — does what its section says: writes its lines into the files, runs its commands.
recipe() {
  local line file inside=
  while IFS= read -r line; do
    case $inside$line in
      'In `~'*) file=$HOME/${line#*\~/} file=${file%%\`*} ;;
      '```sh') inside=1 file=$work/commands && rm -f commands ;;
      '```'*) inside=1 && mkdir -p "${file%/*}" ;;
      '1```') inside= ;;
      1*) printf '%s\n' "$line" >>"$file" ;;
    esac
  done < <(sed "1,/^### $1\$/d; /^##/q" "$source/docs/editors.md")
  [ "$file" != "$work/commands" ] || (cd "$source" && sh -e "$file") || fail "$1: the commands fail"
}
# edit STEP… — starts $editor with the text. A step presses keys, awaits "?TEXT", awaits its end with
# "-TEXT", or inserts the dialog's list: "!".
edit() {
  : >said
  terminal new-session -d -x 60 -y 12 "$editor text"
  for step; do
    case $step in
      \?*) await shows "${step#?}" ;;
      -*) await hides "${step#?}" ;;
      !) await titled Listwright && keys alt+i && await shows 3. ;;
      *) eval "terminal send-keys $step" ;;
    esac
  done >&3
  await has_ended >&3
}
before='\nb\na\n5. x\n9. y\n' after='    1. \n    2. \n    3. \n\n1. b\n2. a\nx\ny\n'
# tried EDITOR COMMAND NUMBER RENUMBER UNNUMBER INSERT END — the keys number the lines 2 and 3, set the
# numbers of 4 and 5 right and take them away, and insert a list in line 1.
tried() {
  recipe "$1"
  editor=$2
  check "$1" "$before" "$after" '' '?9. y' "$3" '?2. a' "$4" '?2. y' "$5" '-2. y' "$6" ! "$7"
}
tried Kakoune kak 'jxJ :listwright-number Enter' 'jxJ :listwright-renumber Enter' \
  ':listwright-unnumber Enter' 'gk :listwright Enter' ':wq Enter'
tried micro micro 'Down S-Down S-Down M-n' 'S-Down S-Down M-r' 'Up Up S-Down S-Down M-u' 'C-Up M-l' 'C-s C-q'
# For root nano takes no other file.
tried nano 'nano --rcfile=$HOME/.nanorc' 'Down M-a Down Down M-N' 'M-a Down Down M-R' \
  'Up Up M-a Down Down M-U' '"M-\\" M-L' 'C-s C-x'
tried Neovim nvim ':2,3ListwrightNumber Enter' ':4,5ListwrightRenumber Enter' \
  ':4,5ListwrightUnnumber Enter' '":set sw=4" Enter gg:Listwright Enter' ':wq Enter'

# gedit has windows. What a tool prints comes some time later, and nothing can be typed during a save.
saves() { keys ctrl+s && grep -qF -- "$1" text; }
saves_no() { keys ctrl+s && ! grep -qF -- "$1" text; }
takes_x() { keys ctrl+Home shift+End x && titled '\*text *'; }
edit() {
  : >said
  gedit --standalone text &
  await titled 'text *gedit'
  await takes_x
  keys ctrl+Home shift+End BackSpace Down shift+Down shift+Down ctrl+alt+1 && await saves '2. a'
  keys ctrl+Home Down Down Down shift+Down shift+Down ctrl+alt+2 && await saves '2. y'
  keys ctrl+Home Down Down Down shift+Down shift+Down ctrl+alt+3 && await saves_no '2. y'
  keys ctrl+Home ctrl+alt+l && await titled Listwright && keys alt+i
  await titled '*text *' && await saves 3.
  keys ctrl+q && wait "$!"
} >&3
recipe gedit
export NO_AT_BRIDGE=1 GSETTINGS_BACKEND=keyfile
mkdir -p .config/glib-2.0/settings
printf '[org/gnome/gedit/plugins]\nactive-plugins=["externaltools"]\n' >.config/glib-2.0/settings/keyfile
check gedit "$before" "$after" ''
exit "$failed"
