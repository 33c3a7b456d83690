#ifndef OVELA_PROFILE_PARAM_CACHE_H
#define OVELA_PROFILE_PARAM_CACHE_H

#include <utils/KeyedVector.h>

#include <string>

#include "Endpoint.h"
#include "KyrParameterId.h"
#include "OvlProfileId.h"

namespace ovela {

class IEffectKyr;

// Sends profiles and endpoint tunings from the process-wide store to one
// effect instance, and remembers what it sent so that single parameters can be
// restored. One cache serves one effect instance; it has no lock of its own.
class ProfileParamCache {
  public:
    // Records for every endpoint the tuning of the endpoint's own name when
    // the store has one, else "default".
    ProfileParamCache();
    ~ProfileParamCache();

    // Sends the array of `profile` (-1 to 9) and commits it; for -1, the
    // general array, it then resends every endpoint's recorded tuning.
    // Returns the effect's commit status, or -22.
    int setProfile(OvlProfileId profile, IEffectKyr* effect);

    // Sends `tuning` for `endpoint` if the store lists it for that endpoint
    // and records it. An unchanged name is not sent again when
    // `skipIfUnchanged` is set or the name is "default". Returns the effect's
    // commit status, 0 when nothing was sent, or -22 / -12.
    int setEndpointTuning(Endpoint endpoint, std::string tuning, IEffectKyr* effect,
                          bool skipIfUnchanged);

    // Copies the endpoint's recorded tuning name into `out`, without a NUL
    // and at most `len` bytes.
    void getEndpointTuning(Endpoint endpoint, void* out, int len);

    // Resends `param` as the current profile's array holds it; the living
    // room and concert hall headphone rendering configurations are resent as
    // the headphone rendering configuration. Commits even when the profile
    // lacks `param`.
    int resetParam(KyrParameterId param, IEffectKyr* effect);

  private:
    OvlProfileId mProfile;
    android::DefaultKeyedVector<Endpoint, std::string> mEndpointTunings;
};

}  // namespace ovela

#endif  // OVELA_PROFILE_PARAM_CACHE_H
