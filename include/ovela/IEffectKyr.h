#ifndef OVELA_IEFFECT_KYR_H
#define OVELA_IEFFECT_KYR_H

#include "Export.h"
#include "KyrParameterId.h"

namespace ovela {

/**
 * What a ProfileParamCache needs of a running effect instance, which
 * implements it: the cache sends the entries of a packed array one by one,
 * in array order, then commits them as one batch.
 *
 * The cache calls these on the thread that called the cache, never from a
 * thread of its own, and never while it holds a lock of the store.
 */
class OVELA_EXPORT IEffectKyr {
  public:
    virtual ~IEffectKyr() = default;
    /**
     * One entry of a packed array.
     *
     * @param device The entry's device word (AudioDevices.h).
     * @param code The entry's parameter code.
     * @param values The entry's values. They belong to the cache and stay
     *     valid only until this call returns: copy what you keep.
     * @param count The number of values, 0 or more.
     */
    virtual void setParameter(int device, KyrParameterId code, const int* values, int count) = 0;
    /**
     * Applies the entries sent since the last commit, as one batch.
     *
     * @param device Always kDeviceAll.
     * @return The effect's status, which the cache hands back to its caller.
     */
    virtual int commitParameters(int device) = 0;
};

}  // namespace ovela

#endif  // OVELA_IEFFECT_KYR_H
