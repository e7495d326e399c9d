#!/usr/bin/env bash
# run.sh BUILD_DIR APP_SOURCE WORK_DIR C_COMPILER SANITIZE
# Installs BUILD_DIR into a private prefix, builds the applications in
# APP_SOURCE against it and runs them.
set -euo pipefail
build=$1 app=$2 work=$3 cc=$4 sanitize=$5
rm -rf "$work"
mkdir -p "$work"
prefix="$work/prefix"
cmake --install "$build" --prefix "$prefix" >"$work/install.log"

flags=()
if [ "$sanitize" = ON ]; then
  flags+=("-DCMAKE_C_FLAGS=-fsanitize=address,undefined -fno-omit-frame-pointer"
          "-DCMAKE_EXE_LINKER_FLAGS=-fsanitize=address,undefined")
fi
export PKG_CONFIG_PATH="$prefix/lib/pkgconfig:$prefix/${VORLAN_LIBDIR:-lib}/pkgconfig"
cmake -S "$app" -B "$work/build" -G Ninja -DCMAKE_C_COMPILER="$cc" \
  -DCMAKE_PREFIX_PATH="$prefix" "${flags[@]}" >"$work/configure.log" 2>&1 ||
  { cat "$work/configure.log"; exit 1; }
cmake --build "$work/build" >"$work/build.log" 2>&1 || { cat "$work/build.log"; exit 1; }
"$work/build/consumer"

# The message loop's exit status is its quit code, 42 when the translated
# character reached the window procedure.
status=0
timeout 60 "$work/build/msgloop" || status=$?
if [ "$status" -ne 42 ]; then
  echo "msgloop exited with $status, expected 42"
  exit 1
fi
echo "msgloop: quit code 42 as posted"
