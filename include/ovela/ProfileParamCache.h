#ifndef OVELA_PROFILE_PARAM_CACHE_H
#define OVELA_PROFILE_PARAM_CACHE_H

#include <utils/KeyedVector.h>

#include <string>

#include "Endpoint.h"
#include "Export.h"
#include "KyrParameterId.h"
#include "OvlProfileId.h"

namespace ovela {

class IEffectKyr;

/**
 * Sends profiles and endpoint tunings from the process-wide store
 * (ProfileParamArray::getInstance()) to one effect instance, entry by entry
 * through IEffectKyr, and remembers what it sent so that a single parameter
 * can be resent.
 *
 * **One cache per effect instance.** It has no lock of its own: one thread at a
 * time uses it. Its calls take the singleton's lock to reach the store and the
 * store's mutex to copy an array, allocate a buffer for each array they send,
 * and call the effect on the calling thread: do not call them from a real-time
 * audio thread. The cache keeps no pointer to an effect beyond a call.
 *
 * **Each send reads the store anew**, so a send after a reload sends the
 * reloaded array. The tuning recorded for each endpoint, however, is chosen
 * once, when the cache is created, and changes only through
 * setEndpointTuning(): a cache created before the load that gives an
 * endpoint's own tuning keeps "default" for it.
 *
 * **Errors.** Calls return the effect's commit status when they sent
 * something, or a negated errno value: -22 (EINVAL) for a bad argument or an
 * array that does not validate, -12 (ENOMEM) when no buffer could be
 * allocated. Each failure is logged at error level under the tag
 * "OvlProfileParamCache".
 */
class OVELA_EXPORT ProfileParamCache {
  public:
    /**
     * Records for every endpoint the tuning of the endpoint's own name
     * ("speaker", "headphone", ...) when the store has one, else "default".
     * The first cache of a process creates the store, which loads the default
     * tuning file then.
     */
    ProfileParamCache();
    /** Forgets the recorded tunings; sends nothing. */
    ~ProfileParamCache();
    ProfileParamCache(const ProfileParamCache&) = delete;
    ProfileParamCache& operator=(const ProfileParamCache&) = delete;

    /**
     * Sends every entry of the array of `profile` and commits them once. For
     * -1, the general array, it then resends every endpoint's recorded
     * tuning with setEndpointTuning(), their results ignored. The profile
     * becomes the current one for resetParam() once the arguments are valid,
     * also when the send then fails.
     *
     * @param profile 0 to 9, or -1 for the general array.
     * @param effect The effect to send to; not null.
     * @return The effect's commit status; -22 for a profile outside -1 to 9, a
     *     null effect or an array that does not validate; -12.
     */
    int setProfile(OvlProfileId profile, IEffectKyr* effect);

    /**
     * Records `tuning` for `endpoint` and sends the entries of its array, then
     * commits them once.
     *
     * The name is checked against the endpoint's list
     * (ProfileParamArray::getAvailableTuningDevices()) by a plain substring
     * search: a name that is part of a longer listed name passes, and so does
     * "default" for an endpoint without tunings. The name is recorded before
     * the send and stays recorded when the send fails. An unchanged name is
     * not sent again when `skipIfUnchanged` is set or the name is "default";
     * a change to "default" fails the send with -22, since the general array
     * carries the default tuning: send profile -1 for it.
     *
     * @param endpoint The endpoint; a value outside 0 to 6 is refused.
     * @param tuning A tuning name that the store lists for `endpoint`.
     * @param effect The effect to send to; not null.
     * @param skipIfUnchanged Whether to send nothing when `tuning` is the name
     *     already recorded.
     * @return The effect's commit status; 0 when nothing was sent; -22 for an
     *     unknown endpoint, a null effect, a name not listed for the endpoint
     *     or an array that does not validate; -12.
     */
    int setEndpointTuning(Endpoint endpoint, std::string tuning, IEffectKyr* effect,
                          bool skipIfUnchanged);

    /**
     * Copies the tuning name recorded for `endpoint` into `out`, without a
     * terminating NUL and at most `len` bytes. Copies nothing for an unknown
     * endpoint, a null `out` or a `len` of 0 or less.
     */
    void getEndpointTuning(Endpoint endpoint, void* out, int len);

    /**
     * Resends `param` as the current profile's array holds it: every entry of
     * that code, then one commit, also when the profile has no such entry.
     * The living room and concert hall headphone rendering configurations
     * ("vrcr", "vrch") are resent under the headphone rendering
     * configuration's code ("hvrc").
     *
     * @param param The code to resend.
     * @param effect The effect to send to; not null.
     * @return The effect's commit status; -22 for a null effect or an array
     *     that does not validate; -12.
     */
    int resetParam(KyrParameterId param, IEffectKyr* effect);

  private:
    OvlProfileId mProfile;
    android::DefaultKeyedVector<Endpoint, std::string> mEndpointTunings;
};

}  // namespace ovela

#endif  // OVELA_PROFILE_PARAM_CACHE_H
