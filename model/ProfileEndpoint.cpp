#include "ProfileEndpoint.h"

namespace ovela {

const std::set<Parameter> ProfileEndpoint::kValidParams = {
    BASS_ENHANCER_ENABLE,
    CALIBRATION_BOOST,
    DIALOG_ENHANCER_AMOUNT,
    DIALOG_ENHANCER_DUCKING,
    DIALOG_ENHANCER_ENABLE,
    GRAPHIC_EQUALIZER_ENABLE,
    MI_VIRTUALIZER_BINAURAL_STEERING_ENABLE,
    PEAK_VALUE,
    SURROUND_BOOST,
    SURROUND_DECODER_ENABLE,
    VIRTUAL_BASS_ENABLE,
    VIRTUALIZER_ENABLE,
    VOLMAX_BOOST,
    VOLUME_LEVELER_AMOUNT,
    VOLUME_LEVELER_ENABLE,
    VOLUME_LEVELER_IN_TARGET,
    VOLUME_LEVELER_OUT_TARGET,
};

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
