#!/usr/bin/env bash
# Installs what is missing, builds, and runs the main job on the given files and folders: lists them and shows what
# renaming them to their titles would do. Without a path it works on a sample folder of its own. Nothing is renamed.
set -euo pipefail
top=$(cd "$(dirname "$0")" && pwd)
. "$top/scripts/common.sh"

case "${1:-}" in
  -h | --help)
    sed -n '2,3s/^# //p' "$0"
    exit 0
    ;;
esac
for path in "$@"; do
  [ -e "$path" ] || fail "there is no '$path'"
done

need_packages "${linux_packages[@]}" libgtest-dev libgmock-dev
say "Building (the first time takes a minute)"
cd "$top"
cmake --preset linux >/dev/null || fail "configuring failed: run 'cmake --preset linux' to see why"
cmake --build build/linux --target quillon-cli bregexp quillon-samples >build/linux/run.log || {
  tail -n 40 build/linux/run.log >&2
  fail "building failed (log: build/linux/run.log)"
}
cd "$OLDPWD"

if [ $# -eq 0 ]; then
  samples=$top/build/samples
  rm -rf "$samples"
  "$top/build/linux/bin/quillon-samples" "$samples"
  say "A sample folder: $samples"
  set -- "$samples"
fi

cli=$top/build/linux/bin/quillon-cli
say "quillon-cli list --all --subfolders $*"
"$cli" list --all --subfolders "$@" || say "Not every path gave files."
say "quillon-cli rename --to-title --subfolders $*   (a dry run: nothing is renamed)"
status=0
"$cli" rename --to-title --subfolders "$@" || status=$?
case $status in
  0) ;;
  1) say "The rows with a reason would not be renamed." ;;
  3) say "None of these files is a media file (see --ext and --all)." ;;
  *) exit "$status" ;;
esac
say "To rename for real: $cli rename --to-title --subfolders --apply PATH..."
