#ifndef OVELA_AUDIO_DEVICES_H
#define OVELA_AUDIO_DEVICES_H

#include <cstdint>

#include "Endpoint.h"

namespace ovela {

// Android audio output device bits that the effect expects in the device word
// of every packed entry.
constexpr int32_t kDeviceNone = 0x0;
constexpr int32_t kDeviceSpeaker = 0x2;
constexpr int32_t kDeviceWiredHeadphone = 0x8;
constexpr int32_t kDeviceBluetooth = 0x80;
constexpr int32_t kDeviceAuxDigital = 0x400;
constexpr int32_t kDeviceUsb = 0x4000;
constexpr int32_t kDeviceRemoteSubmix = 0x8000;
// Values that apply to every device.
constexpr int32_t kDeviceAll = 0x40000000;

// The device word of an endpoint's values ("other" has no device bit).
int32_t deviceForEndpoint(Endpoint endpoint);

}  // namespace ovela

#endif  // OVELA_AUDIO_DEVICES_H
