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
using testing::XmlText;

using Strings = std::vector<std::string>;

TEST(GeneralReaderTest, EndpointsNeedAFirstAttributeIdWithAnExactName) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(<general> <settings>
        <endpoint_type id="bluetooth"> <auxiliary-system-gain value="-3"/>
            <auxiliary-system-gain value="-9"/> <system-gain value="4"/> </endpoint_type>
        <endpoint_type id="remote_submix"> </endpoint_type>
        <endpoint_type id="Speaker"> <auxiliary-system-gain value="1"/> </endpoint_type>
        <endpoint_type x="1" id="usb"> <auxiliary-system-gain value="2"/> </endpoint_type>
        <endpoint_type> <auxiliary-system-gain value="3"/> </endpoint_type>
    </settings> </general>)")),
              0);
    EXPECT_EQ(parser.getDeviceData()->getGeneral()->toString(), "id=-1\n");
    EXPECT_EQ(textsOf(parser.getDeviceData()->getGeneralEndpoints()),
              (Strings{"id=-1\nendpoint=bluetooth\nauxiliary_system_gain=-9,\n",
                       "id=-1\nendpoint=remote_submix\n",
                       "id=-1\nendpoint=other\nauxiliary_system_gain=1,\n",
                       "id=-1\nendpoint=other\nauxiliary_system_gain=2,\n",
                       "id=-1\nendpoint=other\nauxiliary_system_gain=3,\n"}));
}

TEST(GeneralReaderTest, SecondGeneralSectionReplacesTheFirst) {
    LogCapture log;
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(<general> <settings>
        <auxiliary-system-gain-enable value="true"/>
        <endpoint_type id="speaker"> <auxiliary-system-gain value="-6"/> </endpoint_type>
    </settings> </general>
    <general> <settings> <auxiliary-system-gain-enable value="false"/> </settings> </general>
    <general/>
    <general> <settings> <auxiliary-system-gain-enable value="2"/> </settings> </general>)")),
              0);
    EXPECT_EQ(parser.getDeviceData()->getGeneral()->toString(),
              "id=-1\nauxiliary_system_gain_enable=2,\n");
    EXPECT_EQ(log.messages("TuningFileParser", ANDROID_LOG_DEBUG), Strings(4, "parseGeneral"));
    // The endpoints of every section stay.
    EXPECT_EQ(textsOf(parser.getDeviceData()->getGeneralEndpoints()),
              Strings{"id=-1\nendpoint=speaker\nauxiliary_system_gain=-6,\n"});
}

TEST(GeneralReaderTest, GeneralWithoutWrapperHasNoValues) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile("<general><auxiliary-system-gain-enable value=\"1\"/>"
                                          "</general>")),
              0);
    EXPECT_EQ(parser.getDeviceData()->getGeneral()->toString(), "id=-1\n");
}

TEST(GeneralReaderTest, MixMatrixFlattensTheFirstAttributeOfEveryRow) {
    XmlText xml(R"(<output-mode>
    <mix_matrix> <row coefficients="1,0"/> <!-- centre --> <row/> <row any="0,,1"/>
        <row coefficients="5"/> </mix_matrix>
    <mix_matrix> <row coefficients="9"/> </mix_matrix>
    <advanced_mix_matrix/>
</output-mode>)");
    EXPECT_EQ(TuningFileParser::parseMixMatrix("mix_matrix", xml.root()),
              (std::vector<int>{1, 0, 0, 1, 5}));
    EXPECT_EQ(TuningFileParser::parseMixMatrix("advanced_mix_matrix", xml.root()),
              std::vector<int>{});
    EXPECT_EQ(TuningFileParser::parseMixMatrix("Mix_matrix", xml.root()), std::vector<int>{});

    XmlText compact(R"(<output-mode><mix_matrix> <row c="1,0"/> </mix_matrix> </output-mode>)");
    EXPECT_EQ(TuningFileParser::parseMixMatrix("mix_matrix", compact.root()), std::vector<int>{});
}

}  // namespace
}  // namespace ovela
