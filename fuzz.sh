#!/usr/bin/env bash
# Builds the fuzzers and runs them: ./fuzz.sh MINUTES [WORD...] gives every fuzzer whose name contains one of the words
# so many minutes, and ends with 1 when one of them finds something. `./fuzz.sh --keep` puts what they have learned
# into tests/fuzz/corpora, whose inputs ./test.sh runs again.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
help_if_asked "$@"
case "${1:-}" in
  --keep) ;;
  '' | *[!0-9.]*) fail "how many minutes? (see --help)" ;;
esac
need_packages "${linux_packages[@]}" "${window_packages[@]}" "${fuzz_packages[@]}"
build_preset linux-fuzz >/dev/null
exec scripts/with-display.sh python3 -B scripts/fuzz.py build/linux-fuzz "$@"
