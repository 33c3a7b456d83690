#ifndef OVELA_OVL_PROFILE_ID_H
#define OVELA_OVL_PROFILE_ID_H

#include <cstdint>

namespace ovela {

/**
 * An audio profile id as the store keys its arrays: 0 to 9 are the profiles of
 * the tuning file, -1 is the general array. Other values name no array.
 */
using OvlProfileId = int32_t;

/** The id of the general array: the general settings and the default tuning. */
constexpr OvlProfileId kGeneralProfileId = -1;
/** The first profile of a tuning file. */
constexpr OvlProfileId kFirstProfileId = 0;
/** The last profile of a tuning file. */
constexpr OvlProfileId kLastProfileId = 9;

}  // namespace ovela

#endif  // OVELA_OVL_PROFILE_ID_H
