#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "LogCapture.h"
#include "ParserTestSupport.h"
#include "TempFile.h"
#include "TuningFileParser.h"

namespace ovela {
namespace {

using testing::sampleFile;
using testing::loadText;
using testing::LogCapture;
using testing::tuningFile;

struct Input {
    const char* name;
    std::string text;
    int result;
};

void PrintTo(const Input& input, std::ostream* out) {
    *out << input.name;
}

std::string nested(int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += "<a> ";
    for (int i = 0; i < depth; ++i) text += "</a>";
    return text;
}

class MalformedInputTest : public ::testing::TestWithParam<Input> {};

// Whatever the file holds, the load ends with its result code, and with a
// model exactly when it succeeded.
TEST_P(MalformedInputTest, LoadsWithoutCrashingAndReportsItsResult) {
    LogCapture log;
    TuningFileParser parser;
    EXPECT_EQ(loadText(parser, GetParam().text), GetParam().result);
    EXPECT_EQ(parser.getDeviceData() != nullptr, GetParam().result == 0);
}

INSTANTIATE_TEST_SUITE_P(
    Corpus, MalformedInputTest,
    ::testing::Values(
        Input{"EmptyFile", "", -22}, Input{"NotXml", "qrn-default", -22},
        Input{"BinaryBytes", std::string("\x00\x01\xfe\xff<", 5), -22},
        Input{"DeclarationOnly", "<?xml version=\"1.0\"?>\n", -22},
        Input{"TruncatedInATag", "<tuning_file>\n    <profile id=\"1", -22},
        Input{"AttributeWithoutValue", tuningFile("<profile id> </profile>"), -22},
        Input{"AttributeWithoutQuotes", tuningFile("<profile id=1/>"), -22},
        Input{"RepeatedAttribute", tuningFile(R"(<tuning name="a" name="b"/>)"), -22},
        Input{"WrongNesting", "<tuning_file> <profile> </tuning_file> </profile>", -22},
        Input{"UnknownEncoding", "<?xml version=\"1.0\" encoding=\"x-none\"?>\n<a/>", -22},
        Input{"NestedBeyondTheParserLimit", nested(300), -22},
        Input{"NestedDeeplyWithinTheLimit", tuningFile(nested(200)), 0},
        Input{"EmptySections",
              tuningFile("<format_version/> <general/> <profile/> <tuning/> <preset/>"), 0},
        Input{"EmptyIeqPreset", tuningFile(R"(<preset type="ieq" id="ieq_off"/>)"), -22},
        Input{"SectionsOnOneLine",
              R"(<r><general><a/><endpoint_type id="usb"/></general><profile id="1"><s/>)"
              R"(<include preset="warm"/></profile><tuning name="t"><data/></tuning></r>)",
              0},
        Input{"SectionsNestedInEachOther", tuningFile(R"(<tuning name="t">
            <profile id="1"> <settings> <general> <settings/> </general> </settings> </profile>
            <tuning name="inner"> <data/> </tuning> </tuning>
            <profile id="2"> <tuning name="p"> <data/> </tuning> <preset type="geq" id="1"/>
            </profile>)"),
              0},
        Input{"CommentsAndCdataWhereElementsBelong", tuningFile(R"(
            <general> <!-- wrapper --> </general>
            <profile id="1"> <![CDATA[container]]> <?include preset="ieq_warm"?> </profile>
            <tuning name="t"> <!-- data --> </tuning>)"),
              0},
        Input{"EntityReferencesWhereElementsBelong", R"(<?xml version="1.0"?>
<!DOCTYPE tuning_file [
    <!ENTITY settings "<ieq-amount value='1'/>">
    <!ENTITY mix_matrix "<row c='1'/>">
]>
<tuning_file>
    <general> &settings; </general>
    <profile id="1"> &settings; &settings; </profile>
    <tuning name="t"> <data>
        <output-mode> &mix_matrix; </output-mode>
        <regulator-tuning> &mix_matrix; </regulator-tuning>
    </data> </tuning>
</tuning_file>
)",
              0},
        Input{"NumbersOutOfRange", tuningFile(R"(<tuning name="t" orientation="99999999999"> <data>
            <regulator-enable value="-99999999999"/>
            <regulator-stress-amount data="99999999999,-99999999999,2147483648"/>
            <regulator-tuning> <band frequency="99999999999"/> </regulator-tuning>
            </data> </tuning> <profile id="99999999999" name="big"> </profile>)"),
              0}),
    [](const ::testing::TestParamInfo<Input>& info) { return std::string(info.param.name); });

TEST(MalformedInputTest, EveryTruncationOfTheReferenceFileFailsCleanly) {
    std::ifstream in(sampleFile());
    const std::string whole((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    const size_t end = whole.rfind("</ovela_tuning>");
    ASSERT_NE(end, std::string::npos);
    LogCapture log;
    for (size_t cut = 0; cut < end; cut += end / 23) {
        SCOPED_TRACE(cut);
        TuningFileParser parser;
        EXPECT_EQ(loadText(parser, whole.substr(0, cut)), -22);
        EXPECT_EQ(parser.getDeviceData(), nullptr);
    }
}

TEST(MalformedInputTest, DirectoryAsPathFailsWithMinus22) {
    LogCapture log;
    TuningFileParser parser;
    EXPECT_EQ(parser.setTuningFile("/tmp"), -22);
    EXPECT_EQ(parser.getDeviceData(), nullptr);
}

}  // namespace
}  // namespace ovela
