#ifndef OVELA_OVL_PROFILE_ID_H
#define OVELA_OVL_PROFILE_ID_H

#include <cstdint>

namespace ovela {

// Audio profile id as the store keys its arrays: 0 to 9 are the profiles of
// the tuning file, -1 is the general array.
using OvlProfileId = int32_t;

constexpr OvlProfileId kGeneralProfileId = -1;
constexpr OvlProfileId kFirstProfileId = 0;
constexpr OvlProfileId kLastProfileId = 9;

}  // namespace ovela

#endif  // OVELA_OVL_PROFILE_ID_H
