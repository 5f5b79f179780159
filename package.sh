#!/usr/bin/env bash
# ./package.sh          makes every package into dist/: for Debian and Ubuntu, the installer for Windows, and the archive
#                       for Windows that needs no installing
# ./package.sh linux    the one for Debian and Ubuntu alone
# ./package.sh windows  the two for Windows alone
#
# Installs missing packages and builds first. The same build gives the same packages.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

case "${1:-all}" in
  -h | --help)
    sed -n '2,7s/^# \{0,1\}//p' "$0"
    exit 0
    ;;
  all) systems=(linux windows) ;;
  linux | windows) systems=("$1") ;;
  *) fail "unknown argument '$1' (see --help)" ;;
esac

# run_quietly LOG COMMAND...: shows the command's output only if it fails.
run_quietly() {
  local log=$1
  shift
  "$@" >"$log" 2>&1 || {
    tail -n 40 "$log" >&2
    fail "'$*' failed (log: $log)"
  }
}

# Uses the normal build folder, and only configures it, by the preset, if that has not been done.
build_contents() {
  local system=$1 log=build/$1/package.log
  say "${system^}: building"
  mkdir -p "build/$system"
  run_quietly "$log" cmake --preset "$system"
  run_quietly "$log" cmake --build --preset "$system" --target quillon_package_contents
}

pack() {
  local system=$1 work=build/$1/packages
  say "${system^}: packing"
  rm -rf "$work"
  run_quietly "build/$system/package.log" cpack --config "build/$system/CPackConfig.cmake" -B "$work"
  mkdir -p dist
  case $system in
    linux) rm -f dist/quillon_* ;;
    windows) rm -f dist/Quillon-* ;;
  esac
  find "$work" -maxdepth 1 -type f -exec mv {} dist/ \;
  rm -rf "$work"
}

need_packages "${linux_packages[@]}" "${test_build_packages[@]}" "${package_packages[@]}"
if [[ " ${systems[*]} " = *" windows "* ]]; then
  need_packages "${windows_packages[@]}"
  scripts/windows-libraries.sh
fi

# The packages' files get the date of their sources.
if [ -z "${SOURCE_DATE_EPOCH:-}" ]; then
  SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null) || SOURCE_DATE_EPOCH=$(stat -c %Y CHANGELOG.md)
fi
export SOURCE_DATE_EPOCH
for system in "${systems[@]}"; do
  build_contents "$system"
  pack "$system"
done

cd dist
shopt -s nullglob
sha256sum quillon_* Quillon-* >SHA256SUMS
say "In dist/:"
while read -r sum name; do printf '%10d bytes  %s  %s\n' "$(stat -c %s "$name")" "$sum" "$name"; done <SHA256SUMS
