# shellcheck shell=bash disable=SC2034,SC2059 # used by the tests; texts with escapes
# What the tests of editors share; they source it first. $listwright is the command, $source
# the source folder.
listwright=$(realpath "$1") source=$(realpath "$2")
source "$source/tests/desktop.bash"
export LC_ALL=C.UTF-8 PATH="$work/bin:$PATH" STATUS=0
key=

mkdir -p bin data/listwright
ln -s "$listwright" bin/listwright
long='my {STEP_#} | 50% é.step'
printf '0,"Dear é:\r\n","","",".",0,1,2,0,0,1,1,0,0,0\r\n' >"$long"
printf '0,"","","",")",0,1,2,0,0,0,0,0,0,0\r\n' >data/listwright/short.step
# Stands in for the command: its arguments are the list.
printf '#!/bin/sh\nprintf "%%s\\r\\n" "$@"; printf "1st\\n2nd\\n" >&2; exit $STATUS\n' >bin/args
chmod +x bin/args

# Runs an editor; presses $key in the dialog, if there is to be one.
run() {
  timeout 60 "$@" &
  local editor=$!
  [ -z "$key" ] || { await titled Listwright && keys "$key"; }
  wait "$editor"
}

# check NAME BEFORE AFTER MESSAGES COMMAND… — edits a file of the text before with the commands;
# then it must hold the text after. Messages are compared with blanks for their line ends.
check() {
  local name=$1 after=$3 messages=$4 said
  printf -- "$2" >text
  edit "${@:5}" >log 2>&1
  said=$(tr -s '\n' ' ' <said | sed 's/^ *//; s/ *$//')
  if ! printf -- "$after" | cmp -s - text || [ "$said" != "$messages" ]; then
    fail "$name: said $said"
    printf -- "$after" | diff - text
    cat log
  fi
}
