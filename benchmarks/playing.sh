#!/usr/bin/env bash
# Measures playing: for each kind of file the reported length, the error of a seek, and the time to open and to start;
# and the window's processor time while playing. Uses a private display and sound server.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

need_packages "${linux_packages[@]}" "${test_build_packages[@]}" "${window_packages[@]}" "${sound_packages[@]}" python3
cmake --preset linux >/dev/null || fail "configuring 'linux' failed"
cmake --build build/linux --target quillon quillon-cli bregexp >/dev/null ||
  fail "building failed: run 'cmake --build build/linux' to see why"

# A copy, so that the settings beside the program are neither used nor changed.
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
cp build/linux/bin/{quillon,quillon-cli,libbregexp.so} "$copy"
scripts/media-samples.sh "$copy/media" 30
# Hides the messages of the bus.
scripts/with-sound.sh scripts/with-display.sh dbus-run-session -- bash -c 'exec "$@" 2>&7' run-benchmark \
  python3 benchmarks/playing.py "$copy" "$copy/media" 7>&2 2>/dev/null | grep -v '^SpiRegistry'
