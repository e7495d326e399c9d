#!/usr/bin/env bash
# Installs what is missing, builds, and runs the demo application.  Without a
# DISPLAY it runs inside a private X server; a screenshot of the screen is
# saved as demo-screenshot.png in the current directory.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/tools/install-deps.sh"
dir=$("$top/tools/build.sh" | tail -n 1)
shot="$PWD/demo-screenshot.png"
run_demo() {
  "$dir/examples/demo/vorlan-demo"
  import -window root "$shot" && echo "screenshot saved to $shot"
}
if [ -n "${DISPLAY:-}" ]; then
  run_demo
else
  export -f run_demo; export dir shot
  "$top/tools/with-xvfb.sh" -- bash -c run_demo
fi
