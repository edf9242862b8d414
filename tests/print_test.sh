#!/bin/bash
# Lists on paper: print_test.sh BIN LIB. Prints through a scheduler of the test's own, on a socket
# and in folders of its own, to a printer that takes PDF and is a file.
# Skipped (77) where the scheduler's programs are missing, and for who may not run one.
set -u
module=$(realpath "$2")/kvrnstep-cups.so
PATH=$PATH:/usr/sbin
source "$(dirname "$0")/common.bash"
need python3 cupsd lp lpadmin lpstat cupsreject pdftoppm pdfinfo
[ -x /usr/lib/cups/filter/texttopdf ] || { echo 'no texttopdf'; exit 77; }
[ "$(id -u)" -eq 0 ] || { echo 'not root'; exit 77; }

# No settings of the machine or of the user have a say, and the filters run as another user.
export HOME=$work CUPS_SERVERROOT=$work CUPS_SERVER=$work/socket LC_ALL=C.UTF-8
unset PRINTER LPDEST CUPS_USER CUPS_ENCRYPTION
mkdir -p "$work/spool/temp"
chmod 755 "$work"
cat >cupsd.conf <<EOF
Listen $work/socket
Browsing No
WebInterface No
PreserveJobFiles Yes
DefaultAuthType None
<Location />
  Order deny,allow
</Location>
EOF
cat >cups-files.conf <<EOF
ServerRoot $work
StateDir $work/state
CacheDir $work/cache
RequestRoot $work/spool
TempDir $work/spool/temp
AccessLog $work/access_log
ErrorLog $work/error_log
PageLog $work/page_log
FileDevice Yes
EOF
cat >paper.ppd <<'EOF'
*PPD-Adobe: "4.3"
*Manufacturer: "Listwright"
*NickName: "Paper"
*cupsFilter2: "application/vnd.cups-pdf application/pdf 0 -"
*OpenUI *PageSize: PickOne
*DefaultPageSize: A4
*PageSize A4: ""
*CloseUI: *PageSize
*DefaultImageableArea: A4
*ImageableArea A4: "18 36 577 806"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
EOF

cupsd -f -c "$work/cupsd.conf" -s "$work/cups-files.conf" >cupsd_log 2>&1 &
scheduler=$!
running() { [ "$(lpstat -r 2>/dev/null)" = 'scheduler is running' ]; }
await running
lpadmin -p paper -E -v "file:$work/paper.pdf" -P paper.ppd 2>lpadmin.err ||
  { echo "no printer: $(cat lpadmin.err)"; exit 1; }

# Python does not trust a module with sanitizers by itself.
sanitizer=$(ldd "$module" | sed -n 's/.*lib[at]san.* => \([^ ]*\).*/\1/p')
# print_list [SETTING…] — has the module print list.txt: 0 when the scheduler took it, 1 when not.
print_list() {
  timeout 60 env LD_PRELOAD="$sanitizer" ASAN_OPTIONS=detect_leaks=0 "$@" /usr/bin/python3 -c 'import ctypes, signal, sys
service = ctypes.CDLL(sys.argv[1])
service.kvrnstepPrint.restype = ctypes.c_bool
text = open("list.txt", "rb").read()
printed = service.kvrnstepPrint(text, ctypes.c_size_t(len(text)))
sys.exit(2 if signal.pthread_sigmask(signal.SIG_BLOCK, []) else not printed)' "$module" >out 2>&1
}
# refused WHAT [SETTING…] — list.txt is not printed, and neither a word nor a job says so.
refused() {
  local what=$1
  shift
  print_list "$@"
  [ $? -eq 1 ] || fail "$what: not refused"
  [ ! -s out ] || fail "$what: not silent: $(cat out)"
  [ -z "$(lpstat -W not-completed 2>/dev/null)" ] || fail "$what: a job stays"
}

# The number of jobs so far; each leaves its document in the spool folder.
jobs=0
completed() {
  [ -z "$(lpstat -W not-completed)" ] && [ "$(lpstat -W completed | wc -l)" -eq "$jobs" ]
}
# on_paper WHAT — the job is done; its pages are pictures in the folder WHAT. The text filter names
# no characters in its PDF, so the pages are compared as they look.
on_paper() {
  ((++jobs))
  await completed
  rm -rf "${1:?}"
  mkdir "$1"
  pdftoppm -gray -r 60 paper.pdf "$1/page" || fail "$1: no PDF"
}
# prints WHAT PAGES [SETTING…] — list.txt is one job: its lines and one more line break, and looks
# like these printed by the system's own command.
prints() {
  local what=$1 pages=$2
  shift 2
  { tr -d '\r' <list.txt; echo; } >wanted.txt
  print_list "$@" || fail "$what: refused"
  [ ! -s out ] || fail "$what: not silent: $(cat out)"
  on_paper printed
  cmp wanted.txt "$(printf 'spool/d%05d-001' "$jobs")" || fail "$what: not the text"
  pdfinfo paper.pdf >info
  grep -Eq '^Title: +Listwright$' info || fail "$what: $(grep Title info)"
  grep -Eq "^Pages: +$pages\$" info || fail "$what: $(grep Pages info), not $pages"
  lp -d paper -o document-format=text/plain wanted.txt >out 2>&1 || fail "$what: lp: $(cat out)"
  on_paper wanted
  diff -rq wanted printed || fail "$what: looks different"
}

# A text that begins like another kind of document is a text all the same.
printf '%s\r\n' '%!' '    1. Crème brûlée à 20 €' '    2. Größe – „Maß“' '' '   10. Łódź' >list.txt
refused 'no default printer'
prints 'a list with accents' 1 PRINTER=paper

lpadmin -d paper
for step in {1..99}; do printf '%6d. Step %d of 99\r\n\r\n' "$step" "$step"; done >list.txt
prints '99 steps' 4

mkdir .cups
echo 'Default paper page-ranges=2-3' >.cups/lpoptions
prints 'the settings of the user' 2
rm -r .cups

cupsreject paper
refused 'a printer that takes no jobs'
kill "$scheduler"
wait "$scheduler"
[ ! -e socket ] || fail 'the socket stays'
refused 'no scheduler'
refused 'no scheduler on the network' CUPS_SERVER=localhost:9
serve_badly drips x x
refused 'a scheduler that never gets to the end' CUPS_SERVER="$work/drips"

[ "$failed" -eq 0 ] || tail -n 40 error_log
exit "$failed"
