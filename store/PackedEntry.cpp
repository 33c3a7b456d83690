#include "PackedEntry.h"

#include <algorithm>

namespace ovela {

size_t valueCount(std::initializer_list<ValueRun> runs) {
    size_t count = 0;
    for (const ValueRun& run : runs) {
        count += run.size;
    }
    return count;
}

size_t writeEntry(int32_t* out, int32_t device, KyrParameterId code,
                  std::initializer_list<ValueRun> runs) {
    const size_t count = valueCount(runs);
    out[0] = device;
    out[1] = code;
    out[2] = static_cast<int32_t>(count);
    int32_t* values = out + kEntryHeaderWords;
    for (const ValueRun& run : runs) {
        values = std::copy(run.data, run.data + run.size, values);
    }
    return kEntryHeaderWords + count;
}

}  // namespace ovela
