#include "PresetType.h"

namespace ovela {

const char* const kPresetTypeNames[kNumPresetTypes] = {"off", "detailed", "balanced", "warm"};

}  // namespace ovela
