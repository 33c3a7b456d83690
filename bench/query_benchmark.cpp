// What callers do once the store is loaded: copy a profile or a tuning array
// (size query, then contents, as the effect's service does), and send a
// profile to an effect through a cache.

#include <benchmark/benchmark.h>
#include <ovela/Endpoint.h>
#include <ovela/IEffectKyr.h>
#include <ovela/KyrParameterId.h>
#include <ovela/OvlProfileId.h>
#include <ovela/ProfileParamArray.h>
#include <ovela/ProfileParamCache.h>

#include <string>
#include <vector>

#include "BenchSupport.h"
#include "TuningFileGenerator.h"

namespace ovela::bench {

namespace {

// The file that the query benchmarks load: the 500 KB shape.
constexpr int kQueryShape = 1;

const std::string& queryFile() {
    return tuningFilePath(tuningFileShape(kQueryShape));
}

class NullEffect : public IEffectKyr {
  public:
    void setParameter(int device, KyrParameterId code, const int* values, int count) override {
        benchmark::DoNotOptimize(device);
        benchmark::DoNotOptimize(code);
        benchmark::DoNotOptimize(values);
        benchmark::DoNotOptimize(count);
    }
    int commitParameters(int) override { return 0; }
};

void BM_GetProfileParams(benchmark::State& state) {
    ProfileParamArray store(queryFile());
    if (!requireLoaded(state, store)) {
        return;
    }
    const auto profile = static_cast<OvlProfileId>(state.range(0));
    std::vector<char> buffer(store.getProfileParamsSize(profile));
    for (auto _ : state) {
        const uint32_t size = store.getProfileParamsSize(profile);
        buffer.resize(size);
        benchmark::DoNotOptimize(store.getProfileParams(profile, buffer.data()));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(buffer.size()));
    state.counters["array_bytes"] = static_cast<double>(buffer.size());
}

void BM_GetTuningParams(benchmark::State& state) {
    ProfileParamArray store(queryFile());
    if (!requireLoaded(state, store)) {
        return;
    }
    // One of the tunings in the middle of the name table.
    const std::string name = "tuning_" + std::to_string(state.range(0));
    std::vector<char> buffer(store.getTuningParamsSize(name));
    if (buffer.empty()) {
        state.SkipWithError("no such tuning");
        return;
    }
    for (auto _ : state) {
        const uint32_t size = store.getTuningParamsSize(name);
        buffer.resize(size);
        benchmark::DoNotOptimize(store.getTuningParams(name, buffer.data()));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(buffer.size()));
    state.counters["array_bytes"] = static_cast<double>(buffer.size());
}

// Profile -1 also resends the tuning recorded for each endpoint.
void BM_CacheSetProfile(benchmark::State& state) {
    ProfileParamArray& store = ProfileParamArray::getInstance();
    store.loadXMLFile(queryFile());
    if (!requireLoaded(state, store)) {
        return;
    }
    ProfileParamCache cache;
    NullEffect effect;
    const auto profile = static_cast<OvlProfileId>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(cache.setProfile(profile, &effect));
    }
}

BENCHMARK(BM_GetProfileParams)->Arg(-1)->Arg(1);
BENCHMARK(BM_GetTuningParams)->Arg(40);
BENCHMARK(BM_CacheSetProfile)->Arg(-1)->Arg(1);

}  // namespace

}  // namespace ovela::bench
