#!/usr/bin/env bash
# Builds the benchmarks into build-bench/ (OVELA_BENCH, tests off) and runs
# them: the load against a bare libxml2 parse at every size with the peak of
# its heap, the load and the parse alone, the queries and the cache, and the
# memory that a store keeps. Arguments go to every benchmark program, e.g.
# --benchmark_filter=Load or --benchmark_repetitions=5.
# Usage: scripts/bench.sh [BENCHMARK_ARGS...]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build-bench -DOVELA_BENCH=ON -DOVELA_BUILD_TESTS=OFF >/dev/null

for program in sweep load query memory lsp; do
    echo "== ${program}_benchmark"
    "build-bench/bench/${program}_benchmark" "$@"
done
