#!/usr/bin/env bash
# build-demo.sh BUILD_DIR
# Installs the vorlan build in BUILD_DIR into a private prefix and builds
# examples/demo against it, as a user builds an application.  Prints the
# demo's path on the last line.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "$1" && pwd)
work="$build/demo"
prefix="$work/prefix"
mkdir -p "$work"
cmake --install "$build" --prefix "$prefix" >"$work/install.log"

# An application linked to a sanitized library must carry the sanitizer
# runtime itself.
flags=()
if grep -q '^VORLAN_SANITIZE:BOOL=ON' "$build/CMakeCache.txt"; then
  flags+=("-DCMAKE_C_FLAGS=-fsanitize=address,undefined -fno-omit-frame-pointer"
          "-DCMAKE_EXE_LINKER_FLAGS=-fsanitize=address,undefined")
fi
cmake -S "$top/examples/demo" -B "$work/build" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" "${flags[@]}" \
  >"$work/configure.log" 2>&1 || { cat "$work/configure.log" >&2; exit 1; }
cmake --build "$work/build" >"$work/build.log" 2>&1 || { cat "$work/build.log" >&2; exit 1; }
echo "$work/build/vorlan-demo"
