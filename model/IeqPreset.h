#ifndef OVELA_IEQ_PRESET_H
#define OVELA_IEQ_PRESET_H

#include <set>
#include <string>

#include "ParameterValues.h"
#include "PresetType.h"

namespace ovela {

// Intelligent-equalizer preset. It carries its type as ieq_id too, so the
// value map alone says which preset it is.
class IeqPreset : public ParameterValues {
  public:
    explicit IeqPreset(PresetType type);
    IeqPreset(long long id, PresetType type);
    long long getId() override;
    const std::set<Parameter>& getValidParams() override;
    PresetType getType();
    std::string toString();

    static const std::set<Parameter> kValidParams;

  private:
    PresetType mType;
};

}  // namespace ovela

#endif  // OVELA_IEQ_PRESET_H
