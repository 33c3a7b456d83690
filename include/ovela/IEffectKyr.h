#ifndef OVELA_IEFFECT_KYR_H
#define OVELA_IEFFECT_KYR_H

#include "KyrParameterId.h"

namespace ovela {

// What the cache needs of a running effect instance: it sends the entries of a
// packed array one by one, then commits them as one batch.
class IEffectKyr {
  public:
    virtual ~IEffectKyr() = default;
    virtual void setParameter(int device, KyrParameterId code, const int* values, int count) = 0;
    // Returns the effect's status, which the cache hands back to its caller.
    virtual int commitParameters(int device) = 0;
};

}  // namespace ovela

#endif  // OVELA_IEFFECT_KYR_H
