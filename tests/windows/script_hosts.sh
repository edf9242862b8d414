#!/bin/bash
# What is packed is what people should get, and works where it is unpacked, whatever the name of that
# folder has: script_hosts.sh ZIP PRESS_INSERT. It is registered, a VBScript shows its dialog, three
# times, while a program from outside clicks on Insert, and when it has been taken out again the
# registry is what it was.
set -u
zip=$1 press_insert=$2
source "$(dirname "$0")/../common.bash"
cp "$tests/windows/late_host.vbs" .
unzip -q "$zip" -d 'R&D'
packed='R&D'/$(basename "$zip" .zip)

# The program's icon, version data and a manifest are their resources 14, 16 and 24.
printf './%s\n' LICENSE listwright.bas register.cmd x{64,86}/{kvrnstep.dll,listwright.{com,exe}} \
  emacs/listwright.el vim/{autoload/listwright.vim,doc/listwright.txt,plugin/listwright.vim} \
  include/kvrnstep/{{component,fields,library,list_options,listwright}.hpp,{identifiers,kvrnstep}.h} \
  include/kvrnstep/kvrnstep.idl docs/{editors,using,windows}.md | sort >expected
(cd "$packed" && find . -type f ! -path './docs/[^euw]*' ! -name emacs.md | sort) | diff expected - || failed=1
for file in "$packed"/x*/*; do
  kinds=$(objdump -p "$file" | grep -cE '^[0-9a-f]+   Entry: ID: 0x0000(0e|10|18),')
  [ "$kinds" = 3 ] || fail "$file has not all resources"
  strings -el "$file" | grep -A1 -x LegalCopyright | grep -q Listwright || fail "$file has no copyright"
done
# With a console, which waits for it, and without one, which would flash.
for kind in com:CUI exe:GUI; do
  objdump -p "$packed/x86/listwright.${kind%:*}" | grep -q "Windows ${kind#*:}" || fail "$kind: no such"
done
while IFS=: read -r page link; do
  link=${link#*[(\"]}
  [ -e "${page%/*}/${link%%#*}" ] || fail "$page leads to $link"
done < <(grep -rIoE '(\]\(|src=")[a-z0-9/_.-]+' "$packed/docs")

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
