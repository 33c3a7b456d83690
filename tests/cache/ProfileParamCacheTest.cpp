#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "AudioDevices.h"
#include "LogCapture.h"
#include "ProfileParamArray.h"
#include "ProfileParamCache.h"
#include "RecordingEffect.h"
#include "TempFile.h"

namespace ovela {
namespace {

using testing::dataFile;
using testing::Entry;
using testing::LogCapture;
using ::testing::NiceMock;
using testing::RecordingEffect;
using testing::sends;

using Strings = std::vector<std::string>;

constexpr char kTag[] = "OvlProfileParamCache";
constexpr int kCommitResult = 7;

const std::vector<Entry> kGeneral = {{kDeviceAll, kyrCode("avon"), {1}}};
const std::vector<Entry> kProfile2 = {
    {kDeviceAll, kyrCode("ieon"), {1}},
    {kDeviceWiredHeadphone, kyrCode("hvm"), {0}},
    {kDeviceWiredHeadphone, kyrCode("svm"), {1}},
    {kDeviceWiredHeadphone, kyrCode("qvle"), {1}},
    {kDeviceWiredHeadphone, kyrCode("dom"), {1, 1, 2}},
};
const std::vector<Entry> kSpeakerTuning = {{kDeviceSpeaker, kyrCode("beb"), {1}}};
const std::vector<Entry> kHeadphoneTuning = {{kDeviceWiredHeadphone, kyrCode("beb"), {2}}};
const std::vector<Entry> kStudioTuning = {{kDeviceWiredHeadphone, kyrCode("beb"), {3}}};
const std::vector<Entry> kBluetoothTuning = {{kDeviceBluetooth, kyrCode("beb"), {4}}};

// The cache reaches the store through the process-wide instance, so the file
// goes into that instance before any cache is made.
class ProfileParamCacheTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        ProfileParamArray::getInstance().loadXMLFile(dataFile("cache-endpoint-tunings.xml"));
    }

    // The endpoint's recorded name, copied into dots: no NUL follows it.
    std::string recordedTuning(Endpoint endpoint, int length = 16) {
        std::string buffer(16, '.');
        mCache.getEndpointTuning(endpoint, buffer.data(), length);
        return buffer;
    }

    ProfileParamCache mCache;
    NiceMock<RecordingEffect> mEffect{kCommitResult};
};

TEST_F(ProfileParamCacheTest, RecordsTheTuningOfEachEndpointsOwnNameElseDefault) {
    LogCapture log;
    ProfileParamCache cache;
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG),
              (Strings{"ProfileParamCache(There is specific tuning for endpiont: speaker)",
                       "ProfileParamCache(There is specific tuning for endpiont: headphone)",
                       "ProfileParamCache(There is specific tuning for endpiont: bluetooth)"}));
    EXPECT_EQ(recordedTuning(ENDPOINT_SPEAKER), "speaker.........");
    EXPECT_EQ(recordedTuning(ENDPOINT_HEADPHONE), "headphone.......");
    EXPECT_EQ(recordedTuning(ENDPOINT_BLUETOOTH), "bluetooth.......");
    EXPECT_EQ(recordedTuning(ENDPOINT_REMOTE_SUBMIX), "default.........");
    // The copy stops at the given length; an unknown endpoint copies nothing.
    EXPECT_EQ(recordedTuning(ENDPOINT_HEADPHONE, 1), "h...............");
    EXPECT_EQ(recordedTuning(static_cast<Endpoint>(7)), "................");
    EXPECT_EQ(recordedTuning(static_cast<Endpoint>(-1)), "................");
}

TEST_F(ProfileParamCacheTest, SetProfileSendsEveryEntryInOrderAndCommitsOnce) {
    LogCapture log;
    EXPECT_EQ(mCache.setProfile(2, &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends(kProfile2));
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG), Strings{"setProfile(profile=2)"});
}

