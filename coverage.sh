#!/usr/bin/env bash
# Prints how much of the source the tests of the logic run, for each folder: ./coverage.sh. With words, for each file
# whose path contains one of them, with the lines and branches that are never run: ./coverage.sh platform/linux settings
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

programs=(base platform desktop settings paths app player dialogs multimedia media tags filelist rename pattern plan
  bregexp cli fuzz)
need_packages "${linux_packages[@]}" "${window_packages[@]}" "${test_packages[@]}" "${coverage_packages[@]}"
scripts/japanese-locale.sh
say "Building"
cmake --preset linux-coverage >/dev/null
targets=("${programs[@]/#/quillon_}")
cmake --build build/linux-coverage --target "${targets[@]/%/_tests}" >/dev/null

say "Testing"
profiles=$PWD/build/linux-coverage/profiles
rm -rf "$profiles"
mkdir -p "$profiles"
# The programs that tests start write a profile each, too.
(cd build/linux-coverage && LLVM_PROFILE_FILE=$profiles/%m-%p.profraw \
  ctest --output-on-failure -R "^($(IFS='|' && echo "${programs[*]}"))\$" -j2) || failed=1

say "Coverage"
python3 -B scripts/coverage.py build/linux-coverage "$profiles" "$@"
exit "${failed:-0}"
