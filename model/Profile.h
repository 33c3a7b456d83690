#ifndef OVELA_PROFILE_H
#define OVELA_PROFILE_H

#include <set>
#include <string>

#include "ParameterValues.h"
#include "PresetType.h"

namespace ovela {

// One audio profile: its profile-wide values and the presets it selects. By
// default a profile selects the GEQ preset that carries its own profile id.
class Profile : public ParameterValues {
  public:
    Profile(int profileId, std::string name, PresetType selectedIeqPreset);
    Profile(long long id, int profileId, std::string name, PresetType selectedIeqPreset);
    long long getId() override;
    const std::set<Parameter>& getValidParams() override;
    int getProfileId();
    std::string getName();
    PresetType getSelectedIeqPreset();
    int getSelectedGeqPreset();
    void setName(std::string name);
    void setSelectedIeqPreset(PresetType preset);
    void setSelectedGeqPreset(int preset);
    std::string toString();
    // The name and the selected GEQ preset take no part: they do not change
    // what the effect receives.
    bool equals(Profile& other);
    static const std::set<Parameter> kValidParams;

  private:
    int mProfileId;
    std::string mName;
    PresetType mSelectedIeqPreset;
    int mSelectedGeqPreset;
};

}  // namespace ovela

#endif  // OVELA_PROFILE_H
