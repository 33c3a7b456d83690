#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "AudioDevices.h"
#include "LogCapture.h"
#include "PackedWords.h"
#include "ProfileParamArray.h"
#include "TempFile.h"
#include "TuningFileCorpus.h"
#include "TuningFileText.h"

namespace ovela {
namespace {

using testing::dataFile;
using testing::endpoint;
using testing::Entry;
using testing::LogCapture;
using testing::packed;
using testing::profile;
using testing::profileWords;
using testing::Snapshot;
using testing::snapshotOf;
using testing::TempFile;
using testing::tuning;
using testing::tuningFile;
using testing::tuningList;
using testing::tuningWords;

constexpr char kTag[] = "OvlProfileParamArray";

TEST(ProfileParamArrayTest, EveryProfileAndTheGeneralArrayAreStoredEvenWhenEmpty) {
    TempFile file(tuningFile(profile(3,
                                     "            <volume-modeler-enable value=\"0\"/>\n"
                                     "            <ieq-enable value=\"true\"/>\n"
                                     "            <drc-metadata value=\"4,5\"/>\n")));
    LogCapture log;
    ProfileParamArray store(file.path());
    // Profile 3 holds three entries (drcm, ieon, qvme) of 15 words.
    std::vector<std::string> expected = {"loadXMLFile"};
    for (OvlProfileId id : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, -1}) {
        expected.push_back("add the profile table: profileId=" + std::to_string(id) +
                           (id == 3 ? ", paramNum=3, size=60" : ", paramNum=0, size=8"));
    }
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG), expected);
    EXPECT_EQ(profileWords(store, 4), packed(4, {}));
    EXPECT_EQ(profileWords(store, -1), packed(-1, {}));
    EXPECT_EQ(store.getProfileParamsSize(10), 0u);
}

