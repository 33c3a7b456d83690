// Memory of a load: the bytes that a store keeps after loading a generated
// tuning file against the size of its arrays (mallinfo2 deltas).
// sweep_benchmark measures the peak of the heap during a load. The times that
// this reports are not the point.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <ovela/ProfileParamArray.h>

#include <memory>
#include <string>

#include "BenchSupport.h"
#include "TuningFileGenerator.h"

namespace ovela::bench {

namespace {

int64_t heapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<int64_t>(info.uordblks + info.hblkhd);
}

// A first load, so that what libxml2 and the store's module set up once per
// process is not counted against the loads measured.
bool warmUp(benchmark::State& state, const std::string& path) {
    ProfileParamArray store(path);
    return requireLoaded(state, store);
}

void BM_RetainedMemory(benchmark::State& state) {
    const TuningFileShape& shape = tuningFileShape(static_cast<int>(state.range(0)));
    const std::string& path = tuningFilePath(shape);
    state.SetLabel(shape.name);
    if (!warmUp(state, path)) {
        return;
    }
    int64_t retained = 0;
    int64_t arrays = 0;
    for (auto _ : state) {
        const int64_t before = heapInUse();
        auto store = std::make_unique<ProfileParamArray>(path);
        retained = heapInUse() - before;
        state.PauseTiming();
        arrays = arrayBytes(*store);
        store.reset();
        state.ResumeTiming();
    }
    state.counters["retained_bytes"] = static_cast<double>(retained);
    state.counters["array_bytes"] = static_cast<double>(arrays);
    state.counters["retained_to_arrays"] =
        static_cast<double>(retained) / static_cast<double>(arrays);
}

void allShapes(benchmark::internal::Benchmark* benchmark) {
    benchmark->DenseRange(0, kTuningFileShapes - 1)->Iterations(5)->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_RetainedMemory)->Apply(allShapes);

}  // namespace

}  // namespace ovela::bench
