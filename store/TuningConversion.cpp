#define LOG_TAG "OvlProfileParamArray"

#include "TuningConversion.h"

#include <log/log.h>

#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include "ArrayBuilder.h"
#include "AudioDevices.h"
#include "CompositeEntries.h"
#include "EntityValues.h"
#include "ParamTables.h"
#include "Parameter.h"
#include "SpeakerData.h"
#include "Tuning.h"

namespace ovela {

namespace {

constexpr char kSpeakerTuningName[] = "speaker";
// The composite entries carry the channel count of their stereo pair.
constexpr int32_t kStereoChannels = 2;
// The effect takes six sibilance bands per side; a five-band file is padded
// with a leading 0 on each side.
constexpr size_t kFileSibilanceBands = 5;
constexpr int32_t kSibilancePadding[] = {0};

// Builds the composite entries of one tuning into one builder.
class Composites {
  public:
    Composites(ArrayBuilder& builder, int32_t device, const Tuning& tuning, StoreReport& report)
        : mBuilder(builder), mDevice(device), mTuning(tuning), mReport(report) {}

    void complexEqualizer() {
        const std::vector<int>& left = list(COMPLEX_EQUALIZER_TUNING_LEFT);
        const std::vector<int>& right = list(COMPLEX_EQUALIZER_TUNING_RIGHT);
        if (!sent(kComplexEqualizerCode, {{COMPLEX_EQUALIZER_TUNING_LEFT, &left},
                                          {COMPLEX_EQUALIZER_TUNING_RIGHT, &right}})) {
            return;
        }
        const int32_t head[] = {kStereoChannels, static_cast<int32_t>(left.size())};
        mBuilder.append(mDevice, kComplexEqualizerCode, {head, left, right});
        mReport.parts(mBuilder, {{EntryPart::kStore, std::size(head)},
                                 {COMPLEX_EQUALIZER_TUNING_LEFT, left.size(), &mTuning},
                                 {COMPLEX_EQUALIZER_TUNING_RIGHT, right.size(), &mTuning}});
    }

    void sibilanceSuppression() {
        const std::vector<int>& left = list(REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT);
        const std::vector<int>& right = list(REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT);
        if (!sent(kSibilanceSuppressionCode,
                  {{REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT, &left},
                   {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT, &right}})) {
            return;
        }
        const bool padded = left.size() == kFileSibilanceBands;
        const ValueRun padding(kSibilancePadding, padded ? 1 : 0);
        const int32_t head[] = {kStereoChannels, static_cast<int32_t>(left.size() + padding.size)};
        mBuilder.append(mDevice, kSibilanceSuppressionCode, {head, padding, left, padding, right});
        mReport.parts(mBuilder,
                      {{EntryPart::kStore, std::size(head) + padding.size},
                       {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT, left.size(), &mTuning},
                       {EntryPart::kStore, padding.size},
                       {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT, right.size(), &mTuning}});
    }

    void audioOptimizer() {
        const std::vector<int>& frequencies = list(AUDIO_OPTIMIZER_FREQUENCY);
        const std::vector<int>& left = list(AUDIO_OPTIMIZER_GAIN_L);
        const std::vector<int>& right = list(AUDIO_OPTIMIZER_GAIN_R);
        if (!sent(kAudioOptimizerCode, {{AUDIO_OPTIMIZER_FREQUENCY, &frequencies},
                                        {AUDIO_OPTIMIZER_GAIN_L, &left},
                                        {AUDIO_OPTIMIZER_GAIN_R, &right}})) {
            return;
        }
        // Here the effect wants the band count before the channel count.
        const int32_t head[] = {static_cast<int32_t>(frequencies.size()), kStereoChannels};
        mBuilder.append(mDevice, kAudioOptimizerCode, {head, frequencies, left, right});
        mReport.parts(mBuilder, {{EntryPart::kStore, std::size(head)},
                                 {AUDIO_OPTIMIZER_FREQUENCY, frequencies.size(), &mTuning},
                                 {AUDIO_OPTIMIZER_GAIN_L, left.size(), &mTuning},
                                 {AUDIO_OPTIMIZER_GAIN_R, right.size(), &mTuning}});
    }

    // Sent in addition to the plain "arsa" entry of the same values: the
    // effect reads the channel count from this one.
    void regulatorStress() {
        const std::vector<int>& stress = list(REGULATOR_STRESS_AMOUNT);
        if (stress.empty()) {
            return;
        }
        const int32_t head[] = {kStereoChannels};
        mBuilder.append(mDevice, kParameterCodes[REGULATOR_STRESS_AMOUNT], {head, stress});
        mReport.parts(mBuilder, {{EntryPart::kStore, std::size(head)},
                                 {REGULATOR_STRESS_AMOUNT, stress.size(), &mTuning}});
    }

