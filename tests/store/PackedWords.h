#ifndef OVELA_TESTS_PACKED_WORDS_H
#define OVELA_TESTS_PACKED_WORDS_H

#include <cstdint>
#include <string>
#include <vector>

#include "KyrParameterId.h"
#include "ProfileParamArray.h"

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

// The arrays as the store hands them out, word by word; empty when unknown.
inline std::vector<int32_t> profileWords(ProfileParamArray& store, OvlProfileId profile) {
    std::vector<int32_t> words(store.getProfileParamsSize(profile) / sizeof(int32_t));
    store.getProfileParams(profile, words.data());
    return words;
}

inline std::vector<int32_t> tuningWords(ProfileParamArray& store, const std::string& tuning) {
    std::vector<int32_t> words(store.getTuningParamsSize(tuning) / sizeof(int32_t));
    store.getTuningParams(tuning, words.data());
    return words;
}

}  // namespace ovela::testing

#endif  // OVELA_TESTS_PACKED_WORDS_H
