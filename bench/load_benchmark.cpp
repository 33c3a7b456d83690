// A full load of generated tuning files of growing size (constructing a store
// on the file) against a bare libxml2 parse of the same file, timed in turns
// in the same run so that both see the same machine.

#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <ovela/ProfileParamArray.h>

#include <chrono>
#include <memory>
#include <string>

#include "BenchSupport.h"
#include "TuningFileGenerator.h"

namespace ovela::bench {

namespace {

using Clock = std::chrono::steady_clock;

void parseOnly(const std::string& path) {
    xmlDoc* document = xmlReadFile(path.c_str(), nullptr, 0);
    benchmark::DoNotOptimize(document);
    xmlFreeDoc(document);
}

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
        benchmark::DoNotOptimize(store);
    }
    setFileCounters(state, path);
}

// Each iteration parses the file bare, then loads it into a fresh store; the
// iteration's time is the load's, and the counters give both means and their
// ratio. The store is destroyed outside the timed part.
void BM_LoadAgainstBareParse(benchmark::State& state) {
    const TuningFileShape& shape = tuningFileShape(static_cast<int>(state.range(0)));
    const std::string& path = tuningFilePath(shape);
    state.SetLabel(shape.name);
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
    state.counters["bare_parse_ms"] = parseMs;
    state.counters["load_ms"] = loadMs;
    state.counters["load_to_parse"] = loadMs / parseMs;
    setFileCounters(state, path);
}

void allShapes(benchmark::internal::Benchmark* benchmark) {
    benchmark->DenseRange(0, kTuningFileShapes - 1)->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_BareXmlParse)->Apply(allShapes);
BENCHMARK(BM_StoreLoad)->Apply(allShapes);
BENCHMARK(BM_LoadAgainstBareParse)->Apply(allShapes)->UseManualTime();

}  // namespace

}  // namespace ovela::bench
