#include "General.h"

namespace ovela {

const std::set<Parameter> General::kValidParams = validParamsOf(EntityClass::GENERAL);

General::General() : ParameterValues(-1, true) {}

General::General(long long id) : ParameterValues(id, false) {}

long long General::getId() {
    return mId;
}

const std::set<Parameter>& General::getValidParams() {
    return kValidParams;
}

std::string General::toString() {
    return describe("");
}

bool General::equals(General& other) {
    return this == &other || sameValues(other);
}

}  // namespace ovela
