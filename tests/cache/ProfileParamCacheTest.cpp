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

using testing::EffectCall;
using testing::Entry;
using testing::LogCapture;
using ::testing::NiceMock;
using testing::RecordingEffect;
using testing::sends;
using testing::TempFile;

constexpr char kTag[] = "OvlProfileParamCache";
constexpr int kCommitResult = 7;

// Every tuning is named after its endpoint but "hp-studio"; "other", "usb",
// "aux_digital" and "remote_submix" have no tuning.
constexpr char kTuningFile[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<tuning_file>
    <general>
        <settings>
            <auxiliary-system-gain-enable value="true"/>
        </settings>
    </general>
    <profile id="2" name="music">
        <settings>
            <ieq-enable value="1"/>
            <endpoint_type id="headphone">
                <volume-leveler-enable value="1"/>
                <headphone-virtualizer-mode value="0"/>
                <speaker-virtualizer-mode value="1"/>
                <virtualizer-enable value="1"/>
            </endpoint_type>
        </settings>
        <include preset="ieq_balanced"/>
    </profile>
    <profile id="3" name="spatial">
        <settings>
            <endpoint_type id="headphone">
                <advanced-headphone-virtualizer-rendering-config-for-living-room value="1,2,3"/>
                <advanced-headphone-virtualizer-rendering-config-for-concert-hall value="4,5"/>
                <headphone-virtualizer-mode value="0"/>
                <speaker-virtualizer-mode value="1"/>
                <volume-leveler-enable value="1"/>
            </endpoint_type>
        </settings>
        <include preset="ieq_balanced"/>
    </profile>
    <tuning name="speaker" endpoint_type="speaker">
        <data>
            <bass-enhancer-boost value="1"/>
        </data>
    </tuning>
    <tuning name="headphone" endpoint_type="headphone">
        <data>
            <bass-enhancer-boost value="2"/>
        </data>
    </tuning>
    <tuning name="hp-studio" endpoint_type="headphone">
        <data>
            <bass-enhancer-boost value="3"/>
        </data>
    </tuning>
    <tuning name="bluetooth" endpoint_type="bluetooth">
        <data>
            <bass-enhancer-boost value="4"/>
        </data>
    </tuning>
</tuning_file>
)";

const std::vector<Entry> kGeneral = {{kDeviceAll, kyrCode("avon"), {1}}};
const std::vector<Entry> kProfile2 = {
    {kDeviceAll, kyrCode("ieon"), {1}},
    {kDeviceWiredHeadphone, kyrCode("hvm"), {0}},
    {kDeviceWiredHeadphone, kyrCode("svm"), {1}},
    {kDeviceWiredHeadphone, kyrCode("qvle"), {1}},
    {kDeviceWiredHeadphone, kyrCode("dom"), {1, 1, 2}},
};

// The cache reaches the store through the process-wide instance, so every
// test loads its file into that instance first. Loading again only replaces
// the same arrays with equal ones.
class ProfileParamCacheTest : public ::testing::Test {
  protected:
    void SetUp() override { ProfileParamArray::getInstance().loadXMLFile(mFile.path()); }

    std::string recordedTuning(ProfileParamCache& cache, Endpoint endpoint) {
        std::string buffer(16, '.');
        cache.getEndpointTuning(endpoint, buffer.data(), static_cast<int>(buffer.size()));
        return buffer;
    }

    TempFile mFile{kTuningFile};
    NiceMock<RecordingEffect> mEffect{kCommitResult};
};

TEST_F(ProfileParamCacheTest, RecordsTheTuningOfEachEndpointsOwnNameElseDefault) {
    LogCapture log;
    ProfileParamCache cache;
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG),
              (std::vector<std::string>{
                  "ProfileParamCache(There is specific tuning for endpiont: speaker)",
                  "ProfileParamCache(There is specific tuning for endpiont: headphone)",
                  "ProfileParamCache(There is specific tuning for endpiont: bluetooth)"}));
    EXPECT_EQ(recordedTuning(cache, ENDPOINT_SPEAKER), "speaker.........");
    EXPECT_EQ(recordedTuning(cache, ENDPOINT_HEADPHONE), "headphone.......");
    EXPECT_EQ(recordedTuning(cache, ENDPOINT_BLUETOOTH), "bluetooth.......");
    EXPECT_EQ(recordedTuning(cache, ENDPOINT_REMOTE_SUBMIX), "default.........");
}

