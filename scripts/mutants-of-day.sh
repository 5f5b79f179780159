#!/usr/bin/env bash
# Tries ten of the mutants, other ones each day, with what is built for Linux: the checkout is copied, and the copy lies
# in its place for this script alone, so that only the changed files are compiled. Needs a system that has places of its
# own for a process (mount namespaces); ends with 3 without.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
help_if_asked "$@"

here=$PWD
copy=$here/build/mutants-of-day
if [ "$(id -u)" -eq 0 ]; then private=(unshare --mount); else private=(unshare --mount --map-root-user); fi
if ! "${private[@]}" true; then
  echo "no mutants: this system has no mount namespaces" >&2
  exit 3
fi

rm -rf "$copy"
mkdir -p "$copy/build"
trap 'rm -rf "$copy"' EXIT
checkout_files | tar --create --null --files-from=- | tar --extract --directory="$copy"
cp -a build/linux "$copy/build/linux"
"${private[@]}" bash -c 'mount --bind "$1" "$2" && cd "$2" && exec /usr/bin/python3 -B scripts/mutants.py --here --day' \
  mutants "$copy" "$here"
