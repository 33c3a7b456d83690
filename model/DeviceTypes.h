#ifndef OVELA_DEVICE_TYPES_H
#define OVELA_DEVICE_TYPES_H

#include <map>
#include <string>

#include "Endpoint.h"

namespace ovela {

// How physical device types fold into the three tuning endpoints: Bluetooth
// and USB audio are tuned as headphones, HDMI and wireless display as "other".
extern const std::map<std::string, Endpoint> kDeviceTypeToEndpoint;

}  // namespace ovela

#endif  // OVELA_DEVICE_TYPES_H
