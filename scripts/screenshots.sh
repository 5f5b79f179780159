#!/usr/bin/env bash
# Remakes the pictures in resources/screenshots, one of every window in every look:
#   linux         GTK's own theme            linux-large   the same with text half as large again
#   linux-dark    its dark face              windows       the Windows program under Wine
#   linux-2x      the same at twice the scale
# `screenshots.sh LOOK...` makes these looks only, `screenshots.sh LOOK/WINDOW...` these pictures (linux/main).
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
. scripts/picture-prefix.sh

pictures=resources/screenshots
looks=(linux linux-dark linux-2x linux-large windows)
work=$(mktemp -d)
# The list shows the samples' folder, so it needs a suitable name on both systems.
music=/tmp/音楽
made_music=false
clean_up() {
  rm -rf "$work"
  if $made_music; then rm -rf "$music" "$music.flac"; fi
}
trap clean_up EXIT

# Slightly larger than the default, so that every column is readable.
cat >"$work/settings.ini" <<'END'
[Window]
WindowHeight=8850
WindowWidth=14100
Col1_Width=1800
Col2_Width=2400
Col3_Width=2400
Col4_Width=1050
Col5_Width=1200
Col6_Width=3600
[List]
SubFolder=1
[Find]
FilterChk=0
END
{ cat "$work/settings.ini" && echo FilterChk=1; } | sed '0,/FilterChk=0/{/FilterChk=0/d}' >"$work/filter.ini"
{ cat "$work/settings.ini" && printf '[Update]\nAutoUpdate=1\n[Extra]\nToolBarLabels=1\n'; } >"$work/automatic.ini"
{ cat "$work/settings.ini" && printf '[Extra]\nPattern0={n:02} {artist}{artist? - }{title|{name}}\n'; } >"$work/pattern.ini"
{ cat "$work/settings.ini" && printf '%s\n' '[Modify]' FindCtrl=1 0ReplaceFlag=1 '0ReplaceObject=^a(\d)$' \
  '0ReplaceRepace=Song $1'; } >"$work/modify.ini"

# Each window: its name and the keys that open it from the main window, which has its third row selected.
windows=(main empty pending automatic playing modify pattern message option-1 option-2 option-3 option-4 option-5 option-6 option-7 option-8
  bar find version folders wait search nothing)
keys_of() {
  local first="Home Down Down"
  case $1 in
    main | bar | automatic) echo "$first" ;;
    pending) echo "ctrl+shift+t Return $first" ;;
    playing) echo "Home Down Down Down Down Down Down Return" ;;
    modify) echo "$first ctrl+shift+e" ;;
    pattern) echo "$first ctrl+shift+p Tab" ;;  # no caret that blinks
    find) echo "Home ctrl+f m p 3 F3 F3 Tab" ;;  # no caret that blinks
    nothing) echo "F5 alt+d" ;;
    message) echo "$first F5" ;;
    option-*) echo "$first alt+f p$(for ((i = 1; i < ${1#option-}; ++i)); do printf ' ctrl+Next'; done)" ;;
    version) echo "$first alt+h a" ;;
    folders) echo "$first ctrl+d" ;;
  esac
}

build_programs() {
  local preset=$1
  shift
  say "Building ($preset)"
  cmake --preset "$preset" >/dev/null || fail "configuring '$preset' failed"
  cmake --build "build/$preset" --target "$@" >"$work/build.log" || {
    tail -n 40 "$work/build.log" >&2
    fail "building '$preset' failed"
  }
}

