#include "DeviceTypes.h"

namespace ovela {

const std::map<std::string, Endpoint> kDeviceTypeToEndpoint = {
    {"internal_speaker", ENDPOINT_SPEAKER},
    {"headphone", ENDPOINT_HEADPHONE},
    {"bluetooth", ENDPOINT_HEADPHONE},
    {"usb", ENDPOINT_HEADPHONE},
    {"hdmi", ENDPOINT_OTHER},
    {"miracast", ENDPOINT_OTHER},
    {"other", ENDPOINT_OTHER},
};

}  // namespace ovela
