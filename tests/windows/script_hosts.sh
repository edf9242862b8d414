#!/bin/bash
# Has a VBScript use the registered plug-in: script_hosts.sh BIN. It shows the dialog, twice, and a
# program from outside clicks on Insert.
set -u
bin=$1
tests=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$tests/late_host.vbs" "$work"
cd "$work" || exit 1
failed=0

printf 'kvrn Listwright\t2.0.0\n' >expected
printf '%s\n' 'True:     1. |    2. |    3. |' 'True:     I. |   II. |  III. |' >>expected
printf '%s\n' '101: Stepicon.ico' '102: Stepicon.ico' '103: Stepicon.ico' '104: ' >>expected

module=$($LAUNCHER winepath -w "$bin/kvrnstep.dll" | tr -d '\r')
$LAUNCHER regsvr32 /s "$module" || failed=1
{ $LAUNCHER "$bin/press_insert.exe" && $LAUNCHER "$bin/press_insert.exe"; } &
$LAUNCHER cscript //nologo late_host.vbs dialog | tr -d '\r' >printed
wait
diff expected printed || failed=1
for icon in icon-101.ico icon-102.ico icon-103.ico; do
  cmp "$icon" "$tests/../../assets/icons/$icon" || failed=1
done
rm -f "$bin/Stepicon.ico"

# Once unregistered it cannot be created.
$LAUNCHER regsvr32 /u /s "$module" || failed=1
$LAUNCHER cscript //nologo late_host.vbs 2>/dev/null | grep kvrn && failed=1
exit "$failed"
