#!/bin/bash
# Runs one script test: run_script.sh STEPDRIVE FRONTEND FOLDER
#
# FOLDER holds `run.script` and `expected.txt` (what stepdrive must print, which tells the exit status
# too); where they are wanted also `errors` (the standard error of a wrong script), `before` (files
# that are there when it starts) and `after` (files that must be there, byte for byte, when it has
# ended). The script runs in a folder of its own; the step folder is "steps" by custom.
# `after.windows` holds those files of `after` that Windows writes in its code page.
#
# LAUNCHER is what starts stepdrive where the system cannot: "wine".
set -u
stepdrive=$1 frontend=$2 folder=$3

windows=no
case $stepdrive in *.exe) windows=yes ;; esac

# What a settings file says. On Windows the system writes it, and Wine writes it anew each time:
# without empty lines, and without blanks around names and values.
settings() {
  sed -e 's/\r$//' -e 's/[ \t]*=[ \t]*/=/' -e 's/^[ \t]*//' -e 's/[ \t]*$//' -e '/^$/d' -e '$a\' "$1"
}

# Whether a file is there and right.
same() {
  local wanted=$folder/after/$1 written=$work/run/$1
  if [ "$windows" = yes ]; then
    [ ! -f "$folder/after.windows/$1" ] || wanted=$folder/after.windows/$1
    case $1 in
      *.ini)
        diff <(settings "$wanted") <(settings "$written")
        return
        ;;
    esac
  fi
  cmp "$wanted" "$written"
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/run"
# Qt keeps there how its file dialogs looked.
export XDG_CONFIG_HOME=$work
[ ! -d "$folder/before" ] || cp -R "$folder/before/." "$work/run"

# shellcheck disable=SC2086 # a command with its arguments, or nothing
(cd "$work/run" && ${LAUNCHER:-} "$stepdrive" --frontend "$frontend" "$folder/run.script") \
  >"$work/output" 2>"$work/errors" </dev/null
status=$?

failed=0
diff -u --label expected --label printed "$folder/expected.txt" "$work/output" || failed=1
wanted=0
! grep -qE '^(impossible|line) ' "$folder/expected.txt" || wanted=1
[ ! -f "$folder/errors" ] || wanted=2
if [ "$status" -ne "$wanted" ]; then
  echo "exit status $status, not $wanted"
  failed=1
fi
if [ -f "$folder/errors" ]; then
  # Toolkits chat on standard error; only what stepdrive says counts.
  grep '^stepdrive:' "$work/errors" | diff -u --label errors --label printed "$folder/errors" - ||
    failed=1
fi
if [ -d "$folder/after" ]; then
  while IFS= read -r file; do
    same "$file" || {
      od -c "$work/run/$file" | head -n 20
      failed=1
    }
  done < <(cd "$folder/after" && find . -type f)
fi
[ "$failed" -eq 0 ] || cat "$work/errors"
exit "$failed"
