#!/usr/bin/env bash
# Measures the window: its start beside a bare frame's, loading beside quillon-cli's, its memory. Everything in one run,
# on a display of its own; prints the ratios with their goals.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

need_packages "${linux_packages[@]}" "${test_packages[@]}" "${window_packages[@]}" python3
cmake --preset linux -DQUILLON_BENCHMARKS=ON >/dev/null || fail "configuring 'linux' failed"
cmake --build build/linux --target quillon quillon-cli bregexp quillon-bare-frame quillon-media-folder \
  quillon-window-clock >/dev/null || fail "building failed: run 'cmake --build build/linux' to see why"

# A copy, so that the settings beside the program neither matter nor change.
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
cp build/linux/bin/{quillon,quillon-cli,libbregexp.so,quillon-bare-frame,quillon-media-folder,quillon-window-clock} "$copy"
printf '[List]\nSubFolder=1\n' >"$copy/quillon.ini"
# A window that is shown fades in over a quarter of a second, whatever is in it: that would hide what is measured.
mkdir -p "$copy/config/gtk-3.0"
printf '[Settings]\ngtk-enable-animations=false\n' >"$copy/config/gtk-3.0/settings.ini"
export XDG_CONFIG_HOME=$copy/config
# The bus is talkative.
scripts/with-display.sh dbus-run-session -- bash -c 'exec "$@" 2>&7' run-benchmark \
  python3 benchmarks/window.py "$copy" 7>&2 2>/dev/null |
  grep -v '^SpiRegistry'
