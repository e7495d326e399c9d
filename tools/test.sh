#!/usr/bin/env bash
# Installs what is missing, builds, and runs the whole test suite inside a
# private X server with a window manager and beside a private CUPS server.
#   tools/test.sh               normal build
#   tools/test.sh --sanitize    AddressSanitizer + UndefinedBehaviorSanitizer build
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/tools/install-deps.sh"
dir=$("$top/tools/build.sh" "$@" | tail -n 1)
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=0:abort_on_error=0}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
cd "$dir"
"$top/tools/with-xvfb.sh" -- "$top/tools/with-cups.sh" -- \
  ctest --output-on-failure -j "$(nproc)" --timeout 300
