#!/usr/bin/env bash
# Runs a command on a virtual screen with a window manager.
set -euo pipefail
exec xvfb-run -a -s '-screen 0 1600x1200x24' bash -c '
  openbox >/dev/null 2>&1 &
  manager=$!
  for _ in $(seq 50); do
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id" && break
    sleep 0.1
  done
  "$@"
  status=$?
  kill $manager
  exit $status' with-display "$@"
