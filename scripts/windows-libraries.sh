#!/usr/bin/env bash
# Builds the libraries that the Windows program needs, once, from Debian's source packages, into a cache outside the
# checkout. A library is only rebuilt when its version here changes.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
help_if_asked "$@"
. scripts/wx-options.sh

toolchain=$PWD/cmake/mingw.cmake
prefix=$quillon_cache/windows
work=$quillon_cache/sources
mkdir -p "$prefix/include" "$prefix/done" "$work"

# apt's lists contain no source packages, so a private list is made from the machine's Debian entries.
apt_source() {
  local folder=$work/apt
  mkdir -p "$folder/lists/partial"
  local sources='' candidate
  for candidate in /etc/apt/sources.list.d/debian.sources /etc/apt/sources.list.d/ubuntu.sources; do
    if [ -f "$candidate" ]; then sources=$candidate; fi
  done
  if [ -n "$sources" ]; then
    sed 's/^Types: deb.*$/Types: deb-src/' "$sources" >"$folder/debian.sources"
    set -- "-oDir::Etc::sourcelist=$folder/debian.sources" "$@"
  else
    sed -n 's/^deb /deb-src /p' /etc/apt/sources.list >"$folder/debian.list"
    set -- "-oDir::Etc::sourcelist=$folder/debian.list" "$@"
  fi
  apt-get -qq -oDir::Etc::sourceparts=- "-oDir::State::lists=$folder/lists" -oAPT::Sandbox::User=root "$@"
}

# Unpacks version $2 of Debian's source package $1 into $work/$1 (the newest version if that one is no longer
# available).
unpack() {
  local package=$1 version=$2
  rm -rf "${work:?}/$package" "$work/$package-download"
  mkdir -p "$work/$package-download"
  (
    cd "$work/$package-download"
    apt_source update || fail "Debian's source lists cannot be reached"
    apt_source source --download-only "$package=$version" 2>/dev/null || apt_source source --download-only "$package" ||
      fail "the source package $package cannot be fetched"
    dpkg-source --no-check -x ./*.dsc "$work/$package" >/dev/null
  )
}

# build NAME VERSION SOURCE-FOLDER CMAKE-OPTIONS...
build() {
  local name=$1 version=$2 source=$3
  shift 3
  say "Building $name $version for Windows"
  rm -rf "$work/build-$name"
  {
    cmake -G Ninja -S "$source" -B "$work/build-$name" -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
      -DBUILD_SHARED_LIBS=OFF -DCMAKE_INSTALL_PREFIX="$prefix" "$@"
    cmake --build "$work/build-$name" --target install
  } >"$work/$name.log" 2>&1 || {
    tail -n 30 "$work/$name.log" >&2
    fail "$name for Windows could not be built (log: $work/$name.log)"
  }
  rm -rf "$work/build-$name"
  touch "$prefix/done/$name-$version"
}

is_done() { [ -f "$prefix/done/$1" ]; }

# A lock, so that two simultaneous builds do not work in the same folders.
exec 9>"$quillon_cache/windows.lock"
flock 9

if ! is_done pcre2-10.42; then
  unpack pcre2 10.42-1
  build pcre2 10.42 "$work/pcre2" -DPCRE2_SUPPORT_UNICODE=ON -DPCRE2_SUPPORT_JIT=ON -DPCRE2_BUILD_PCRE2GREP=OFF \
    -DPCRE2_BUILD_TESTS=OFF
fi
if ! is_done utf8proc-2.8.0; then
  unpack utf8proc 2.8.0-1
  build utf8proc 2.8.0 "$work/utf8proc"
fi
if ! is_done taglib-1.13; then
  unpack taglib 1.13-2+deb12u1
  # utf8cpp, headers alone, is the host's. zlib would be for compressed frames only, which are not read.
  build taglib 1.13 "$work/taglib" -DBUILD_TESTING=OFF -DBUILD_EXAMPLES=OFF -DBUILD_BINDINGS=OFF \
    -DCMAKE_DISABLE_FIND_PACKAGE_ZLIB=ON "-DCMAKE_CXX_FLAGS=-isystem /usr/include/utf8cpp"
fi
# The name ends with the form of its build: in the second one its messages name its sources without the folders it is built in.
if ! is_done wxwidgets-3.2.2-form2; then
  unpack wxwidgets3.2 3.2.2+dfsg-2
  build wxwidgets 3.2.2-form2 "$work/wxwidgets3.2" "-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG -ffile-prefix-map=$work/=" \
    "-DCMAKE_C_FLAGS_RELEASE=-O2 -DNDEBUG -ffile-prefix-map=$work/=" "${wx_options[@]}"
fi
googletest_version=$(dpkg-query -W -f='${Version}' googletest)
if ! is_done "googletest-$googletest_version"; then
  build googletest "$googletest_version" /usr/src/googletest -DBUILD_GMOCK=ON
fi

# Header-only libraries: the host's files can be used.
mkdir -p "$prefix/include"
cp -rfu /usr/include/CLI /usr/include/nlohmann "$prefix/include/"
