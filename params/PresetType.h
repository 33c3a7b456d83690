#ifndef OVELA_PRESET_TYPE_H
#define OVELA_PRESET_TYPE_H

#include <cstddef>

namespace ovela {

// Intelligent-equalizer preset types.
enum PresetType {
    PRESET_TYPE_OFF = 0,
    PRESET_TYPE_DETAILED = 1,
    PRESET_TYPE_BALANCED = 2,
    PRESET_TYPE_WARM = 3,
};

constexpr size_t kNumPresetTypes = 4;

// Print name of each preset type, indexed by its value.
extern const char* const kPresetTypeNames[kNumPresetTypes];

}  // namespace ovela

#endif  // OVELA_PRESET_TYPE_H
