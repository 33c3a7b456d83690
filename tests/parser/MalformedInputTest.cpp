#include <gtest/gtest.h>

#include "LogCapture.h"
#include "ParserTestSupport.h"
#include "TempFile.h"
#include "TuningFileCorpus.h"
#include "TuningFileParser.h"

namespace ovela {
namespace {

using testing::fileText;
using testing::loadText;
using testing::LogCapture;
using testing::sampleFile;

using testing::MalformedInput;

class MalformedInputTest : public ::testing::TestWithParam<MalformedInput> {};

// Whatever the file holds, the load ends with its result code, and with a
// model exactly when it succeeded.
TEST_P(MalformedInputTest, LoadsWithoutCrashingAndReportsItsResult) {
    LogCapture log;
    TuningFileParser parser;
    EXPECT_EQ(loadText(parser, GetParam().text), GetParam().result);
    EXPECT_EQ(parser.getDeviceData() != nullptr, GetParam().result == 0);
}

INSTANTIATE_TEST_SUITE_P(Corpus, MalformedInputTest, ::testing::ValuesIn(testing::malformedInputs()),
                         [](const ::testing::TestParamInfo<MalformedInput>& info) {
                             return std::string(info.param.name);
                         });

TEST(MalformedInputTest, EveryTruncationOfTheReferenceFileFailsCleanly) {
    const std::string whole = fileText(sampleFile());
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

}  // namespace
}  // namespace ovela
