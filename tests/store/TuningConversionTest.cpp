#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "AudioDevices.h"
#include "LogCapture.h"
#include "PackedWords.h"
#include "ParamTables.h"
#include "SpeakerData.h"
#include "Tuning.h"
#include "TuningConversion.h"

namespace ovela {
namespace {

using testing::LogCapture;
using testing::packed;

constexpr char kTag[] = "OvlProfileParamArray";

// Tunings converted into tables of their own, as one load converts them.
class TuningConversionTest : public ::testing::Test {
  protected:
    std::vector<int32_t> stored(const std::string& name) const {
        const int32_t* words = mTables.getTuningArray(name);
        return std::vector<int32_t>(words, words + mTables.getTuningSize(name) / sizeof(int32_t));
    }

    ParamTables mTables;
    SpeakerData mSpeaker;
    StoreReport mNoReport{nullptr};
    TuningConversion mConversion{mTables, mSpeaker, mNoReport};
};

TEST_F(TuningConversionTest, PlainEntriesCarryTheEndpointDeviceAndTheOrdinal) {
    // Without an entry a tuning is not stored and the next one takes its ordinal.
    Tuning empty("empty", ENDPOINT_USB, false);
    empty.set(OUTPUT_CHANNELS, {2});
    Tuning tuning("hp", ENDPOINT_HEADPHONE, false);
    tuning.set(BASS_ENHANCER_BOOST, {5});
    tuning.set(ORIENTATION, {});
    int counter = 4;
    LogCapture log;

    EXPECT_TRUE(mConversion.convertTuning(&empty, counter));
    EXPECT_EQ(mTables.getTuningSize("empty"), 0u);
    EXPECT_TRUE(mConversion.convertTuning(&tuning, counter));
    EXPECT_EQ(counter, 5);
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG),
              std::vector<std::string>{"add the tuning table: tuning=hp, paramNum=6, size=24"});
    EXPECT_EQ(stored("hp"), packed(4, {{kDeviceWiredHeadphone, kyrCode("beb"), {5}}}));
    EXPECT_EQ(mTables.getTuningEndpoint("hp"), ENDPOINT_HEADPHONE);
}

TEST_F(TuningConversionTest, CompositeEntriesFollowThePlainOnes) {
    Tuning tuning("spk2", ENDPOINT_SPEAKER, false);
    tuning.set(REGULATOR_STRESS_AMOUNT, {10, 20});
    tuning.set(COMPLEX_EQUALIZER_TUNING_LEFT, {1, 2, 3});
    tuning.set(COMPLEX_EQUALIZER_TUNING_RIGHT, {4, 5, 6});
    tuning.set(COMPLEX_EQUALIZER_TUNING_LEFT_SURROUND, {9, 9});
    tuning.set(REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT, {1, 2, 3, 4, 5});
    tuning.set(REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT, {6, 7, 8, 9, 10});
    tuning.set(AUDIO_OPTIMIZER_FREQUENCY, {100, 200, 300});
    tuning.set(AUDIO_OPTIMIZER_GAIN_L, {-1, -2, -3});
    tuning.set(AUDIO_OPTIMIZER_GAIN_R, {-4, -5, -6});
    tuning.set(AUDIO_OPTIMIZER_GAIN_LS, {5, 5});
    tuning.set(REGULATOR_FREQUENCY, {50});
    tuning.set(REGULATOR_THRESHOLD_LOW, {-30});
    tuning.set(REGULATOR_THRESHOLD_HIGH, {-10});
    tuning.set(REGULATOR_ISOLATED_BAND, {1});
    int counter = 0;

    EXPECT_TRUE(mConversion.convertTuning(&tuning, counter));
    EXPECT_EQ(
        stored("spk2"),
        packed(0,
               {
                   {kDeviceSpeaker, kyrCode("arsa"), {10, 20}},
                   {kDeviceSpeaker, kyrCode("ceqt"), {2, 3, 1, 2, 3, 4, 5, 6}},
                   {kDeviceSpeaker, kyrCode("rssa"), {2, 6, 0, 1, 2, 3, 4, 5, 0, 6, 7, 8, 9, 10}},
                   {kDeviceSpeaker, kyrCode("aobs"), {3, 2, 100, 200, 300, -1, -2, -3, -4, -5, -6}},
                   {kDeviceSpeaker, kyrCode("arsa"), {2, 10, 20}},
                   {kDeviceSpeaker, kyrCode("arbs"), {1, 50, -30, -10, 1}},
               }));
}