// One profile endpoint per profile in the file, so every array has one order.
TEST(ProfileParamArrayTest, ProfileEndpointsCarryTheirDeviceDefaultModesAndOutputMode) {
    ProfileParamArray store(dataFile("store-arrays.xml"));
    const struct {
        const char* what;
        OvlProfileId profile;
        std::vector<Entry> entries;
    } cases[] = {
        {"the speaker's output mode carries the plain mix matrix of the speaker tuning",
         0,
         {{kDeviceSpeaker, kyrCode("hvm"), {1}},
          {kDeviceSpeaker, kyrCode("svm"), {1}},
          {kDeviceSpeaker, kyrCode("dom"), {1, 0, 1, 1, 0, 0, 1}}}},
        {"speaker virtualizer mode 2 takes the advanced mix matrix",
         1,
         {{kDeviceSpeaker, kyrCode("svm"), {2}},
          {kDeviceSpeaker, kyrCode("hvm"), {1}},
          {kDeviceSpeaker, kyrCode("dom"), {1, 0, 1, 5, 6, 7}}}},
        {"profile values, then the endpoint's under its device, then the missing mode",
         2,
         {{kDeviceAll, kyrCode("iea"), {6}},
          {kDeviceBluetooth, kyrCode("svm"), {3}},
          {kDeviceBluetooth, kyrCode("qvle"), {1}},
          {kDeviceBluetooth, kyrCode("hvm"), {1}},
          {kDeviceBluetooth, kyrCode("dom"), {1, 1, 2}}}},
        {"outputs past USB take output mode 2",
         3,
         {{kDeviceAuxDigital, kyrCode("hvm"), {1}},
          {kDeviceAuxDigital, kyrCode("svm"), {1}},
          {kDeviceAuxDigital, kyrCode("dom"), {1, 2, 2}}}},
        {"USB is the last output with output mode 1",
         4,
         {{kDeviceUsb, kyrCode("hvm"), {1}},
          {kDeviceUsb, kyrCode("svm"), {1}},
          {kDeviceUsb, kyrCode("dom"), {1, 1, 2}}}},
        {"no virtualizer value reads as off",
         5,
         {{kDeviceRemoteSubmix, kyrCode("vol"), {-4}},
          {kDeviceRemoteSubmix, kyrCode("hvm"), {1}},
          {kDeviceRemoteSubmix, kyrCode("svm"), {1}},
          {kDeviceRemoteSubmix, kyrCode("dom"), {0, 2, 2}}}},
        {"headphone mode 2 outside profile 8 gets no rendering config",
         7,
         {{kDeviceWiredHeadphone, kyrCode("hvm"), {2}},
          {kDeviceWiredHeadphone, kyrCode("svm"), {1}},
          {kDeviceWiredHeadphone, kyrCode("dom"), {0, 1, 2}}}},
        {"profile 8's headphone in mode 2 gets the fixed rendering config",
         8,
         {{kDeviceWiredHeadphone, kyrCode("hvm"), {2}},
          {kDeviceWiredHeadphone, kyrCode("hvrc"), {103, 32568, 11164, 5090, 0, 2, 2, 2}},
          {kDeviceWiredHeadphone, kyrCode("svm"), {1}},
          {kDeviceWiredHeadphone, kyrCode("dom"), {0, 1, 2}}}},
        {"the general array holds the matching IEQ bands and the general settings",
         -1,
         {{kDeviceAll, kyrCode("iebs"), {2, 100, 1000, 5, -3}},
          {kDeviceAll, kyrCode("avon"), {1}},
          {kDeviceSpeaker, kyrCode("avol"), {3}}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(profileWords(store, c.profile), packed(c.profile, c.entries));
    }
}

TEST(ProfileParamArrayTest, TuningsAreNumberedListedByEndpointAndCopiedWhole) {
    ProfileParamArray store(dataFile("store-arrays.xml"));
    std::vector<int32_t> a = tuningWords(store, "a");
    std::vector<int32_t> bb = tuningWords(store, "bb");
    std::vector<int32_t> c = tuningWords(store, "c");
    std::vector<int32_t> speaker = tuningWords(store, "speaker");
    ASSERT_FALSE(a.empty() || bb.empty() || c.empty() || speaker.empty());
    // Ordinals follow the order in which the model hands the tunings over,
    // which is not the file's: only the set of them is fixed.
    EXPECT_EQ((std::set<int32_t>{a[0], bb[0], c[0], speaker[0]}), (std::set<int32_t>{0, 1, 2, 3}));
    EXPECT_EQ(a, packed(a[0], {{kDeviceWiredHeadphone, kyrCode("beb"), {1}}}));
    EXPECT_EQ(bb, packed(bb[0], {{kDeviceWiredHeadphone, kyrCode("beb"), {2}}}));
    EXPECT_EQ(c, packed(c[0], {{kDeviceBluetooth, kyrCode("beb"), {3}}}));
    EXPECT_EQ(speaker, packed(speaker[0], {{kDeviceSpeaker, kyrCode("bew"), {4}}}));

    LogCapture log;
    EXPECT_EQ(store.getAvailableTuningDevicesLen(ENDPOINT_HEADPHONE), 5u);
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_DEBUG),
              (std::vector<std::string>{"getAvailableTuningDevicesLen, tuning = a, length = 1",
                                        "getAvailableTuningDevicesLen, tuning = bb, length = 2"}));
    EXPECT_EQ(tuningList(store, ENDPOINT_HEADPHONE, 'x'), std::string("a bb\0", 5));
    EXPECT_EQ(tuningList(store, ENDPOINT_BLUETOOTH, 'x'), std::string("c\0", 2));
    EXPECT_EQ(tuningList(store, ENDPOINT_USB, 'x'), "defaultx");
    // The list never runs past the given length.
    std::string buffer(8, 'x');
    EXPECT_EQ(store.getAvailableTuningDevices(ENDPOINT_HEADPHONE, buffer.data(), 3), 0);
    EXPECT_EQ(buffer, "a bxxxxx");
}

