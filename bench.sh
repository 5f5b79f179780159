#!/usr/bin/env bash
# Measures speed and memory, each beside its floor or its peers in the same run, and prints one table with the goals.
# docs/performance.md says what is measured.
#
#   ./bench.sh                  everything, in about a quarter of an hour
#   ./bench.sh --quick          fewer repetitions, 100,000 files instead of a million, without playing
#   ./bench.sh [--quick] PART...  engine, list, slow, million, peers, window, playing
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
help_if_asked "$@"

parts=(engine list slow million peers window playing)
if [ "${1:-}" = --quick ]; then
  shift
  export REPETITIONS=${REPETITIONS:-2} MOST=${MOST:-100000}
  parts=(engine list slow million peers window)
fi
[ $# -eq 0 ] || parts=("$@")
for part in "${parts[@]}"; do
  case $part in
    engine | list | slow | million | peers | window | playing) ;;
    *) fail "there is no part '$part'" ;;
  esac
done

need_packages "${linux_packages[@]}" "${test_packages[@]}" "${benchmark_packages[@]}" "${peer_packages[@]}" \
  "${window_packages[@]}" "${sound_packages[@]}" python3
say "Building"
build_preset linux -DQUILLON_BENCHMARKS=ON >/dev/null

# A copy, so that the settings beside the program are neither used nor changed.
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
cp build/linux/bin/{quillon,quillon-cli,libbregexp.so,quillon-slow-disk.so} \
  build/linux/bin/quillon-{bare-frame,media-folder,list-floor,load-folder,window-clock,benchmarks} "$copy"
printf '[List]\nSubFolder=1\n' >"$copy/quillon.ini"
# Without animations, because a window fades in for a quarter of a second, which would hide the measured time.
mkdir -p "$copy/config/gtk-3.0"
printf '[Settings]\ngtk-enable-animations=false\n' >"$copy/config/gtk-3.0/settings.ini"

# Runs a command on a display of its own, without the messages of the bus.
on_display() {
  XDG_CONFIG_HOME=$copy/config scripts/with-display.sh dbus-run-session -- bash -c 'exec "$@" 2>&7' run-benchmark "$@" \
    7>&2 2>/dev/null | { grep -v '^SpiRegistry' || true; }
}

measure() {
  case $1 in
    engine)
      "$copy/quillon-benchmarks" --benchmark_repetitions="${REPETITIONS:-3}" --benchmark_min_time=0.05 \
        --benchmark_enable_random_interleaving=true --benchmark_out="$copy/results.json" --benchmark_out_format=json \
        >/dev/null 2>"$copy/messages" || fail "quillon-benchmarks: $(tail -n 1 "$copy/messages")"
      python3 benchmarks/engine.py "$copy/results.json"
      ;;
    list | slow | million) python3 benchmarks/disk.py "$copy" "$1" ;;
    peers) python3 benchmarks/peers.py "$copy" ;;
    window) on_display python3 benchmarks/window.py "$copy" ;;
    playing)
      scripts/media-samples.sh "$copy/media" 30
      export -f on_display
      copy=$copy scripts/with-sound.sh bash -c 'on_display "$@"' playing python3 benchmarks/playing.py "$copy" "$copy/media"
      ;;
  esac
}

say "Measuring"
export PYTHONDONTWRITEBYTECODE=1
PYTHONPATH=benchmarks python3 -c 'import report; report.heading()'
for part in "${parts[@]}"; do measure "$part"; done
