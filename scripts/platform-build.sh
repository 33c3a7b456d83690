#!/usr/bin/env bash
# Builds the library as the platform builds it, from Android.bp, with
# Debian's mini-soong: the recipes become a Makefile that clang builds with
# -Werror, the library and an example effect that sees only its exported
# headers. Out of tree, in build-soong/.
#
# mini-soong leaves to make's command line what Soong knows by itself: the
# C++ standard (it does not read cpp_std), the compiler, and the include
# folders of the platform libraries (liblog_INCLUDES, ...), which Debian
# keeps under /usr/include/android and /usr/include/libxml2.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

out=build-soong
rm -rf "$out"
# The recipes as mini-soong finds them: the project's files by link, so that
# nothing is written into the source tree and the search cannot meet the
# build folders.
mkdir -p "$out/tree/tests/platform"
for entry in Android.bp include params model parser store cache; do
    ln -s "$root/$entry" "$out/tree/$entry"
done
for entry in "$root"/tests/platform/*; do
    ln -s "$entry" "$out/tree/tests/platform/"
done
cd "$out"
mini-soong 'tree/**/Android.bp' Makefile

android_includes=-isystem/usr/include/android
make -j"$(nproc)" build CC=clang CXXFLAGS="-std=c++17 -Werror" \
    liblog_SYSTEM_INCLUDES="$android_includes" \
    libutils_SYSTEM_INCLUDES="$android_includes" \
    libxml2_SYSTEM_INCLUDES=-isystem/usr/include/libxml2
ls -1 ./*.so*
