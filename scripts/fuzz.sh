#!/usr/bin/env bash
# Builds the fuzz targets into build-fuzz/ (clang++ with libFuzzer, AddressSanitizer
# and UndefinedBehaviorSanitizer) and runs each for SECONDS (default 30) from
# its seeds, the tuning file fuzzer with the dictionary of the file's names.
# Fails when a target crashes, leaks, hangs or breaks one of its invariants; the
# input that did it is kept in build-fuzz/artifacts/TARGET/ and its log in
# build-fuzz/logs/. The corpus grows in build-fuzz/corpus/ from run to run.
# Usage: scripts/fuzz.sh [SECONDS [TARGET...]]
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-30}
shift || true
targets=("$@")
if ((${#targets[@]} == 0)); then
    targets=(tuning_file_fuzzer packed_array_fuzzer)
fi

scripts/setup.sh build-fuzz -DCMAKE_CXX_COMPILER=clang++ -DOVELA_FUZZ=ON -DOVELA_BUILD_TESTS=OFF

fuzz_dir=build-fuzz/fuzz
failed=()
for target in "${targets[@]}"; do
    corpus=build-fuzz/corpus/$target
    artifacts=build-fuzz/artifacts/$target
    log=build-fuzz/logs/$target.log
    mkdir -p "$corpus" "$artifacts" "$(dirname "$log")"
    options=(-max_total_time="$seconds" -timeout=10 -print_final_stats=1
             -artifact_prefix="$artifacts/")
    if [ "$target" = tuning_file_fuzzer ]; then
        options+=(-dict="$fuzz_dir/tuning_file.dict")
    fi
    echo "fuzzing $target for $seconds s"
    if "$fuzz_dir/$target" "${options[@]}" "$corpus" "$fuzz_dir/seeds/${target%_fuzzer}" \
        >"$log" 2>&1; then
        grep -E '^#[0-9]+[[:space:]]+DONE|^stat::(number_of_executed_units|peak_rss_mb)' "$log"
    else
        tail -n 60 "$log"
        echo "$target FAILED: see $log and $artifacts/" >&2
        failed+=("$target")
    fi
done

if ((${#failed[@]})); then
    echo "fuzzing failed: ${failed[*]}" >&2
    exit 1
fi
echo "fuzzing passed: ${targets[*]}"
