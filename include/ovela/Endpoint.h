#ifndef OVELA_ENDPOINT_H
#define OVELA_ENDPOINT_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace ovela {

// Audio output endpoints that a tuning or a profile setting applies to. The
// type is fixed, so that any 32-bit value an effect passes on (say, from a
// command) is a value of it; the library treats one outside 0 to 6 as an
// endpoint it knows nothing of.
enum Endpoint : int32_t {
    ENDPOINT_SPEAKER = 0,
    ENDPOINT_HEADPHONE = 1,
    ENDPOINT_OTHER = 2,
    ENDPOINT_BLUETOOTH = 3,
    ENDPOINT_USB = 4,
    ENDPOINT_AUX_DIGITAL = 5,
    ENDPOINT_REMOTE_SUBMIX = 6,
};

constexpr size_t kNumEndpoints = 7;

// Print name of each endpoint, indexed by its value.
extern const char* const kEndpointNames[kNumEndpoints];

// The print name of `endpoint`; "unknown" for a value outside 0 to 6.
const char* endpointName(Endpoint endpoint);

// Looks `name` up among the print names (exact, case-sensitive); returns
// `fallback` for any other text. The readers differ only in their fallback.
Endpoint endpointFromName(const std::string& name, Endpoint fallback);

}  // namespace ovela

#endif  // OVELA_ENDPOINT_H