TEST_F(TuningConversionTest, CompositesNeedListsOfOneLengthAndPadOnlyFiveSibilanceBands) {
    Tuning tuning("bt", ENDPOINT_BLUETOOTH, false);
    tuning.set(REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT, {1, 2, 3});
    tuning.set(REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT, {4, 5, 6});
    tuning.set(COMPLEX_EQUALIZER_TUNING_LEFT, {1, 2});
    tuning.set(COMPLEX_EQUALIZER_TUNING_RIGHT, {3});
    tuning.set(AUDIO_OPTIMIZER_FREQUENCY, {100, 200});
    tuning.set(AUDIO_OPTIMIZER_GAIN_L, {1, 2});
    tuning.set(AUDIO_OPTIMIZER_GAIN_R, {1});
    tuning.set(REGULATOR_FREQUENCY, {50});
    tuning.set(REGULATOR_THRESHOLD_LOW, {-30});
    tuning.set(REGULATOR_THRESHOLD_HIGH, {-10});
    tuning.set(REGULATOR_ISOLATED_BAND, {});
    tuning.set(REGULATOR_ENABLE, {1});
    int counter = 0;
    EXPECT_TRUE(mConversion.convertTuning(&tuning, counter));
    EXPECT_EQ(stored("bt"),
              packed(0, {{kDeviceBluetooth, kyrCode("aron"), {1}},
                         {kDeviceBluetooth, kyrCode("rssa"), {2, 3, 1, 2, 3, 4, 5, 6}}}));
}

TEST(TuningConversionSpeakerTest, OnlySpeakerTuningsFeedTheSpeakerData) {
    ParamTables tables;
    SpeakerData speaker;
    StoreReport noReport(nullptr);
    TuningConversion conversion(tables, speaker, noReport);
    Tuning other("speaker2", ENDPOINT_SPEAKER, true);
    other.set(OUTPUT_MIX_MATRIX, {1});
    other.set(VIRTUALIZER_FRONT_SPEAKER_ANGLE, {10});
    Tuning first("speaker", ENDPOINT_SPEAKER, true);
    first.set(VIRTUALIZER_SURROUND_SPEAKER_ANGLE, {30, 31});
    first.set(VIRTUALIZER_FRONT_SPEAKER_ANGLE, {10});
    first.set(OUTPUT_MIX_MATRIX, {1, 0, 1});
    first.set(ADVANCED_OUTPUT_MIX_MATRIX, {7});
    Tuning second("speaker", ENDPOINT_SPEAKER, false);
    second.set(VIRTUALIZER_HEIGHT_SPEAKER_ANGLE, {45});
    second.set(OUTPUT_MIX_MATRIX, {4});
    int counter = 0;

    EXPECT_TRUE(conversion.convertTuning(&other, counter));
    EXPECT_FALSE(speaker.mono);
    EXPECT_EQ(speaker.frontAngle, -1);
    EXPECT_TRUE(speaker.outputMixMatrix.empty());

    EXPECT_TRUE(conversion.convertTuning(&first, counter));
    EXPECT_TRUE(speaker.mono);
    EXPECT_EQ(speaker.outputMixMatrix, (std::vector<int32_t>{1, 0, 1}));
    // A second speaker tuning adds its matrix behind the first's.
    conversion.setCommonSpeakerParams(&second);
    EXPECT_FALSE(speaker.mono);
    EXPECT_EQ(speaker.surroundAngle, 30);
    EXPECT_EQ(speaker.heightAngle, 45);
    EXPECT_EQ(speaker.frontAngle, 10);
    EXPECT_EQ(speaker.outputMixMatrix, (std::vector<int32_t>{1, 0, 1, 4}));
    EXPECT_EQ(speaker.advancedOutputMixMatrix, std::vector<int32_t>{7});
}
}  // namespace
}  // namespace ovela
