#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "AudioDevices.h"
#include "GeqPreset.h"
#include "LogCapture.h"
#include "PackedWords.h"
#include "Profile.h"
#include "ProfileParamArray.h"
#include "Tuning.h"

namespace ovela {
namespace {

using testing::LogCapture;
using testing::packed;

// Composes `entity` behind a header of (0, 0) with a store that holds
// nothing, and returns the words, so that the result compares with a packed
// array written out by hand.
std::vector<int32_t> composed(ParameterValues& entity, int device, int* written = nullptr) {
    LogCapture log;
    ProfileParamArray store("");
    std::vector<int32_t> words(64, 0);
    int count = 0;
    const int n = store.composeParams(words.data() + 2, device, &entity, count);
    if (written != nullptr) {
        *written = n;
    }
    words[1] = count;
    words.resize(2 + (n > 0 ? n : 0));
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

// The bounded form writes and counts nothing when the entries pass the room.
TEST(ComposeParamsTest, EntriesBeyondTheRoomWriteNothing) {
    LogCapture log;
    ProfileParamArray store("");
    Profile profile(0, "p", PRESET_TYPE_OFF);
    profile.set(IEQ_AMOUNT, {5, 6});
    std::vector<int32_t> out(5, -7);
    int count = 3;
    EXPECT_EQ(store.composeParams(out.data(), 4, kDeviceAll, &profile, count), -1);
    EXPECT_EQ(out, std::vector<int32_t>(5, -7));
    EXPECT_EQ(store.composeParams(out.data(), 5, kDeviceAll, &profile, count), 5);
    EXPECT_EQ(count, 4);
}

}  // namespace
}  // namespace ovela
