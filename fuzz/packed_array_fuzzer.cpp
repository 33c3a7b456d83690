// Arbitrary bytes as a packed parameter array: whatever they hold, the reader
// stays inside them, and validate() accepts exactly the arrays whose counted
// entries can all be walked (both checked by walkPackedArray).

#include <cstddef>
#include <cstdint>
#include <vector>

#include "FuzzSupport.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    ovela::fuzz::silenceDiagnostics();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // The reader takes a length in int; larger arrays never reach it.
    if (size > INT32_MAX) {
        return 0;
    }
    // A copy of the exact size, so that AddressSanitizer sees any read past it.
    std::vector<uint8_t> array(data, data + size);
    ovela::fuzz::walkPackedArray(array.data(), array.size());
    return 0;
}
