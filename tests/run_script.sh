#!/bin/bash
# Runs one script test: run_script.sh STEPDRIVE FRONTEND FOLDER
#
# FOLDER holds `run.script` and `expected.txt` (what stepdrive must print, which tells the exit status
# too); where they are wanted also `errors` (the standard error of a wrong script), `before` (files
# that are there when it starts) and `after` (files that must be there, byte for byte, when it has
# ended). The script runs in a folder of its own, below two lines that name its step folder, "steps",
# and its settings file, "steps.ini": the numbers of lines in messages count these, too.
#
# LAUNCHER is what starts stepdrive where the system cannot: "wine".
set -u
stepdrive=$1 frontend=$2 folder=$3
source "$(dirname "$0")/common.bash"
# Qt keeps there how its file dialogs looked.
export XDG_CONFIG_HOME=$work
mkdir run
[ ! -d "$folder/before" ] || cp -R "$folder/before/." run

printf 'arg %s\n' 'sPthStepFolder steps' 's_IniPathAndName steps.ini' |
  cat - "$folder/run.script" >script
# shellcheck disable=SC2086 # a command with its arguments, or nothing
(cd run && ${LAUNCHER:-} "$stepdrive" --frontend "$frontend" ../script) \
  >output 2>errors </dev/null
status=$?
diff -u --label expected --label printed "$folder/expected.txt" output || failed=1
wanted=0
! grep -qE '^(impossible|line) ' "$folder/expected.txt" || wanted=1
if [ -f "$folder/errors" ]; then
  wanted=2
  # Toolkits chat on standard error; only what stepdrive says counts.
  grep '^stepdrive:' errors | diff -u --label errors --label printed "$folder/errors" - || failed=1
fi
[ "$status" -eq "$wanted" ] || fail "exit status $status, not $wanted"

# What a settings file says. On Windows the system writes it, and Wine writes it anew each time:
# without empty lines, and without blanks around names and values.
settings() {
  sed -e 's/\r$//' -e 's/[ \t]*=[ \t]*/=/' -e 's/^[ \t]*//' -e 's/[ \t]*$//' -e '/^$/d' -e '$a\' "$1"
}
[ ! -d "$folder/after" ] || cp -R "$folder/after" .
if [[ $stepdrive = *.exe && -d after ]]; then
  find after run -name '*.ini' | while IFS= read -r file; do
    settings "$file" >said && mv said "$file"
  done
fi
while IFS= read -r file; do
  cmp "$file" "run/${file#*/}" || { od -c "run/${file#*/}" | head -n 20; failed=1; }
done < <(find after -type f 2>/dev/null)
[ "$failed" -eq 0 ] || cat errors
exit "$failed"
