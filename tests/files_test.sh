#!/bin/bash
# Files that hurt: random bytes, folders in their place, more than is read, a disk without room, files
# that others change while the dialog is open, and a folder that takes no files from an ordinary
# user: files_test.sh STEPDRIVE. The dialog goes on, and what was there stays.
set -u
stepdrive=$1
source "$(dirname "$0")/common.bash"

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
