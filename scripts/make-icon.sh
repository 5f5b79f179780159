#!/usr/bin/env bash
# Makes resources/windows/Quillon.ico from resources/icons/quillon.svg. Run it after that drawing has changed; the result
# is kept in the repository, so that building needs none of these tools.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
need_packages librsvg2-bin icoutils

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
pictures=()
for size in 16 20 24 32 40 48 64 128 256; do
  picture=$folder/$size.png
  rsvg-convert --width "$size" --height "$size" resources/icons/quillon.svg --output "$picture"
  # The largest is stored as a PNG picture, the others as bitmaps, which every reader of icons knows.
  if [ "$size" -eq 256 ]; then pictures+=("--raw=$picture"); else pictures+=("$picture"); fi
done
icotool --create --output=resources/windows/Quillon.ico "${pictures[@]}"
