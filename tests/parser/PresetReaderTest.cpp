#include <gtest/gtest.h>

#include "LogCapture.h"
#include "ParserTestSupport.h"
#include "TuningFileParser.h"

namespace ovela {
namespace {

using testing::loadText;
using testing::LogCapture;
using testing::textsOf;
using testing::tuningFile;

using Strings = std::vector<std::string>;

// A preset with its two wrapper levels around `rows`.
std::string preset(const std::string& attributes, const std::string& rows) {
    return "<preset " + attributes + "> <eq> <bands> " + rows + " </bands> </eq> </preset>\n";
}

std::string ieqPreset(const std::string& attributes) {
    return preset(attributes, R"(<band_ieq frequency="100" target="1"/>)");
}

// Types that are not exactly "ieq" or "geq" create nothing and the read goes on.
TEST(PresetReaderTest, IeqPresetTypeIsTheFirstWordFoundInItsIdAndOtherTypesCreateNothing) {
    LogCapture log;
    TuningFileParser parser;
    ASSERT_EQ(
        loadText(parser,
                 tuningFile(ieqPreset(R"(type="IEQ" id="ieq_warm")") +
                            ieqPreset(R"(type="" id="ieq_warm")") + ieqPreset(R"(id="ieq_warm")") +
                            ieqPreset(R"(type="ieq" id="detailed_balanced")") +
                            ieqPreset(R"(id="ieq_warm" type="ieq")") +
                            ieqPreset(R"(type="ieq" id="coffee")") +
                            ieqPreset(R"(type="ieq" id="Warm")") + ieqPreset(R"(type="ieq")"))),
        0);
    const std::string bands = "ieq_frequency=100,\nieq_target=1,\n";
    EXPECT_EQ(textsOf(parser.getDeviceData()->getIeqPresets()),
              (Strings{"id=-1\ntype=detailed\n" + bands, "id=-1\ntype=warm\n" + bands,
                       "id=-1\ntype=off\n" + bands, "id=-1\ntype=balanced\n" + bands,
                       "id=-1\ntype=balanced\n" + bands}));
    EXPECT_TRUE(parser.getDeviceData()->getGeqPresets().empty());
    EXPECT_TRUE(log.messages("TuningFileParser", ANDROID_LOG_ERROR).empty());
}

TEST(PresetReaderTest, IeqRowsEndAtTheFirstElementWithAnotherName) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(preset(R"(type="ieq" id="ieq_off")", R"(
        <band_ieq frequency="100,150" target="1"/> <!-- no row -->
        <band_ieq target="2" frequency="200" q="7"/>
        <band_geq frequency="300" target="3"/>
        <band_ieq frequency="400" target="4"/>)"))),
              0);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getIeqPresets()),
              Strings{"id=-1\ntype=off\nieq_frequency=100,150,200,\nieq_target=1,2,\n"});
}

TEST(PresetReaderTest, GeqPresetTakesEveryRowAndReadsItsIdAsANumber) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(preset(R"(id="x" type="geq")",
                                                 R"(<band frequency="100" gain="0"/> <separator/>
                                                    <anything gain="5" frequency="1000"/>)") +
                                          preset(R"(type="geq" id="7")",
                                                 R"(<band frequency="50" gain="-4"/>)"))),
              0);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getGeqPresets()),
              (Strings{"id=-1\nprofileId=0\ngeq_frequency=100,1000,\ngeq_gain=0,5,\n",
                       "id=-1\nprofileId=7\ngeq_frequency=50,\ngeq_gain=-4,\n"}));
}

