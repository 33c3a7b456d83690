#define LOG_TAG "TuningFileParser"

#include <log/log.h>

#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"

namespace ovela {

PresetType TuningFileParser::getIeqPresetTypeByName(std::string name) {
    for (const auto& [word, type] : kIncludePresetWords) {
        if (name.find(word) != std::string::npos) {
            return type;
        }
    }
    ALOGE("name is invalid, %d", 367);
    return PRESET_TYPE_OFF;
}

}  // namespace ovela
