#!/bin/bash
# What one system writes, another one reads: exchange.sh STEPDRIVE WINDOWS_STEPDRIVE. Each writes all
# the files that the plug-in keeps; each then reads those of both and must print the same.
set -eu
here=$1 there=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Accents, a euro sign, two letters that look like UTF-8, and what no code page of Europe has.
accents='é ü € Ã©'
others='→ Ж'
start='arg sPthStepFolder steps
arg SEC_APP_NAME Größe
arg s_IniPathAndName settings.ini
call'

cat >"$work/write" <<END
$start
menu mnuOptions(4)
set txtBegin.text "$accents\r\nsecond"
set txtEnd.text "$others"
set cboPreSuf(0).text "$accents"
set cboPreSuf(1).text "$others"
answer "é"
press Ctrl+S
menu mnuOptions(0)
menu mnuEdits(0)
set txtAdd.text "$accents"
click cmdAdd
set txtAdd.text "$others"
click cmdAdd
click cmdOK
menu mnuEdits(1)
set txtAdd.text "$accents"
click cmdAdd
click cmdOK
menu mnuEdits(3)
set txtHold(0).text "$accents\r\nsecond"
set txtHold(14).text "$others"
click cmdOK
END

fields="txtBegin.text txtEnd.text cboPreSuf(0).text cboPreSuf(1).text"
cat >"$work/read" <<END
$start
show $fields cboPreSuf(0).items cboPreSuf(1).items lstStepf.items txtPreview.text
menu mnuEdits(3)
show txtHold(0).text txtHold(14).text
click cmdOK
set txtBegin.text ""
set cboPreSuf(0).text ""
set cboPreSuf(1).text ""
dblclick lstStepf 0
show $fields
END

# Each in the folder that we are in.
here() { "$here" "$work/$1"; }
there() { $LAUNCHER "$there" "$work/$1"; }

for writer in here there; do
  mkdir "$work/$writer"
  cd "$work/$writer"
  $writer write >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
  for reader in here there; do
    cp -R "$work/$writer" "$work/$writer-$reader"
    cd "$work/$writer-$reader"
    $reader read >"$work/$writer-$reader.printed" 2>&1 || true
  done
done

failed=0
for text in "txtBegin.text = \"$accents\\r\\nsecond\"" "cboPreSuf(1).text = \"$others\"" \
  "cboPreSuf(0).items = \"$accents $others\"" "txtHold(14).text = \"$others\"" \
  'lstStepf.items = "é"'; do
  grep -qF "$text" "$work/here-here.printed" || { echo "not read: $text" && failed=1; }
done
for read in here-there there-here there-there; do
  diff -u --label here-here --label "$read" "$work/here-here.printed" "$work/$read.printed" || failed=1
done
exit "$failed"
