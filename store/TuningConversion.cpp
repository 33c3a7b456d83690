#define LOG_TAG "OvlProfileParamArray"

#include "TuningConversion.h"

#include <log/log.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "ArrayBuilder.h"
#include "AudioDevices.h"
#include "EntityValues.h"
#include "ParamTables.h"
#include "SpeakerData.h"
#include "Tuning.h"

namespace ovela {

namespace {

constexpr char kSpeakerTuningName[] = "speaker";
// The composite entries carry the channel count of their stereo pair.
constexpr int kStereoChannels = 2;
// The effect takes six sibilance bands per side; a five-band file is padded
// with a leading 0 on each side.
constexpr size_t kFileSibilanceBands = 5;

void appendAll(std::vector<int>& to, const std::vector<int>& from) {
    to.insert(to.end(), from.begin(), from.end());
}

// True when every list holds values and all hold the same number of them.
bool sameBandCount(std::initializer_list<const std::vector<int>*> lists) {
    size_t bands = (*lists.begin())->size();
    for (const std::vector<int>* list : lists) {
        if (list->empty() || list->size() != bands) {
            return false;
        }
    }
    return true;
}

void appendComplexEqualizer(ArrayBuilder& builder, int32_t device, const Tuning& tuning) {
    const std::vector<int>& left = valuesOf(tuning, COMPLEX_EQUALIZER_TUNING_LEFT);
    const std::vector<int>& right = valuesOf(tuning, COMPLEX_EQUALIZER_TUNING_RIGHT);
    if (!sameBandCount({&left, &right})) {
        return;
    }
    std::vector<int> values = {kStereoChannels, static_cast<int>(left.size())};
    appendAll(values, left);
    appendAll(values, right);
    builder.append(device, kyrCode("ceqt"), values);
}

void appendSibilanceSuppression(ArrayBuilder& builder, int32_t device, const Tuning& tuning) {
    const std::vector<int>& left = valuesOf(tuning, REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT);
    const std::vector<int>& right = valuesOf(tuning, REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT);
    if (!sameBandCount({&left, &right})) {
        return;
    }
    bool padded = left.size() == kFileSibilanceBands;
    std::vector<int> values = {kStereoChannels, static_cast<int>(left.size() + (padded ? 1 : 0))};
    for (const std::vector<int>* side : {&left, &right}) {
        if (padded) {
            values.push_back(0);
        }
        appendAll(values, *side);
    }
    builder.append(device, kyrCode("rssa"), values);
}

void appendAudioOptimizer(ArrayBuilder& builder, int32_t device, const Tuning& tuning) {
    const std::vector<int>& frequencies = valuesOf(tuning, AUDIO_OPTIMIZER_FREQUENCY);
    const std::vector<int>& left = valuesOf(tuning, AUDIO_OPTIMIZER_GAIN_L);
    const std::vector<int>& right = valuesOf(tuning, AUDIO_OPTIMIZER_GAIN_R);
    if (!sameBandCount({&frequencies, &left, &right})) {
        return;
    }
    // Here the effect wants the band count before the channel count.
    std::vector<int> values = {static_cast<int>(frequencies.size()), kStereoChannels};
    appendAll(values, frequencies);
    appendAll(values, left);
    appendAll(values, right);
    builder.append(device, kyrCode("aobs"), values);
}

// Sent in addition to the plain "arsa" entry of the same values: the effect
// reads the channel count from this one.
void appendRegulatorStress(ArrayBuilder& builder, int32_t device, const Tuning& tuning) {
    const std::vector<int>& stress = valuesOf(tuning, REGULATOR_STRESS_AMOUNT);
    if (stress.empty()) {
        return;
    }
    std::vector<int> values = {kStereoChannels};
    appendAll(values, stress);
    builder.append(device, kyrCode("arsa"), values);
}

void appendRegulatorBands(ArrayBuilder& builder, int32_t device, const Tuning& tuning) {
    const std::vector<int>& frequencies = valuesOf(tuning, REGULATOR_FREQUENCY);
    const std::vector<int>& low = valuesOf(tuning, REGULATOR_THRESHOLD_LOW);
    const std::vector<int>& high = valuesOf(tuning, REGULATOR_THRESHOLD_HIGH);
    const std::vector<int>& isolated = valuesOf(tuning, REGULATOR_ISOLATED_BAND);
    if (!sameBandCount({&frequencies, &low, &high, &isolated})) {
        return;
    }
    std::vector<int> values = {static_cast<int>(frequencies.size())};
    appendAll(values, frequencies);
    appendAll(values, low);
    appendAll(values, high);
    appendAll(values, isolated);
    builder.append(device, kyrCode("arbs"), values);
}

}  // namespace

TuningConversion::TuningConversion(ParamTables& tables, SpeakerData& speaker)
    : mTables(tables), mSpeaker(speaker) {}

bool TuningConversion::convertTuning(Tuning* tuning, int& counter) {
    std::string name = tuning->getName();
    int32_t device = deviceForEndpoint(tuning->getEndpoint());
    ArrayBuilder builder(counter, kTuningCapacity);
    builder.compose(device, *tuning);
    if (name == kSpeakerTuningName) {
        setCommonSpeakerParams(tuning);
    }
    appendComplexEqualizer(builder, device, *tuning);
    appendSibilanceSuppression(builder, device, *tuning);
    appendAudioOptimizer(builder, device, *tuning);
    appendRegulatorStress(builder, device, *tuning);
    appendRegulatorBands(builder, device, *tuning);
    if (builder.overflowed()) {
        ALOGE("%s() tuning %s does not fit in %zu words", __func__, name.c_str(), kTuningCapacity);
        return false;
    }
    if (builder.getParamCount() == 0) {
        return true;
    }
    int32_t* array = builder.copyArray();
    if (array == nullptr) {
        return true;
    }
    mTables.addTuning(name, array, builder.getSizeInBytes(), tuning->getEndpoint());
    counter++;
    ALOGD("add the tuning table: tuning=%s, paramNum=%zu, size=%u", name.c_str(),
          builder.getWordCount(), builder.getSizeInBytes());
    return true;
}

void TuningConversion::setCommonSpeakerParams(Tuning* tuning) {
    mSpeaker.mono = tuning->isMono();
    struct {
        Parameter param;
        int32_t& angle;
    } angles[] = {
        {VIRTUALIZER_SURROUND_SPEAKER_ANGLE, mSpeaker.surroundAngle},
        {VIRTUALIZER_HEIGHT_SPEAKER_ANGLE, mSpeaker.heightAngle},
        {VIRTUALIZER_FRONT_SPEAKER_ANGLE, mSpeaker.frontAngle},
    };
    for (auto& [param, angle] : angles) {
        const std::vector<int>& values = valuesOf(*tuning, param);
        if (!values.empty()) {
            angle = values.front();
        }
    }
    appendAll(mSpeaker.outputMixMatrix, valuesOf(*tuning, OUTPUT_MIX_MATRIX));
    appendAll(mSpeaker.advancedOutputMixMatrix, valuesOf(*tuning, ADVANCED_OUTPUT_MIX_MATRIX));
}

}  // namespace ovela