# picture LOOK WINDOW BIN EXTENSION FOLDER: makes one picture with at most 256 colours.
picture() {
  local look=$1 window=$2 program=$3/quillon$4 settings=$work/settings.ini
  local pictured=active playing= arguments=("$5")
  [ "$4" = .exe ] && program=$3/Quillon.exe
  case $window in
    main | find | pending) pictured= ;;
    empty)
      pictured=
      arguments=()
      ;;
    automatic)
      pictured=
      settings=$work/automatic.ini
      ;;
    playing)
      pictured=
      playing=1.5
      ;;
    modify | pattern) settings=$work/$window.ini ;;
    option-*) settings=$work/filter.ini ;;
    bar)
      pictured=
      arguments=("$5" "$5.flac")
      ;;
    wait | search | nothing)
      program=$3/quillon-gallery$4
      if [ "$window" = search ]; then pictured=; fi
      arguments=("$window")
      ;;
  esac
  mkdir -p "$pictures/$look"
  KEYS=$(keys_of "$window") PICTURED=$pictured PLAYING=$playing \
    scripts/window-picture.sh "$work/picture.png" "$program" "$settings" "${arguments[@]}"
  convert "$work/picture.png" -dither None -colors 256 -strip -define png:compression-level=9 \
    "PNG8:$pictures/$look/$window.png" || fail "'$pictures/$look/$window.png' cannot be written"
  printf '%-24s %s bytes\n' "$look/$window.png" "$(stat -c %s "$pictures/$look/$window.png")"
}

# pictures_of LOOK BIN EXTENSION FOLDER: makes the requested pictures of a look.
pictures_of() {
  local window
  say "Pictures: $1"
  for window in "${windows[@]}"; do
    if wanted "$1/$window"; then picture "$1" "$window" "$2" "$3" "$4"; fi
  done
}

wanted() {
  local one
  [ ${#wishes[@]} -eq 0 ] && return 0
  for one in "${wishes[@]}"; do
    [ "$one" = "$1" ] || [ "$one" = "${1%/*}" ] && return 0
  done
  return 1
}

look_wanted() {
  local window
  for window in "${windows[@]}"; do
    if wanted "$1/$window"; then return 0; fi
  done
  return 1
}

make_samples() {
  build/linux/bin/quillon-samples "$1"
  printf fLaC >"$1.flac"  # for the bar: by its extension
  gst-launch-1.0 -q videotestsrc num-buffers=250 ! video/x-raw,width=320,height=240,framerate=25/1 ! jpegenc ! avimux ! \
    filesink location="$1/clip.avi"
}

linux_look() {
  look_wanted "$1" || return 0
  local theme=Adwaita scale=1 text=1 screen=1280x1024
  case $1 in
    linux-dark) theme=Adwaita:dark ;;
    linux-2x)
      scale=2
      screen=2560x2048
      ;;
    linux-large) text=1.5 ;;
  esac
  if ! $made_music; then
    mkdir "$music" 2>/dev/null || fail "'$music' is there already: the samples need that name"
    made_music=true
    make_samples "$music"
  fi
  # Without the user's theme and fonts.
  XDG_CONFIG_HOME=$work/config GTK_THEME=$theme GDK_SCALE=$scale GDK_DPI_SCALE=$text SCREEN=$screen \
    pictures_of "$1" build/linux/bin "" "$music"
}

windows_look() {
  look_wanted windows || return 0
  need_packages "${windows_packages[@]}"
  scripts/japanese-locale.sh
  scripts/windows-libraries.sh
  build_programs windows quillon bregexp quillon-gallery
  prepare_picture_prefix
  local samples=$QUILLON_WINEPREFIX/drive_c/音楽
  rm -rf "$samples"
  make_samples "$samples"
  pictures_of windows build/windows/bin .exe 'C:\音楽'
  scripts/wine.sh --server -k || true
}

wishes=("$@")
for wish in "${wishes[@]}"; do
  [[ " ${looks[*]} " = *" ${wish%%/*} "* ]] || fail "unknown look '$wish' (known: ${looks[*]})"
done
need_packages "${linux_packages[@]}" "${test_packages[@]}" "${window_packages[@]}"
build_programs linux quillon-samples quillon bregexp quillon-gallery
mkdir -p "$work/config"
for look in "${looks[@]}"; do
  if [ "$look" = windows ]; then windows_look; else linux_look "$look"; fi
done
