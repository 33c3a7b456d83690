#!/usr/bin/env bash
# Sets up as scripts/setup.sh does and runs every test: the plain build, then
# the whole suite again under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build
ctest --test-dir build --output-on-failure -j"$(nproc)"

scripts/setup.sh build-asan -DOVELA_SANITIZE=ON
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
    ctest --test-dir build-asan --output-on-failure -j"$(nproc)"
