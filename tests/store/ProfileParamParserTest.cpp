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

using Strings = std::vector<std::string>;
using Words = std::vector<int32_t>;

constexpr char kTag[] = "OvlProfileParamParser";

int byteSize(const Words& words) {
    return static_cast<int>(words.size() * sizeof(int32_t));
}

TEST(ParserBufferTest, SkipStaysWithinTheBuffer) {
    Words words = {1, 2};
    ParserBuffer buffer(words.data(), byteSize(words));
    EXPECT_TRUE(buffer.skip(4));
    EXPECT_FALSE(buffer.skip(5));
    EXPECT_FALSE(buffer.skip(-4));
    EXPECT_TRUE(buffer.skip(4));
    EXPECT_FALSE(buffer.skip(1));
    EXPECT_TRUE(buffer.skip(0));

    ParserBuffer null(nullptr, 64);
    EXPECT_FALSE(null.skip(1));
}

TEST(ProfileParamParserTest, WalksEveryEntryInOrder) {
    const std::vector<Entry> entries = {
        {kDeviceWiredHeadphone, kyrCode("hvm"), {1}},
        {kDeviceAll, kyrCode("iebs"), {2, 100, 200, 5, 6}},
        {kDeviceSpeaker, kyrCode("dom"), {}},
    };
    Words withTrailingBytes = packed(0, {entries[0]});
    withTrailingBytes.insert(withTrailingBytes.end(), {99, 98, 97});
    const struct {
        const char* what;
        Words words;
        std::vector<Entry> entries;
    } cases[] = {
        {"three entries", packed(7, entries), entries},
        {"a header without entries", {3, 0}, {}},
        {"bytes after the last counted entry are ignored", withTrailingBytes, {entries[0]}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Words words = c.words;
        ProfileParamParser parser(words.data(), byteSize(words));
        LogCapture log;
        ASSERT_TRUE(parser.validate());
        ASSERT_TRUE(parser.begin());
        EXPECT_EQ(parser.getProfileId(), words[0]);
        EXPECT_EQ(parser.getParamCount(), words[1]);
        std::vector<Entry> walked;
        while (parser.next()) {
            const int32_t* values = parser.getValues();
            walked.push_back({parser.getDevice(), parser.getParamId(),
                              Words(values, values + parser.getValueCount())});
        }
        EXPECT_EQ(walked, c.entries);
        EXPECT_EQ(parser.getParamsRead(), words[1]);
        EXPECT_TRUE(log.lines().empty());
    }
}

TEST(ProfileParamParserTest, DamagedArraysFailValidationWithTheFieldThatIsMissing) {
    const Words whole = packed(1, {{kDeviceAll, kyrCode("qvle"), {1, 2}}});
    // Cut after the header and after each word of the entry but the last.
    const auto cut = [&whole](size_t entryWords) {
        return Words(whole.begin(), whole.begin() + 2 + entryWords);
    };
    Words fewer = packed(4, {{kDeviceAll, kyrCode("vol"), {3}}});
    fewer[1] = 2;
    const std::string header = "validate() EFFECT_PARAM_PROFILE header is incorrect.";
    const std::string foundNone = "validate() Expected 1 parameters, found 0 parameters.";
    const struct {
        const char* what;
        Words words;
        Strings errors;
    } cases[] = {
        {"no bytes", {}, {"begin() failed to extract profile id", header}},
        {"no count", {2}, {"begin() failed to extract number of parameters", header}},
        {"no device", cut(0), {"next() failed to extract device id for parameter #1", foundNone}},
        {"no code", cut(1), {"next() failed to extract parameter id for parameter #1", foundNone}},
        {"no value count",
         cut(2),
         {"next() failed to extract number of values for parameter #1", foundNone}},
        {"no values", cut(3), {"next() failed to extract 2 values for parameter #1", foundNone}},
        {"one value of two",
         cut(4),
         {"next() failed to extract 2 values for parameter #1", foundNone}},
        {"negative value count",
         {0, 1, kDeviceAll, kyrCode("vol"), -1, 0, 0},
         {"next() failed to extract -1 values for parameter #1", foundNone}},
        {"fewer entries than counted",
         fewer,
         {"next() failed to extract device id for parameter #2",
          "validate() Expected 2 parameters, found 1 parameters."}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Words words = c.words;
        ProfileParamParser parser(words.empty() ? nullptr : words.data(), byteSize(words));
        LogCapture log;
        EXPECT_FALSE(parser.validate());
        EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR), c.errors);
        // A walk can begin exactly when the header is whole.
        EXPECT_EQ(parser.begin(), words.size() >= 2);
    }
}

}  // namespace
}  // namespace ovela
