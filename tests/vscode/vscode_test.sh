#!/bin/bash
# The extension for VS Code in the real one, which runs in a browser on the test's own display:
# vscode_test.sh LISTWRIGHT SOURCE, after tools/setup-vscode and tools/pack-vscode.
# shellcheck disable=SC2154 # variables of the cases
set -u
source "$(dirname "$0")/../editor_cases.bash"
node=$source/build-vscode/node/node_modules/.bin/node
modules=$source/build-vscode/server/node_modules
server() {
  exec "$node" "$modules/code-server/out/node/entry.js" --user-data-dir "$work/user" \
    --extensions-dir "$work/extensions" "$@"
}

# Where the shell of a login finds it, VS Code finds the command.
# shellcheck disable=SC2016 # for that shell
echo 'PATH=$HOME/bin:$PATH' >.profile
mkdir -p user/User folder/.vscode
cat >user/User/settings.json <<END
{ "workbench.startupEditor": "none", "chat.disableAIFeatures": true,
  "extensions.autoCheckUpdates": false, "extensions.autoUpdate": false,
  "editor.fontFamily": "'Liberation Mono', monospace", "editor.fontSize": 16,
  "files.autoSave": "off", 
  "files.readonlyInclude": { "**/readonly.txt": true } }
END
cat >folder/.vscode/settings.json <<END
{ "listwright.command": "$work/bin/theirs", "listwright.dialogOptions": ["--type", "roman"] }
END
printf '#!/bin/sh\ntouch "%s/ran"\n' "$work" >bin/theirs
printf '#!/bin/sh\necho no such label >&2; exit 1\n' >bin/fails
chmod +x bin/theirs bin/fails
(server --install-extension "$source"/build-vscode/listwright-*.vsix) >log 2>&1 || { cat log; exit 1; }
server --auth none --bind-addr 127.0.0.1:0 --disable-telemetry --disable-update-check >server.log 2>&1 &
await grep -q 'HTTP server listening' server.log
address=$(grep -o 'http://127[^/ ]*' server.log)
coproc vscode { NODE_PATH=$modules exec "$node" "$tests/vscode/drive.js" "$address/?folder=$work/folder" 2>&1; }

# What ends the test is said in spite of the log of a case.
exec 3>&1
# tell WORD… — has it done, and is answered.
tell() {
  echo "$*" >&"${vscode[1]}"
  read -rt 100 -u "${vscode[0]}" answer || { echo "$*: VS Code has gone" >&3; exit 1; }
  [[ $answer != FAILED* ]]
}
# A key in the dialog, or the one that leads back to it, as long as a person presses it.
slowly() {
  [ "$1" = alt+Tab ] || await titled Listwright >&3
  xdotool keydown "$1"
  read -rt 0.12 <>"$work/.pause"
  xdotool keyup "$1"
}
# The commands are words for tell and, behind "key", keys in the dialog. What is saved must become
# the text $after of the case.
number=0
edit() {
  local word file=$work/folder/case$((++number)).txt last
  cp text "$file"
  for word in "open $file" "$@" said 'press Control+s'; do
    if [[ $word == key\ * ]]; then slowly "${word#* }"; else tell "$word" || break; fi
    [ "$word" != said ] || echo "$answer" >said
  done
  [ -z "$answer" ] || echo "$answer" >said
  last=$((SECONDS + 10))
  until printf -- "$after" | cmp -s - "$file" || [ "$SECONDS" -ge "$last" ]; do
    read -rt 0.05 <>"$work/.pause"
  done
  cp "$file" text
}

echo 'a' >folder/readonly.txt

# The command is the stand-in that prints its arguments, or the real one.
stand_in() { ln -sf "$1" bin/listwright; }
open='run Listwright: Insert Step List…'

check 'selected lines, taken back at once' 'one\r\n  two\r\n\r\nthree\r\n' \
  '1. one\r\n  2. two\r\n\r\nthree\r\n' '' 'go 1:2' 'press Shift+ArrowDown' \
  'run Listwright: Number Selected Lines' 'done' 'undo'
