#!/usr/bin/env bash
# Saves a picture of the main window, with its frame: window-picture.sh FILE.png PROGRAM SETTINGS [PATH...]
# The window opens on a private display and session bus, from a copy of the program beside a copy of that settings file,
# so files beside the program have no effect and are not changed. KEYS ("Down Down") are pressed when everything is
# loaded. With PLAYING=SECONDS the picture is taken that long after the keys, even if something moves. With
# PICTURED=active it is a picture of the window that has the focus then, for example a dialog. A Windows program runs
# under Wine.
set -euo pipefail
scripts=$(cd "$(dirname "$0")" && pwd)
. "$scripts/common.sh"

seconds=60

# The processor time that a process has used, in hundredths of a second; empty when it has ended.
time_used() {
  local line
  line=$(cat "/proc/$1/stat" 2>/dev/null) || return 0
  set -- ${line##*) }
  echo $((${12} + ${13}))
}

screen() { import -silent -window root png:- | sha256sum; }

# Waits until the program is idle and the screen no longer changes.
wait_until_settled() {
  local last='' now quiet=0
  for ((i = 0; i < seconds * 5; ++i)); do
    now="$(time_used "$program") $(screen)"
    [ -n "$(time_used "$program")" ] || fail "the program has ended by itself"
    if [ "$now" = "$last" ]; then quiet=$((quiet + 1)); else quiet=0; fi
    [ "$quiet" -ge 3 ] && return 0
    last=$now
    sleep 0.2
  done
  fail "the window did not come to rest within $seconds seconds"
}

wait_for_window() {
  for ((i = 0; i < seconds * 10; ++i)); do
    window=$(xdotool search --onlyvisible --name '^Quillon$' 2>/dev/null | tail -n 1) || true
    [ -n "$window" ] && return 0
    kill -0 "$program" 2>/dev/null || fail "the program has ended without a window"
    sleep 0.1
  done
  fail "no window appeared within $seconds seconds"
}

# The rectangle of the window with its frame, as WIDTHxHEIGHT+X+Y.
outer_rectangle() {
  local information extents
  information=$(xwininfo -id "$window")
  value_of() { sed -n "s/^ *$1: *//p" <<<"$information"; }
  extents=$(xprop -id "$window" _NET_FRAME_EXTENTS | sed -n 's/.*= //p' | tr -d ,)
  read -r left right top bottom <<<"${extents:-0 0 0 0}"
  echo "$(($(value_of Width) + left + right))x$(($(value_of Height) + top + bottom))$(
  )+$(($(value_of 'Absolute upper-left X') - left))+$(($(value_of 'Absolute upper-left Y') - top))"
}

# This part runs on the new display.
if [ "${1:-}" = --on-display ]; then
  exec 2>&7
  shift
  file=$1
  shift
  xdotool mousemove 10000 10000  # so that no control is highlighted by the pointer
  "$@" >/dev/null 2>&1 7>&- &
  program=$!
  trap 'kill "$program" 2>/dev/null || true' EXIT
  wait_for_window
  wait_until_settled
  if [ -n "${KEYS:-}" ]; then
    xdotool windowfocus --sync "$window" key --delay 100 $KEYS
    if [ -n "${PLAYING:-}" ]; then sleep "$PLAYING"; else wait_until_settled; fi
  fi
  if [ "${PICTURED:-}" = active ]; then window=$(xdotool getactivewindow); fi
  import -silent -window root -crop "$(outer_rectangle)" +repage -strip -depth 8 -define png:compression-level=9 \
    "png:$file" || fail "'$file' cannot be written"
  [ "${PICTURED:-}" = active ] && exit 0  # a dialog may be open
  # Closes the window normally, so that the program ends as usual.
  xdotool windowfocus --sync "$window" key ctrl+q
  for ((i = 0; i < 50; ++i)); do
    kill -0 "$program" 2>/dev/null || exit 0
    sleep 0.1
  done
  say "The window did not close by itself."
  exit 0
fi

[ $# -ge 3 ] || fail "usage: window-picture.sh FILE.png PROGRAM SETTINGS [PATH...]"
file=$(realpath -m "$1")
program=$2
settings=$3
shift 3
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
name=$(basename "$program")
cp "$program" "$copy/"
find "$(dirname "$program")" -maxdepth 1 \( -name libbregexp.so -o -name BREGEXP.DLL \) -exec cp {} "$copy/" \;
cp "$settings" "$copy/${name%.exe}.ini"
if [ "${name%.exe}" = "$name" ]; then command=("$copy/$name"); else command=("$scripts/wine.sh" "$copy/$name"); fi
# The bus and the programs it starts print messages; only this script's own errors are shown.
"$scripts/with-display.sh" dbus-run-session -- "$scripts/window-picture.sh" --on-display "$file" "${command[@]}" "$@" \
  7>&2 >/dev/null 2>&1
