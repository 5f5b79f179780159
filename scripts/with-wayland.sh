#!/usr/bin/env bash
# Runs a command in a private Wayland session: a compositor that fills a private X display. So it has a keyboard and a
# pointer, which a compositor without a screen has not, and that display shows what the compositor shows. Programs that
# can do both are to use Wayland, but the X display can still be asked for pictures.
set -eu
scripts=$(cd "$(dirname "$0")" && pwd)
if [ "${1:-}" != --on-display ]; then exec "$scripts/with-display.sh" "$scripts/with-wayland.sh" --on-display "$@"; fi
shift

# Waits until a command succeeds, for so many tenths of a second at most.
await() {
  local tenths=$1
  shift
  for _ in $(seq "$tenths"); do
    if "$@"; then return 0; fi
    sleep 0.1
  done
  return 1
}

has_window_manager() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }
has_ended() { ! kill -0 "$compositor" 2>/dev/null; }
is_ready() { [ -S "$folder/$socket" ] || has_ended; }

socket=quillon-test
folder=$(mktemp -d)
chmod 700 "$folder"
compositor=
trap 'kill $compositor 2>/dev/null || true; rm -rf "$folder"' EXIT
cat >"$folder/weston.ini" <<'END'
[core]
idle-time=0
[shell]
panel-position=none
background-color=0xff406080
locking=false
animation=none
END
await 600 has_window_manager || { echo "error: no window manager" >&2 && exit 1; }
export XDG_RUNTIME_DIR=$folder
screen=${SCREEN:-1280x1024}
start() {
  weston --backend=x11-backend.so --use-pixman --fullscreen --width="${screen%x*}" --height="${screen#*x}" \
    --config="$folder/weston.ini" --socket="$socket" --log="$folder/weston.log" >/dev/null 2>&1 &
  compositor=$!
  await "$1" is_ready && ! has_ended
}
# At times it waits for ever for its window to be mapped.
if ! start 150; then
  kill "$compositor" 2>/dev/null || true
  if ! start 600; then
    echo "error: no Wayland: weston does not start" >&2
    cat "$folder/weston.log" >&2
    exit 1
  fi
fi
export WAYLAND_DISPLAY=$socket GDK_BACKEND=wayland
"$@"
