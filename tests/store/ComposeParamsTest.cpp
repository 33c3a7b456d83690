#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "ArrayBuilder.h"
#include "AudioDevices.h"
#include "GeqPreset.h"
#include "PackedWords.h"
#include "Profile.h"
#include "Tuning.h"

namespace ovela {
namespace {

using testing::packed;

// Composes `entity` into an array of header (0, count), and returns its words,
// so that the result compares with a packed array written out by hand.
std::vector<int32_t> composed(const ParameterValues& entity, int device, int* written = nullptr) {
    std::vector<int32_t> words(64, 0);
    ArrayBuilder builder(words.data(), words.size(), 0);
    builder.composeParams(device, entity);
    if (written != nullptr) {
        *written = static_cast<int>(builder.getWordCount() - 2);
    }
    words.resize(builder.getWordCount());
    return words;
}

TEST(ComposeParamsTest, WritesOneEntryPerCodedParameterWithValuesInParameterOrder) {
    Profile profile(2, "music", PRESET_TYPE_WARM);
    profile.set(VOLUME_MODELER_ENABLE, {0});
    profile.set(IEQ_ENABLE, {1});
    profile.set(CUSTOM_DRC_METADATA, {7, -8, 9});
    profile.set(OUTPUT_MIX_MATRIX, {1, 0, 0, 1});
    profile.set(COMPLEX_EQUALIZER_TUNING_LEFT, {1, 2});
    profile.set(BASS_ENHANCER_BOOST, {});
    int written = 0;
    EXPECT_EQ(composed(profile, kDeviceAll, &written),
              packed(0, {{kDeviceAll, kyrCode("drcm"), {7, -8, 9}},
                         {kDeviceAll, kyrCode("ieon"), {1}},
                         {kDeviceAll, kyrCode("qvme"), {0}}}));
    EXPECT_EQ(written, 14);

    Tuning uncoded("t", ENDPOINT_USB, false);
    uncoded.set(OUTPUT_MIX_MATRIX, {1, 0, 0, 1});
    EXPECT_EQ(composed(uncoded, kDeviceUsb, &written), packed(0, {}));
    EXPECT_EQ(written, 0);
}

TEST(ComposeParamsTest, GeqFrequenciesAndGainsShareTheirCodeFrequenciesFirst) {
    GeqPreset preset(4);
    preset.set(GEQ_GAIN, {0, -3});
    preset.set(GEQ_FREQUENCY, {100, 1000});
    EXPECT_EQ(composed(preset, kDeviceSpeaker),
              packed(0, {{kDeviceSpeaker, kyrCode("gebs"), {100, 1000}},
                         {kDeviceSpeaker, kyrCode("gebs"), {0, -3}}}));
}

// An entry that passes the room is neither written nor counted, and the array
// stays overflowed, so that its load gives up.
TEST(ComposeParamsTest, EntriesBeyondTheRoomWriteNothing) {
    Profile profile(0, "p", PRESET_TYPE_OFF);
    profile.set(IEQ_AMOUNT, {5, 6});
    std::vector<int32_t> words(8, -7);
    ArrayBuilder tooSmall(words.data(), 6, 3);
    tooSmall.composeParams(kDeviceAll, profile);
    EXPECT_TRUE(tooSmall.overflowed());
    EXPECT_EQ(tooSmall.getNeededWords(), 7u);
    EXPECT_EQ(words, (std::vector<int32_t>{3, 0, -7, -7, -7, -7, -7, -7}));

    ArrayBuilder exact(words.data(), 7, 3);
    exact.composeParams(kDeviceAll, profile);
    EXPECT_FALSE(exact.overflowed());
    EXPECT_EQ(words, (std::vector<int32_t>{3, 1, kDeviceAll, kyrCode("iea"), 2, 5, 6, -7}));
}

}  // namespace
}  // namespace ovela
