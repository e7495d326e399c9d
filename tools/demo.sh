#!/usr/bin/env bash
# Installs what is missing, builds vorlan, builds the demo application
# against the installed library, and runs it.  Without a DISPLAY it runs
# inside a private X server with a window manager and closes itself after a
# few seconds; a screenshot is saved as demo-screenshot.png in the current
# directory and its path printed.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/tools/install-deps.sh"
dir=$("$top/tools/build.sh" | tail -n 1)
demo=$("$top/tools/build-demo.sh" "$dir" | tail -n 1)
shot="$PWD/demo-screenshot.png"

# Runs the demo, waits for its window to be mapped, and saves the screen
# (a private server) or the window alone (the user's display).
run_demo() {
  local whole_screen=$1; shift
  "$demo" "$@" &
  local pid=$! id=""
  for _ in $(seq 100); do
    id=$(xwininfo -root -tree 2>/dev/null | awk '/"vorlan demo"/ { print $1; exit }')
    [ -n "$id" ] && break
    sleep 0.1
  done
  if [ -n "$id" ]; then
    sleep 1
    if [ "$whole_screen" = yes ]; then import -window root "$shot"; else import -window "$id" "$shot"; fi
    echo "screenshot saved to $shot"
  else
    echo "the demo window did not appear" >&2
  fi
  wait "$pid"
}

if [ -n "${DISPLAY:-}" ]; then
  run_demo no
else
  export -f run_demo; export demo shot
  "$top/tools/with-xvfb.sh" -- bash -c 'run_demo yes --seconds 4'
fi
