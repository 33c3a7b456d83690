#include <gtest/gtest.h>

#include <climits>

#include "LogCapture.h"
#include "ParserTestSupport.h"
#include "TempFile.h"
#include "TuningFileParser.h"

namespace ovela {
namespace {

using testing::loadText;
using testing::LogCapture;
using testing::textsOf;
using testing::tuningFile;
using testing::XmlText;

using Strings = std::vector<std::string>;

std::string profileFile(int id, const std::string& name) {
    return tuningFile("<profile id=\"" + std::to_string(id) + "\" name=\"" + name +
                      "\"> <settings> <ieq-amount value=\"5\"/> </settings> "
                      "<include preset=\"ieq_warm\"/> </profile>");
}

std::string profileText(int id, const std::string& name) {
    return "id=-1\nprofileId=" + std::to_string(id) + "\nname=" + name +
           "\nselectedIeqPreset=warm\nselectedGeqPreset=" + std::to_string(id) + "\nieq_amount=5,\n";
}

TEST(TuningFileParserTest, LoadFailuresReturnMinus22AndLogTheirLine) {
    LogCapture log;
    TuningFileParser parser;
    EXPECT_EQ(parser.setTuningFile(""), -22);
    EXPECT_EQ(parser.setTuningFile("/nonexistent/qrn-default.xml"), -22);
    EXPECT_EQ(parser.setTuningFile("/tmp"), -22);
    EXPECT_EQ(
        log.messages("TuningFileParser", ANDROID_LOG_ERROR),
        (Strings{"invalide tuning file path, 125",
                 "readTuningFile() /nonexistent/qrn-default.xml: no such file",
                 "fail to call xmlReadFile,  138", "readTuningFile() /tmp: a directory, not a file",
                 "fail to call xmlReadFile,  138"}));
    EXPECT_EQ(parser.getDeviceData(), nullptr);
    EXPECT_FALSE(parser.isParsed());
}

TEST(TuningFileParserTest, RootWithOnlyUnknownChildrenGivesAnEmptyModel) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile("<Profile id=\"1\"/> <profiles/> loose text")), 0);
    DeviceData& data = *parser.getDeviceData();
    EXPECT_TRUE(parser.isParsed());
    EXPECT_EQ(data.getFormatVersion() + data.getToolVersion(), "");
    EXPECT_TRUE(data.getIeqPresets().empty() && data.getGeqPresets().empty() &&
                data.getProfiles().empty() && data.getProfileEndpoints().empty() &&
                data.getTunings().empty() && data.getDeviceTunings().empty() &&
                data.getGeneralEndpoints().empty());
    EXPECT_EQ(data.getGeneral(), nullptr);
}

TEST(TuningFileParserTest, VersionsJoinTheirPartsAndTheLastElementWins) {
    LogCapture log;
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(<format_version major="9" minor="9" maintenance="9"/>
        <format_version major="1" build="77" minor="2" maintenance="3"/> <tool_version/>)")),
              0);
    EXPECT_EQ(parser.getDeviceData()->getFormatVersion(), "1.2.3");
    EXPECT_EQ(parser.getDeviceData()->getToolVersion(), "..");
    EXPECT_EQ(log.messages("TuningFileParser", ANDROID_LOG_ERROR),
              Strings{"invalid attribute name build"});
}

TEST(TuningFileParserTest, SettingValueIsTheFirstAttributeOnlyWhenNamedValue) {
    XmlText xml(R"(<s><a value="true"/><b value="false"/><c value="TRUE"/><d value=" -42"/>)"
                R"(<e value="12abc"/><f name="x" value="5"/><g/></s>)");
    std::vector<int> values;
    for (xmlNode* node = xml.root()->children; node != nullptr; node = node->next) {
        values.push_back(TuningFileParser::getNodeValue(node));
    }
    EXPECT_EQ(values, (std::vector<int>{1, 0, 0, -42, 12, 0, 0}));
}

TEST(TuningFileParserTest, DataRowSkipsEmptyFieldsAndRepeatsUnreadableOnes) {
    XmlText xml(R"(<r><a data=",5,,x,7,"/><b data="x,3"/><c row="12abc, 4,-2"/>)"
                R"(<d/><e data=""/><f data="1 2 3"/></r>)");
    std::vector<std::vector<int>> rows;
    for (xmlNode* node = xml.root()->children; node != nullptr; node = node->next) {
        rows.push_back(TuningFileParser::parseDataRow(node));
    }
    EXPECT_EQ(rows, (std::vector<std::vector<int>>{{5, 5, 7}, {0, 3}, {12, 4, -2}, {}, {}, {1}}));
}

// As sscanf's "%d" reads them: the number as a long, saturated past the long's
// range, then cast to int.
TEST(TuningFileParserTest, DataRowNumbersPastTheRangeWrapAsSscanfReadsThem) {
    XmlText xml(R"(<r data="99999999999,-99999999999,2147483648,+7,99999999999999999999"/>)");
    EXPECT_EQ(TuningFileParser::parseDataRow(xml.root()),
              (std::vector<int>{1215752191, -1215752191, INT_MIN, 7, -1}));
}

TEST(TuningFileParserTest, EntityReferencesInAValueReadAsTheirText) {
    XmlText xml(R"(<!DOCTYPE s [<!ENTITY gain "-96"> <!ENTITY row "1,&gain;">]>)"
                R"(<s><a value="&gain;"/><b data="&row;,4"/></s>)");
    xmlNode* first = xml.root()->children;
    EXPECT_EQ(TuningFileParser::getNodeValue(first), -96);
    EXPECT_EQ(TuningFileParser::parseDataRow(first->next), (std::vector<int>{1, -96, 4}));
}

