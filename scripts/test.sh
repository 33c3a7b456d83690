#!/usr/bin/env bash
# Sets up as scripts/setup.sh does and runs every test: the plain build (with
# the tool under valgrind), the platform build from Android.bp, the whole suite
# again under AddressSanitizer and UndefinedBehaviorSanitizer, the concurrency
# tests under ThreadSanitizer, and each fuzz target for a short while.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build -DOVELA_BENCH=ON
ctest --test-dir build --output-on-failure -j"$(nproc)"

scripts/platform-build.sh >/dev/null

scripts/setup.sh build-asan -DOVELA_SANITIZE=ON
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
    ctest --test-dir build-asan --output-on-failure -j"$(nproc)"

scripts/setup.sh build-tsan -DOVELA_SANITIZE=thread
TSAN_OPTIONS=halt_on_error=1 \
    ctest --test-dir build-tsan --output-on-failure -j"$(nproc)" -R '^(ConcurrencyTest|LspServerTest)\.'

scripts/fuzz.sh 30
