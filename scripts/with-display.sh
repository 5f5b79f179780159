#!/usr/bin/env bash
# Runs a command on a private display, with a window manager so that windows get the focus. Several can run at the same
# time, because the server chooses a free number.
set -eu
number=$(mktemp)
Xvfb -displayfd 3 -screen 0 "${SCREEN:-1280x1024}x24" -nolisten tcp 3>"$number" >/dev/null 2>&1 &
server=$!
manager=
trap 'kill $manager $server 2>/dev/null; rm -f "$number"' EXIT
for _ in $(seq 600); do
  [ -s "$number" ] && break
  kill -0 "$server" 2>/dev/null || break
  sleep 0.1
done
[ -s "$number" ] || { echo "error: no display: Xvfb does not start" >&2 && exit 1; }
export DISPLAY=:$(cat "$number")
unset WAYLAND_DISPLAY
openbox >/dev/null 2>&1 &
manager=$!
"$@"
