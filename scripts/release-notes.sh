#!/usr/bin/env bash
# release-notes.sh TAG: prints the changelog's section of the version that is built here. The tag must name that version
# (v1.01), and the section must be there.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

tag=${1:?usage: release-notes.sh TAG}
version=$(sed -n 's/^project(Quillon VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
[ "$tag" = "v$version" ] || fail "the tag '$tag' does not name version $version (expected: v$version)"
notes=$(awk -v heading="## $version" '/^## /{inside = index($0 " ", heading " ") == 1; next} inside' CHANGELOG.md)
[ -n "${notes//[[:space:]]/}" ] || fail "CHANGELOG.md has no section for version $version"
printf '%s\n' "$notes"
