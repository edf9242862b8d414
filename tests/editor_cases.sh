# shellcheck shell=sh disable=SC2016,SC2034 # nothing to expand in single quotes; used by the tests
# What the tests of Vim and Emacs share; they source it in a folder of their own.
# It needs $listwright and $source, the command and the source folder.
work=$PWD
export HOME="$work" XDG_DATA_HOME="$work/data" XDG_CONFIG_HOME="$work/config" LC_ALL=C.UTF-8
export PATH="$work/bin:$PATH" STATUS=0
failed=0
key=

mkdir -p bin data/listwright
ln -s "$listwright" bin/listwright
long='my {STEP_#} | 50% é.step'
printf '0,"Dear é:\r\n","","",".",0,1,2,0,0,1,1,0,0,0\r\n' >"$long"
printf '0,"","","",")",0,1,2,0,0,0,0,0,0,0\r\n' >data/listwright/short.step
# Stands in for the command: its arguments are the list.
printf '#!/bin/sh\nprintf "%%s\\r\\n" "$@"; printf "1st\\n2nd\\n" >&2; exit $STATUS\n' >bin/args
chmod +x bin/args

# Runs an editor, on a display of its own where $key is to be pressed in the dialog.
run() {
  [ -z "$key" ] || set -- "$source/tests/in_dialog.sh" "$key" "$@"
  timeout 120 "$@"
}

# check NAME BEFORE AFTER MESSAGES COMMAND… — edits a file of the text before with the commands;
# then it must hold the text after. Messages are compared with blanks for their line ends.
check() {
  name=$1 after=$3 messages=$4
  printf -- "$2" >text
  shift 4
  edit "$@" >log 2>&1
  [ $? -ne 77 ] || { echo "$name: no display"; return; }
  printf -- "$after" >wanted
  said=$(tr -s '\n' ' ' <said | sed 's/^ *//; s/ *$//')
  if ! cmp -s wanted text || [ "$said" != "$messages" ]; then
    echo "$name: said $said"
    diff wanted text
    cat log
    failed=1
  fi
}
