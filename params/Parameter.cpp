#include "Parameter.h"

namespace ovela {

std::set<Parameter> validParamsOf(EntityClass entity) {
    std::set<Parameter> valid;
    for (const ParameterRow& row : kParameterRows) {
        if (row.validIn == entity) {
            valid.insert(row.parameter);
        }
    }
    return valid;
}

}  // namespace ovela
