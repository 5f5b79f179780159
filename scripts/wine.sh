#!/usr/bin/env bash
# Runs a Windows program under Wine with a separate prefix, language and runtime folder.
# `wine.sh --server ARGUMENTS` passes the arguments to the prefix's server instead.
set -eu
cache=${XDG_CACHE_HOME:-$HOME/.cache}/quillon
export WINEPREFIX=${QUILLON_WINEPREFIX:-$cache/wine}
export WINEDEBUG=-all LC_ALL=ja_JP.UTF-8
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=d"
export XDG_RUNTIME_DIR=$WINEPREFIX-runtime
mkdir -p "$cache"
mkdir -p -m 700 "$XDG_RUNTIME_DIR"
wine=/usr/lib/wine/wine64
[ -x "$wine" ] || { echo "error: $wine is missing: install wine64" >&2; exit 1; }
make_prefix() {
  "$wine" wineboot -i
  # Films would be black if Direct3D had to draw them on a display without a graphics card.
  "$wine" reg add 'HKCU\Software\Wine\Direct3D' /v renderer /d gdi /f
  # A crashed program ends without waiting in a dialog.
  "$wine" reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
}
if [ ! -f "$WINEPREFIX/system.reg" ]; then
  (exec 9>"$cache/wine.lock" && flock 9 && { [ -f "$WINEPREFIX/system.reg" ] || make_prefix >/dev/null 2>&1; })
  /usr/lib/wine/wineserver64 -w
fi
if [ "${1:-}" = --server ]; then
  shift
  exec /usr/lib/wine/wineserver64 "$@"
fi
exec "$wine" "$@"
