# The Wine prefix for taking pictures of windows. Sourced after common.sh, not run.

# Sets QUILLON_WINEPREFIX to a separate prefix with smooth text in a font similar to Windows' font; only this prefix
# gets the font.
prepare_picture_prefix() {
  export QUILLON_WINEPREFIX=$quillon_cache/wine-pictures
  local drive=$QUILLON_WINEPREFIX/drive_c font=fonts-morisawa-bizud-gothic name fetched
  scripts/wine.sh --server -w
  if [ ! -f "$drive/windows/Fonts/BIZUDPGothic-Regular.ttf" ]; then
    say "Fetching $font"
    fetched=$(mktemp -d)
    (cd "$fetched" && apt-get download -qq "$font" 2>/dev/null) || fail "the package $font cannot be fetched"
    dpkg-deb -x "$fetched/$font"_*.deb "$fetched/font"
    find "$fetched/font" -name 'BIZUDPGothic-*.ttf' -exec cp {} "$drive/windows/Fonts/" \;
    rm -rf "$fetched"
  fi
  {
    for name in 'MS UI Gothic' 'MS Shell Dlg' 'MS Shell Dlg 2' Tahoma; do
      scripts/wine.sh reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$name" /d 'BIZ UDPGothic' /f
    done
    # Grey smoothing: a picture must not contain the colour fringes of subpixel smoothing.
    scripts/wine.sh reg add 'HKCU\Control Panel\Desktop' /v FontSmoothing /d 2 /f
    scripts/wine.sh reg add 'HKCU\Control Panel\Desktop' /v FontSmoothingType /t REG_DWORD /d 1 /f
  } >/dev/null
  # The changes take effect after a restart of all programs.
  scripts/wine.sh --server -w
}
