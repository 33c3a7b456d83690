#include "EntityValues.h"

namespace ovela {

const std::vector<int>& valuesOf(const ParameterValues& entity, Parameter param) {
    static const std::vector<int> kNoValues;
    auto found = entity.values.find(param);
    return found != entity.values.end() ? found->second : kNoValues;
}

}  // namespace ovela
