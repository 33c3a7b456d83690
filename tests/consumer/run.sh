#!/usr/bin/env bash
# Installs the project from BUILD_DIR into a prefix of its own and moves the
# installed tree elsewhere, so that nothing may depend on where it was
# installed. From there: checks what the library exports (at most 80 symbols,
# all of them the interface that the installed headers declare), builds the
# consumer with find_package and with nothing but pkg-config's flags, runs
# both on FILE, and runs the installed tool.
# Usage: run.sh BUILD_DIR FILE
set -euo pipefail
build_dir=$1
tuning_file=$2
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() {
    echo "$*" >&2
    exit 1
}

cmake --install "$build_dir" --prefix "$scratch/installed" >/dev/null
mv "$scratch/installed" "$scratch/moved"
prefix=$scratch/moved
library=$(find "$prefix" -name 'libovelatuning.so.*.*.*')
libdir=$(dirname "$library")

# The library's SONAME names the major version of its interface.
readelf -d "$library" | grep -q 'SONAME.*\[libovelatuning\.so\.1\]' ||
    fail "the library's SONAME is not libovelatuning.so.1"

# What the library exports: the interface, and nothing else.
symbols=$(nm -D --defined-only "$library" | awk '{print $3}' | c++filt)
count=$(wc -l <<<"$symbols")
((count <= 80)) || fail "the library exports $count symbols"
others=$(grep -v -E '^((typeinfo( name)?|vtable) for )?(ovela::|android::Singleton<ovela::ProfileParamArray>::)' <<<"$symbols" || true)
[ -z "$others" ] || fail "the library exports what is not its interface: $others"
for name in $(grep -o -E 'ovela::[A-Za-z_][A-Za-z0-9_]*' <<<"$symbols" | sort -u); do
    grep -r -q -w "${name#ovela::}" "$prefix/include/ovela" ||
        fail "the library exports $name, which no installed header declares"
done
echo "the library exports $count symbols"

cmake -S "$here" -B "$scratch/cmake-build" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$scratch/cmake-build" >/dev/null
from_cmake=$("$scratch/cmake-build/consumer" "$tuning_file")

# shellcheck disable=SC2046
g++ -std=c++17 "$here/consumer.cpp" -o "$scratch/consumer-pc" \
    $(PKG_CONFIG_PATH="$libdir/pkgconfig" pkg-config --cflags --libs ovelatuning)
from_pkg_config=$(LD_LIBRARY_PATH="$libdir" "$scratch/consumer-pc" "$tuning_file")

echo "$from_cmake"
[ "$from_cmake" = "$from_pkg_config" ] || fail "pkg-config build disagrees: $from_pkg_config"

# The installed tool runs from wherever the tree is.
"$prefix/bin/ovela-tune" --version
"$prefix/bin/ovela-tune" tunings "$tuning_file" >/dev/null || fail "the installed tool does not run"
