#!/usr/bin/env bash
# Makes the pictures of the help file anew: help/pictures.sh [NAME...], all of them without a name.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

work=$(mktemp -d)
# The place is to be seen in the pictures.
music=/tmp/音楽
made_music=false
clean_up() {
  rm -rf "$work"
  if $made_music; then rm -rf "$music"; fi
}
trap clean_up EXIT

cat >"$work/settings.ini" <<'END'
[Window]
WindowHeight=7050
WindowWidth=9870
Col1_Width=1950
Col2_Width=1950
Col3_Width=2100
Col4_Width=750
Col5_Width=900
Col6_Width=1500
[Modify]
ReviceText=_
END

make_files() {
  rm -rf "${music:?}"/* "$work/samples"
  build/linux/bin/quillon-samples "$work/samples"
  (cd "$work/samples" && cp 001.mid a1.mp3 a2.mp3 a3.MP3 a5.mp3 track02.MID "$music/")
}

# picture NAME KEYS: what the window looks like after these keys (and other words of xdotool's), in few colours.
picture() {
  local name=$1
  make_files
  # The user's own theme and fonts stay out of it.
  mkdir -p "$work/config"
  KEYS=$2 XDG_CONFIG_HOME=$work/config GTK_THEME=Adwaita \
    scripts/window-picture.sh "$work/$name.png" build/linux/bin/quillon "$work/settings.ini" "$music"
  if [ "$name" = window ]; then number_parts; fi
  convert "$work/$name.png" -dither None -colors 64 -strip -define png:compression-level=9 "PNG8:help/images/$name.png" ||
    fail "'help/images/$name.png' cannot be written"
  printf '%-14s %s bytes\n' "$name.png" "$(stat -c %s "help/images/$name.png")"
}

# The numbers by which the page of the main window names its parts: number, left, top.
number_parts() {
  local number x y draw=()
  while read -r number x y; do
    draw+=(-fill '#b02020' -stroke white -draw "circle $x,$y $((x + 11)),$y" -fill white -stroke none
      -draw "text $((x - 4)),$((y + 5)) '$number'")
  done <<'END'
1 372 33
2 480 66
3 610 252
4 610 282
5 610 330
6 440 417
7 455 454
END
  convert "$work/window.png" -pointsize 15 -font IPAGothic "${draw[@]}" "$work/window.png"
}

titles='key ctrl+t sleep 1 key Return sleep 1'
revise='key ctrl+e sleep 2 key space sleep 1'
declare -A keys=(
  [loaded]='Home sleep 1'
  [window]='Home Down sleep 1'
  [titles]="Home $titles"
  [modify]="Home $titles $revise"
  [confirm]="Home $titles $revise key Return sleep 2 key ctrl+s sleep 1"
  [applied]="Home $titles $revise key Return sleep 2 key ctrl+s sleep 1 key alt+y sleep 2"
)

need_packages "${linux_packages[@]}" "${test_packages[@]}" "${window_packages[@]}"
cmake --preset linux >/dev/null || fail "configuring failed"
cmake --build build/linux --target quillon bregexp quillon-samples >"$work/build.log" || fail "building failed"
mkdir "$music" 2>/dev/null || fail "'$music' is there already: the samples need that name"
made_music=true
[ $# -gt 0 ] || set -- "${!keys[@]}"
for name in "$@"; do
  [ -n "${keys[$name]:-}" ] || fail "unknown picture '$name' (known: ${!keys[*]})"
  picture "$name" "${keys[$name]}"
done
