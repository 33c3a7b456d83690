#ifndef OVELA_ENTRY_NAMES_H
#define OVELA_ENTRY_NAMES_H

#include <string>
#include <vector>

#include "KyrParameterId.h"
#include "Parameter.h"

namespace ovela {

// The codes of the entries that carry the values of `parameter`: its own
// code, the composite entries it is a part of, or none when the effect never
// receives it.
std::vector<KyrParameterId> entryCodesOf(Parameter parameter);

}  // namespace ovela

#endif  // OVELA_ENTRY_NAMES_H
