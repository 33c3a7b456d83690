#ifndef OVELA_ENDPOINT_H
#define OVELA_ENDPOINT_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "Export.h"

namespace ovela {

/**
 * An audio output endpoint that a tuning or a profile setting applies to.
 *
 * The type is fixed at 32 bits, so that any value an effect passes on (say,
 * one cast from a command) is a value of it: the library treats a value
 * outside 0 to 6 as an endpoint that it knows nothing of (no tunings, no
 * recorded tuning, "unknown" as its name), never as undefined behaviour.
 */
enum Endpoint : int32_t {
    ENDPOINT_SPEAKER = 0,        ///< The internal speaker, "speaker".
    ENDPOINT_HEADPHONE = 1,      ///< Wired headphones, "headphone".
    ENDPOINT_OTHER = 2,          ///< Any other output, "other"; it has no device bit.
    ENDPOINT_BLUETOOTH = 3,      ///< Bluetooth audio, "bluetooth".
    ENDPOINT_USB = 4,            ///< USB audio, "usb".
    ENDPOINT_AUX_DIGITAL = 5,    ///< Digital auxiliary output (HDMI), "aux_digital".
    ENDPOINT_REMOTE_SUBMIX = 6,  ///< Remote submix, "remote_submix".
};

/** The number of endpoints: their values are 0 to kNumEndpoints - 1. */
constexpr size_t kNumEndpoints = 7;

/** The print name of each endpoint, indexed by its value. */
OVELA_EXPORT extern const char* const kEndpointNames[kNumEndpoints];

/**
 * The print name of `endpoint`, as kEndpointNames gives it; "unknown" for a
 * value outside 0 to 6. The text is static: never free it.
 */
OVELA_EXPORT const char* endpointName(Endpoint endpoint);

/**
 * The endpoint whose print name is `name` (exact and case-sensitive), or
 * `fallback` for any other text.
 */
OVELA_EXPORT Endpoint endpointFromName(const std::string& name, Endpoint fallback);

}  // namespace ovela

#endif  // OVELA_ENDPOINT_H