TEST(ProfileParamArrayTest, QueriesRefuseANullBufferCopyNothingForUnknownKeysAndStayInBounds) {
    ProfileParamArray store(dataFile("store-arrays.xml"));
    EXPECT_EQ(store.getProfileParams(2, nullptr), -22);
    EXPECT_EQ(store.getTuningParams("c", nullptr), -22);
    EXPECT_EQ(store.getAvailableTuningDevices(ENDPOINT_HEADPHONE, nullptr, 4), -22);
    std::vector<int32_t> out(8, -1);
    EXPECT_EQ(store.getTuningParams("unknown", out.data()), 0);
    EXPECT_EQ(store.getProfileParams(42, out.data()), 0);
    EXPECT_EQ(out, std::vector<int32_t>(8, -1));
    EXPECT_EQ(store.getTuningParamsSize("unknown") + store.getProfileParamsSize(42), 0u);
    // An endpoint outside the seven has no tunings.
    EXPECT_EQ(tuningList(store, static_cast<Endpoint>(-1), '.'), "default.");
    // A copy is exactly as long as the array.
    EXPECT_EQ(store.getTuningParamsSize("c"), 6 * sizeof(int32_t));
    EXPECT_EQ(store.getTuningParams("c", out.data()), 0);
    EXPECT_EQ(out,
              (std::vector<int32_t>{out[0], 1, kDeviceBluetooth, kyrCode("beb"), 1, 3, -1, -1}));

    // The bounded copies write only what fits, and always tell the size.
    const std::vector<int32_t> c = tuningWords(store, "c");
    const std::vector<int32_t> general = profileWords(store, -1);
    const uint32_t cSize = static_cast<uint32_t>(c.size() * sizeof(int32_t));
    const uint32_t generalSize = static_cast<uint32_t>(general.size() * sizeof(int32_t));

    out.assign(c.size(), -1);
    EXPECT_EQ(store.copyTuningParams("c", out.data(), cSize - 1), cSize);
    EXPECT_EQ(out, std::vector<int32_t>(c.size(), -1));
    EXPECT_EQ(store.copyTuningParams("c", out.data(), cSize), cSize);
    EXPECT_EQ(out, c);

    out.assign(general.size(), -1);
    EXPECT_EQ(store.copyProfileParams(-1, out.data(), generalSize - 4), generalSize);
    EXPECT_EQ(out, std::vector<int32_t>(general.size(), -1));
    EXPECT_EQ(store.copyProfileParams(-1, out.data(), generalSize + 4), generalSize);
    EXPECT_EQ(out, general);
    EXPECT_EQ(store.copyProfileParams(42, nullptr, 0) + store.copyTuningParams("x", nullptr, 0), 0u);
    // No buffer but a capacity: nothing written, the size told.
    LogCapture log;
    EXPECT_EQ(store.copyProfileParams(-1, nullptr, generalSize), generalSize);
    EXPECT_EQ(store.copyTuningParams("c", nullptr, cSize), cSize);
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              (std::vector<std::string>{"copyProfileParams() no buffer for " +
                                            std::to_string(generalSize) + " bytes: nothing copied",
                                        "copyTuningParams() no buffer for " +
                                            std::to_string(cSize) + " bytes: nothing copied"}));
}

// A caller sizes its buffer by the size query; a reload between that and the
// copy that makes the array larger must not make the copy run past the
// buffer, whichever thread asked for the size since.
TEST(ProfileParamArrayTest, TwoCallCopiesNeverWritePastTheSizeThatTheThreadWasTold) {
    auto file = [](const std::string& row, const std::string& boost) {
        return tuningFile(profile(3, "            <drc-metadata data=\"" + row + "\"/>\n") +
                          tuning("name=\"t\" endpoint_type=\"usb\"",
                                 "            <regulator-stress-amount data=\"" + boost + "\"/>\n"));
    };
    TempFile small(file("1,2", "7"));
    TempFile large(file("1,2,3,4", "7,8"));
    ProfileParamArray store(small.path());
    const std::vector<int32_t> smallProfile = profileWords(store, 3);
    const std::vector<int32_t> smallTuning = tuningWords(store, "t");
    const uint32_t profileSize = store.getProfileParamsSize(3);
    const uint32_t tuningSize = store.getTuningParamsSize("t");
    ProfileParamArray largeStore(large.path());
    const std::string largeProfile = std::to_string(largeStore.getProfileParamsSize(3));
    const std::string largeTuning = std::to_string(largeStore.getTuningParamsSize("t"));

    store.loadXMLFile(large.path());
    std::thread([&] {
        store.getProfileParamsSize(3);
        store.getTuningParamsSize("t");
    }).join();
    // Room to see a write past the size told: it stays -1.
    std::vector<int32_t> profileBuffer(profileSize / sizeof(int32_t) + 4, -1);
    std::vector<int32_t> tuningBuffer(tuningSize / sizeof(int32_t) + 4, -1);
    LogCapture log;
    EXPECT_EQ(store.getProfileParams(3, profileBuffer.data()), -22);
    EXPECT_EQ(store.getTuningParams("t", tuningBuffer.data()), -22);
    EXPECT_EQ(profileBuffer, std::vector<int32_t>(profileBuffer.size(), -1));
    EXPECT_EQ(tuningBuffer, std::vector<int32_t>(tuningBuffer.size(), -1));
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              (std::vector<std::string>{
                  "getProfileParams() profile 3 takes " + largeProfile +
                      " bytes now, more than the " + std::to_string(profileSize) +
                      " that getProfileParamsSize() told this thread: nothing copied",
                  "getTuningParams() tuning t takes " + largeTuning + " bytes now, more than the " +
                      std::to_string(tuningSize) +
                      " that getTuningParamsSize() told this thread: nothing copied"}));

    // An array that shrank, or stayed, still fits the buffer.
    store.loadXMLFile(small.path());
    EXPECT_EQ(store.getProfileParams(3, profileBuffer.data()), 0);
    EXPECT_EQ(store.getTuningParams("t", tuningBuffer.data()), 0);
    EXPECT_EQ(std::vector<int32_t>(profileBuffer.begin(), profileBuffer.end() - 4), smallProfile);
    EXPECT_EQ(std::vector<int32_t>(tuningBuffer.begin(), tuningBuffer.end() - 4), smallTuning);
}

