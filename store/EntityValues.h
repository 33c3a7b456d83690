#ifndef OVELA_ENTITY_VALUES_H
#define OVELA_ENTITY_VALUES_H

#include <vector>

#include "ParameterValues.h"

namespace ovela {

// The values that `entity` holds for `param`, or an empty list. Unlike a
// subscript of the map it never inserts anything into the entity.
const std::vector<int>& valuesOf(const ParameterValues& entity, Parameter param);

}  // namespace ovela

#endif  // OVELA_ENTITY_VALUES_H
