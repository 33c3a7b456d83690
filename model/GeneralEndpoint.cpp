#include "GeneralEndpoint.h"

namespace ovela {

const std::set<Parameter> GeneralEndpoint::kValidParams =
    validParamsOf(EntityClass::GENERAL_ENDPOINT);

GeneralEndpoint::GeneralEndpoint(Endpoint endpoint)
    : ParameterValues(-1, true), mEndpoint(endpoint) {}

GeneralEndpoint::GeneralEndpoint(long long id, Endpoint endpoint)
    : ParameterValues(id, false), mEndpoint(endpoint) {}

long long GeneralEndpoint::getId() {
    return mId;
}

const std::set<Parameter>& GeneralEndpoint::getValidParams() {
    return kValidParams;
}

Endpoint GeneralEndpoint::getEndpoint() {
    return mEndpoint;
}

std::string GeneralEndpoint::toString() {
    return describe(std::string("endpoint=") + endpointName(mEndpoint) + "\n");
}

bool GeneralEndpoint::equals(GeneralEndpoint& other) {
    return this == &other || (mEndpoint == other.mEndpoint && sameValues(other));
}

}  // namespace ovela
