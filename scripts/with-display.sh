#!/usr/bin/env bash
# Runs a command with an X display: the caller's own, or a private Xvfb when
# there is none (or VELL_XVFB=1). Whatever wineserver or Xvfb it started is
# stopped before it exits.
set -u
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

xvfb_pid=""
cleanup() {
  wineserver -k >/dev/null 2>&1 || true
  if [ -n "$xvfb_pid" ]; then
    kill "$xvfb_pid" 2>/dev/null || true
    wait "$xvfb_pid" 2>/dev/null || true
  fi
}
trap cleanup EXIT
trap 'exit 130' INT TERM

if [ -z "${DISPLAY:-}" ] || [ "${VELL_XVFB:-0}" = 1 ]; then
  for n in $(seq 91 140); do
    if [ ! -e "/tmp/.X$n-lock" ] && [ ! -e "/tmp/.X11-unix/X$n" ]; then num=$n; break; fi
  done
  Xvfb ":$num" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
  xvfb_pid=$!
  for _ in $(seq 100); do
    [ -e "/tmp/.X11-unix/X$num" ] && break
    sleep 0.1
  done
  export DISPLAY=":$num"
fi

"$@"
rc=$?
exit $rc
