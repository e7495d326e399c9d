#!/usr/bin/env bash
# Runs a command inside a private X server (Xvfb) with the openbox window
# manager.  Never touches the caller's display: a free display number is
# chosen, DISPLAY is set only for the command, and the server and window
# manager are stopped afterwards, also when the command fails or is
# interrupted.  The command's exit status is passed on.
#
#   tools/with-xvfb.sh [--depth N] [--size WxH] [--no-wm] -- command args...
set -euo pipefail

depth=24
size=1280x1024
use_wm=1
while [ $# -gt 0 ]; do
  case "$1" in
    --depth) depth=$2; shift 2 ;;
    --size) size=$2; shift 2 ;;
    --no-wm) use_wm=0; shift ;;
    --) shift; break ;;
    *) break ;;
  esac
done
[ $# -gt 0 ] || { echo "usage: $0 [--depth N] [--size WxH] [--no-wm] -- command..." >&2; exit 2; }

workdir=$(mktemp -d "${TMPDIR:-/tmp}/vorlan-xvfb.XXXXXX")
xvfb_pid=""
wm_pid=""

cleanup() {
  [ -n "$wm_pid" ] && kill "$wm_pid" 2>/dev/null || true
  [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null || true
  [ -n "$wm_pid" ] && wait "$wm_pid" 2>/dev/null || true
  [ -n "$xvfb_pid" ] && wait "$xvfb_pid" 2>/dev/null || true
  rm -rf "$workdir"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

# Xvfb writes the display number it picked to a descriptor once it is ready,
# which avoids racing other servers for a number.  On a loaded machine the
# start can take many seconds, so both waits allow half a minute.
exec {dispfd}<> <(:)
Xvfb -displayfd "$dispfd" -screen 0 "${size}x${depth}" -nolisten tcp -noreset \
  >"$workdir/xvfb.log" 2>&1 &
xvfb_pid=$!
display_number=""
for _ in $(seq 1 300); do
  if read -r -t 0.1 -u "$dispfd" display_number 2>/dev/null && [ -n "$display_number" ]; then
    break
  fi
  kill -0 "$xvfb_pid" 2>/dev/null || { cat "$workdir/xvfb.log" >&2; echo "Xvfb failed to start" >&2; exit 1; }
done
exec {dispfd}>&-
[ -n "$display_number" ] || { echo "Xvfb did not report a display" >&2; exit 1; }
export DISPLAY=":$display_number"

if [ "$use_wm" = 1 ]; then
  HOME="$workdir" openbox --sm-disable >"$workdir/openbox.log" 2>&1 &
  wm_pid=$!
  # The window manager is ready once it has published the work area.
  for _ in $(seq 1 600); do
    if xprop -root _NET_WORKAREA 2>/dev/null | grep -q '='; then break; fi
    kill -0 "$wm_pid" 2>/dev/null || { cat "$workdir/openbox.log" >&2; echo "openbox failed to start" >&2; exit 1; }
    sleep 0.05
  done
  xprop -root _NET_WORKAREA 2>/dev/null | grep -q '=' || { echo "openbox published no _NET_WORKAREA" >&2; exit 1; }
fi

set +e
"$@"
status=$?
set -e
exit $status
