#ifndef OVELA_BENCH_SUPPORT_H
#define OVELA_BENCH_SUPPORT_H

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace ovela {
class ProfileParamArray;
}

namespace ovela::bench {

// Drops every log line of the library and every libxml2 message, so that the
// benchmarks time the work and not the printing.
void silenceDiagnostics();

// The yardstick of a load: libxml2's own parse of the file with its default
// options (xmlReadFile with none), then the tree freed.
void parseOnly(const std::string& path);

// Size of the file at `path` in bytes.
int64_t fileSize(const std::string& path);

// Sum of the sizes of every array that `store` holds: the eleven profile
// arrays and every tuning that it lists for any endpoint.
int64_t arrayBytes(ProfileParamArray& store);

// Skips the benchmark with a message unless `store` loaded profile arrays.
bool requireLoaded(benchmark::State& state, ProfileParamArray& store);

}  // namespace ovela::bench

#endif  // OVELA_BENCH_SUPPORT_H
