#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running vorlan
# need, skipping those already present.  Safe to run repeatedly.
set -euo pipefail

packages=(
  build-essential cmake ninja-build ccache pkg-config
  gcc-multilib g++-multilib
  libgtk2.0-dev libglib2.0-dev libx11-dev libicu-dev libcups2-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  binutils-mingw-w64-x86-64
  xvfb openbox x11-utils xauth imagemagick universal-ctags
  cups cups-bsd cups-client ghostscript
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "installing: ${missing[*]}"
sudo=""
[ "$(id -u)" = 0 ] || sudo=sudo
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
