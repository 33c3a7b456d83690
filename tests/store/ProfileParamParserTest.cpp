#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "AudioDevices.h"
#include "LogCapture.h"
#include "PackedWords.h"
#include "ParserBuffer.h"
#include "ProfileParamParser.h"

namespace ovela {
namespace {

using testing::Entry;
using testing::LogCapture;
using testing::packed;

constexpr char kTag[] = "OvlProfileParamParser";

int byteSize(const std::vector<int32_t>& words) {
    return static_cast<int>(words.size() * sizeof(int32_t));
}

// Everything that next() yields after begin(), entry by entry.
std::vector<Entry> walk(ProfileParamParser& parser) {
    std::vector<Entry> entries;
    while (parser.next()) {
        const int32_t* values = parser.getValues();
        entries.push_back({parser.getDevice(), parser.getParamId(),
                           std::vector<int32_t>(values, values + parser.getValueCount())});
    }
    return entries;
}

TEST(ParserBufferTest, SkipStaysWithinTheBuffer) {
    std::vector<int32_t> words = {1, 2};
    ParserBuffer buffer(words.data(), byteSize(words));
    EXPECT_TRUE(buffer.skip(4));
    EXPECT_FALSE(buffer.skip(5));
    EXPECT_FALSE(buffer.skip(-4));
    EXPECT_TRUE(buffer.skip(4));
    EXPECT_FALSE(buffer.skip(1));
    EXPECT_TRUE(buffer.skip(0));
}

TEST(ParserBufferTest, NullBufferHasNoBytes) {
    ParserBuffer buffer(nullptr, 64);
    EXPECT_FALSE(buffer.skip(1));
}

TEST(ProfileParamParserTest, WalksEveryEntryInOrder) {
    const std::vector<Entry> entries = {
        {kDeviceWiredHeadphone, kyrCode("hvm"), {1}},
        {kDeviceAll, kyrCode("iebs"), {2, 100, 200, 5, 6}},
        {kDeviceSpeaker, kyrCode("dom"), {}},
    };
    std::vector<int32_t> words = packed(7, entries);
    ProfileParamParser parser(words.data(), byteSize(words));
    LogCapture log;

    ASSERT_TRUE(parser.validate());
    ASSERT_TRUE(parser.begin());
    EXPECT_EQ(parser.getProfileId(), 7);
    EXPECT_EQ(parser.getParamCount(), 3);
    EXPECT_EQ(walk(parser), entries);
    EXPECT_EQ(parser.getParamsRead(), 3);
    EXPECT_TRUE(log.lines().empty());
}

TEST(ProfileParamParserTest, HeaderWithoutEntriesValidates) {
    std::vector<int32_t> words = {3, 0};
    ProfileParamParser parser(words.data(), 8);
    EXPECT_TRUE(parser.validate());
    ASSERT_TRUE(parser.begin());
    EXPECT_TRUE(walk(parser).empty());
}

TEST(ProfileParamParserTest, TrailingBytesAfterTheLastEntryAreIgnored) {
    std::vector<int32_t> words = packed(0, {{kDeviceUsb, kyrCode("vbon"), {1}}});
    words.insert(words.end(), {99, 98, 97});
    ProfileParamParser parser(words.data(), byteSize(words));
    EXPECT_TRUE(parser.validate());
    ASSERT_TRUE(parser.begin());
    EXPECT_EQ(walk(parser), (std::vector<Entry>{{kDeviceUsb, kyrCode("vbon"), {1}}}));
}

TEST(ProfileParamParserTest, NullBufferFailsToBeginAndToValidate) {
    LogCapture log;
    ProfileParamParser parser(nullptr, 0);
    EXPECT_FALSE(parser.begin());
    EXPECT_FALSE(parser.validate());
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              (std::vector<std::string>{"begin() failed to extract profile id",
                                        "begin() failed to extract profile id",
                                        "validate() EFFECT_PARAM_PROFILE header is incorrect."}));
}

TEST(ProfileParamParserTest, HeaderWithoutCountIsIncorrect) {
    std::vector<int32_t> words = {2};
    ProfileParamParser parser(words.data(), 4);
    LogCapture log;
    EXPECT_FALSE(parser.validate());
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              (std::vector<std::string>{"begin() failed to extract number of parameters",
                                        "validate() EFFECT_PARAM_PROFILE header is incorrect."}));
}

TEST(ProfileParamParserTest, EntryCutShortIsReportedByFieldAndRejected) {
    const std::vector<int32_t> whole = packed(1, {{kDeviceAll, kyrCode("qvle"), {1, 2}}});
    const std::vector<std::string> failures = {
        "next() failed to extract device id for parameter #1",
        "next() failed to extract parameter id for parameter #1",
        "next() failed to extract number of values for parameter #1",
        "next() failed to extract 2 values for parameter #1",
        "next() failed to extract 2 values for parameter #1",
    };
    for (size_t cut = 0; cut < failures.size(); ++cut) {
        std::vector<int32_t> words(whole.begin(), whole.begin() + 2 + cut);
        ProfileParamParser parser(words.data(), byteSize(words));
        LogCapture log;
        EXPECT_FALSE(parser.validate()) << "cut after " << cut << " entry words";
        EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
                  (std::vector<std::string>{failures[cut],
                                            "validate() Expected 1 parameters, found 0 "
                                            "parameters."}))
            << "cut after " << cut << " entry words";
    }
}

TEST(ProfileParamParserTest, NegativeValueCountIsRejected) {
    std::vector<int32_t> words = {0, 1, kDeviceAll, kyrCode("vol"), -1, 0, 0};
    ProfileParamParser parser(words.data(), byteSize(words));
    LogCapture log;
    EXPECT_FALSE(parser.validate());
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              (std::vector<std::string>{"next() failed to extract -1 values for parameter #1",
                                        "validate() Expected 1 parameters, found 0 parameters."}));
}

TEST(ProfileParamParserTest, FewerEntriesThanCountedFailValidation) {
    std::vector<int32_t> words = packed(4, {{kDeviceAll, kyrCode("vol"), {3}}});
    words[1] = 2;
    ProfileParamParser parser(words.data(), byteSize(words));
    LogCapture log;
    EXPECT_FALSE(parser.validate());
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
              (std::vector<std::string>{"next() failed to extract device id for parameter #2",
                                        "validate() Expected 2 parameters, found 1 parameters."}));
}

}  // namespace
}  // namespace ovela
