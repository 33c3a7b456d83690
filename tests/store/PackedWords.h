#ifndef OVELA_TESTS_PACKED_WORDS_H
#define OVELA_TESTS_PACKED_WORDS_H

#include <algorithm>
#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <tuple>
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

// The entries of the packed array `words`, read without the library's
// parser; an entry cut short ends the list.
inline std::vector<Entry> entriesOf(const std::vector<int32_t>& words) {
    std::vector<Entry> entries;
    size_t at = 2;
    for (int32_t i = 0; words.size() >= 2 && i < words[1] && at + 3 <= words.size(); ++i) {
        size_t count = static_cast<size_t>(words[at + 2]);
        if (words.size() - (at + 3) < count) {
            break;
        }
        entries.push_back(
            {words[at], words[at + 1],
             std::vector<int32_t>(words.begin() + at + 3, words.begin() + at + 3 + count)});
        at += 3 + count;
    }
    return entries;
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

// The bytes that the store writes as the endpoint's list of tunings, in a
// buffer of the length it asks for, first filled with `fill`.
inline std::string tuningList(ProfileParamArray& store, Endpoint endpoint, char fill = '\0') {
    std::string list(store.getAvailableTuningDevicesLen(endpoint), fill);
    store.getAvailableTuningDevices(endpoint, list.data(), static_cast<int>(list.size()));
    return list;
}

// The names in the endpoint's list: blank-separated up to the NUL, or the
// seven characters "default" when it has no tunings.
inline std::vector<std::string> tuningNames(ProfileParamArray& store, Endpoint endpoint) {
    const std::string list = tuningList(store, endpoint);
    std::vector<std::string> names;
    const size_t end = std::min(list.find('\0'), list.size());
    for (size_t start = 0; start <= end;) {
        const size_t blank = std::min(list.find(' ', start), end);
        names.push_back(list.substr(start, blank - start));
        start = blank + 1;
    }
    return names;
}

// Everything that the store hands out: each profile array, each listed
// tuning's array, and each endpoint's list of tunings.
struct Snapshot {
    std::map<std::string, std::vector<int32_t>> arrays;
    std::map<std::string, std::vector<std::string>> tunings;

    bool operator==(const Snapshot& other) const {
        return arrays == other.arrays && tunings == other.tunings;
    }
};

inline void PrintTo(const Snapshot& snapshot, std::ostream* out) {
    for (const auto& [what, words] : snapshot.arrays) {
        *out << what << ": " << words.size() << " words; ";
    }
}

inline Snapshot snapshotOf(ProfileParamArray& store) {
    Snapshot snapshot;
    for (OvlProfileId id = kGeneralProfileId; id <= kLastProfileId; ++id) {
        snapshot.arrays["profile " + std::to_string(id)] = profileWords(store, id);
    }
    for (size_t index = 0; index < kNumEndpoints; ++index) {
        const auto endpoint = static_cast<Endpoint>(index);
        snapshot.tunings[kEndpointNames[index]] = tuningNames(store, endpoint);
        for (const std::string& name : tuningNames(store, endpoint)) {
            snapshot.arrays["tuning " + name] = tuningWords(store, name);
        }
    }
    return snapshot;
}

}  // namespace ovela::testing

#endif  // OVELA_TESTS_PACKED_WORDS_H
