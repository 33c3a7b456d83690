#ifndef OVELA_BENCH_TUNING_FILE_GENERATOR_H
#define OVELA_BENCH_TUNING_FILE_GENERATOR_H

#include <cstddef>
#include <string>

namespace ovela::bench {

// What a generated tuning file holds besides its fixed part: the general
// section, four IEQ and four GEQ presets, and ten profiles that set every
// profile parameter and every endpoint's parameters on all seven endpoints.
struct TuningFileShape {
    const char* name;
    // Endpoint tunings, each with its full band tables; the first two are the
    // speaker's own and the default one.
    int tunings;
    // Rows of each band table (regulator, audio optimizer, IEQ presets).
    int bands;
};

// The shapes that the benchmarks run, by argument: about 0.2 MB (the ten
// profiles alone take 100 KB), 1.5 MB and 15 MB.
const TuningFileShape& tuningFileShape(int index);
constexpr int kTuningFileShapes = 3;

// Text of a tuning file of `shape`, written as a tuning tool writes one
// (indented, every name from the reader's vocabulary), with values that
// vary as real ones do. The same shape always gives the same text.
std::string generateTuningFile(const TuningFileShape& shape);

// A file of `shape` in the temporary directory, written once per process.
const std::string& tuningFilePath(const TuningFileShape& shape);

}  // namespace ovela::bench

#endif  // OVELA_BENCH_TUNING_FILE_GENERATOR_H
