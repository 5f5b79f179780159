#!/usr/bin/env bash
# ./package.sh          makes every package into dist/: for Debian and Ubuntu, with its source; the installer for Windows;
#                       the archive for Windows that needs no installing; manifests for package managers
# ./package.sh linux    the package for Debian and Ubuntu alone, with its source
# ./package.sh windows  the two for Windows alone
#
# Installs missing packages and builds first. The same sources give the same packages (scripts/repeat.sh).
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
help_if_asked "$@"

case "${1:-all}" in
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

# Where the sources of the packages are copied to and packed, so that the checkout stays as it is.
work_folder() { printf '%s/build/%s/packages' "$PWD" "$1"; }

# dated_tar ARGUMENTS...: tar with what differs between users and days left out.
dated_tar() {
  tar --create --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner --mode=u=rwX,go=rX "$@"
}

# Builds the source package and the program's by debian/ alone, as others do.
pack_linux() {
  local work tree
  work=$(work_folder linux)
  tree=$work/quillon-$version
  say "Linux: building and packing"
  rm -rf "$work"
  mkdir -p "$tree"
  checkout_files | dated_tar --null --files-from=- | tar --extract --directory "$tree"
  dated_tar --exclude=./debian --transform="s,^\.,quillon-$version," --directory "$tree" . |
    xz >"$work/quillon_$version.orig.tar.xz"
  # What is packed has been tested by test.sh. Nobody has asked for the debug symbols yet.
  (
    cd "$tree"
    export DEB_BUILD_OPTIONS='nocheck noautodbgsym' DEB_BUILD_PROFILES=nocheck
    unset SOURCE_DATE_EPOCH # that of debian/changelog, which a new revision of the same sources changes
    run_quietly "$work/package.log" dpkg-buildpackage --unsigned-source --unsigned-changes --jobs="$(nproc)"
  )
  rm -f dist/quillon_*
  mv "$work"/quillon_*.{deb,dsc,tar.xz} dist/
  rm -rf "$work"
}

# Uses the normal build folder, and only configures it, by the preset, if that has not been done.
pack_windows() {
  local work log=build/windows/package.log
  work=$(work_folder windows)
  say "Windows: building"
  mkdir -p build/windows
  run_quietly "$log" cmake --preset windows
  run_quietly "$log" cmake --build --preset windows --target quillon_package_contents
  say "Windows: packing"
  rm -rf "$work"
  run_quietly "$log" cpack --config build/windows/CPackConfig.cmake -B "$work"
  rm -f dist/Quillon-*
  find "$work" -maxdepth 1 -type f -exec mv {} dist/ \;
  rm -rf "$work"
}

need_packages "${linux_packages[@]}" "${package_packages[@]}"
if [[ " ${systems[*]} " = *" windows "* ]]; then
  need_packages "${windows_packages[@]}"
  scripts/windows-libraries.sh
fi

# The packages are the same whoever makes them, and when: their files get the date of the version.
version=$(dpkg-parsechangelog --show-field Version)
version=${version%-*}
SOURCE_DATE_EPOCH=$(date --utc --date="$(sed -n 's/^set(QUILLON_DATE "\(.*\)")$/\1/p' cmake/Product.cmake)" +%s)
export SOURCE_DATE_EPOCH
export LC_ALL=C.UTF-8 TZ=UTC
umask 022
mkdir -p dist
for system in "${systems[@]}"; do "pack_$system"; done

cmake -D PACKAGES=dist -P packaging/manifests/Manifests.cmake
cd dist
shopt -s nullglob
rm -f quillon.spdx.json # of packages that were made before
sha256sum quillon_* Quillon-* >SHA256SUMS
say "In dist/:"
while read -r sum name; do printf '%10d bytes  %s  %s\n' "$(stat -c %s "$name")" "$sum" "$name"; done <SHA256SUMS
