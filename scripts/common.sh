# Shared by the scripts: progress messages, failing with one line, installing packages. Sourced, not run.

say() { printf '\n== %s\n' "$*"; }

# Lists the files of the checkout that are there, without what is built, each ended by a NUL.
checkout_files() {
  if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    git ls-files -z --cached --others --exclude-standard
  else
    find . -mindepth 1 \( -path ./build -o -path ./dist -o -path ./.git \) -prune -o -type f -print0
  fi | sort -z | while IFS= read -r -d '' file; do [ ! -f "$file" ] || printf '%s\0' "$file"; done
}

# help_if_asked "$@": with --help as the first argument, prints what the script says about itself, and ends it.
help_if_asked() {
  local script
  case "${1:-}" in -h | --help) ;; *) return 0 ;; esac
  script=$(basename "$0")
  [ -f "$script" ] || script=scripts/$script
  sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$script"
  exit 0
}

fail() {
  printf 'error: %s\n' "$*" >&2
  exit 1
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    fail "root is needed to install packages, and sudo is not there: run as root once: $*"
  fi
}

# Installs the named Debian packages that are missing; needs root only if one is.
need_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  command -v apt-get >/dev/null || fail "these packages are needed and apt-get is not there: ${missing[*]}"
  say "Installing: ${missing[*]}"
  as_root apt-get update -qq >/dev/null || fail "apt-get update failed: no network, or no package mirror?"
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
    fail "apt-get could not install: ${missing[*]}"
}

linux_packages=(g++ cmake ninja-build pkg-config libutf8proc-dev libpcre2-dev libglib2.0-dev libcli11-dev nlohmann-json3-dev
  libtag1-dev libwxgtk3.2-dev libgtk-3-dev libicu-dev libgstreamer1.0-dev libgstreamer-plugins-base1.0-dev)
# Plug-ins to play MP3, MIDI, WAVE, MPEG and AVI, and the instruments for MIDI.
play_packages=(gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-plugins-bad gstreamer1.0-libav
  gstreamer1.0-x gstreamer1.0-alsa gstreamer1.0-pulseaudio timgm6mb-soundfont)
# Libraries of the test programs, which the preset builds.
test_build_packages=(libgtest-dev libgmock-dev libxcb1-dev libxml2-dev libchm-dev)
benchmark_packages=(libbenchmark-dev)
# Other readers of tags to measure against. Kid3 is used where it is installed, too; it needs Qt.
peer_packages=(python3-mutagen libimage-exiftool-perl)
test_packages=("${test_build_packages[@]}" gstreamer1.0-tools locales util-linux strace fp-utils-3.2.2 zsh fish)
# Fonts and icons for the window, and a tool to check for a display.
look_packages=(fonts-ipafont-gothic adwaita-icon-theme librsvg2-common shared-mime-info x11-utils)
# For tests, pictures and benchmarks of the window: a private display, keys and clicks, accessibility.
window_packages=("${look_packages[@]}" "${play_packages[@]}" xvfb openbox xdotool weston imagemagick dbus dbus-x11 at-spi2-core
  python3 python3-gi gir1.2-atspi-2.0 gir1.2-gtk-3.0)
# Inaudible sound for tests that need its time to pass; tools to make films and songs for them.
sound_packages=(pulseaudio pulseaudio-utils util-linux gstreamer1.0-tools)
windows_packages=("${sound_packages[@]}" fp-utils-3.2.2 python3 g++-mingw-w64-x86-64-posix dpkg-dev googletest libutfcpp-dev wine wine64 ca-certificates)
# Tools to make the packages (package.sh) and to check them.
package_packages=(dpkg-dev debhelper librsvg2-bin nsis fp-utils-3.2.2 lintian devscripts desktop-file-utils appstream debootstrap man-db
  python3-yaml)
# Fuzzers and coverage are built by clang.
fuzz_packages=(clang libclang-rt-dev python3)
coverage_packages=(clang libclang-rt-dev llvm python3)
style_packages=(clang clang-format clang-tidy python3)
site_packages=(cmake cmark-gfm python3)
# Where npm comes from elsewhere, Debian's is not installed.
npm_packages=(nodejs npm)

quillon_cache=${XDG_CACHE_HOME:-$HOME/.cache}/quillon

# build_preset PRESET CMAKE-OPTIONS...: configures the preset with the options and builds all targets.
build_preset() {
  local preset=$1 log
  shift
  log=$(mktemp)
  cmake --preset "$preset" "$@" >"$log" 2>&1 || {
    cat "$log" >&2
    rm -f "$log"
    fail "configuring '$preset' failed"
  }
  rm -f "$log"
  cmake --build "build/$preset" || fail "building '$preset' failed"
}

# Installs the checkers that scripts/checkers/package-lock.json names into the cache, and sets `checkers` to their folder.
need_checkers() {
  command -v npm >/dev/null || need_packages "${npm_packages[@]}"
  local lock=scripts/checkers/package-lock.json
  checkers=$quillon_cache/checkers-$(sha256sum $lock | cut -c1-16)
  if [ ! -f "$checkers/complete" ]; then
    say "Installing the checkers of $lock"
    rm -rf "$quillon_cache"/checkers-*
    mkdir -p "$checkers"
    cp scripts/checkers/package.json $lock "$checkers/"
    npm ci --prefix "$checkers" --ignore-scripts --no-audit --no-fund --silent ||
      fail "npm could not install the checkers of $lock: no network, or no package registry?"
    touch "$checkers/complete"
  fi
}
