#!/usr/bin/env bash
# ./run.sh [PATH...]                        opens the window with these files and folders
# ./run.sh --cli [PATH...]                  lists them, and shows what renaming them to their titles would do
# ./run.sh --screenshot FILE.png [PATH...]  saves a picture of the window with them; needs no display
#
# Installs missing packages and builds first. Without a path it uses a folder of sample files. Without a display it
# works like --cli. --cli and --screenshot rename nothing.
set -euo pipefail
top=$(cd "$(dirname "$0")" && pwd)
. "$top/scripts/common.sh"

job=window
case "${1:-}" in
  -h | --help)
    sed -n '2,7s/^# \{0,1\}//p' "$0"
    exit 0
    ;;
  --cli)
    job=cli
    shift
    ;;
  --screenshot)
    [ $# -ge 2 ] || fail "--screenshot needs the name of the picture's file"
    job=screenshot
    picture=$2
    [[ $picture = *.png ]] || fail "'$picture' does not end with .png"
    [ -d "$(dirname "$picture")" ] || fail "there is no folder '$(dirname "$picture")'"
    shift 2
    ;;
  -*)
    [ -e "$1" ] || fail "unknown argument '$1' (see --help)"
    ;;
esac
for path in "$@"; do
  [ -e "$path" ] || fail "there is no '$path'"
done

install_packages() {
  local packages=("${linux_packages[@]}" "${test_build_packages[@]}")
  case $job in
    window) packages+=("${look_packages[@]}" "${play_packages[@]}") ;;
    screenshot) packages+=("${window_packages[@]}") ;;
  esac
  # Any installed Japanese font is sufficient.
  if [ "$job" != cli ] && command -v fc-list >/dev/null && [ -n "$(fc-list :lang=ja)" ]; then
    mapfile -t packages < <(printf '%s\n' "${packages[@]}" | grep -vx fonts-ipafont-gothic)
  fi
  need_packages "${packages[@]}"
}

build() {
  local targets=(quillon-cli bregexp quillon-samples)
  [ "$job" = cli ] || targets+=(quillon)
  say "Building (the first time takes a few minutes)"
  cd "$top"
  cmake --preset linux >/dev/null || fail "configuring failed: run 'cmake --preset linux' to see why"
  cmake --build build/linux --target "${targets[@]}" >build/linux/run.log || {
    tail -n 40 build/linux/run.log >&2
    fail "building failed (log: build/linux/run.log)"
  }
  cd "$OLDPWD"
}

has_display() {
  [ -n "${DISPLAY:-}" ] && xdpyinfo >/dev/null 2>&1 && return 0
  [ -n "${WAYLAND_DISPLAY:-}" ] && [ -S "${XDG_RUNTIME_DIR:-}/$WAYLAND_DISPLAY" ]
}

use_samples() {
  samples=$top/build/samples
  rm -rf "$samples"
  "$programs/quillon-samples" "$samples"
  say "A sample folder: $samples"
}

run_cli() {
  local cli=$programs/quillon-cli status=0
  say "quillon-cli list --all --subfolders $*"
  "$cli" list --all --subfolders "$@" || say "Not every path gave files."
  say "quillon-cli rename --to-title --subfolders $*   (a dry run: nothing is renamed)"
  "$cli" rename --to-title --subfolders "$@" || status=$?
  case $status in
    0) ;;
    1) say "The rows with a reason would not be renamed." ;;
    3) say "None of these files is a media file (see --ext and --all)." ;;
    *) exit "$status" ;;
  esac
  say "To rename for real: $cli rename --to-title --subfolders --apply PATH..."
}

take_picture() {
  local settings
  settings=$(mktemp)
  printf '[List]\nSubFolder=1\n[Find]\nFilterChk=0\n' >"$settings"
  "$top/scripts/window-picture.sh" "$picture" "$programs/quillon" "$settings" "$@" || {
    rm -f "$settings"
    exit 1
  }
  rm -f "$settings"
  say "A picture of the window: $picture"
}

install_packages
build
programs=$top/build/linux/bin
if [ $# -eq 0 ]; then
  use_samples
  set -- "$samples"
fi
if [ "$job" = window ] && ! has_display; then
  say "There is no display to open the window on: the command-line program does the work."
  job=cli
fi
case $job in
  window) exec "$programs/quillon" "$@" ;;
  cli) run_cli "$@" ;;
  screenshot) take_picture "$@" ;;
esac
