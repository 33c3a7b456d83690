#ifndef OVELA_ENTRY_NAMES_H
#define OVELA_ENTRY_NAMES_H

#include <string>
#include <vector>

#include "KyrParameterId.h"
#include "Parameter.h"

namespace ovela {

// What a tuning file calls the values that an entry of `code` carries: the
// one parameter or the several of a shared or composite code, in the order
// of the entry ("dom": virtualizer-enable, mix_matrix, advanced_mix_matrix).
// Empty for a code that the store never writes.
std::vector<std::string> entryNamesOf(KyrParameterId code);

// The codes of the entries that carry the values of `parameter`: its own
// code, the composite entries it is a part of, or none when the effect never
// receives it.
std::vector<KyrParameterId> entryCodesOf(Parameter parameter);

}  // namespace ovela

#endif  // OVELA_ENTRY_NAMES_H