check 'several selections' 'x\nx\n\nx y\n' '1. x\n2. x\n\n1. x y\n' '' \
  'press Control+d Control+d Control+d' 'run Listwright: Number Selected Lines' 'done' 'undo'
check 'around the caret, which stays' 'At:\n\n3. a\n9. b\n\n## 2\n\n7. c\n' \
  'At:\n\n1. a\n2. !b\n\n## 2\n\nc\n' '' 'go 4:4' 'run Listwright: Renumber Lists' 'done' 'undo' 'type !' \
  'go 8:2' 'run Listwright: Remove Numbers' 'done'
check 'in the menu' '3. a\n7. b\n' 'a\nb\n' '' 'press Control+a' 'press Shift+F10' 'click Remove Numbers' 'done' 'undo'
check 'labels of a step file' 'a\nb\n' '1)a\n2)b\n' '' 'run Listwright: Number Selected Lines with Step File…' \
  'click short' 'done' 'undo'
check 'a step file at all carets' '\tab\n\tcd\n' '\ta1)\n\t2)!b\n\tc1)\n\t2)!d\n' '' \
  'press End ArrowLeft Shift+Alt+ArrowDown' 'run Listwright: Insert Step File…' 'click short' 'done' 'undo' 'type !'
check 'nothing to change' 'a\n' 'a\n' 'There is nothing to change here.' 'run Listwright: Renumber Lists' 'done'
check 'a read-only text' 'a\n' 'a\n' '' "open $work/folder/readonly.txt" "none ${open#run }"

check 'the real dialog, in place of a line' 'a\nb\n' 'a\n    1. \n    2. \n    3. \n' '' 'go 2:1' \
  'press Shift+ArrowDown' "$open" 'key alt+i' 'done' 'undo'
check 'the dialog is closed' 'a\n' 'a\n' '' "$open" 'key Escape' closed
check 'typing meanwhile, cancelled' 'ab\n' 'a!b\n' 'The Listwright dialog is open already.' 'go 1:2' \
  "$open" 'key Tab' 'type !' "$open" 'done' 'click Cancel' closed
check 'another text meanwhile' 'one\n' 'yo!    1. \n    2. \n    3. \nne\n' '' 'go 1:2' "$open" \
  'key Tab' 'type !' 'press Home' 'type y' "open $work/folder/readonly.txt" 'key alt+Tab' 'key alt+i' 'done'
check 'read-only meanwhile' 'a\n' 'a\n' \
  'The text cannot be changed any more; the list is on the clipboard.' "$open" 'key Tab' \
  'run File: Set Active Editor Read-only in Session' 'key alt+Tab' 'key alt+i' 'done'
[[ $(timeout 20 xclip -out -selection clipboard) == *' 2. '* ]] || fail 'the list is not on the clipboard'

stand_in args
theirs='--exact\n--indent\n3\n--font\nLiberation Mono\n--font-size\n12\n'
check 'what the dialog is told' '   a\n' "$theirs" '' 'press Control+a' "$open" 'done'
check 'in a trusted folder' '   a\n' "$theirs--type\nroman\n" '' \
  'run Workspaces: Manage Workspace Trust' 'click Trust' "open $work/folder/case$((number + 1)).txt" \
  'press Control+a' "$open" 'done'
[ ! -e ran ] || fail "the folder's command has run"
stand_in fails
check 'the command fails' 'a\n' 'a\n' 'no such label' 'run Listwright: Number Selected Lines' 'done'
rm bin/listwright
check 'no command' 'a\n' 'a\n' 'Cannot run "listwright". Install Listwright ("make install" in its source folder), or say in the setting listwright.command where the command is.' \
  "$open" 'done'

eval "exec ${vscode[1]}>&-"
wait "$vscode_PID"
[ "$failed" -ne 0 ] || echo "ok: $number cases in VS Code"
exit "$failed"
