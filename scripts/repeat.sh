#!/usr/bin/env bash
# Makes the packages twice, in two folders and at two times, and compares them byte by byte. Ends with 1 if one differs.
# scripts/repeat.sh          all packages: a quarter of an hour on two cores
# scripts/repeat.sh linux    those for Debian and Ubuntu alone; windows: those for Windows alone
# What package.sh needs has to be installed: run it before.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
help_if_asked "$@"

system=${1:-all}
case "$system" in
  all | linux | windows) ;;
  *) fail "unknown argument '$system' (see --help)" ;;
esac
need_packages faketime
work=$(mktemp -d "${TMPDIR:-/tmp}/quillon-repeat-XXXXXX")
trap 'rm -rf "$work"' EXIT

# copy_checkout FOLDER: its files, without what is built.
copy_checkout() {
  mkdir -p "$1"
  checkout_files | xargs -0 cp --parents --target-directory "$1"
}

# make_packages FOLDER [ENVIRONMENT COMMAND...]: makes the packages of a copy, all anew.
make_packages() {
  local folder=$1
  shift
  say "Making the packages in $folder"
  (cd "$folder" && env CCACHE_DISABLE=1 "$@" ./package.sh "$system" >"$folder.log" 2>&1) || {
    tail -n 40 "$folder.log" >&2
    fail "no packages in $folder"
  }
}

# Beside folder and time, the time zone, the mask of rights and the folder of the libraries for Windows differ. faketime
# would also shift the times that files are given on purpose.
cache=$work/cache
mkdir -p "$cache/quillon"
if [ "$system" != linux ]; then cp -r "$quillon_cache/windows" "$cache/quillon/"; fi
# Both copies are of the same moment.
(umask 022 && copy_checkout "$work/first")
(umask 027 && copy_checkout "$work/another/second")
(umask 022 && make_packages "$work/first")
(umask 027 && make_packages "$work/another/second" TZ=Asia/Tokyo XDG_CACHE_HOME="$cache" NO_FAKE_STAT=1 \
  faketime -f '+400d')

say "Comparing"
status=0
names() { (cd "$1/dist" && find . -type f -printf '%P\n' | sort); }
names "$work/first" >"$work/names"
[ -s "$work/names" ] || fail "no packages were made"
names "$work/another/second" | diff "$work/names" - || fail "the two builds made other files"
while IFS= read -r file; do
  if cmp --quiet "$work/first/dist/$file" "$work/another/second/dist/$file"; then
    sha256sum "$work/first/dist/$file" | sed "s|  .*|  $file|"
  else
    printf 'differs: %s\n' "$file"
    status=1
  fi
done <"$work/names"
exit "$status"
