#include "Profile.h"

#include <utility>

namespace ovela {

const std::set<Parameter> Profile::kValidParams = validParamsOf(EntityClass::PROFILE);

Profile::Profile(int profileId, std::string name, PresetType selectedIeqPreset)
    : Profile(-1, profileId, std::move(name), selectedIeqPreset) {
    mDirty = true;
}

Profile::Profile(long long id, int profileId, std::string name, PresetType selectedIeqPreset)
    : ParameterValues(id, false),
      mProfileId(profileId),
      mName(std::move(name)),
      mSelectedIeqPreset(selectedIeqPreset),
      mSelectedGeqPreset(profileId) {}

long long Profile::getId() {
    return mId;
}

const std::set<Parameter>& Profile::getValidParams() {
    return kValidParams;
}

int Profile::getProfileId() {
    return mProfileId;
}

std::string Profile::getName() {
    return mName;
}

PresetType Profile::getSelectedIeqPreset() {
    return mSelectedIeqPreset;
}

int Profile::getSelectedGeqPreset() {
    return mSelectedGeqPreset;
}

void Profile::setName(std::string name) {
    mName = std::move(name);
    mDirty = true;
}

void Profile::setSelectedIeqPreset(PresetType preset) {
    mSelectedIeqPreset = preset;
    mDirty = true;
}

void Profile::setSelectedGeqPreset(int preset) {
    mSelectedGeqPreset = preset;
    mDirty = true;
}

std::string Profile::toString() {
    return describe("profileId=" + std::to_string(mProfileId) + "\nname=" + mName +
                    "\nselectedIeqPreset=" + kPresetTypeNames[mSelectedIeqPreset] +
                    "\nselectedGeqPreset=" + std::to_string(mSelectedGeqPreset) + "\n");
}

bool Profile::equals(Profile& other) {
    return this == &other || (mSelectedIeqPreset == other.mSelectedIeqPreset &&
                              mProfileId == other.mProfileId && sameValues(other));
}

}  // namespace ovela
