#!/usr/bin/env bash
# Prints how much of the source the tests of the logic run, for each folder: ./coverage.sh. With words, for each file
# whose path contains one of them, with the lines and branches that are never run: ./coverage.sh platform/linux settings
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
help_if_asked "$@"

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
chmod a+rwx "$profiles"
umask 0 # tests that run as another user write there, too
# The programs that tests start count, too; all runs of a program share two files. Tests that measure time or memory, or
# leave no room for these files, fail in this build.
(cd build/linux-coverage && LLVM_PROFILE_FILE=$profiles/%2m.profraw \
  ctest -R "^($(IFS='|' && echo "${programs[*]}"))\$" -j2 | tail -n 25) || say "Some tests have failed, see above"

say "Coverage"
python3 -B scripts/coverage.py build/linux-coverage "$profiles" "$@"
