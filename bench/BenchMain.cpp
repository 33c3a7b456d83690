// The main of every benchmark program: Google Benchmark's, with the library's
// and libxml2's diagnostics silenced first.

#include <benchmark/benchmark.h>

#include "BenchSupport.h"

int main(int argc, char** argv) {
    ovela::bench::silenceDiagnostics();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
