// The load against libxml2's own parse of the same file, at every size: each
// iteration parses the file bare (xmlReadFile with no options, then
// xmlFreeDoc), then loads it into a fresh store, so that both see the same
// machine; the iteration's time is the load's. Then one load more with the
// heap counted gives the peak of the heap during a load.

#include <benchmark/benchmark.h>
#include <ovela/ProfileParamArray.h>

#include <chrono>
#include <memory>
#include <string>

#include "BenchSupport.h"
#include "HeapCounter.h"
#include "TuningFileGenerator.h"

namespace ovela::bench {

namespace {

using Clock = std::chrono::steady_clock;

// The most bytes in use at once while `work` runs, beyond those in use before.
template <typename Work>
double peakBytesOf(Work work) {
    HeapCounter::setCounting(true);
    const int64_t before = HeapCounter::bytesInUse();
    HeapCounter::resetPeak();
    work();
    const int64_t peak = HeapCounter::peakBytes() - before;
    HeapCounter::setCounting(false);
    return static_cast<double>(peak);
}

void BM_LoadAgainstBareParse(benchmark::State& state) {
    const TuningFileShape& shape = tuningFileShape(static_cast<int>(state.range(0)));
    const std::string& path = tuningFilePath(shape);
    state.SetLabel(shape.name);
    HeapCounter::setCounting(false);
    Clock::duration parsing{};
    Clock::duration loading{};
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        parseOnly(path);
        const Clock::time_point parsed = Clock::now();
        auto store = std::make_unique<ProfileParamArray>(path);
        const Clock::time_point loaded = Clock::now();
        parsing += parsed - start;
        loading += loaded - parsed;
        state.SetIterationTime(std::chrono::duration<double>(loaded - parsed).count());
        if (!requireLoaded(state, *store)) {
            return;
        }
    }
    const double iterations = static_cast<double>(state.iterations());
    const double parseMs = std::chrono::duration<double, std::milli>(parsing).count() / iterations;
    const double loadMs = std::chrono::duration<double, std::milli>(loading).count() / iterations;
    const double file = static_cast<double>(fileSize(path));
    state.counters["file_bytes"] = file;
    state.counters["bare_parse_ms"] = parseMs;
    state.counters["load_ms"] = loadMs;
    state.counters["load_to_parse"] = loadMs / parseMs;
    state.counters["peak_to_file"] =
        peakBytesOf([&] { std::make_unique<ProfileParamArray>(path).reset(); }) / file;
    state.counters["parse_peak_to_file"] = peakBytesOf([&] { parseOnly(path); }) / file;
}

BENCHMARK(BM_LoadAgainstBareParse)
    ->DenseRange(0, kTuningFileShapes - 1)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

}  // namespace

}  // namespace ovela::bench
