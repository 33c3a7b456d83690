#include "ProfileEndpoint.h"

namespace ovela {

const std::set<Parameter> ProfileEndpoint::kValidParams =
    validParamsOf(EntityClass::PROFILE_ENDPOINT);

ProfileEndpoint::ProfileEndpoint(int profileId, Endpoint endpoint)
    : ParameterValues(-1, true), mProfileId(profileId), mEndpoint(endpoint) {}

ProfileEndpoint::ProfileEndpoint(long long id, int profileId, Endpoint endpoint)
    : ParameterValues(id, false), mProfileId(profileId), mEndpoint(endpoint) {}

long long ProfileEndpoint::getId() {
    return mId;
}

const std::set<Parameter>& ProfileEndpoint::getValidParams() {
    return kValidParams;
}

int ProfileEndpoint::getProfileId() {
    return mProfileId;
}

Endpoint ProfileEndpoint::getEndpoint() {
    return mEndpoint;
}

std::string ProfileEndpoint::toString() {
    return describe("profileId=" + std::to_string(mProfileId) +
                    "\nendpoint=" + endpointName(mEndpoint) + "\n");
}

bool ProfileEndpoint::equals(ProfileEndpoint& other) {
    return this == &other ||
           (mEndpoint == other.mEndpoint && mProfileId == other.mProfileId && sameValues(other));
}

}  // namespace ovela
