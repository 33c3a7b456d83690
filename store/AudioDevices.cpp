#include "AudioDevices.h"

namespace ovela {

namespace {

constexpr int32_t kEndpointDevices[kNumEndpoints] = {
    kDeviceSpeaker,         // ENDPOINT_SPEAKER
    kDeviceWiredHeadphone,  // ENDPOINT_HEADPHONE
    kDeviceNone,            // ENDPOINT_OTHER
    kDeviceBluetooth,       // ENDPOINT_BLUETOOTH
    kDeviceUsb,             // ENDPOINT_USB
    kDeviceAuxDigital,      // ENDPOINT_AUX_DIGITAL
    kDeviceRemoteSubmix,    // ENDPOINT_REMOTE_SUBMIX
};

}  // namespace

int32_t deviceForEndpoint(Endpoint endpoint) {
    size_t index = static_cast<size_t>(endpoint);
    return index < kNumEndpoints ? kEndpointDevices[index] : kDeviceNone;
}

}  // namespace ovela
