#include "StoreArrays.h"

#include <ovela/AudioDevices.h>
#include <ovela/ProfileParamParser.h>

#include <algorithm>
#include <cstdio>
#include <sstream>

#include "TuningFileVocabulary.h"

namespace ovela::tune {

std::optional<PackedArray> decodePackedArray(std::vector<uint8_t> bytes) {
    ProfileParamParser parser(bytes.data(), static_cast<int>(bytes.size()));
    if (!parser.validate() || !parser.begin()) {
        return std::nullopt;
    }
    PackedArray array{parser.getProfileId(), static_cast<uint32_t>(bytes.size()), {}};
    while (parser.next()) {
        const int32_t* values = parser.getValues();
        array.entries.push_back({parser.getDevice(), parser.getParamId(),
                                 std::vector<int32_t>(values, values + parser.getValueCount())});
    }
    return array;
}

std::optional<PackedArray> profileArray(ProfileParamArray& store, int profile) {
    std::vector<uint8_t> bytes(store.getProfileParamsSize(profile));
    if (bytes.empty() || store.getProfileParams(profile, bytes.data()) != 0) {
        return std::nullopt;
    }
    return decodePackedArray(std::move(bytes));
}

std::optional<PackedArray> tuningArray(ProfileParamArray& store, const std::string& tuning) {
    std::vector<uint8_t> bytes(store.getTuningParamsSize(tuning));
    if (bytes.empty() || store.getTuningParams(tuning, bytes.data()) != 0) {
        return std::nullopt;
    }
    return decodePackedArray(std::move(bytes));
}

std::vector<std::string> availableTunings(ProfileParamArray& store, Endpoint endpoint) {
    uint32_t length = store.getAvailableTuningDevicesLen(endpoint);
    // One more zeroed byte: the "default" answer comes without a terminator.
    std::vector<char> buffer(length + 1, '\0');
    store.getAvailableTuningDevices(endpoint, buffer.data(), static_cast<int>(length));
    std::vector<std::string> names;
    std::istringstream words(buffer.data());
    for (std::string name; std::getline(words, name, ' ');) {
        names.push_back(name);
    }
    return names;
}

std::vector<std::string> allTunings(ProfileParamArray& store) {
    std::vector<std::string> names;
    for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
        for (const std::string& name : availableTunings(store, static_cast<Endpoint>(endpoint))) {
            // A store never keeps an array under "default": that tuning
            // serves, inside the general array, every endpoint without a
            // tuning of its own.
            if (name != kDefaultTuningName &&
                std::find(names.begin(), names.end(), name) == names.end()) {
                names.push_back(name);
            }
        }
    }
    return names;
}

std::string deviceName(int32_t device) {
    if (device == kDeviceAll) {
        return "all";
    }
    for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
        if (deviceForEndpoint(static_cast<Endpoint>(endpoint)) == device) {
            return kEndpointNames[endpoint];
        }
    }
    char hex[16];
    std::snprintf(hex, sizeof(hex), "0x%x", static_cast<unsigned>(device));
    return hex;
}

std::optional<int32_t> deviceFromName(const std::string& name) {
    if (name == "all") {
        return kDeviceAll;
    }
    for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
        if (name == kEndpointNames[endpoint]) {
            return deviceForEndpoint(static_cast<Endpoint>(endpoint));
        }
    }
    if (name.rfind("0x", 0) == 0) {
        return static_cast<int32_t>(std::stoul(name, nullptr, 16));
    }
    return std::nullopt;
}

std::optional<KyrParameterId> codeFromText(const std::string& text) {
    if (text.empty() || text.size() > 4) {
        return std::nullopt;
    }
    uint32_t code = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        code |= static_cast<uint32_t>(static_cast<uint8_t>(text[i])) << (8 * i);
    }
    return static_cast<KyrParameterId>(code);
}

}  // namespace ovela::tune
