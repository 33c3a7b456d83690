#ifndef OVELA_AUDIO_DEVICES_H
#define OVELA_AUDIO_DEVICES_H

#include <cstdint>

#include "Endpoint.h"
#include "Export.h"

namespace ovela {

/**
 * @file
 * The Android audio output device bits that every entry of a packed array
 * carries as its device word, telling the effect which output its values
 * apply to.
 */

constexpr int32_t kDeviceNone = 0x0;             ///< No device: the "other" endpoint.
constexpr int32_t kDeviceSpeaker = 0x2;          ///< The internal speaker.
constexpr int32_t kDeviceWiredHeadphone = 0x8;   ///< Wired headphones.
constexpr int32_t kDeviceBluetooth = 0x80;       ///< Bluetooth audio.
constexpr int32_t kDeviceAuxDigital = 0x400;     ///< Digital auxiliary output.
constexpr int32_t kDeviceUsb = 0x4000;           ///< USB audio.
constexpr int32_t kDeviceRemoteSubmix = 0x8000;  ///< Remote submix.
constexpr int32_t kDeviceAll = 0x40000000;       ///< Values that apply to every device.

/**
 * The device word of the values of `endpoint`: the bit of its output,
 * kDeviceNone for "other" and for a value outside 0 to 6.
 */
OVELA_EXPORT int32_t deviceForEndpoint(Endpoint endpoint);

}  // namespace ovela

#endif  // OVELA_AUDIO_DEVICES_H