TEST(ProfileParamArrayTest, Profile8KeepsTheRenderingConfigThatTheFileGives) {
    TempFile file(tuningFile(
        profile(8, endpoint("usb",
                            "                <headphone-virtualizer-mode value=\"2\"/>\n"
                            "                <advanced-headphone-virtualizer-rendering-config "
                            "value=\"1,2\"/>\n"))));
    ProfileParamArray store(file.path());

    EXPECT_EQ(profileWords(store, 8), packed(8, {{kDeviceUsb, kyrCode("hvrc"), {1, 2}},
                                                 {kDeviceUsb, kyrCode("hvm"), {2}},
                                                 {kDeviceUsb, kyrCode("svm"), {1}},
                                                 {kDeviceUsb, kyrCode("dom"), {0, 1, 2}}}));
}

TEST(ProfileParamArrayTest, DefaultTuningServesUsedEndpointsWithoutATuningOfTheirOwn) {
    const std::string on = "                <virtualizer-enable value=\"1\"/>\n";
    TempFile file(tuningFile(profile(0, endpoint("speaker", on)) +
                             profile(1, endpoint("headphone", on)) + profile(2, endpoint("usb", on)) +
                             tuning("name=\"headphone\" endpoint_type=\"headphone\"",
                                    "            <bass-enhancer-boost value=\"5\"/>\n") +
                             tuning("name=\"default\" endpoint_type=\"speaker\"",
                                    "            <virtual-bass-mode value=\"2\"/>\n"
                                    "            <bass-enhancer-boost value=\"1\"/>\n"
                                    "            <output-mode>\n"
                                    "                <mix_matrix>\n"
                                    "                    <row value=\"1,0\"/>\n"
                                    "                    <row value=\"0,1\"/>\n"
                                    "                </mix_matrix>\n"
                                    "            </output-mode>\n")));
    ProfileParamArray store(file.path());

    EXPECT_EQ(profileWords(store, -1), packed(-1, {{kDeviceSpeaker, kyrCode("beb"), {1}},
                                                   {kDeviceSpeaker, kyrCode("vbm"), {2}},
                                                   {kDeviceUsb, kyrCode("beb"), {1}},
                                                   {kDeviceUsb, kyrCode("vbm"), {2}}}));
    EXPECT_EQ(tuningWords(store, "headphone"),
              packed(0, {{kDeviceWiredHeadphone, kyrCode("beb"), {5}}}));
    EXPECT_EQ(store.getTuningParamsSize("default"), 0u);
    // The speaker took the default tuning's mix matrix into its output mode.
    EXPECT_EQ(profileWords(store, 0),
              packed(0, {{kDeviceSpeaker, kyrCode("hvm"), {1}},
                         {kDeviceSpeaker, kyrCode("svm"), {1}},
                         {kDeviceSpeaker, kyrCode("dom"), {1, 0, 1, 1, 0, 0, 1}}}));
}

TEST(ProfileParamArrayTest, MonoSpeakerSwitchesItsVirtualizerOff) {
    TempFile file(tuningFile(
        profile(0, endpoint("speaker", "                <virtualizer-enable value=\"1\"/>\n")) +
        tuning("name=\"speaker\" endpoint_type=\"speaker\" mono_device=\"true\"",
               "            <bass-enhancer-width value=\"4\"/>\n")));
    ProfileParamArray store(file.path());

    EXPECT_EQ(profileWords(store, 0), packed(0, {{kDeviceSpeaker, kyrCode("hvm"), {1}},
                                                 {kDeviceSpeaker, kyrCode("svm"), {1}},
                                                 {kDeviceSpeaker, kyrCode("dom"), {0, 0, 1}}}));
}

