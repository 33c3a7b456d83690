#include "Endpoint.h"

namespace ovela {

const char* const kEndpointNames[kNumEndpoints] = {
    "speaker", "headphone", "other", "bluetooth", "usb", "aux_digital", "remote_submix",
};

const char* endpointName(Endpoint endpoint) {
    const auto index = static_cast<size_t>(endpoint);
    return index < kNumEndpoints ? kEndpointNames[index] : "unknown";
}

Endpoint endpointFromName(const std::string& name, Endpoint fallback) {
    for (size_t i = 0; i < kNumEndpoints; ++i) {
        if (name == kEndpointNames[i]) {
            return static_cast<Endpoint>(i);
        }
    }
    return fallback;
}

}  // namespace ovela
