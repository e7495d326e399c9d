#!/usr/bin/env bash
# run_demo.sh TOP BUILD_DIR
# Builds the demo against an installed copy of the build, runs it until it
# closes itself, and checks that it laid out its children and that its
# message loop ended with the quit code.
set -euo pipefail
top=$1 build=$2
demo=$("$top/tools/build-demo.sh" "$build" | tail -n 1)
out=$("$demo" --seconds 1)
echo "$out"
grep -q '^  child 101 at ([0-9]*,[0-9]*) 80x28, class: Button$' <<<"$out"
grep -q '^  child 102 .*class: DemoPanel$' <<<"$out"
grep -q '^message loop ended with 0$' <<<"$out"