TEST_F(ProfileParamCacheTest, SetProfileSendsEveryEntryInOrderAndCommitsOnce) {
    ProfileParamCache cache;
    LogCapture log;
    EXPECT_EQ(cache.setProfile(2, &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends(kProfile2));
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG),
              std::vector<std::string>{"setProfile(profile=2)"});
}

TEST_F(ProfileParamCacheTest, GeneralProfileResendsEveryEndpointsRecordedTuning) {
    ProfileParamCache cache;
    EXPECT_EQ(cache.setProfile(-1, &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends(kGeneral) + sends({{kDeviceSpeaker, kyrCode("beb"), {1}}}) +
                                 sends({{kDeviceWiredHeadphone, kyrCode("beb"), {2}}}) +
                                 sends({{kDeviceBluetooth, kyrCode("beb"), {4}}}));
}

TEST_F(ProfileParamCacheTest, GeneralProfileResendsTheTuningSelectedSince) {
    ProfileParamCache cache;
    ASSERT_EQ(cache.setEndpointTuning(ENDPOINT_HEADPHONE, "hp-studio", &mEffect, true),
              kCommitResult);
    mEffect.calls.clear();
    EXPECT_EQ(cache.setProfile(-1, &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends(kGeneral) + sends({{kDeviceSpeaker, kyrCode("beb"), {1}}}) +
                                 sends({{kDeviceWiredHeadphone, kyrCode("beb"), {3}}}) +
                                 sends({{kDeviceBluetooth, kyrCode("beb"), {4}}}));
}

TEST_F(ProfileParamCacheTest, InvalidProfileAndMissingEffectAreRefused) {
    ProfileParamCache cache;
    LogCapture log;
    EXPECT_EQ(cache.setProfile(10, &mEffect), -22);
    EXPECT_EQ(cache.setProfile(-2, &mEffect), -22);
    EXPECT_EQ(cache.setProfile(2, nullptr), -22);
    EXPECT_EQ(cache.setEndpointTuning(ENDPOINT_HEADPHONE, "hp-studio", nullptr, false), -22);
    EXPECT_EQ(cache.resetParam(kyrCode("qvle"), nullptr), -22);
    EXPECT_TRUE(mEffect.calls.empty());
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              (std::vector<std::string>{"setProfile() Invalid profile 10",
                                        "setProfile() Invalid profile -2",
                                        "setProfile() effect instance should not be null",
                                        "setEndpointTuning() effect instance should not be null",
                                        "resetParam() effect instance should not be null"}));
    // The refused calls changed nothing: the cache still holds the general
    // profile and the endpoint's own tuning.
    EXPECT_EQ(recordedTuning(cache, ENDPOINT_HEADPHONE), "headphone.......");
    EXPECT_EQ(cache.resetParam(kyrCode("avon"), &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends(kGeneral));
}

TEST_F(ProfileParamCacheTest, NewTuningIsRecordedAndSentOnlyOnceWhenSkippingUnchanged) {
    ProfileParamCache cache;
    LogCapture log;
    EXPECT_EQ(cache.setEndpointTuning(ENDPOINT_HEADPHONE, "hp-studio", &mEffect, true),
              kCommitResult);
    EXPECT_EQ(cache.setEndpointTuning(ENDPOINT_HEADPHONE, "hp-studio", &mEffect, true), 0);
    EXPECT_EQ(mEffect.calls, sends({{kDeviceWiredHeadphone, kyrCode("beb"), {3}}}));
    EXPECT_EQ(recordedTuning(cache, ENDPOINT_HEADPHONE), "hp-studio.......");
    EXPECT_EQ(
        log.messages(kTag, ANDROID_LOG_DEBUG),
        (std::vector<std::string>{"setEndpointTuning(endpoint=headphone, tuning=hp-studio)",
                                  "setEndpointTuning(endpoint=headphone, tuning=hp-studio)"}));

    mEffect.calls.clear();
    EXPECT_EQ(cache.setEndpointTuning(ENDPOINT_HEADPHONE, "hp-studio", &mEffect, false),
              kCommitResult);
    EXPECT_EQ(mEffect.calls, sends({{kDeviceWiredHeadphone, kyrCode("beb"), {3}}}));
}

TEST_F(ProfileParamCacheTest, TuningNotListedForTheEndpointIsRefused) {
    ProfileParamCache cache;
    LogCapture log;
    EXPECT_EQ(cache.setEndpointTuning(ENDPOINT_SPEAKER, "hp-studio", &mEffect, false), -22);
    EXPECT_TRUE(mEffect.calls.empty());
    EXPECT_EQ(recordedTuning(cache, ENDPOINT_SPEAKER), "speaker.........");
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              std::vector<std::string>{
                  "setEndpointTuning, hp-studio is not a valid tuning device for endpoint "
                  "speaker,             please call getAvailableTuningDevice(endpoint) to "
                  "check first!"});
}

TEST_F(ProfileParamCacheTest, PartOfAListedNameIsRecordedButHasNoArrayToSend) {
    ProfileParamCache cache;
    LogCapture log;
    EXPECT_EQ(cache.setEndpointTuning(ENDPOINT_HEADPHONE, "studio", &mEffect, false), -22);
    EXPECT_TRUE(mEffect.calls.empty());
    EXPECT_EQ(recordedTuning(cache, ENDPOINT_HEADPHONE), "studio..........");
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              (std::vector<std::string>{
                  "setEndpointTuning() Invalid data for tuning parameter values."}));
}

