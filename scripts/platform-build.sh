#!/usr/bin/env bash
# Builds the library as the platform builds it, from Android.bp, with
# Debian's mini-soong: the recipes become a Makefile that clang builds with
# -Werror: the shared library and an example effect that sees only the
# exported headers. Out of tree, in build-soong/. mini-soong reads the rest
# without building it: it builds no cc_test, and its recipe for a static
# library cannot take globbed sources, so the tests' static twin of the
# library is left to Soong.
#
# mini-soong leaves to make's command line what Soong knows by itself: the
# C++ standard (it does not read cpp_std) and -Werror (it drops it), the
# compiler, the version script (it does not read version_script), the
# library's version (libovelatuning.so.1, as the CMake build names it), and the
# include folders of the platform libraries (liblog_INCLUDES, ...), which
# Debian keeps under /usr/include/android and /usr/include/libxml2. At the end
# it checks the SONAME and that the library exports its interface only.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

out=build-soong
rm -rf "$out"
# The recipes as mini-soong finds them: the project's files by link, so that
# nothing is written into the source tree and the search cannot meet the
# build folders.
mkdir -p "$out/tree/tests/platform"
for entry in Android.bp libovelatuning.map.txt include params model parser store cache; do
    ln -s "$root/$entry" "$out/tree/$entry"
done
for entry in "$root"/tests/platform/*; do
    ln -s "$entry" "$out/tree/tests/platform/"
done
cd "$out"
mini-soong 'tree/**/Android.bp' Makefile

android_includes=-isystem/usr/include/android
# It tells C++ by the sources that a module lists itself, not by those of its
# defaults: the library's flags for C++ come through CFLAGS and LDLIBS.
make -j"$(nproc)" libovelatuning.so.1.0.0 libovelaeffect_example.so.0.0.0 \
    CC=clang CXXFLAGS="-std=c++17 -Werror" CFLAGS="-std=c++17 -Werror -fPIC" LDLIBS=-lstdc++ \
    libovelatuning_soversion=1.0.0 \
    libovelatuning_LDFLAGS="-L/usr/lib/x86_64-linux-gnu/android -Wl,--version-script=tree/libovelatuning.map.txt" \
    liblog_SYSTEM_INCLUDES="$android_includes" \
    libutils_SYSTEM_INCLUDES="$android_includes" \
    libxml2_SYSTEM_INCLUDES=-isystem/usr/include/libxml2
ls -1 ./*.so*
readelf -d libovelatuning.so.1.0.0 | grep -q 'SONAME.*\[libovelatuning\.so\.1\]'
if nm -D --defined-only libovelatuning.so.1.0.0 | awk '{print $3}' | c++filt |
    grep -v -E '^((typeinfo( name)?|vtable) for )?(ovela::|android::Singleton<ovela::ProfileParamArray>::)'; then
    echo "the platform build exports what is not the interface" >&2
    exit 1
fi
