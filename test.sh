#!/usr/bin/env bash
# Installs missing packages, builds, and runs every test: on Linux, on Linux under the sanitizers, and the Windows build
# under Wine. `./test.sh --quick` runs only the Linux tests, `./test.sh --threads` all logic and multimedia tests under
# ThreadSanitizer; without arguments, those of the folders that run on several threads.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
help_if_asked "$@"

quick=false
threads=(platform filelist pattern app player multimedia cli)
case "${1:-}" in
  "") ;;
  --quick) quick=true ;;
  --threads) threads+=(base settings paths dialogs media tags rename plan bregexp) ;;
  *) fail "unknown argument '$1' (see --help)" ;;
esac

summary=()
failed=0
total_passed=0
total_failed=0
total_skipped=0
times=()

# timed NAME COMMAND...: notes how long the command took.
timed() {
  local name=$1 started=$SECONDS
  shift
  "$@" # without "||": a command that fails inside it ends the script
  local status=$?
  times+=("$(printf '%5d s  %s' $((SECONDS - started)) "$name")")
  return "$status"
}

# Adds up the result files of a build; a program without a result file counts as one failure.
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
  [ "$skipped" -eq 0 ] || summary+=("$(skip_reasons "$folder")")
}

# Prints the number of skipped tests for each reason, from a folder of result files.
skip_reasons() {
  grep -hA1 '<skipped ' "$1"/*.xml | sed -n 's/.*<skipped message="\([^"]*\)".*/\1/p' |
    sed 's/^[^ ]*:[0-9]*&#x0A;//; s/&#x0A;.*//' | sort | uniq -c | sed 's/^ *\([0-9]*\)/    \1 x/'
}

# A suite mostly waits for windows and music, so less urgent work runs at the same time.
# beside NAME NICENESS COMMAND...: starts the command. Work that other steps wait for gets a lower niceness.
declare -A beside_process beside_log
trap 'kill $(jobs -p) 2>/dev/null || true' EXIT
beside() {
  local name=$1 niceness=$2
  shift 2
  beside_log[$name]=$(mktemp)
  nice -n "$niceness" "$@" >"${beside_log[$name]}" 2>&1 &
  beside_process[$name]=$!
}

# end_beside NAME: waits for the command and prints its output.
end_beside() {
  local status=0
  wait "${beside_process[$1]}" || status=$?
  cat "${beside_log[$1]}"
  rm -f "${beside_log[$1]}"
  return "$status"
}

# build_suite NAME PRESET CMAKE-OPTIONS...: builds the preset.
build_suite() {
  local name=$1 preset=$2
  shift 2
  say "$name: building"
  timed "$name: building" build_preset "$preset" "$@"
}

# The failed tests of result files, as a GoogleTest filter with colons between the names.
failed_tests() {
  awk '/<testcase /{name = $0; sub(/.*<testcase name="/, "", name); sub(/".*/, "", name)
                    suite = $0; sub(/.* classname="/, "", suite); sub(/".*/, "", suite)}
       /<failure /{if (last != suite "." name) printf "%s%s", separator, last = suite "." name; separator = ":"}' "$@"
}

