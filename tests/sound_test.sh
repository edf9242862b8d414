#!/bin/bash
# Sounds on a sound server of this test's own: what is heard there, and for how long.
# sound_test.sh BIN LIB — skipped (77) where the programs are missing.
set -u
play_sound=$(realpath "$1")/play_sound
module=$(realpath "$2")/kvrnstep-sound.so
source "$(dirname "$0")/common.bash"
need pulseaudio pactl parec sox
export HOME=$work XDG_RUNTIME_DIR=$work XDG_CONFIG_HOME=$work PULSE_SERVER=unix:$work/server

# heard FREQUENCY|all — for how many milliseconds the recording holds a tone of that frequency.
heard() {
  local band=
  [ "$1" = all ] || band="sinc -t 200 $(($1 - 400))-$(($1 + 400))"
  # shellcheck disable=SC2086 # an effect and its argument
  sox -t raw -r 44100 -e signed -b 16 -c 1 recording -n $band stat 2>&1 |
    awk '/^Length/ { seconds = $3 } /^RMS .*amplitude/ { rms = $3 }
         END { printf "%d\n", 1000 * seconds * rms * rms / (0.5 * 0.5 / 2) }'
}
hears() { [ "$(heard "$1")" -ge "$2" ]; }
quiet() { ! pactl list short sink-inputs | grep -q .; }
plays() { ! quiet; }
# expect FREQUENCY|all LEAST MOST
expect() {
  local time
  time=$(heard "$1")
  [ "$time" -ge "$2" ] && [ "$time" -le "$3" ] || fail "$1 Hz: $time ms, not $2 to $3"
}
# The player takes its orders from a pipe: MODE:FILE.
begin() {
  timeout 60 "$play_sound" "$module" <orders 2>>errors &
  player=$!
  exec 3>orders
}
order() { printf '%s\n' "$@" >&3; }
# played FREQUENCY ORDER… — the orders, until most of that tone has been heard.
played() {
  order "${@:2}"
  await hears "$1" 500
  await quiet
}
end() {
  exec 3>&-
  wait "$player" || fail "the player ended with status $?"
}

mkfifo orders pipe.wav
pulseaudio -n --use-pid-file=no --exit-idle-time=-1 --high-priority=no --log-target=null \
  -L 'module-null-sink sink_name=ear norewinds=1' \
  -L "module-native-protocol-unix auth-anonymous=1 socket=$work/server" 2>/dev/null &
# It keeps what it has passed on, so that no beginning is missing from the recording.
await pactl info
parec --device=ear.monitor --raw --format=s16le --rate=44100 --channels=1 --latency-msec=5 \
  >recording 2>/dev/null &
await test -s recording

tone() { sox -n -r 48000 "${@:3}" "$1.wav" synth "$2" sine "$1" vol 0.5; }
for frequency in 1000 3000 4000 6000 8000 9000; do tone "$frequency" 0.6 -b 16; done
for frequency in 5000 7000; do tone "$frequency" 60 -b 16; done
tone 2000 0.6 -b 24 -c 2
mv 2000.wav 'Glöckchen am Tor.wav'
echo 'RIFF is not all it takes to be a sound.' >text.wav
head -c 44 1000.wav >header.wav
: >empty.wav
mkdir folder

begin
played 1000 0:1000.wav
played 2000 '0:Glöckchen am Tor.wav'

# The second one gives way to the first.
played 3000 0:3000.wav 1:4000.wav

# The second one takes the place of the first, which would go on for a minute.
order 0:5000.wav
await hears 5000 100
played 6000 0:6000.wav

# None of these is a sound that the last one would have to give way to.
played 8000 0:missing.wav 0:folder 0:text.wav 0:empty.wav 0:header.wav 0:pipe.wav 1:8000.wav

# What is no sound ends the one that plays, too.
order 0:7000.wav
await hears 7000 100
played 9000 0:missing.wav 1:9000.wav

# Each was heard once, all of its 600 ms or nearly so: a busy machine may drop some.
for frequency in 1000 2000 3000 6000 8000 9000; do expect "$frequency" 500 700; done
expect 4000 0 50
expect all 0 $((6 * 700 + $(heard 5000) + $(heard 7000)))

# The process may end while a sound plays.
order 0:5000.wav
await plays
end

# Where nobody answers there is silence. Opening the pipe waits for the player to look at it, when
# it is through with the sound before.
export PULSE_SERVER=unix:$work/nobody
begin
order 0:1000.wav 0:pipe.wav
timeout 15 sh -c ': >pipe.wav' || fail 'the player is stuck without a server'
end

# A server that says nothing keeps the process from ending no more than another: a client that
# asked before still waits.
serve_badly silent
export PULSE_SERVER=unix:$work/silent
pactl info >/dev/null 2>&1 &
waits=$!
await clients silent 1
begin
order 0:1000.wav
await clients silent 2
end
kill -0 "$waits" || fail 'the process ends late'

[ ! -s errors ] || fail "said: $(cat errors)"
exit "$failed"
