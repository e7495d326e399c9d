#!/usr/bin/env bash
# The X wrapper gives the command a display of its own with a window
# manager, leaves the caller's DISPLAY alone, passes the exit status on and
# stops its server afterwards, also when the command fails.
set -euo pipefail
tools=$1
outer=${DISPLAY:-}
state=$(mktemp -d)
trap 'rm -rf "$state"' EXIT

"$tools/with-xvfb.sh" -- sh -c '
  echo "$DISPLAY" > "$1/display"
  xprop -root _NET_WORKAREA > "$1/workarea"
' sh "$state"
inner=$(cat "$state/display")
[ -n "$inner" ] || { echo "no DISPLAY inside"; exit 1; }
[ "$inner" != "$outer" ] || { echo "the wrapper reused the caller's display $outer"; exit 1; }
grep -q '_NET_WORKAREA(CARDINAL) = 0, 0, 1280, 1024' "$state/workarea" ||
  { echo "no work area from the window manager:"; cat "$state/workarea"; exit 1; }
[ "${DISPLAY:-}" = "$outer" ] || { echo "DISPLAY leaked to the caller"; exit 1; }

set +e
"$tools/with-xvfb.sh" --depth 8 --no-wm -- sh -c 'echo "$DISPLAY" > "$1/display2"; xdpyinfo | grep -q "depth of root window: *8 planes"; exit 7' sh "$state"
status=$?
set -e
[ "$status" = 7 ] || { echo "exit status not passed on: $status"; exit 1; }
display2=$(cat "$state/display2")
# The server of the failed command must be gone.
for _ in $(seq 1 150); do
  [ -e "/tmp/.X${display2#:}-lock" ] || break
  sleep 0.1
done
[ ! -e "/tmp/.X${display2#:}-lock" ] || { echo "X server $display2 left running"; exit 1; }
echo "xvfb harness: 1 passed, 0 failed"