# once_more PRESET: window tests depend on what else the machine is doing. If only window tests have failed, runs these
# once more and names them; a second failure counts.
once_more() {
  local preset=$1 results=build/$1/results log=build/$1/Testing/Temporary/LastTestsFailed.log tests
  grep -qvE ':(gui-[0-9]+|desktop)$' "$log" && return 1
  for program in $(sed 's/.*://' "$log"); do [ -f "$results/$program.xml" ] || return 1; done
  tests=$(failed_tests "$results"/gui-*.xml "$results/desktop.xml")
  [ -n "$tests" ] || return 1
  say "once more: $tests"
  rm -rf "$results/first"
  mkdir "$results/first"
  mv "$results"/gui-*.xml "$results/desktop.xml" "$results/first/"
  GTEST_FILTER=$tests ctest --preset "$preset" -R '^(gui-|desktop$)' || {
    mv "$results"/first/*.xml "$results/"
    return 1
  }
  sed -i '/<testsuites /s/ failures="[0-9]*"/ failures="0"/' "$results"/first/*.xml
  mv "$results"/first/*.xml "$results/"
  summary+=("  unsteady, passed when run once more: $tests")
}

# test_suite NAME PRESET [WRAPPER...]: runs the test programs that are built, on Linux each on what display it needs.
test_suite() {
  local name=$1 preset=$2
  shift 2
  rm -rf "build/$preset/results"
  mkdir -p "build/$preset/results"
  say "$name: testing"
  export QUILLON_UNSTEADY=$PWD/build/$preset/results/unsteady.txt
  timed "$name: testing" "$@" ctest --preset "$preset" -j3 || once_more "$preset" || failed=1
  if [ -f "$QUILLON_UNSTEADY" ]; then summary+=("$(sed 's/^/  run once more: /' "$QUILLON_UNSTEADY")"); fi
  count_results "$name" "$preset" "$(ctest --preset "$preset" -N | sed -n 's/^Total Tests: //p')"
}

# thread_suite: runs the tests of the folders in `threads` under ThreadSanitizer. Left out are tests that measure time or
# memory, use all of the process's descriptors, or interrupt the process, whose signals this sanitizer delays.
thread_suite() {
  local targets=("${threads[@]/#/quillon_}")
  local left_out='FolderSearchMemory*:FileListScale*:*InRealTime*:CliUsageTest.RunningOutOfMemory*:Interruption*'
  left_out+=':HostileFiles.*Cost*:HostileFiles.*Second:HostileTags.*Little*:HostileLengths.EndlessDamage*'
  left_out+=':HostileLengths.*Memory*:CliOtherVolumeTest.*Killed*:FilesInTurnOnLinux.NothingIsMissing*'
  local results=build/linux-tsan/results
  say "Linux with the thread sanitizer: building"
  cmake --preset linux-tsan >/dev/null
  cmake --build build/linux-tsan --target "${targets[@]/%/_tests}"
  say "Linux with the thread sanitizer: testing"
  rm -rf "$results"
  mkdir -p "$results"
  # The libraries are not built for it: what happens between their own threads looks like races.
  GTEST_FILTER=-$left_out TSAN_OPTIONS=ignore_noninstrumented_modules=1 \
    ctest --preset linux-tsan -j3 -R "^($(IFS='|' && echo "${threads[*]}"))\$" || failed=1
  count_results "Linux, thread sanitizer" linux-tsan "${#threads[@]}"
}

need_packages "${linux_packages[@]}" "${window_packages[@]}" "${test_packages[@]}" "${benchmark_packages[@]}"
if ! $quick; then
  need_packages "${style_packages[@]}" "${site_packages[@]}" "${windows_packages[@]}" "${package_packages[@]}"
  command -v npm >/dev/null || need_packages "${npm_packages[@]}"
fi
scripts/japanese-locale.sh
if [ "${1:-}" = --threads ]; then
  thread_suite
  printf '%s\n' "${summary[@]}"
  exit "$failed"
fi
build_suite "Linux" linux -DQUILLON_BENCHMARKS=ON
if $quick; then
  test_suite "Linux" linux
else
  beside style 19 scripts/style.sh
  test_suite "Linux" linux

  beside mutants 10 scripts/mutants-of-day.sh
  build_suite "Linux with sanitizers" linux-asan
  beside libraries 5 scripts/windows-libraries.sh
  beside debian 15 ./package.sh linux
  test_suite "Linux with sanitizers" linux-asan
  timed "Linux with the thread sanitizer" thread_suite
  timed "Libraries for Windows: waiting" end_beside libraries || fail "the libraries for Windows could not be built"

  # Keeping the server running saves a second for each test program. One may be running already.
  scripts/wine.sh --server -p600 || true
  build_suite "Windows under Wine" windows
  say "Packages"
  timed "Packages for Debian: waiting" end_beside debian || failed=1
  timed "Packages for Windows: making" ./package.sh windows || failed=1
  rm -rf build/packages/results
  for system in linux windows; do
    beside "packages-$system" 10 /usr/bin/python3 -B tests/packaging/packaging.py "$system" --packages dist \
      --wine scripts/wine.sh --results "build/packages/results/packaging-$system.xml"
  done
  beside compiler 19 scripts/other-compiler.sh
  test_suite "Windows under Wine" windows scripts/with-display.sh dbus-run-session --
  for system in linux windows; do end_beside "packages-$system" || failed=1; done
  count_results "Packages" packages 2
  scripts/wine.sh --server -k || true

  say "Mutants of the day"
  mutants=0
  timed "Mutants of the day: waiting" end_beside mutants || mutants=$?
  case $mutants in
    0) summary+=("Mutants of the day:    all killed") ;;
    3) summary+=("Mutants of the day:    NOT TRIED, this system has no mount namespaces") ;;
    *) failed=1 ;;
  esac

  say "Style: clang-format, clang-tidy, actionlint, the web site"
  timed "Style: waiting" end_beside style || failed=1
  say "Style: what another compiler refuses"
  timed "Another compiler: waiting" end_beside compiler || failed=1
fi

say "Times"
printf '%s\n' "${times[@]}"
say "Results"
printf '%s\n' "${summary[@]}"
printf '%d passed, %d failed, %d skipped\n' "$total_passed" "$total_failed" "$total_skipped"
exit "$failed"
