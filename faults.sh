#!/usr/bin/env bash
# ./faults.sh          makes every system call of a move, a rename and a save of the settings fail in every way, kills the
#                      program at each, and lets other programs change the files meanwhile: about 4,600 runs
# ./faults.sh SCENE    the same for one scene ("copy", "rename-by-link", ...)
#
# Installs missing packages and builds first. Prints what was run, and fails if a file was lost, torn or left behind.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
help_if_asked "$@"

case "${1:-}" in
  -h | --help)
    sed -n '2,6s/^# \{0,1\}//p' "$0"
    exit 0
    ;;
  -*) fail "unknown argument '$1' (see --help)" ;;
esac

need_packages "${linux_packages[@]}" "${test_build_packages[@]}" strace python3
say "Building"
cmake --preset linux >/dev/null || fail "configuring failed: run 'cmake --preset linux' to see why"
cmake --build build/linux --target quillon-cli quillon_whole_file
say "Running"
exec /usr/bin/python3 -B tests/faults/faults.py --program build/linux/bin --all ${1:+--only "$1"}
