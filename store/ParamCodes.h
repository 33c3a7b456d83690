#ifndef OVELA_PARAM_CODES_H
#define OVELA_PARAM_CODES_H

#include "KyrParameterId.h"
#include "Parameter.h"

namespace ovela {

// Effect parameter code of each parameter, indexed by its value; 0 for the
// parameters that the effect only receives inside composite entries. This is
// the one place where a Parameter meets its effect code.
extern const KyrParameterId kParameterCodes[kNumParameters];

}  // namespace ovela

#endif  // OVELA_PARAM_CODES_H
