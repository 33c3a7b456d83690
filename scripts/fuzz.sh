#!/usr/bin/env bash
# Builds the fuzz targets into build-fuzz/ (clang++ with libFuzzer, AddressSanitizer
# and UndefinedBehaviorSanitizer) and runs each job for SECONDS (default 30) from
# its seeds, the tuning file jobs with the dictionary of the file's names:
#   tuning_file       tuning files of at most 4096 bytes: the main job, fast
#   tuning_file_full  tuning files as large as the seeds (the sample: 100 KB)
#   packed_array      packed arrays
# Fails when a target crashes, leaks, hangs or breaks one of its invariants; the
# input that did it is kept in build-fuzz/artifacts/JOB/ and its log in
# build-fuzz/logs/. The corpus grows in build-fuzz/corpus/JOB/ from run to run.
# Usage: scripts/fuzz.sh [SECONDS [JOB...]]
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-30}
shift || true
jobs=("$@")
if ((${#jobs[@]} == 0)); then
    jobs=(tuning_file tuning_file_full packed_array)
fi

scripts/setup.sh build-fuzz -DCMAKE_CXX_COMPILER=clang++ -DOVELA_FUZZ=ON -DOVELA_BUILD_TESTS=OFF

fuzz_dir=build-fuzz/fuzz
failed=()
for job in "${jobs[@]}"; do
    corpus=build-fuzz/corpus/$job
    artifacts=build-fuzz/artifacts/$job
    log=build-fuzz/logs/$job.log
    mkdir -p "$corpus" "$artifacts" "$(dirname "$log")"
    options=(-max_total_time="$seconds" -timeout=10 -print_final_stats=1
             -artifact_prefix="$artifacts/")
    case $job in
        tuning_file) target=tuning_file_fuzzer
            options+=(-max_len=4096 -dict="$fuzz_dir/tuning_file.dict") ;;
        tuning_file_full) target=tuning_file_fuzzer
            options+=(-dict="$fuzz_dir/tuning_file.dict") ;;
        packed_array) target=packed_array_fuzzer ;;
        *) echo "unknown fuzz job: $job" >&2; exit 2 ;;
    esac
    echo "fuzzing $job for $seconds s"
    if "$fuzz_dir/$target" "${options[@]}" "$corpus" "$fuzz_dir/seeds/${target%_fuzzer}" \
        >"$log" 2>&1; then
        grep -E '^#[0-9]+[[:space:]]+DONE|^stat::(number_of_executed_units|peak_rss_mb)' "$log"
    else
        tail -n 60 "$log"
        echo "$job FAILED: see $log and $artifacts/" >&2
        failed+=("$job")
    fi
done

if ((${#failed[@]})); then
    echo "fuzzing failed: ${failed[*]}" >&2
    exit 1
fi
echo "fuzzing passed: ${jobs[*]}"
