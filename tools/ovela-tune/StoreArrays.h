#ifndef OVELA_TUNE_STORE_ARRAYS_H
#define OVELA_TUNE_STORE_ARRAYS_H

#include <ovela/Endpoint.h>
#include <ovela/KyrParameterId.h>
#include <ovela/ProfileParamArray.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What a store hands out, read through its queries and decoded.
namespace ovela::tune {

struct PackedEntry {
    int32_t device;
    KyrParameterId code;
    std::vector<int32_t> values;
};

// A packed array as the store hands it out, decoded entry by entry.
struct PackedArray {
    int32_t header;  // profile id, -1 for the general array, or a tuning's ordinal
    uint32_t size;   // bytes
    std::vector<PackedEntry> entries;
};

// Decodes `bytes`; nothing when the array does not validate.
std::optional<PackedArray> decodePackedArray(std::vector<uint8_t> bytes);

std::optional<PackedArray> profileArray(ProfileParamArray& store, int profile);
std::optional<PackedArray> tuningArray(ProfileParamArray& store, const std::string& tuning);

// The tunings that `endpoint` can select, as the store lists them: "default"
// alone for an endpoint without tunings of its own.
std::vector<std::string> availableTunings(ProfileParamArray& store, Endpoint endpoint);

// Every tuning that the store keeps an array for, each once, by endpoint and
// then as listed.
std::vector<std::string> allTunings(ProfileParamArray& store);

// "all" for the every-device word, an endpoint's name for its device bits,
// else the word in hexadecimal.
std::string deviceName(int32_t device);
// The inverse of deviceName(); nothing for an unknown name.
std::optional<int32_t> deviceFromName(const std::string& name);

// The inverse of kyrCodeText(); nothing for text that is not 1 to 4 characters.
std::optional<KyrParameterId> codeFromText(const std::string& text);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_STORE_ARRAYS_H
