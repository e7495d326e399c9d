#!/usr/bin/env bash
# Builds the benchmarks and runs them inside a private Xvfb, then prints each
# figure beside its baseline and their ratio.
#
#   tools/bench.sh [build-dir] [extra benchmark arguments...]
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

python3 - "$json" <<'PY'
import json, sys
# With repetitions the median stands for a benchmark, else its one run.
runs = {}
for b in json.load(open(sys.argv[1]))["benchmarks"]:
    name = b.get("run_name", b["name"]).split("/real_time")[0]
    if b.get("run_type") == "aggregate":
        if b.get("aggregate_name") == "median":
            runs[name] = b
    else:
        runs.setdefault(name, b)
print()
print("%-16s %14s %14s %8s" % ("measure", "vorlan", "baseline", "ratio"))
measures = (("PostPeek", "ns/message"), ("SendRoundTrip", "ns/round trip"),
            ("DrawLines", "ns/batch of 64"), ("DrawRectangles", "ns/batch of 64"),
            ("DrawEllipses", "ns/batch of 64"), ("PatternFills", "ns/batch of 64"))
for measure, unit in measures:
    queue = runs.get(measure + "/Queue") or runs.get(measure + "/Vorlan")
    base = runs.get(measure + "/Baseline")
    if not queue or not base:
        continue
    q, b = queue["real_time"], base["real_time"]
    print("%-16s %11.0f ns %11.0f ns %7.1fx   (%s)" % (measure, q, b, q / b, unit))
PY
