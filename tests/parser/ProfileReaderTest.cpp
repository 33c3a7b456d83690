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

// A profile 1 whose container holds `settings`.
std::string profileWith(const std::string& settings) {
    return tuningFile("<profile id=\"1\"> <settings> " + settings +
                      " </settings> <include preset=\"off\"/> </profile>");
}

TEST(ProfileReaderTest, ProfileReadsItsIdNamePresetAndParameters) {
    LogCapture log;
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(<profile name="game" id="3" extra="x">
        <settings>
            <ieq-enable value="true"/> <ieq-amount value="4"/> <ieq-amount value="9"/>
            <volume-modeler-enable value="false"/> <mi-qv-leveler-steering-enable value="1"/>
            <reverb-suppression-amount value="-3"/> <drc-metadata data="0,1,,2"/>
            <IEQ-AMOUNT value="5"/> <endpoint-type id="speaker"> <peak-value value="6"/> </endpoint-type>
        </settings>
        <include preset="ieq_detailed"/>
    </profile>)")),
              0);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getProfiles()),
              Strings{"id=-1\nprofileId=3\nname=game\nselectedIeqPreset=detailed\n"
                      "selectedGeqPreset=3\ncustom_drc_metadata=0,1,2,\nieq_amount=9,\n"
                      "ieq_enable=1,\nmi_qv_leveler_steering_enable=1,\n"
                      "reverb_suppression_amount=-3,\nvolume_modeler_enable=0,\n"});
    EXPECT_TRUE(parser.getDeviceData()->getProfileEndpoints().empty());
    EXPECT_TRUE(log.messages("TuningFileParser", ANDROID_LOG_ERROR).empty());
}

TEST(ProfileReaderTest, ProfilesWithTheSameIdAreBothKeptAndTheLaterNameWins) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(
        <profile id="2" name="music"> <settings> <drc-metadata data=""/> </settings>
            <include preset="ieq_warm"/> </profile>
        <profile id="2" name="jazz"> <settings/> <include preset="ieq_balanced"/> </profile>)")),
              0);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getProfiles()),
              (Strings{"id=-1\nprofileId=2\nname=music\nselectedIeqPreset=warm\n"
                       "selectedGeqPreset=2\ncustom_drc_metadata=0,\n",
                       "id=-1\nprofileId=2\nname=jazz\nselectedIeqPreset=balanced\n"
                       "selectedGeqPreset=2\n"}));
    EXPECT_EQ(parser.getNumOfProfiles(), 2);
    EXPECT_EQ(parser.getProfileName(2), "jazz");
}

TEST(ProfileReaderTest, PresetNeedsAnIncludeWhoseFirstAttributeIsPreset) {
    LogCapture log;
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(
        <profile> <settings/> <include x="1" preset="ieq_warm"/> </profile>
        <profile id="5"> <settings/> <include/> </profile>
        <profile id="6"> <settings/> <use preset="ieq_warm"/> </profile>
        <profile id="7"> </profile>)")),
              0);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getProfiles()),
              (Strings{"id=-1\nprofileId=0\nname=\nselectedIeqPreset=off\nselectedGeqPreset=0\n",
                       "id=-1\nprofileId=5\nname=\nselectedIeqPreset=off\nselectedGeqPreset=5\n",
                       "id=-1\nprofileId=6\nname=\nselectedIeqPreset=off\nselectedGeqPreset=6\n",
                       "id=-1\nprofileId=7\nname=\nselectedIeqPreset=off\nselectedGeqPreset=7\n"}));
    EXPECT_EQ(parser.getNumOfProfiles(), 4);
    EXPECT_EQ(log.messages("TuningFileParser", ANDROID_LOG_ERROR),
              Strings(4, "name is invalid, 367"));
}

TEST(ProfileReaderTest, EndpointReadsSingleValuesAndRows) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, profileWith(R"(<endpoint_type id="headphone">
        <virtualizer-enable value="true"/> <virtual-bass-process-enable value="false"/>
        <virtual-bass-enable value="true"/> <volume-leveler-amount value="8"/>
        <volume-leveler-amount value="3"/> <headphone-virtualizer-mode value="2"/>
        <advanced-headphone-virtualizer-rendering-config data="103,32568,,11164"/>
        <advanced-headphone-virtualizer-rendering-config-for-living-room/> <peak-value/>
    </endpoint_type>)")),
              0);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getProfileEndpoints()),
              Strings{"id=-1\nprofileId=1\nendpoint=headphone\n"
                      "advanced_headphone_virtualizer_rendering_config=103,32568,11164,\n"
                      "advanced_headphone_virtualizer_rendering_config_for_living_room=\n"
                      "headphone_virtualizer_mode=2,\npeak_value=0,\nvirtual_bass_enable=0,\n"
                      "virtualizer_enable=1,\nvolume_leveler_amount=3,\n"});
}

TEST(ProfileReaderTest, EndpointNamesNeedAFirstAttributeIdAndFallBackToOther) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, profileWith(R"(
        <endpoint_type id="remote_submix"> <!-- nothing tuned here --> </endpoint_type>
        <endpoint_type id="Headphone"> </endpoint_type>
        <endpoint_type x="1" id="usb"> </endpoint_type> <endpoint_type/>)")),
              0);
    EXPECT_EQ(
        textsOf(parser.getDeviceData()->getProfileEndpoints()),
        (Strings{"id=-1\nprofileId=1\nendpoint=remote_submix\n",
                 "id=-1\nprofileId=1\nendpoint=other\n", "id=-1\nprofileId=1\nendpoint=other\n",
                 "id=-1\nprofileId=1\nendpoint=other\n"}));
}

}  // namespace
}  // namespace ovela
