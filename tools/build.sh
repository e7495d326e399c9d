#!/usr/bin/env bash
# Configures and builds vorlan into build/ (or build-sanitize/ with
# --sanitize).  Prints the build directory on the last line.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
sanitize=OFF
dir="$top/build"
if [ "${1:-}" = "--sanitize" ]; then sanitize=ON; dir="$top/build-sanitize"; fi
mkdir -p "$dir"
cmake -S "$top" -B "$dir" -G Ninja -DVORLAN_SANITIZE=$sanitize >"$dir/configure.log" 2>&1 ||
  { cat "$dir/configure.log" >&2; exit 1; }
cmake --build "$dir" -j "$(nproc)" >&2
echo "$dir"
