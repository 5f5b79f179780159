#!/usr/bin/env bash
# Makes the pictures of the help anew, those of the Linux program for the pages beside it and those of the Windows
# program, under Wine, for the compiled help: help/pictures.sh [linux|windows] [NAME...], all of them without words.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
. scripts/picture-prefix.sh

work=$(mktemp -d)
# The place is to be seen in the pictures.
music=/tmp/音楽
made_music=false
clean_up() {
  rm -rf "$work"
  if $made_music; then rm -rf "$music"; fi
}
trap clean_up EXIT

# Under Wine an underscore would be cut off at the foot of its line: the replacement is a hyphen.
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
ReviceText=-
[Extra]
Pattern0={n:02} {artist}{artist? - }{title|{name}}
END

# make_files FOLDER
make_files() {
  rm -rf "${1:?}"/* "$work/samples"
  build/linux/bin/quillon-samples "$work/samples"
  (cd "$work/samples" && cp 001.mid a1.mp3 a2.mp3 a3.MP3 a5.mp3 track02.MID "$1/")
}

# picture SYSTEM NAME PROGRAM FOLDER [SHOWN]: what the window looks like after the picture's keys, in few colours. SHOWN
# is how the program calls the folder.
picture() {
  local system=$1 name=$2 file=help/images/$1/$2.png pictured=
  # These dialogs are larger than the main window.
  case $name in modify | pattern) pictured=active ;; esac
  make_files "$4"
  # The user's own theme and fonts stay out of it.
  mkdir -p "$work/config" "help/images/$system"
  KEYS=${keys[$name]} PICTURED=$pictured XDG_CONFIG_HOME=$work/config GTK_THEME=Adwaita \
    scripts/window-picture.sh "$work/$name.png" "$3" "$work/settings.ini" "${5:-$4}"
  if [ "$name" = window ]; then number_parts "$system"; fi
  convert "$work/$name.png" -dither None -colors 64 -strip -define png:compression-level=9 "PNG8:$file" ||
    fail "'$file' cannot be written"
  printf '%-22s %s bytes\n' "$system/$name.png" "$(stat -c %s "$file")"
}

# The numbers by which the page of the main window names its parts: number, left, top.
places_of() {
  case $1 in
    linux)
      cat <<'END'
1 372 33
2 480 66
3 610 252
4 610 282
5 610 330
6 440 417
7 290 454
END
      ;;
    windows)
      cat <<'END'
1 372 31
2 330 56
3 610 225
4 610 272
5 610 322
6 435 415
7 290 454
END
      ;;
  esac
}

number_parts() {
  local number x y draw=()
  while read -r number x y; do
    draw+=(-fill '#b02020' -stroke white -draw "circle $x,$y $((x + 11)),$y" -fill white -stroke none
      -draw "text $((x - 4)),$((y + 5)) '$number'")
  done < <(places_of "$1")
  convert "$work/window.png" -pointsize 15 -font IPAGothic "${draw[@]}" "$work/window.png"
}

titles='key ctrl+t sleep 1 key Return sleep 1'
revise='key ctrl+e sleep 2 key space sleep 1'
declare -A keys=(
  [loaded]='Home sleep 1'
  [window]='Home Down sleep 1'
  [titles]="Home $titles"
  [pattern]="Home key ctrl+shift+p sleep 2 key Tab sleep 1"
  [modify]="Home $titles $revise"
  [confirm]="Home $titles $revise key Return sleep 2 key ctrl+s sleep 1"
  [applied]="Home $titles $revise key Return sleep 2 key ctrl+s sleep 1 key alt+y sleep 2"
)

build_programs() {
  local preset=$1
  shift
  cmake --preset "$preset" >/dev/null || fail "configuring '$preset' failed"
  cmake --build "build/$preset" --target "$@" >"$work/build.log" || fail "building '$preset' failed"
}

linux_pictures() {
  local name
  mkdir "$music" 2>/dev/null || fail "'$music' is there already: the samples need that name"
  made_music=true
  build_programs linux quillon bregexp
  for name in "$@"; do picture linux "$name" build/linux/bin/quillon "$music"; done
}

windows_pictures() {
  local name folder
  need_packages "${windows_packages[@]}"
  scripts/japanese-locale.sh
  scripts/windows-libraries.sh
  build_programs windows quillon bregexp
  prepare_picture_prefix
  folder=$QUILLON_WINEPREFIX/drive_c/音楽
  mkdir -p "$folder"
  for name in "$@"; do picture windows "$name" build/windows/bin/Quillon.exe "$folder" 'C:\音楽'; done
  scripts/wine.sh --server -k || true
}

systems=(linux windows)
if [ "${1:-}" = linux ] || [ "${1:-}" = windows ]; then
  systems=("$1")
  shift
fi
[ $# -gt 0 ] || set -- "${!keys[@]}"
for name in "$@"; do
  [ -n "${keys[$name]:-}" ] || fail "unknown picture '$name' (known: ${!keys[*]})"
done
need_packages "${linux_packages[@]}" "${test_packages[@]}" "${window_packages[@]}"
build_programs linux quillon-samples
for system in "${systems[@]}"; do "${system}_pictures" "$@"; done
