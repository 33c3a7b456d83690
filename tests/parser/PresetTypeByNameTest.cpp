#include <gtest/gtest.h>

#include "LogCapture.h"
#include "TuningFileParser.h"

namespace ovela {
namespace {

using testing::LogCapture;
using testing::LogLine;

// The first of "off", "balanced", "warm", "detailed" found in the name
// decides; a name with none is logged and reads as off.
TEST(PresetTypeByNameTest, SubstringsDecideInFixedOrder) {
    LogCapture log;
    EXPECT_EQ(TuningFileParser::getIeqPresetTypeByName("ieq_detailed"), PRESET_TYPE_DETAILED);
    EXPECT_EQ(TuningFileParser::getIeqPresetTypeByName("warm"), PRESET_TYPE_WARM);
    EXPECT_EQ(TuningFileParser::getIeqPresetTypeByName("coffee"), PRESET_TYPE_OFF);
    EXPECT_EQ(TuningFileParser::getIeqPresetTypeByName("balanced_off"), PRESET_TYPE_OFF);
    EXPECT_EQ(TuningFileParser::getIeqPresetTypeByName("detailed_balanced"), PRESET_TYPE_BALANCED);
    EXPECT_TRUE(log.lines().empty());
    EXPECT_EQ(TuningFileParser::getIeqPresetTypeByName("Warm"), PRESET_TYPE_OFF);
    EXPECT_EQ(TuningFileParser::getIeqPresetTypeByName(""), PRESET_TYPE_OFF);
    const LogLine invalid{ANDROID_LOG_ERROR, "TuningFileParser", "name is invalid, 367"};
    EXPECT_EQ(log.lines(), (std::vector<LogLine>{invalid, invalid}));
}

}  // namespace
}  // namespace ovela