TEST(PresetReaderTest, PresetWithoutBandsFailsTheWholeLoad) {
    const std::pair<std::string, std::string> cases[] = {
        {preset(R"(type="ieq" id="ieq_warm")", R"(<band_ieq frequency="100"/>)"),
         "parsePreset() preset type=ieq id=ieq_warm has no target values"},
        {preset(R"(type="geq" id="3")", R"(<band gain="1"/>)"),
         "parsePreset() preset type=geq id=3 has no frequency values"},
        {preset(R"(type="ieq" id="ieq_off")", R"(<band frequency="100" target="1"/>)"),
         "parsePreset() preset type=ieq id=ieq_off has no frequency values"},
        {R"(<preset type="geq" id="2"/>)",
         "parsePreset() preset type=geq id=2 has no frequency values"},
        {R"(<preset type="geq" id="4"> <geq/> </preset>)",
         "parsePreset() preset type=geq id=4 has no frequency values"},
    };
    const std::string profile =
        R"(<profile id="1"> <settings/> <include preset="warm"/> </profile>)";
    for (const auto& [failing, message] : cases) {
        SCOPED_TRACE(failing);
        LogCapture log;
        TuningFileParser parser;
        EXPECT_EQ(loadText(parser, tuningFile(profile + failing + profile)), -22);
        EXPECT_EQ(log.messages("TuningFileParser", ANDROID_LOG_ERROR), Strings{message});
        EXPECT_EQ(parser.getDeviceData(), nullptr);
        EXPECT_FALSE(parser.isParsed());
        EXPECT_EQ(parser.getNumOfProfiles(), 0);
    }
}

TEST(PresetReaderTest, FailedLoadTakesBackEverythingItAdded) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(<format_version major="1" minor="0" maintenance="0"/>
        <general> <settings> <auxiliary-system-gain-enable value="true"/> </settings> </general>
        <profile id="1" name="movie"> <settings/> <include preset="warm"/> </profile>)" +
                                          preset(R"(type="geq" id="1")",
                                                 R"(<band frequency="100" gain="3"/>)"))),
              0);
    DeviceData* data = parser.getDeviceData();
    const Strings profiles = textsOf(data->getProfiles());

    LogCapture log;
    EXPECT_EQ(loadText(parser, tuningFile(R"(<format_version major="2" minor="0" maintenance="0"/>
        <general> <settings> <auxiliary-system-gain-enable value="false"/>
            <endpoint_type id="usb"> <auxiliary-system-gain value="-6"/> </endpoint_type>
        </settings> </general>
        <general> <settings/> </general>
        <profile id="1" name="cinema"> <settings>
            <endpoint_type id="speaker"> <virtualizer-enable value="1"/> </endpoint_type>
        </settings> <include preset="off"/> </profile>
        <tuning name="speaker"> <device_id id="internal_speaker"/> <data> </data> </tuning>
        <tuning name="orphan"> <device_id id="hdmi"/> </tuning>)" +
                                          ieqPreset(R"(type="ieq" id="ieq_warm")") +
                                          preset(R"(type="ieq" id="ieq_detailed")",
                                                 R"(<band_ieq target="1"/>)"))),
              -22);
    EXPECT_EQ(log.messages("TuningFileParser", ANDROID_LOG_ERROR),
              (Strings{"There is no <data> in Tuning section",
                       "parsePreset() preset type=ieq id=ieq_detailed has no frequency values"}));
    EXPECT_EQ(parser.getDeviceData(), data);
    EXPECT_EQ(textsOf(data->getProfiles()), profiles);
    EXPECT_EQ(parser.getNumOfProfiles(), 1);
    EXPECT_EQ(parser.getProfileName(1), "movie");

    // A later load hands on the reader's collections: only the first file's remain.
    ASSERT_EQ(loadText(parser, tuningFile("")), 0);
    DeviceData& after = *parser.getDeviceData();
    EXPECT_EQ(after.getFormatVersion(), "1.0.0");
    EXPECT_EQ(after.getGeneral()->toString(), "id=-1\nauxiliary_system_gain_enable=1,\n");
    EXPECT_EQ(textsOf(after.getProfiles()), profiles);
    EXPECT_EQ(textsOf(after.getGeqPresets()),
              Strings{"id=-1\nprofileId=1\ngeq_frequency=100,\ngeq_gain=3,\n"});
    EXPECT_TRUE(after.getIeqPresets().empty() && after.getProfileEndpoints().empty() &&
                after.getTunings().empty() && after.getDeviceTunings().empty() &&
                after.getGeneralEndpoints().empty());
}

}  // namespace
}  // namespace ovela
