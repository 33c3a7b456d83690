#include "IeqPreset.h"

namespace ovela {

const std::set<Parameter> IeqPreset::kValidParams = validParamsOf(EntityClass::IEQ_PRESET);

IeqPreset::IeqPreset(PresetType type) : IeqPreset(-1, type) {}

// Storing the type through set() leaves every IEQ preset dirty, as intended:
// the id-taking constructor included.
IeqPreset::IeqPreset(long long id, PresetType type) : ParameterValues(id, false), mType(type) {
    set(IEQ_ID, {static_cast<int>(type)});
}

long long IeqPreset::getId() {
    return mId;
}

const std::set<Parameter>& IeqPreset::getValidParams() {
    return kValidParams;
}

PresetType IeqPreset::getType() {
    return mType;
}

std::string IeqPreset::toString() {
    return describe(std::string("type=") + kPresetTypeNames[mType] + "\n");
}

}  // namespace ovela
