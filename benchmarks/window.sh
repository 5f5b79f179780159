#!/usr/bin/env bash
# Measures the window in one run on a private display: its start compared with a bare frame, loading compared with
# quillon-cli, and its memory. Prints the ratios with their goals.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

need_packages "${linux_packages[@]}" "${test_packages[@]}" "${benchmark_packages[@]}" "${window_packages[@]}" python3
cmake --preset linux -DQUILLON_BENCHMARKS=ON >/dev/null || fail "configuring 'linux' failed"
cmake --build build/linux --target quillon quillon-cli bregexp quillon-bare-frame quillon-media-folder \
  quillon-window-clock >/dev/null || fail "building failed: run 'cmake --build build/linux' to see why"

# A copy, so that the settings beside the program are neither used nor changed.
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
cp build/linux/bin/{quillon,quillon-cli,libbregexp.so,quillon-bare-frame,quillon-media-folder,quillon-window-clock} "$copy"
printf '[List]\nSubFolder=1\n' >"$copy/quillon.ini"
# Without animations, because a window fades in for a quarter of a second, which would hide the measured time.
mkdir -p "$copy/config/gtk-3.0"
printf '[Settings]\ngtk-enable-animations=false\n' >"$copy/config/gtk-3.0/settings.ini"
export XDG_CONFIG_HOME=$copy/config
# Hides the messages of the bus.
scripts/with-display.sh dbus-run-session -- bash -c 'exec "$@" 2>&7' run-benchmark \
  python3 benchmarks/window.py "$copy" 7>&2 2>/dev/null |
  grep -v '^SpiRegistry'
