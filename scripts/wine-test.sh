#!/usr/bin/env bash
# Runs a Windows test program under Wine. The first program of a prefix starts Wine's services, which live on: they must
# not inherit the caller's pipes, or it waits for them to close.
set -u
output=$(mktemp)
timeout 900 "$(dirname "$0")/wine.sh" "$@" </dev/null >"$output" 2>&1
status=$?
cat "$output"
rm -f "$output"
exit "$status"
