#!/usr/bin/env bash
# Runs a Windows test program under Wine. The first program of a prefix starts Wine's services, which live on: they must
# not inherit the caller's pipes, or it waits for them to close.
#
# Wine's display driver ends a program at an X error, such as that of a window that another client has destroyed
# meanwhile. The program is then run once more, and $QUILLON_UNSTEADY, if set, is the file that is told so.
set -u
output=$(mktemp)
run() { timeout 900 "$(dirname "$0")/wine.sh" "$@" </dev/null >"$output" 2>&1; }
run "$@"
status=$?
if [ "$status" -ne 0 ] && grep -q '^X Error of failed request' "$output"; then
  cat "$output"
  echo "Wine's display driver has ended the program: run once more"
  [ -z "${QUILLON_UNSTEADY:-}" ] || echo "$(basename "$1"), ended by an X error of Wine" >>"$QUILLON_UNSTEADY"
  run "$@"
  status=$?
fi
cat "$output"
rm -f "$output"
exit "$status"