    void regulatorBands() {
        const std::vector<int>& frequencies = list(REGULATOR_FREQUENCY);
        const std::vector<int>& low = list(REGULATOR_THRESHOLD_LOW);
        const std::vector<int>& high = list(REGULATOR_THRESHOLD_HIGH);
        const std::vector<int>& isolated = list(REGULATOR_ISOLATED_BAND);
        if (!sent(kRegulatorBandsCode, {{REGULATOR_FREQUENCY, &frequencies},
                                        {REGULATOR_THRESHOLD_LOW, &low},
                                        {REGULATOR_THRESHOLD_HIGH, &high},
                                        {REGULATOR_ISOLATED_BAND, &isolated}})) {
            return;
        }
        const int32_t head[] = {static_cast<int32_t>(frequencies.size())};
        mBuilder.append(mDevice, kRegulatorBandsCode, {head, frequencies, low, high, isolated});
        mReport.parts(mBuilder, {{EntryPart::kStore, std::size(head)},
                                 {REGULATOR_FREQUENCY, frequencies.size(), &mTuning},
                                 {REGULATOR_THRESHOLD_LOW, low.size(), &mTuning},
                                 {REGULATOR_THRESHOLD_HIGH, high.size(), &mTuning},
                                 {REGULATOR_ISOLATED_BAND, isolated.size(), &mTuning}});
    }

  private:
    const std::vector<int>& list(Parameter parameter) { return valuesOf(mTuning, parameter); }

    // Whether the composite `code` goes into the array: its lists give the
    // same number of values each. The report learns of it either way.
    bool sent(KyrParameterId code, std::initializer_list<ListOf> lists) {
        const bool same = sameBandCount(lists);
        mReport.composite(&mTuning, code, lists, same);
        return same;
    }

    ArrayBuilder& mBuilder;
    int32_t mDevice;
    const Tuning& mTuning;
    StoreReport& mReport;
};

}  // namespace

TuningConversion::TuningConversion(ParamTables& tables, SpeakerData& speaker, StoreReport& report)
    : mTables(tables), mSpeaker(speaker), mReport(report) {}

bool TuningConversion::convertTuning(Tuning* tuning, int& counter) {
    const std::string name = tuning->getName();
    const int32_t device = deviceForEndpoint(tuning->getEndpoint());
    mScratch.resize(kTuningArrayWords);
    ArrayBuilder builder(mScratch.data(), kTuningArrayWords, counter);
    ArrayRecord* record = mReport.tuningRecord(name, kTuningArrayWords);
    builder.recordInto(record, mReport.trace());
    mReport.composed(builder, EntrySource::TUNING, tuning);
    builder.composeParams(device, *tuning);
    if (name == kSpeakerTuningName) {
        setCommonSpeakerParams(tuning);
    }
    Composites composites(builder, device, *tuning, mReport);
    composites.complexEqualizer();
    composites.sibilanceSuppression();
    composites.audioOptimizer();
    composites.regulatorStress();
    composites.regulatorBands();
    if (record != nullptr) {
        record->neededWords = builder.getNeededWords();
    }
    if (builder.overflowed()) {
        ALOGE("%s() tuning %s does not fit in %u words", __func__, name.c_str(), kTuningArrayWords);
        if (record != nullptr) {
            mReport.arrayRoom("tuning " + name, *record, std::string());
        }
        return false;
    }
    if (builder.getParamCount() == 0) {
        mReport.emptyTuning(tuning);
        return true;
    }
    int32_t* array = builder.copyArray();
    if (array == nullptr) {
        return true;
    }
    mTables.addTuning(name, array, builder.getSizeInBytes(), tuning->getEndpoint());
    if (record != nullptr) {
        record->stored = true;
    }
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
    for (Parameter matrix : {OUTPUT_MIX_MATRIX, ADVANCED_OUTPUT_MIX_MATRIX}) {
        const std::vector<int>& values = valuesOf(*tuning, matrix);
        std::vector<int32_t>& kept = matrix == OUTPUT_MIX_MATRIX ? mSpeaker.outputMixMatrix
                                                                 : mSpeaker.advancedOutputMixMatrix;
        kept.insert(kept.end(), values.begin(), values.end());
        mReport.speakerMatrix(tuning, matrix);
    }
}

}  // namespace ovela