TEST_F(ProfileParamCacheTest, DefaultPassesForAnEndpointWithoutTuningsAndIsNotSent) {
    ProfileParamCache cache;
    LogCapture log;
    EXPECT_EQ(cache.setEndpointTuning(ENDPOINT_REMOTE_SUBMIX, "default", &mEffect, false), 0);
    EXPECT_TRUE(mEffect.calls.empty());
    EXPECT_TRUE(log.messages(kTag, ANDROID_LOG_ERROR).empty());
}

TEST_F(ProfileParamCacheTest, ResetParamResendsTheEntryOfTheCurrentProfile) {
    ProfileParamCache cache;
    ASSERT_EQ(cache.setProfile(3, &mEffect), kCommitResult);
    mEffect.calls.clear();
    LogCapture log;
    EXPECT_EQ(cache.resetParam(kyrCode("qvle"), &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends({{kDeviceWiredHeadphone, kyrCode("qvle"), {1}}}));
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG),
              (std::vector<std::string>{"resetParam(param=qvle)",
                                        "resetParam() resend the parameter value got from xml."}));
}

TEST_F(ProfileParamCacheTest, ResetParamSendsTheRenderingVariantsAsTheHeadphoneConfig) {
    ProfileParamCache cache;
    ASSERT_EQ(cache.setProfile(3, &mEffect), kCommitResult);
    mEffect.calls.clear();
    LogCapture log;
    EXPECT_EQ(cache.resetParam(kyrCode("vrcr"), &mEffect), kCommitResult);
    EXPECT_EQ(cache.resetParam(kyrCode("vrch"), &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends({{kDeviceWiredHeadphone, kyrCode("hvrc"), {1, 2, 3}}}) +
                                 sends({{kDeviceWiredHeadphone, kyrCode("hvrc"), {4, 5}}}));
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG),
              (std::vector<std::string>{
                  "resetParam(param=vrcr)",
                  "resetParam() set the headphone virtualizer rendering config value got "
                  "from xml file.",
                  "resetParam(param=vrch)",
                  "resetParam() set the headphone virtualizer rendering config value got "
                  "from xml file."}));
}

TEST_F(ProfileParamCacheTest, ResetParamOfACodeTheProfileLacksStillCommits) {
    ProfileParamCache cache;
    ASSERT_EQ(cache.setProfile(2, &mEffect), kCommitResult);
    mEffect.calls.clear();
    LogCapture log;
    EXPECT_EQ(cache.resetParam(kyrCode("beb"), &mEffect), kCommitResult);
    EXPECT_EQ(mEffect.calls, sends({}));
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG),
              std::vector<std::string>{"resetParam(param=beb)"});
}

TEST_F(ProfileParamCacheTest, EndpointTuningIsCopiedWithinTheGivenLength) {
    ProfileParamCache cache;
    std::string buffer(8, '.');
    cache.getEndpointTuning(ENDPOINT_HEADPHONE, buffer.data(), 4);
    EXPECT_EQ(buffer, "head....");
    cache.getEndpointTuning(static_cast<Endpoint>(7), buffer.data(), 8);
    EXPECT_EQ(buffer, "head....");
}

TEST_F(ProfileParamCacheTest, UnknownEndpointIsRefused) {
    ProfileParamCache cache;
    LogCapture log;
    EXPECT_EQ(cache.setEndpointTuning(static_cast<Endpoint>(7), "default", &mEffect, false), -22);
    EXPECT_TRUE(mEffect.calls.empty());
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              std::vector<std::string>{"setEndpointTuning() Invalid endpoint 7"});
}

}  // namespace
}  // namespace ovela
