#ifndef OVELA_RECORDED_TUNING_H
#define OVELA_RECORDED_TUNING_H

#include <string>

#include "Endpoint.h"

namespace ovela {

class ProfileParamArray;

// The tuning that a cache records for `endpoint` when it starts: the one of
// the endpoint's own name when the store holds an array under that name, else
// the default tuning.
std::string recordedTuning(ProfileParamArray& store, Endpoint endpoint);

}  // namespace ovela

#endif  // OVELA_RECORDED_TUNING_H
