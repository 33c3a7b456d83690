#!/usr/bin/env bash
# Installs the library from BUILD_DIR into a scratch prefix, builds the consumer
# against it with find_package and with pkg-config, and runs both on FILE.
# Usage: run.sh BUILD_DIR FILE
set -euo pipefail
build_dir=$1
tuning_file=$2
here=$(cd "$(dirname "$0")" && pwd)
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build_dir" --prefix "$prefix/usr" >/dev/null
cmake -S "$here" -B "$prefix/cmake-build" -DCMAKE_PREFIX_PATH="$prefix/usr" >/dev/null
cmake --build "$prefix/cmake-build" >/dev/null
from_cmake=$("$prefix/cmake-build/consumer" "$tuning_file")

pc_dir=$(dirname "$(find "$prefix/usr" -name ovelatuning.pc)")
# shellcheck disable=SC2046
g++ -std=c++17 "$here/consumer.cpp" -o "$prefix/consumer-pc" \
    $(PKG_CONFIG_PATH="$pc_dir" pkg-config --cflags --libs ovelatuning)
from_pkg_config=$("$prefix/consumer-pc" "$tuning_file")

echo "$from_cmake"
if [ "$from_cmake" != "$from_pkg_config" ]; then
    echo "pkg-config build disagrees: $from_pkg_config" >&2
    exit 1
fi
