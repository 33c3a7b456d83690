#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
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

using testing::sampleFile;
using testing::EffectCall;
using testing::entriesOf;
using testing::Entry;
using ::testing::NiceMock;
using testing::profileWords;
using testing::RecordingEffect;
using testing::sends;
using testing::tuningWords;

constexpr int kCommitResult = 3;

std::vector<std::string> listedTunings(ProfileParamArray& store, Endpoint endpoint) {
    std::vector<char> buffer(store.getAvailableTuningDevicesLen(endpoint) + 1, '\0');
    store.getAvailableTuningDevices(endpoint, buffer.data(), static_cast<int>(buffer.size() - 1));
    std::string list(buffer.data());
    if (list == "default") {
        return {};
    }
    std::vector<std::string> names;
    std::istringstream words(list);
    for (std::string name; std::getline(words, name, ' ');) {
        names.push_back(name);
    }
    return names;
}

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

TEST_F(SampleTuningFileTest, EveryProfileReachesTheEffect) {
    ProfileParamCache cache;
    for (OvlProfileId profile = 0; profile <= 9; ++profile) {
        NiceMock<RecordingEffect> effect(kCommitResult);
        std::vector<int32_t> words = profileWords(mStore, profile);
        ASSERT_GT(words.size(), 2u) << "profile " << profile;
        EXPECT_EQ(sorted(entriesOf(words)), sorted(entriesOf(profileWords(mReference, profile))))
            << "profile " << profile;
        EXPECT_EQ(cache.setProfile(profile, &effect), kCommitResult) << "profile " << profile;
        EXPECT_EQ(effect.calls, sends(entriesOf(words))) << "profile " << profile;
    }
}

TEST_F(SampleTuningFileTest, GeneralProfileReachesTheEffectWithTheRecordedTunings) {
    ProfileParamCache cache;
    std::vector<int32_t> general = profileWords(mStore, -1);
    EXPECT_EQ(sorted(entriesOf(general)), sorted(entriesOf(profileWords(mReference, -1))));
    std::vector<EffectCall> expected = sends(entriesOf(general));
    for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
        std::string recorded(32, '\0');
        cache.getEndpointTuning(static_cast<Endpoint>(endpoint), recorded.data(),
                                static_cast<int>(recorded.size()));
        recorded.resize(recorded.find('\0'));
        if (recorded != "default") {
            expected = expected + sends(entriesOf(tuningWords(mStore, recorded)));
        }
    }
    NiceMock<RecordingEffect> effect(kCommitResult);
    EXPECT_EQ(cache.setProfile(-1, &effect), kCommitResult);
    EXPECT_EQ(effect.calls, expected);
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
        EXPECT_THAT(listedTunings(mStore, endpoint), ::testing::Contains(name));
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
