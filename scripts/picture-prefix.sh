# The Wine prefix in which pictures of windows are taken. Sourced after common.sh, not run.

# Sets QUILLON_WINEPREFIX to a prefix of its own, with smooth text in a font much like Windows' own: only that prefix
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
    # In grey: a display's own colour fringes do not suit a picture.
    scripts/wine.sh reg add 'HKCU\Control Panel\Desktop' /v FontSmoothing /d 2 /f
    scripts/wine.sh reg add 'HKCU\Control Panel\Desktop' /v FontSmoothingType /t REG_DWORD /d 1 /f
  } >/dev/null
  # The changes hold from the next start of everything.
  scripts/wine.sh --server -w
}
