// A full load of generated tuning files of growing size (constructing a store
// on the file), and a bare libxml2 parse of the same file, each on its own.
// sweep_benchmark times the two in turns.

#include <benchmark/benchmark.h>
#include <ovela/ProfileParamArray.h>

#include <string>

#include "BenchSupport.h"
#include "TuningFileGenerator.h"

namespace ovela::bench {

namespace {

void setFileCounters(benchmark::State& state, const std::string& path) {
    state.counters["file_bytes"] = static_cast<double>(fileSize(path));
    state.SetBytesProcessed(state.iterations() * fileSize(path));
}

void BM_BareXmlParse(benchmark::State& state) {
    const TuningFileShape& shape = tuningFileShape(static_cast<int>(state.range(0)));
    const std::string& path = tuningFilePath(shape);
    state.SetLabel(shape.name);
    for (auto _ : state) {
        parseOnly(path);
    }
    setFileCounters(state, path);
}

void BM_StoreLoad(benchmark::State& state) {
    const TuningFileShape& shape = tuningFileShape(static_cast<int>(state.range(0)));
    const std::string& path = tuningFilePath(shape);
    state.SetLabel(shape.name);
    {
        ProfileParamArray store(path);
        if (!requireLoaded(state, store)) {
            return;
        }
    }
    for (auto _ : state) {
        ProfileParamArray store(path);
        benchmark::DoNotOptimize(store.getProfileParamsSize(kGeneralProfileId));
    }
    setFileCounters(state, path);
}

void allShapes(benchmark::internal::Benchmark* benchmark) {
    benchmark->DenseRange(0, kTuningFileShapes - 1)->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_BareXmlParse)->Apply(allShapes);
BENCHMARK(BM_StoreLoad)->Apply(allShapes);

}  // namespace

}  // namespace ovela::bench
