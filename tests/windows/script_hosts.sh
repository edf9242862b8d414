#!/bin/bash
# What is packed works where it is unpacked: script_hosts.sh ZIP PRESS_INSERT. It is registered, a
# VBScript shows its dialog, three times, while a program from outside clicks on Insert, and when it has
# been taken out again the registry is what it was.
set -u
zip=$1 press_insert=$2
source "$(dirname "$0")/../common.bash"
cp "$tests/windows/late_host.vbs" .
unzip -q "$zip"
packed=$(basename "$zip" .zip)

registry() {
  for root in HKEY_LOCAL_MACHINE HKEY_CURRENT_USER; do
    $LAUNCHER regedit /E "$1.$root" "$root\\Software\\Classes"
  done
}
register() {
  (cd "$packed" && $LAUNCHER cmd /c register.cmd "$@") || failed=1
}

printf 'kvrn Listwright\t2.0.0\n' >expected
printf '%s\n' 'True:     1. |    2. |    3. |' 'True:     I. |   II. |  III. |' >>expected
echo '    1. |    2. |    3. |' >>expected
printf '%s\n' '101: Stepicon.ico' '102: Stepicon.ico' '103: Stepicon.ico' '104: ' >>expected

# The script host enters itself into the registry when it first runs.
: >nothing.vbs
$LAUNCHER cscript //nologo nothing.vbs
registry before
register
# Without what only a module has: its name, and a declaration that comes first.
sed '1d; /^Option/d' "$packed/listwright.bas" >>late_host.vbs
for _ in 1 2 3; do $LAUNCHER "$press_insert" || break; done &
$LAUNCHER cscript //nologo late_host.vbs dialog | tr -d '\r' >printed
wait
diff expected printed || failed=1
for icon in icon-101.ico icon-102.ico icon-103.ico; do
  cmp "$icon" "$tests/../assets/icons/$icon" || failed=1
done

register /u
$LAUNCHER cscript //nologo late_host.vbs 2>/dev/null | grep kvrn && failed=1
registry after
for root in HKEY_LOCAL_MACHINE HKEY_CURRENT_USER; do
  diff <(iconv -f UTF-16 "before.$root") <(iconv -f UTF-16 "after.$root") || failed=1
done
exit "$failed"
