#include "GeqPreset.h"

namespace ovela {

const std::set<Parameter> GeqPreset::kValidParams = validParamsOf(EntityClass::GEQ_PRESET);

GeqPreset::GeqPreset(int profileId) : ParameterValues(-1, true), mProfileId(profileId) {}

GeqPreset::GeqPreset(long long id, int profileId)
    : ParameterValues(id, false), mProfileId(profileId) {}

long long GeqPreset::getId() {
    return mId;
}

const std::set<Parameter>& GeqPreset::getValidParams() {
    return kValidParams;
}

int GeqPreset::getProfileId() {
    return mProfileId;
}

std::string GeqPreset::toString() {
    return describe("profileId=" + std::to_string(mProfileId) + "\n");
}

bool GeqPreset::equals(GeqPreset& other) {
    return this == &other || (mProfileId == other.mProfileId && sameValues(other));
}

}  // namespace ovela
