// Writes a generated tuning file of one of the benchmarks' shapes to standard
// output, for profiling a load from outside: heaptrack, callgrind, or the
// tool on the file.
// Usage: generate_tuning_file small|medium|large > FILE

#include <cstdio>
#include <string>

#include "TuningFileGenerator.h"

int main(int argc, char** argv) {
    for (int index = 0; argc == 2 && index < ovela::bench::kTuningFileShapes; ++index) {
        const ovela::bench::TuningFileShape& shape = ovela::bench::tuningFileShape(index);
        if (argv[1] == std::string(shape.name)) {
            const std::string text = ovela::bench::generateTuningFile(shape);
            return fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
        }
    }
    fprintf(stderr, "usage: %s small|medium|large\n", argv[0]);
    return 2;
}