TEST_F(ProfileParamCacheTest, GeneralProfileResendsEveryEndpointsRecordedTuning) {
    EXPECT_EQ(mCache.setProfile(-1, &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends(kGeneral) + sends(kSpeakerTuning) + sends(kHeadphoneTuning) +
                                 sends(kBluetoothTuning));

    ASSERT_EQ(mCache.setEndpointTuning(ENDPOINT_HEADPHONE, "hp-studio", &mEffect, true),
              kCommitResult);
    mEffect.calls.clear();
    EXPECT_EQ(mCache.setProfile(-1, &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends(kGeneral) + sends(kSpeakerTuning) + sends(kStudioTuning) +
                                 sends(kBluetoothTuning));
}

TEST_F(ProfileParamCacheTest, InvalidProfileAndMissingEffectAreRefused) {
    LogCapture log;
    EXPECT_EQ(mCache.setProfile(10, &mEffect), -22);
    EXPECT_EQ(mCache.setProfile(-2, &mEffect), -22);
    EXPECT_EQ(mCache.setProfile(2, nullptr), -22);
    EXPECT_EQ(mCache.setEndpointTuning(ENDPOINT_HEADPHONE, "hp-studio", nullptr, false), -22);
    EXPECT_EQ(mCache.setEndpointTuning(static_cast<Endpoint>(7), "default", &mEffect, false), -22);
    EXPECT_EQ(mCache.setEndpointTuning(static_cast<Endpoint>(-1), "default", &mEffect, false), -22);
    EXPECT_EQ(mCache.resetParam(kyrCode("qvle"), nullptr), -22);
    EXPECT_TRUE(mEffect.calls.empty());
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              (Strings{"setProfile() Invalid profile 10", "setProfile() Invalid profile -2",
                       "setProfile() effect instance should not be null",
                       "setEndpointTuning() effect instance should not be null",
                       "setEndpointTuning() Invalid endpoint 7",
                       "setEndpointTuning() Invalid endpoint -1",
                       "resetParam() effect instance should not be null"}));
    // The refused calls changed nothing: the cache still holds the general
    // profile and the endpoint's own tuning.
    EXPECT_EQ(recordedTuning(ENDPOINT_HEADPHONE), "headphone.......");
    EXPECT_EQ(mCache.resetParam(kyrCode("avon"), &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends(kGeneral));
}

TEST_F(ProfileParamCacheTest, NewTuningIsRecordedAndSentOnlyOnceWhenSkippingUnchanged) {
    LogCapture log;
    EXPECT_EQ(mCache.setEndpointTuning(ENDPOINT_HEADPHONE, "hp-studio", &mEffect, true),
              kCommitResult);
    EXPECT_EQ(mCache.setEndpointTuning(ENDPOINT_HEADPHONE, "hp-studio", &mEffect, true), 0);
    EXPECT_EQ(mEffect.calls, sends(kStudioTuning));
    EXPECT_EQ(recordedTuning(ENDPOINT_HEADPHONE), "hp-studio.......");
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG),
              Strings(2, "setEndpointTuning(endpoint=headphone, tuning=hp-studio)"));

    mEffect.calls.clear();
    EXPECT_EQ(mCache.setEndpointTuning(ENDPOINT_HEADPHONE, "hp-studio", &mEffect, false),
              kCommitResult);
    EXPECT_EQ(mEffect.calls, sends(kStudioTuning));
}

// The name is looked for in the endpoint's list of tunings as a substring.
TEST_F(ProfileParamCacheTest, TuningNameMustOccurInTheEndpointsList) {
    LogCapture log;
    // Not listed for the speaker: refused, the recorded name stays.
    EXPECT_EQ(mCache.setEndpointTuning(ENDPOINT_SPEAKER, "hp-studio", &mEffect, false), -22);
    EXPECT_EQ(recordedTuning(ENDPOINT_SPEAKER), "speaker.........");
    // Part of a listed name: recorded, but there is no array to send.
    EXPECT_EQ(mCache.setEndpointTuning(ENDPOINT_HEADPHONE, "studio", &mEffect, false), -22);
    EXPECT_EQ(recordedTuning(ENDPOINT_HEADPHONE), "studio..........");
    // An endpoint without tunings lists "default", which is never sent.
    EXPECT_EQ(mCache.setEndpointTuning(ENDPOINT_REMOTE_SUBMIX, "default", &mEffect, false), 0);
    EXPECT_TRUE(mEffect.calls.empty());
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              (Strings{"setEndpointTuning, hp-studio is not a valid tuning device for endpoint "
                       "speaker,             please call getAvailableTuningDevice(endpoint) to "
                       "check first!",
                       "setEndpointTuning() Invalid data for tuning parameter values."}));
}

TEST_F(ProfileParamCacheTest, ResetParamResendsTheCurrentProfilesEntryAndCommitsAlways) {
    ASSERT_EQ(mCache.setProfile(3, &mEffect), kCommitResult);
    mEffect.calls.clear();
    LogCapture log;
    EXPECT_EQ(mCache.resetParam(kyrCode("qvle"), &mEffect), kCommitResult);
    // The rendering variants go to the effect as the headphone configuration.
    EXPECT_EQ(mCache.resetParam(kyrCode("vrcr"), &mEffect), kCommitResult);
    EXPECT_EQ(mCache.resetParam(kyrCode("vrch"), &mEffect), kCommitResult);
    // A code that the profile lacks is still committed.
    EXPECT_EQ(mCache.resetParam(kyrCode("beb"), &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends({{kDeviceWiredHeadphone, kyrCode("qvle"), {1}}}) +
                                 sends({{kDeviceWiredHeadphone, kyrCode("hvrc"), {1, 2, 3}}}) +
                                 sends({{kDeviceWiredHeadphone, kyrCode("hvrc"), {4, 5}}}) +
                                 sends({}));
    const std::string rendering =
        "resetParam() set the headphone virtualizer rendering config value got from xml file.";
    EXPECT_EQ(
        log.messages(kTag, ANDROID_LOG_DEBUG),
        (Strings{"resetParam(param=qvle)", "resetParam() resend the parameter value got from xml.",
                 "resetParam(param=vrcr)", rendering, "resetParam(param=vrch)", rendering,
                 "resetParam(param=beb)"}));
}

}  // namespace
}  // namespace ovela
