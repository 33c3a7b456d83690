#ifndef OVELA_PACKED_ENTRY_H
#define OVELA_PACKED_ENTRY_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "KyrParameterId.h"

// The one writer of packed entries; not part of the library's interface.
namespace ovela {

// An array starts with its profile id (or tuning ordinal) and its entry count.
constexpr size_t kArrayHeaderWords = 2;
// An entry starts with its device word, its code and its value count.
constexpr size_t kEntryHeaderWords = 3;

// A run of values that an entry is made of, without owning them.
struct ValueRun {
    ValueRun(const int32_t* values, size_t count) : data(values), size(count) {}
    ValueRun(const std::vector<int32_t>& values) : data(values.data()), size(values.size()) {}
    template <size_t N>
    ValueRun(const int32_t (&values)[N]) : data(values), size(N) {}

    const int32_t* data;
    size_t size;
};

// The values of an entry made of several runs, in order.
size_t valueCount(std::initializer_list<ValueRun> runs);

// Writes one entry at `out`: the device word, the code, the value count and
// the values of every run; returns the words written. `out` has room.
size_t writeEntry(int32_t* out, int32_t device, KyrParameterId code,
                  std::initializer_list<ValueRun> runs);

}  // namespace ovela

#endif  // OVELA_PACKED_ENTRY_H
