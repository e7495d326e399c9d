#!/usr/bin/env bash
# Builds the benchmarks and runs them inside a private Xvfb, then prints each
# figure beside its baseline and their ratio.
#
#   tools/bench.sh [build-dir] [extra benchmark arguments...]
#
# With VORLAN_BENCH_README=1 it also rewrites the performance table of
# README.md from this run (tools/bench_table.py), with the machine, the date
# and the command line printed under it.
#
# The build directory defaults to build-bench under the source tree; it is
# configured as a release build with the benchmarks and without the tests.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-"$root/build-bench"}
[ $# -gt 0 ] && shift

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DVORLAN_BUILD_BENCH=ON -DVORLAN_BUILD_TESTS=OFF >/dev/null
lock=/tmp/vorlan-build.lock
if command -v flock >/dev/null; then
  flock "$lock" cmake --build "$build" --target vorlan_bench
else
  cmake --build "$build" --target vorlan_bench
fi

json=$(mktemp "${TMPDIR:-/tmp}/vorlan-bench.XXXXXX.json")
trap 'rm -f "$json"' EXIT
"$root/tools/with-xvfb.sh" -- "$build/bench/vorlan_bench" \
  --benchmark_out="$json" --benchmark_out_format=json "$@"

echo
if [ "${VORLAN_BENCH_README:-}" = 1 ]; then
  VORLAN_BENCH_COMMAND="tools/bench.sh BUILD-DIR $*" python3 "$root/tools/bench_table.py" "$json" --readme "$root/README.md"
  echo "README.md: performance table rewritten"
fi
python3 "$root/tools/bench_table.py" "$json"
