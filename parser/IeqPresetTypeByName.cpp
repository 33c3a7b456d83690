#define LOG_TAG "TuningFileParser"

#include <log/log.h>

#include "TuningFileParser.h"

namespace ovela {

namespace {

// Tested in this order, first hit wins: "off" beats every other word, and
// "balanced" is tested before "detailed".
constexpr std::pair<const char*, PresetType> kPresetNameWords[] = {
        {"off", PRESET_TYPE_OFF},
        {"balanced", PRESET_TYPE_BALANCED},
        {"warm", PRESET_TYPE_WARM},
        {"detailed", PRESET_TYPE_DETAILED},
};

}  // namespace

PresetType TuningFileParser::getIeqPresetTypeByName(std::string name) {
    for (const auto& [word, type] : kPresetNameWords) {
        if (name.find(word) != std::string::npos) {
            return type;
        }
    }
    ALOGE("name is invalid, %d", 367);
    return PRESET_TYPE_OFF;
}

}  // namespace ovela
