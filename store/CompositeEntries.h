#ifndef OVELA_COMPOSITE_ENTRIES_H
#define OVELA_COMPOSITE_ENTRIES_H

#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

#include "KyrParameterId.h"
#include "Parameter.h"

namespace ovela {

// The entries that the store builds itself from several parameters, which
// have no code of their own, and the parameters that each is made of.
struct CompositeEntry {
    KyrParameterId code;
    Parameter parts[4];
    size_t partCount;
};

inline constexpr KyrParameterId kOutputModeCode = kyrCode("dom");
inline constexpr KyrParameterId kIeqBandsCode = kyrCode("iebs");
inline constexpr KyrParameterId kComplexEqualizerCode = kyrCode("ceqt");
inline constexpr KyrParameterId kSibilanceSuppressionCode = kyrCode("rssa");
inline constexpr KyrParameterId kAudioOptimizerCode = kyrCode("aobs");
inline constexpr KyrParameterId kRegulatorBandsCode = kyrCode("arbs");

inline constexpr CompositeEntry kCompositeEntries[] = {
    {kOutputModeCode, {VIRTUALIZER_ENABLE, OUTPUT_MIX_MATRIX, ADVANCED_OUTPUT_MIX_MATRIX}, 3},
    {kIeqBandsCode, {IEQ_FREQUENCY, IEQ_TARGET}, 2},
    {kComplexEqualizerCode, {COMPLEX_EQUALIZER_TUNING_LEFT, COMPLEX_EQUALIZER_TUNING_RIGHT}, 2},
    {kSibilanceSuppressionCode,
     {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT, REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT},
     2},
    {kAudioOptimizerCode,
     {AUDIO_OPTIMIZER_FREQUENCY, AUDIO_OPTIMIZER_GAIN_L, AUDIO_OPTIMIZER_GAIN_R},
     3},
    {kRegulatorBandsCode,
     {REGULATOR_FREQUENCY, REGULATOR_THRESHOLD_LOW, REGULATOR_THRESHOLD_HIGH,
      REGULATOR_ISOLATED_BAND},
     4},
};

// One list of an entity that a composite entry is made of.
using ListOf = std::pair<Parameter, const std::vector<int>*>;

// Whether a composite entry is sent: every one of its lists holds values, and
// all hold the same number of them.
inline bool sameBandCount(std::initializer_list<ListOf> lists) {
    const size_t bands = lists.begin()->second->size();
    for (const auto& [parameter, list] : lists) {
        if (list->empty() || list->size() != bands) {
            return false;
        }
    }
    return true;
}

}  // namespace ovela

#endif  // OVELA_COMPOSITE_ENTRIES_H
