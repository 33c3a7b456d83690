#ifndef OVELA_FUZZ_SUPPORT_H
#define OVELA_FUZZ_SUPPORT_H

#include <cstddef>
#include <cstdint>

namespace ovela::fuzz {

// Drops every log line of the library and every libxml2 parse message: a
// fuzzer meets malformed input on nearly every run, and printing it all would
// cost more than the run itself.
void silenceDiagnostics();

// What a walk over a packed array found.
struct ArrayWalk {
    bool valid;        // validate() accepted the array
    int32_t header;    // word 0, when begin() could read it
    int32_t count;     // the entry count of the header
    int32_t entries;   // entries that begin() and next() yielded
    size_t bytesUsed;  // header and yielded entries, in bytes
};

// Validates `size` bytes at `data` as a packed array and walks it from the
// start, reading every value of every entry. Aborts when an entry's values
// lie outside the buffer, or when validate() and the walk disagree.
ArrayWalk walkPackedArray(void* data, size_t size);

// Aborts with `what` on stderr unless `condition` holds.
void require(bool condition, const char* what);

}  // namespace ovela::fuzz

#endif  // OVELA_FUZZ_SUPPORT_H
