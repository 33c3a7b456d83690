#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "../store/PackedWords.h"
#include "ProfileParamArray.h"
#include "ProfileParamCache.h"
#include "RecordingEffect.h"
#include "TempFile.h"
#include "TuningFileParser.h"

namespace ovela {
namespace {

using testing::EffectCall;
using testing::entriesOf;
using testing::Entry;
using ::testing::NiceMock;
using testing::profileWords;
using testing::RecordingEffect;
using testing::sampleFile;
using testing::sends;
using testing::tuningNames;
using testing::tuningWords;

constexpr int kCommitResult = 3;

// The entries in a fixed order: the store lists the settings of different
// endpoints in the order in which the model hands them over, which differs
// from one load to the next.
std::vector<Entry> sorted(std::vector<Entry> entries) {
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
        return std::tie(a.device, a.code, a.values) < std::tie(b.device, b.code, b.values);
    });
    return entries;
}

// The sample tuning file from end to end: the process-wide store loads it and
// a cache sends its arrays to a recording effect. A store of the test's own
// shows that the process-wide one holds the file's arrays.
class SampleTuningFileTest : public ::testing::Test {
  protected:
    void SetUp() override { ProfileParamArray::getInstance().loadXMLFile(mPath); }

    std::string mPath = sampleFile();
    ProfileParamArray& mStore = ProfileParamArray::getInstance();
    ProfileParamArray mReference{mPath};
};

// The general array (-1) is followed by the tuning that the cache recorded
// for each endpoint, when that is not "default".
TEST_F(SampleTuningFileTest, EveryProfileReachesTheEffect) {
    ProfileParamCache cache;
    std::vector<EffectCall> recordedTunings;
    for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
        std::string recorded(32, '\0');
        cache.getEndpointTuning(static_cast<Endpoint>(endpoint), recorded.data(),
                                static_cast<int>(recorded.size()));
        recorded.resize(recorded.find('\0'));
        if (recorded != "default") {
            recordedTunings = recordedTunings + sends(entriesOf(tuningWords(mStore, recorded)));
        }
    }
    ASSERT_FALSE(recordedTunings.empty());
    for (OvlProfileId profile = -1; profile <= 9; ++profile) {
        SCOPED_TRACE("profile " + std::to_string(profile));
        NiceMock<RecordingEffect> effect(kCommitResult);
        std::vector<int32_t> words = profileWords(mStore, profile);
        ASSERT_GT(words.size(), 2u);
        EXPECT_EQ(sorted(entriesOf(words)), sorted(entriesOf(profileWords(mReference, profile))));
        EXPECT_EQ(cache.setProfile(profile, &effect), kCommitResult);
        EXPECT_EQ(effect.calls, sends(entriesOf(words)) +
                                    (profile == -1 ? recordedTunings : std::vector<EffectCall>{}));
    }
}

TEST_F(SampleTuningFileTest, EveryTuningCanBeSelectedForItsEndpoint) {
    TuningFileParser parser(mPath);
    ASSERT_NE(parser.getDeviceData(), nullptr);
    size_t selected = 0;
    ProfileParamCache cache;
    for (Tuning* tuning : parser.getDeviceData()->getTunings()) {
        std::string name = tuning->getName();
        if (name == "default") {
            continue;
        }
        Endpoint endpoint = tuning->getEndpoint();
        EXPECT_THAT(tuningNames(mStore, endpoint), ::testing::Contains(name));
        NiceMock<RecordingEffect> effect(kCommitResult);
        std::vector<int32_t> words = tuningWords(mStore, name);
        ASSERT_GT(words.size(), 2u) << name;
        EXPECT_EQ(entriesOf(words), entriesOf(tuningWords(mReference, name))) << name;
        EXPECT_EQ(cache.setEndpointTuning(endpoint, name, &effect, false), kCommitResult) << name;
        EXPECT_EQ(effect.calls, sends(entriesOf(words))) << name;
        selected++;
    }
    EXPECT_GT(selected, 0u);
}

}  // namespace
}  // namespace ovela
