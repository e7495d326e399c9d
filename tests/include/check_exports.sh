#!/usr/bin/env bash
# Checks that the installed libraries export nothing but names their public
# headers declare, so that no internal name of the library can clash with
# (or be replaced by) a name of the application.  The headers are preprocessed as C and as C++, and every function,
# prototype and variable they declare (class members by qualified name) is a
# permitted export; every defined dynamic symbol of the library, demangled
# and stripped of its parameter list and version, must be one of them.
#   check_exports.sh BUILD-DIR
# installs BUILD-DIR into a private prefix and checks libbrano and libvorlan
# there against the installed headers.
set -euo pipefail
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/prefix" >"$work/install.log"
include="$work/prefix/include/vorlan"
libraries=()
for name in libbrano.so libvorlan.so; do
  library=$(find "$work/prefix" -name "$name" | head -n 1)
  [ -n "$library" ] || { echo "$name was not installed" >&2; exit 1; }
  libraries+=("$library")
done

printf '#include <windows.h>\n#include <vorlan.h>\n#include <vorlwchar.h>\n' >"$work/all.h"
cc -std=c99 -E -I"$include" -x c "$work/all.h" >"$work/all.i"
c++ -std=c++17 -E -I"$include" -x c++ "$work/all.h" >"$work/all.ii"
{
  ctags -x --language-force=C --kinds-C=pfvx --extras=+q -o - "$work/all.i"
  ctags -x --language-force=C++ --kinds-C++=pfvx --extras=+q -o - "$work/all.ii"
} | awk '{print $1}' | sort -u >"$work/declared"
[ -s "$work/declared" ] || { echo "no declarations found under $include" >&2; exit 1; }

status=0
for lib in "${libraries[@]}"; do
  # Leave out version nodes, the symbols the linker defines in every shared
  # object, and those the sanitizers add beside exported variables.
  nm -D --defined-only "$lib" | awk '$2 != "A" {print $3}' | sed 's/@.*//' |
    grep -vxE '_init|_fini|_edata|_end|__bss_start|__odr_asan[._].*' | c++filt |
    sed -E 's/\(.*$//' | sort -u >"$work/exported"
  if [ ! -s "$work/exported" ]; then
    echo "$lib exports nothing" >&2; status=1; continue
  fi
  comm -23 "$work/exported" "$work/declared" >"$work/leaked"
  if [ -s "$work/leaked" ]; then
    echo "$lib exports $(wc -l <"$work/leaked") names that no public header declares:" >&2
    sed 's/^/  /' "$work/leaked" >&2
    status=1
  else
    echo "$(basename "$lib"): $(wc -l <"$work/exported") exported names, all declared in the public headers"
  fi
done
exit $status
