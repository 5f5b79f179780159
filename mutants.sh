#!/usr/bin/env bash
# ./mutants.sh              makes each harmful change of tests/mutants to a copy of the sources, one after the other,
#                           and runs the test program that has to fail
# ./mutants.sh WORD...      the same for those whose name or file contains a WORD ("rename.txt", "recycle bin", ...)
# ./mutants.sh --day [N]    N of them (10), other ones each day, none of windows; ./test.sh does so with what it has built
# ./mutants.sh --check      builds nothing: looks whether each change still fits the sources
#
# Installs missing packages first. Prints what became of each, and fails if one was not noticed, or could not be made.
# The copy and its build stay in build/mutants. CMAKE_BUILD_PARALLEL_LEVEL limits how much is compiled at a time.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
help_if_asked "$@"

case "${1:-}" in
  --check) ;;
  *) need_packages "${linux_packages[@]}" "${window_packages[@]}" "${test_packages[@]}" ;;
esac

exec /usr/bin/python3 -B scripts/mutants.py "$@"
