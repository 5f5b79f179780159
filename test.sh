#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: on Linux, on Linux under the sanitizers, and the Windows build
# under Wine. `./test.sh --quick` runs the Linux tests alone.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

quick=false
case "${1:-}" in
  "") ;;
  --quick) quick=true ;;
  *) fail "unknown argument '$1' (known: --quick)" ;;
esac

summary=()
failed=0
total_passed=0
total_failed=0
total_skipped=0

# Adds up the result files of a build; a program that ended without its file counts as one failure.
count_results() {
  local suite=$1 folder=build/$2/results expected=$3 passed=0 bad=0 skipped=0 file line
  for file in "$folder"/*.xml; do
    [ -f "$file" ] || continue
    line=$(grep -m1 '<testsuites ' "$file")
    local tests failures
    tests=$(sed -n 's/.* tests="\([0-9]*\)".*/\1/p' <<<"$line")
    failures=$(sed -n 's/.* failures="\([0-9]*\)".*/\1/p' <<<"$line")
    local skips
    skips=$(grep -c 'result="skipped"' "$file" || true)
    passed=$((passed + tests - failures - skips))
    bad=$((bad + failures))
    skipped=$((skipped + skips))
  done
  local files
  files=$(find "$folder" -name '*.xml' 2>/dev/null | wc -l)
  if [ "$files" -lt "$expected" ]; then bad=$((bad + expected - files)); fi
  [ "$bad" -gt 0 ] && failed=1
  total_passed=$((total_passed + passed))
  total_failed=$((total_failed + bad))
  total_skipped=$((total_skipped + skipped))
  summary+=("$(printf '%-22s %5d passed, %d failed, %d skipped' "$suite:" "$passed" "$bad" "$skipped")")
}

# run_suite NAME PRESET CMAKE-OPTIONS...: builds the preset and runs its test programs.
run_suite() {
  local name=$1 preset=$2
  shift 2
  say "$name: building"
  build_preset "$preset" "$@"
  rm -rf "build/$preset/results"
  mkdir -p "build/$preset/results"
  say "$name: testing"
  # Desktop icons and the like need a display and a session bus; windows are tested on displays of their own.
  scripts/with-display.sh dbus-run-session -- ctest --preset "$preset" -j3 || failed=1
  count_results "$name" "$preset" "$(ctest --preset "$preset" -N | sed -n 's/^Total Tests: //p')"
}

need_packages "${linux_packages[@]}" "${window_packages[@]}" "${test_packages[@]}"
scripts/japanese-locale.sh
run_suite "Linux" linux -DQUILLON_BENCHMARKS=ON

if ! $quick; then
  need_packages "${style_packages[@]}"
  say "Style: clang-format, clang-tidy"
  scripts/style.sh || failed=1

  run_suite "Linux with sanitizers" linux-asan

  need_packages "${windows_packages[@]}"
  scripts/windows-libraries.sh
  # A server that stays up between test programs saves each of them a second. One may be up already.
  scripts/wine.sh --server -p600 || true
  run_suite "Windows under Wine" windows
  scripts/wine.sh --server -k || true
fi

say "Results"
printf '%s\n' "${summary[@]}"
printf '%d passed, %d failed, %d skipped\n' "$total_passed" "$total_failed" "$total_skipped"
exit "$failed"
