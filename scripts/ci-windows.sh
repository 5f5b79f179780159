#!/usr/bin/env bash
# ci-windows.sh msvc|mingw: on Windows, builds with this compiler, runs the tests and takes a picture of the window. Runs in
# Git's bash (msvc) or MSYS2's UCRT64 shell (mingw), with CMake, Ninja and vcpkg (VCPKG_ROOT, or what GitHub's machines set).
# QUILLON_MEDIA_SAMPLES may name a folder that scripts/media-samples.sh has filled.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
. scripts/wx-options.sh

compiler=${1:-}
case $compiler in
  msvc) triplet=x64-windows-static ;;
  mingw) triplet=x64-mingw-static ;;
  *) fail "usage: ci-windows.sh msvc|mingw" ;;
esac
[ "${OS:-}" = Windows_NT ] || fail "this script is for Windows; elsewhere, ./test.sh tests the Windows build under Wine"

# MSVC's environment comes from a batch file, so this script runs once more inside of it.
if [ "$compiler" = msvc ] && [ -z "${VCToolsInstallDir:-}" ]; then
  vswhere="C:/Program Files (x86)/Microsoft Visual Studio/Installer/vswhere.exe"
  [ -x "$vswhere" ] || fail "Visual Studio is not installed"
  studio=$("$vswhere" -latest -products '*' -requires Microsoft.VisualStudio.Component.VC.Tools.x86.x64 -property installationPath)
  [ -n "$studio" ] || fail "Visual Studio has no C++ compiler"
  mkdir -p build
  printf '@call "%s\\VC\\Auxiliary\\Build\\vcvars64.bat"\r\n@"%s" scripts/ci-windows.sh msvc\r\n' \
    "$studio" "$(cygpath -w "$BASH")" >build/msvc.bat
  exec cmd //c 'build\msvc.bat'
fi

# CMake would otherwise take whatever compiler it finds first.
case $compiler in
  msvc) export CC=cl CXX=cl ;;
  mingw) export CC=gcc CXX=g++ ;;
esac

vcpkg=${VCPKG_ROOT:-${VCPKG_INSTALLATION_ROOT:-}}
[ -n "$vcpkg" ] || fail "VCPKG_ROOT does not say where vcpkg is"
vcpkg=$(cygpath -m "$vcpkg")
baseline=$(sed -n 's/.*"builtin-baseline": "\(.*\)".*/\1/p' vcpkg.json)
git -C "$vcpkg" cat-file -e "$baseline" 2>/dev/null || git -C "$vcpkg" fetch --quiet --depth 1 origin "$baseline"

top=$(cygpath -m "$PWD")
build=$top/build/windows-$compiler
# The folder is kept between runs, and made anew for another version.
wx_version=3.2.6
libraries=$top/build/wxwidgets-$wx_version-$compiler

if [ ! -f "$libraries/complete" ]; then
  say "wxWidgets $wx_version"
  sources=$top/build/wxwidgets-$wx_version
  rm -rf "$libraries" "$build-wxwidgets"
  [ -d "$sources" ] || git -c core.autocrlf=false clone --quiet --depth 1 --branch "v$wx_version" \
    https://github.com/wxWidgets/wxWidgets "$sources"
  git -C "$sources" submodule --quiet update --init --depth 1 3rdparty/nanosvg
  cmake -G Ninja -S "$sources" -B "$build-wxwidgets" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$libraries" \
    -DwxBUILD_USE_STATIC_RUNTIME=ON "${wx_options[@]}"
  cmake --build "$build-wxwidgets" --target install
  touch "$libraries/complete"
fi

say "Building"
samples=${QUILLON_MEDIA_SAMPLES:-}
# Nobody has seen yet what these compilers warn of.
cmake -G Ninja -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DQUILLON_WARNINGS_ARE_ERRORS=OFF \
  -DCMAKE_TOOLCHAIN_FILE="$vcpkg/scripts/buildsystems/vcpkg.cmake" \
  -DVCPKG_TARGET_TRIPLET=$triplet -DVCPKG_HOST_TRIPLET=$triplet -DQUILLON_WINDOWS_LIBRARIES="$libraries" \
  ${samples:+-DQUILLON_MEDIA_SAMPLES="$(cygpath -m "$samples")"}
cmake --build "$build"

# A failed test does not keep the picture from being taken.
say "Testing"
status=0
ctest --test-dir "$build" --output-on-failure || status=1

say "A picture of the window"
"$build/bin/quillon-samples" "$build/samples"
powershell -NoProfile -ExecutionPolicy Bypass -File scripts/ci-windows-picture.ps1 \
  "$(cygpath -w "$build/bin/Quillon.exe")" "$(cygpath -w "$build/samples")" "$(cygpath -w "$build/window.png")" || status=1
exit "$status"
