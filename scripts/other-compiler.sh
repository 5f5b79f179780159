#!/usr/bin/env bash
# Reads the sources that the Windows preset compiles with clang and libc++ (see other-compiler.py): src/, with --all tests/,
# too. The preset must be configured.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
help_if_asked "$@"

folders=src
case "${1:-}" in
  "") ;;
  --all) folders=src,tests ;;
  *) fail "unknown argument '$1' (known: --all)" ;;
esac
[ -f build/windows/compile_commands.json ] || fail "configure first: cmake --preset windows"
need_packages "${style_packages[@]}"

# Only the headers are needed, and Debian's package cannot be installed beside GStreamer's: their libraries to unwind the
# stack exclude each other.
package=libc++-16-dev
libcxx=$quillon_cache/libcxx/usr/lib/llvm-16/include/c++/v1
if [ ! -f "$libcxx/version" ]; then
  say "Fetching $package"
  fetched=$(mktemp -d)
  trap 'rm -rf "$fetched"' EXIT
  (cd "$fetched" && apt-get download -qq "$package" 2>/dev/null) || fail "the package $package cannot be fetched"
  rm -rf "$quillon_cache/libcxx"
  dpkg-deb -x "$fetched/$package"_*.deb "$fetched/unpacked"
  mv "$fetched/unpacked" "$quillon_cache/libcxx"
fi
python3 -B scripts/other-compiler.py "$folders" build/windows/compile_commands.json "$libcxx" "$quillon_cache/clean-windows" ||
  fail "clang found the above"
