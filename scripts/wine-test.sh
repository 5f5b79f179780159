#!/usr/bin/env bash
# Runs a Windows test program under Wine. The first program of a prefix starts Wine's services, which keep running. They
# must not inherit the caller's pipes, or the caller would wait for these to close.
#
# Wine's display driver ends a program at an X error, for example when another client has destroyed a window. The
# program is then run once more, and a line is added to the file $QUILLON_UNSTEADY, if set.
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
