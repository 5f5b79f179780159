#!/usr/bin/env bash
# Makes resources/windows/Quillon.ico from resources/icons/quillon.svg. Run it after changing that SVG file. The result
# is in the repository, so that building does not need these tools.
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
  # The largest is stored as PNG, the others as bitmaps, which every program that reads icons supports.
  if [ "$size" -eq 256 ]; then pictures+=("--raw=$picture"); else pictures+=("$picture"); fi
done
icotool --create --output=resources/windows/Quillon.ico "${pictures[@]}"
