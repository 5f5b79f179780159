#!/usr/bin/env bash
# Makes the pictures in resources/screenshots anew: the window on Linux, in light and dark, with a film that plays, and on
# Windows (under Wine).
# `screenshots.sh linux` or `screenshots.sh windows` makes only these.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

pictures=resources/screenshots
work=$(mktemp -d)
# The samples' place is to be seen in the list: it has a name that fits, on both systems.
music=/tmp/音楽
made_music=false
clean_up() {
  rm -rf "$work"
  if $made_music; then rm -rf "$music"; fi
}
trap clean_up EXIT

# A bit larger than the default, so that every column can be read.
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

# picture NAME PROGRAM FOLDER: with the third row selected (or after KEYS), in at most 256 colours.
picture() {
  KEYS=${KEYS:-Home Down Down} scripts/window-picture.sh "$work/$1.png" "$2" "$work/settings.ini" "$3"
  convert "$work/$1.png" -dither None -colors 256 -strip -define png:compression-level=9 "PNG8:$pictures/$1.png" ||
    fail "'$pictures/$1.png' cannot be written"
  printf '%-12s %s bytes\n' "$1.png" "$(stat -c %s "$pictures/$1.png")"
}

make_samples() {
  build_programs linux quillon-samples quillon bregexp
  build/linux/bin/quillon-samples "$1"
}

linux_pictures() {
  mkdir "$music" 2>/dev/null || fail "'$music' is there already: the samples need that name"
  made_music=true
  make_samples "$music"
  # The user's own theme and fonts stay out of it.
  mkdir -p "$work/config"
  say "Pictures of the window on Linux"
  XDG_CONFIG_HOME=$work/config GTK_THEME=Adwaita picture linux build/linux/bin/quillon "$music"
  XDG_CONFIG_HOME=$work/config GTK_THEME=Adwaita:dark picture linux-dark build/linux/bin/quillon "$music"
  gst-launch-1.0 -q videotestsrc num-buffers=250 ! video/x-raw,width=320,height=240,framerate=25/1 ! jpegenc ! avimux ! \
    filesink location="$music/clip.avi"
  KEYS="Home Down Down Down Down Down Down Return" PLAYING=1.5 XDG_CONFIG_HOME=$work/config GTK_THEME=Adwaita \
    picture playing build/linux/bin/quillon "$music"
}

# A prefix of its own, with smooth text in a font much like Windows' own: only that prefix gets the font.
prepare_wine() {
  export QUILLON_WINEPREFIX=$quillon_cache/wine-pictures
  local drive=$QUILLON_WINEPREFIX/drive_c font=fonts-morisawa-bizud-gothic name
  scripts/wine.sh --server -w
  if [ ! -f "$drive/windows/Fonts/BIZUDPGothic-Regular.ttf" ]; then
    say "Fetching $font"
    (cd "$work" && apt-get download -qq "$font" 2>/dev/null) || fail "the package $font cannot be fetched"
    dpkg-deb -x "$work/$font"_*.deb "$work/font"
    find "$work/font" -name 'BIZUDPGothic-*.ttf' -exec cp {} "$drive/windows/Fonts/" \;
  fi
  {
    for name in 'MS UI Gothic' 'MS Shell Dlg' 'MS Shell Dlg 2' Tahoma; do
      scripts/wine.sh reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$name" /d 'BIZ UDPGothic' /f
    done
    # In grey: a display's own colour fringes do not suit a picture.
    scripts/wine.sh reg add 'HKCU\Control Panel\Desktop' /v FontSmoothing /d 2 /f
    scripts/wine.sh reg add 'HKCU\Control Panel\Desktop' /v FontSmoothingType /t REG_DWORD /d 1 /f
  } >/dev/null
  # The changes hold from the next start of everything.
  scripts/wine.sh --server -w
}

windows_picture() {
  need_packages "${windows_packages[@]}"
  scripts/japanese-locale.sh
  scripts/windows-libraries.sh
  build_programs windows quillon bregexp
  say "A picture of the window on Windows"
  prepare_wine
  local samples=$QUILLON_WINEPREFIX/drive_c/音楽
  rm -rf "$samples"
  make_samples "$samples"
  picture windows build/windows/bin/Quillon.exe 'C:\音楽'
  scripts/wine.sh --server -k || true
}

need_packages "${linux_packages[@]}" "${test_packages[@]}" "${window_packages[@]}"
mkdir -p "$pictures"
case "${1:-}" in
  "")
    linux_pictures
    windows_picture
    ;;
  linux) linux_pictures ;;
  windows) windows_picture ;;
  *) fail "unknown argument '$1' (known: linux, windows)" ;;
esac
