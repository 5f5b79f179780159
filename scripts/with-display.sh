#!/usr/bin/env bash
# Runs a command on a display of its own, with a window manager, so that windows get the focus.
set -eu
exec xvfb-run -a -s "-screen 0 1280x1024x24" bash -c '
  openbox >/dev/null 2>&1 &
  manager=$!
  trap "kill $manager" EXIT
  "$@"' with-display "$@"
