#include "Tuning.h"

#include <utility>

namespace ovela {

const std::set<Parameter> Tuning::kValidParams = {
    AUDIO_OPTIMIZER_ENABLE,
    AUDIO_OPTIMIZER_FREQUENCY,
    AUDIO_OPTIMIZER_GAIN_L,
    AUDIO_OPTIMIZER_GAIN_LS,
    AUDIO_OPTIMIZER_GAIN_R,
    AUDIO_OPTIMIZER_GAIN_RS,
    BASS_ENHANCER_BOOST,
    BASS_ENHANCER_CUTOFF_FREQUENCY,
    BASS_ENHANCER_WIDTH,
    BASS_EXTRACTION_CUTOFF_FREQUENCY,
    BASS_EXTRACTION_ENABLE,
    COMPLEX_EQUALIZER_ENABLE,
    COMPLEX_EQUALIZER_TUNING_LEFT,
    COMPLEX_EQUALIZER_TUNING_LEFT_SURROUND,
    COMPLEX_EQUALIZER_TUNING_RIGHT,
    COMPLEX_EQUALIZER_TUNING_RIGHT_SURROUND,
    HEIGHT_FILTER_MODE,
    ORIENTATION,
    OUTPUT_CHANNELS,
    OUTPUT_MIX_MATRIX,
    REGULATOR_DISTORTION_SLOPE,
    REGULATOR_ENABLE,
    REGULATOR_FREQUENCY,
    REGULATOR_ISOLATED_BAND,
    REGULATOR_OVERDRIVE,
    REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT,
    REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT_SURROUND,
    REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT,
    REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT_SURROUND,
    REGULATOR_SIBILANCE_SUPPRESS_ENABLE,
    REGULATOR_SPEAKER_DIST_ENABLE,
    REGULATOR_STRESS_AMOUNT,
    REGULATOR_THRESHOLD_HIGH,
    REGULATOR_THRESHOLD_LOW,
    REGULATOR_TIMBRE_PRESERVATION,
    VIRTUAL_BASS_MIX_FREQ_HIGH,
    VIRTUAL_BASS_MIX_FREQ_LOW,
    VIRTUAL_BASS_MODE,
    VIRTUAL_BASS_OVERALL_GAIN,
    VIRTUAL_BASS_SLOPE_GAIN,
    VIRTUAL_BASS_SRC_FREQ_HIGH,
    VIRTUAL_BASS_SRC_FREQ_LOW,
    VIRTUAL_BASS_SUBGAINS,
    VIRTUALIZER_FRONT_SPEAKER_ANGLE,
    VIRTUALIZER_HEIGHT_SPEAKER_ANGLE,
    VIRTUALIZER_SURROUND_SPEAKER_ANGLE,
    VOLUME_LEVELER_COMPRESSOR_ENABLE,
    VOLUME_MODELER_CALIBRATION,
};

const std::map<std::string, Endpoint> Tuning::kEndpNameToEndpoint = {
    {"speaker", ENDPOINT_SPEAKER},
    {"headphone", ENDPOINT_HEADPHONE},
    {"other", ENDPOINT_OTHER},
};

Tuning::Tuning(std::string name, Endpoint endpoint, bool mono)
    : Tuning(-1, std::move(name), endpoint, mono, true) {
    mDirty = true;
}

Tuning::Tuning(long long id, std::string name, Endpoint endpoint, bool mono, bool readonly)
    : ParameterValues(id, false),
      mName(std::move(name)),
      mEndpoint(endpoint),
      mMono(mono),
      mReadonly(readonly) {}

long long Tuning::getId() {
    return mId;
}

const std::set<Parameter>& Tuning::getValidParams() {
    return kValidParams;
}

std::string Tuning::getName() {
    return mName;
}

Endpoint Tuning::getEndpoint() {
    return mEndpoint;
}

bool Tuning::isMono() {
    return mMono;
}

bool Tuning::isReadonly() {
    return mReadonly;
}

void Tuning::setMono(bool mono) {
    mMono = mono;
}

void Tuning::setEndpoint(std::string name) {
    auto found = kEndpNameToEndpoint.find(name);
    if (found != kEndpNameToEndpoint.end()) {
        mEndpoint = found->second;
    }
}

std::string Tuning::toString() {
    return describe("name=" + mName + "\nendpoint=" + endpointName(mEndpoint) +
                    "\nmono=" + (mMono ? "true" : "false") +
                    "\nreadonly=" + (mReadonly ? "true" : "false") + "\n");
}

}  // namespace ovela
