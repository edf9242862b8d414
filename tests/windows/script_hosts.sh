#!/bin/bash
# Has a VBScript use the registered plug-in: script_hosts.sh BIN FRONTENDS. With the front end
# "windows" among them it also shows the dialog, twice, and a program from outside clicks Insert.
set -u
bin=$1
tests=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$tests/late_host.vbs" "$work"
cd "$work" || exit 1
failed=0

printf 'kvrn Listwright\t2.0.0\n' >expected
dialog=""
case $2 in
  *windows*)
    dialog=dialog
    printf '%s\n' 'True:     1. |    2. |    3. |' 'True:     I. |   II. |  III. |' >>expected
    ;;
esac
printf '%s\n' '101: Stepicon.ico' '102: Stepicon.ico' '103: Stepicon.ico' '104: ' >>expected

# Each build has its own kind of script host.
system='C:\windows\system32'
case $bin in *32/bin) system='C:\windows\syswow64' ;; esac
module=$($LAUNCHER winepath -w "$bin/kvrnstep.dll" | tr -d '\r')
$LAUNCHER "$system\\regsvr32.exe" /s "$module" || failed=1
if [ -n "$dialog" ]; then
  { $LAUNCHER "$bin/press_insert.exe" && $LAUNCHER "$bin/press_insert.exe"; } &
fi
$LAUNCHER "$system\\cscript.exe" //nologo late_host.vbs $dialog | tr -d '\r' >printed
wait
diff expected printed || failed=1
for icon in icon-101.ico icon-102.ico icon-103.ico; do
  cmp "$icon" "$tests/../../assets/icons/$icon" || failed=1
done
rm -f "$bin/Stepicon.ico"

# Once unregistered it cannot be created.
$LAUNCHER "$system\\regsvr32.exe" /u /s "$module" || failed=1
$LAUNCHER "$system\\cscript.exe" //nologo late_host.vbs 2>/dev/null | grep kvrn && failed=1
exit "$failed"
