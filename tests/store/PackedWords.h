#ifndef OVELA_TESTS_PACKED_WORDS_H
#define OVELA_TESTS_PACKED_WORDS_H

#include <cstdint>
#include <vector>

#include "KyrParameterId.h"

namespace ovela::testing {

// One entry of a packed array as a test writes it out by hand.
struct Entry {
    int32_t device;
    KyrParameterId code;
    std::vector<int32_t> values;

    bool operator==(const Entry& other) const {
        return device == other.device && code == other.code && values == other.values;
    }
};

// The words of a packed array: `header`, the entry count, then the entries.
inline std::vector<int32_t> packed(int32_t header, const std::vector<Entry>& entries) {
    std::vector<int32_t> words = {header, static_cast<int32_t>(entries.size())};
    for (const Entry& entry : entries) {
        words.push_back(entry.device);
        words.push_back(entry.code);
        words.push_back(static_cast<int32_t>(entry.values.size()));
        words.insert(words.end(), entry.values.begin(), entry.values.end());
    }
    return words;
}

}  // namespace ovela::testing

#endif  // OVELA_TESTS_PACKED_WORDS_H