// A value is put together from at most 1024 entity references into at most
// 1 MiB of text; past either bound it reads as empty, with one line.
TEST(TuningFileParserTest, ValueExpandedPastItsBoundsReadsAsEmpty) {
    auto references = [](const std::string& entity, int count) {
        std::string text;
        for (int i = 0; i < count; ++i) {
            text += "&" + entity + ";";
        }
        return text;
    };
    // 1024 references to "1" and 1023 commas fill both bounds exactly.
    XmlText xml("<!DOCTYPE s [<!ENTITY k \"1" + std::string(1023, ',') +
                "\"> <!ENTITY one \"1,\">]>\n<s><full data=\"" + references("k", 1024) +
                "\"/><longer data=\"" + references("k", 1024) + "2\"/><more data=\"" +
                references("one", 1025) + "\"/></s>");
    LogCapture log;
    std::vector<std::vector<int>> rows;
    for (xmlNode* node = xml.root()->children; node != nullptr; node = node->next) {
        rows.push_back(TuningFileParser::parseDataRow(node));
    }
    EXPECT_EQ(rows, (std::vector<std::vector<int>>{std::vector<int>(1024, 1), {}, {}}));
    EXPECT_EQ(log.messages("TuningFileParser", ANDROID_LOG_ERROR),
              (Strings{"expandedValueOf() data of <longer> passes 1048576 bytes or 1024 entity "
                       "references: read as empty",
                       "expandedValueOf() data of <more> passes 1048576 bytes or 1024 entity "
                       "references: read as empty"}));
}

// An entity that only an external DTD could declare: libxml2 leaves the
// reference out of the value, and the reader says so.
TEST(TuningFileParserTest, ReferenceToAnUndeclaredEntityReadsWithoutItAndIsLogged) {
    LogCapture log;
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser,
                       "<?xml version=\"1.0\"?>\n"
                       "<!DOCTYPE tuning_file SYSTEM \"tuning.dtd\">\n<tuning_file> "
                       "<profile id=\"1\" name=\"p\"> <settings> "
                       "<ieq-amount value=\"&amount;\"/> "
                       "<drc-metadata data=\"1,&two;,3\"/> </settings> "
                       "</profile> </tuning_file>\n"),
              0);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getProfiles()),
              Strings{"id=-1\nprofileId=1\nname=p\nselectedIeqPreset=off\nselectedGeqPreset=1\n"
                      "custom_drc_metadata=1,3,\nieq_amount=0,\n"});
    EXPECT_EQ(log.messages("TuningFileParser", ANDROID_LOG_ERROR),
              (Strings{"droppedReference() value of <ieq-amount> refers to &amount;, which the "
                       "file does not declare: read without it",
                       "droppedReference() data of <drc-metadata> refers to &two;, which the file "
                       "does not declare: read without it",
                       "name is invalid, 367"}));
}

TEST(TuningFileParserTest, ElementsWrittenWithoutWhitespaceLoseTheirFirstChild) {
    LogCapture log;
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(<general>
        <settings><auxiliary-system-gain-enable value="true"/><endpoint_type id="usb">
                <auxiliary-system-gain value="-6"/>
            </endpoint_type>
        </settings>
    </general>
    <profile id="4" name="voice"><settings>
            <ieq-amount value="7"/>
        </settings>
        <include preset="ieq_warm"/>
    </profile>)")),
              0);
    DeviceData& data = *parser.getDeviceData();
    EXPECT_EQ(data.getGeneral()->toString(), "id=-1\n");
    EXPECT_EQ(textsOf(data.getGeneralEndpoints()),
              Strings{"id=-1\nendpoint=usb\nauxiliary_system_gain=-6,\n"});
    // The profile's 2nd and 4th child nodes are text: no parameters, no preset.
    EXPECT_EQ(
        textsOf(data.getProfiles()),
        Strings{"id=-1\nprofileId=4\nname=voice\nselectedIeqPreset=off\nselectedGeqPreset=4\n"});
    EXPECT_EQ(log.messages("TuningFileParser", ANDROID_LOG_ERROR), Strings{"name is invalid, 367"});
}

TEST(TuningFileParserTest, ParseTuningFileReadsTheDocumentAgainBehindTheModel) {
    TuningFileParser idle;
    idle.parseTuningFile();
    EXPECT_FALSE(idle.isParsed());
    LogCapture log;
    EXPECT_EQ(idle.initXmlParser(), -22);

    // initXmlParser reads the document whole, and parseTuningFile walks it.
    testing::TempFile file(profileFile(3, "game"));
    TuningFileParser whole;
    ASSERT_EQ(whole.setTuningFile(file.path()), 0);
    ASSERT_EQ(whole.initXmlParser(), 0);
    whole.parseTuningFile();
    EXPECT_EQ(textsOf(whole.getDeviceData()->getProfiles()), Strings{profileText(3, "game")});
    EXPECT_EQ(whole.getNumOfProfiles(), 2);

    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, profileFile(1, "movie")), 0);
    parser.parseTuningFile();
    EXPECT_EQ(parser.getNumOfProfiles(), 2);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getProfiles()), Strings{profileText(1, "movie")});
}

}  // namespace
}  // namespace ovela
