#ifndef OVELA_GEQ_PRESET_H
#define OVELA_GEQ_PRESET_H

#include <set>
#include <string>

#include "ParameterValues.h"

namespace ovela {

// Graphic-equalizer preset, named by the id of the profile it belongs to.
class GeqPreset : public ParameterValues {
  public:
    explicit GeqPreset(int profileId);
    GeqPreset(long long id, int profileId);
    long long getId() override;
    const std::set<Parameter>& getValidParams() override;
    int getProfileId();
    std::string toString();
    bool equals(GeqPreset& other);
    static const std::set<Parameter> kValidParams;

  private:
    int mProfileId;
};

}  // namespace ovela

#endif  // OVELA_GEQ_PRESET_H
