#!/usr/bin/env bash
# Installs the Debian packages that the project needs and that are missing,
# then configures and builds into build/. Extra arguments go to CMake.
# Usage: scripts/setup.sh [BUILD_DIR [CMAKE_ARGS...]]
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cmake g++ make pkg-config libxml2-dev android-liblog-dev android-libutils-dev
          libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev
          clang libclang-rt-14-dev valgrind mini-soong libxml2-utils doxygen
          python3 chromium fonts-dejavu-core nodejs neovim)
missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$package")
    fi
done
if ((${#missing[@]})); then
    echo "installing: ${missing[*]}"
    apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

build_dir=${1:-build}
shift || true
cmake -S . -B "$build_dir" "$@" >/dev/null
cmake --build "$build_dir" -j"$(nproc)"
