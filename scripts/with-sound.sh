#!/usr/bin/env bash
# Runs a command with a private sound server, which discards sound at playing speed. If the server cannot be started,
# prints a line and runs the command anyway. (A sink without rewinds takes its sound in short pieces; others take the
# first two seconds at once, and the time does not advance until these are over.)
set -eu
export QUILLON_SOUND_FOLDER
QUILLON_SOUND_FOLDER=$(mktemp -d)

# Ends with this process, also after exec, however that ends. A session bus, which is found by the display, too, takes
# one server only; programs with a server each run beside one another.
# shellcheck disable=SC2016
setpriv --pdeathsig TERM bash -c '
  trap : TERM
  exec >"$QUILLON_SOUND_FOLDER/log" 2>&1 </dev/null
  env -u DBUS_SESSION_BUS_ADDRESS -u DISPLAY -u PULSE_SERVER HOME="$QUILLON_SOUND_FOLDER" \
    XDG_CONFIG_HOME="$QUILLON_SOUND_FOLDER" \
    XDG_RUNTIME_DIR="$QUILLON_SOUND_FOLDER" pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1 \
    -L "module-native-protocol-unix socket=$QUILLON_SOUND_FOLDER/native auth-anonymous=1" \
    -L "module-null-sink sink_name=null norewinds=1" &
  server=$!
  wait "$server" || [ -S "$QUILLON_SOUND_FOLDER/native" ] || touch "$QUILLON_SOUND_FOLDER/failed"
  kill "$server"
  wait "$server"
  [ -e "$QUILLON_SOUND_FOLDER/failed" ] || rm -rf "$QUILLON_SOUND_FOLDER"' &
keeper=$!

# Linux programs and Wine use this variable first, whatever their runtime folder is.
export PULSE_SERVER=unix:$QUILLON_SOUND_FOLDER/native
for _ in $(seq 300); do
  [ -S "$QUILLON_SOUND_FOLDER/native" ] && break
  kill -0 "$keeper" 2>/dev/null || break
  sleep 0.1
done
if [ ! -S "$QUILLON_SOUND_FOLDER/native" ]; then
  echo "with-sound.sh: pulseaudio does not start: there is no sound" >&2
  tail -n 5 "$QUILLON_SOUND_FOLDER/log" >&2 || true
  rm -rf "$QUILLON_SOUND_FOLDER"
  unset PULSE_SERVER
fi
exec "$@"
