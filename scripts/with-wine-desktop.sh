#!/usr/bin/env bash
# Runs a command in a fresh session of Wine in which a window is already open, minimised, so that it gets no focus. Wine starts its desktop with the first
# window: programs that start at the same moment have no display, and X errors end those whose desktop is on another one.
# The prefix must not be used by anything else meanwhile.
set -eu
wine=$(dirname "$0")/wine.sh
"$wine" --server -k >/dev/null 2>&1 || true
"$wine" notepad </dev/null >/dev/null 2>&1 &
trap '"$wine" --server -k >/dev/null 2>&1 || true' EXIT
for _ in $(seq 300); do
  xdotool search --class notepad >/dev/null 2>&1 && break
  sleep 0.1
done
sleep 1  # the desktop is still setting itself up
xdotool search --class notepad windowminimize %@ >/dev/null 2>&1 || true
sleep 1
"$@"
