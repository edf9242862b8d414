# What the tests in bash share: source it first. It leaves the test in an empty folder, which goes
# when the test ends, as do the programs that it has started. $tests is the folder of the tests.
tests=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# Programs of others (lintian, CUPS, xvfb-run) cannot bear blanks and accents in such a path.
[[ ${TMPDIR:-} != *[^A-Za-z0-9/._-]* ]] || unset TMPDIR
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; wait; chmod -R u+w "$work"; rm -rf "$work"' EXIT
export TMPDIR=$work
cd "$work" || exit 1
umask 022
mkfifo .pause
failed=0
fail() {
  echo "$*"
  failed=1
}

# need PROGRAM… — skips the test (77) where one is missing.
need() {
  local program
  for program; do command -v "$program" >/dev/null || { echo "no $program"; exit 77; }; done
}

# await COMMAND… — asks until it succeeds, for a minute; nothing goes on without it.
await() {
  local last=$((SECONDS + 60))
  until "$@" >/dev/null 2>&1; do
    if [ "$SECONDS" -ge "$last" ]; then
      echo "lines ${BASH_LINENO[*]}: never: $*"
      tail -n 20 "$work"/*log
      exit 1
    fi
    read -rt 0.02 <>"$work/.pause"
  done
  return 0
}

# serve_badly SOCKET [GREETING [TEXT]] — a server that takes clients, greets them, and then only sends
# them that text every now and then. "clients SOCKET NUMBER" tells whether there have been so many.
serve_badly() {
  python3 -c 'if True:
    import select, socket, sys
    server = socket.socket(socket.AF_UNIX)
    server.bind(sys.argv[1])
    server.listen(100)
    print("ready", flush=True)
    clients = []
    def send(client, text):
      try: client.send(text.encode())
      except OSError: pass
    while True:
      if select.select([server], [], [], 0.2)[0]:
        clients.append(server.accept()[0])
        send(clients[-1], sys.argv[2])
        print(len(clients), flush=True)
      for client in clients: send(client, sys.argv[3])' "$1" "${2:-}" "${3:-}" >"$1.clients" &
  await test -s "$1.clients"
}
clients() { [ "$(wc -l <"$1.clients")" -gt "$2" ]; }