TEST(ProfileParamArrayTest, SecondLoadAddsToTheTablesAndReplacesEqualKeys) {
    TempFile first(tuningFile(profile(3, "            <ieq-enable value=\"1\"/>\n") +
                              profile(4, "            <ieq-amount value=\"7\"/>\n") +
                              tuning("name=\"a\" endpoint_type=\"usb\"",
                                     "            <bass-enhancer-boost value=\"1\"/>\n")));
    TempFile second(tuningFile(profile(3, "            <ieq-enable value=\"0\"/>\n") +
                               tuning("name=\"b\" endpoint_type=\"usb\"",
                                      "            <bass-enhancer-boost value=\"2\"/>\n")));
    ProfileParamArray store(first.path());
    store.loadXMLFile(second.path());

    EXPECT_EQ(profileWords(store, 3), packed(3, {{kDeviceAll, kyrCode("ieon"), {0}}}));
    // Every profile array is written again, so profile 4 is now empty.
    EXPECT_EQ(profileWords(store, 4), packed(4, {}));
    EXPECT_EQ(tuningWords(store, "a"), packed(0, {{kDeviceUsb, kyrCode("beb"), {1}}}));
    EXPECT_EQ(tuningWords(store, "b"), packed(0, {{kDeviceUsb, kyrCode("beb"), {2}}}));
    EXPECT_EQ(tuningList(store, ENDPOINT_USB, 'x'), std::string("a b\0", 4));
}

TEST(ProfileParamArrayTest, ProfilesOutsideZeroToNineAreSkipped) {
    TempFile file(tuningFile(
        profile(12, "            <ieq-enable value=\"1\"/>\n" +
                        endpoint("headphone", "                <system-gain value=\"1\"/>\n")) +
        profile(0, "            <ieq-enable value=\"1\"/>\n")));
    LogCapture log;
    ProfileParamArray store(file.path());

    EXPECT_EQ(
        log.messages(kTag, ANDROID_LOG_ERROR),
        (std::vector<std::string>{"loadXMLFile() Invalid profile 12: profile skipped",
                                  "loadXMLFile() Invalid profile 12: headphone endpoint skipped",
                                  "loadXMLFile() Invalid profile 12: headphone output mode "
                                  "skipped"}));
    EXPECT_EQ(profileWords(store, 0), packed(0, {{kDeviceAll, kyrCode("ieon"), {1}}}));
    EXPECT_EQ(store.getProfileParamsSize(12), 0u);
}

TEST(ProfileParamArrayTest, LoadingIsTransactional) {
    TempFile good(tuningFile(profile(3, "            <ieq-enable value=\"1\"/>\n") +
                             tuning("name=\"a\" endpoint_type=\"usb\"",
                                    "            <bass-enhancer-boost value=\"1\"/>\n")));
    ProfileParamArray store(good.path());
    const Snapshot before = snapshotOf(store);

    const std::string longRow = testing::numbers(1200);
    const std::string freshTuning = tuning("name=\"fresh\" endpoint_type=\"usb\"",
                                           "            <bass-enhancer-boost value=\"9\"/>\n");
    TempFile profileTooBig(tuningFile(
        profile(3, "            <drc-metadata value=\"" + longRow + "\"/>\n") + freshTuning));
    TempFile tuningTooBig(
        tuningFile(profile(3, "            <ieq-enable value=\"0\"/>\n") + freshTuning +
                   tuning("name=\"a\" endpoint_type=\"usb\"",
                          "            <bass-mbdrc-tuning value=\"" + longRow + "\"/>\n")));
    TempFile unreadable("<tuning_file>\n");

    struct {
        const TempFile& file;
        std::string error;
    } failures[] = {
        {profileTooBig, "loadXMLFile() profile 3 does not fit in 1200 words"},
        {tuningTooBig, "convertTuning() tuning a does not fit in 1100 words"},
        {unreadable, "XML parses error!!"},
    };
    for (const auto& failure : failures) {
        LogCapture log;
        store.loadXMLFile(failure.file.path());
        EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR), std::vector<std::string>{failure.error});
        EXPECT_EQ(snapshotOf(store), before) << failure.error;
    }
}

}  // namespace
}  // namespace ovela
