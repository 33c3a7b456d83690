#ifndef OVELA_SPEAKER_DATA_H
#define OVELA_SPEAKER_DATA_H

#include <array>
#include <cstdint>
#include <vector>

namespace ovela {

// What the store learns about the internal speaker while it loads: the mono
// flag decides the speaker's output mode entries, and the mix matrices become
// part of them. -1 marks a value that no tuning file gave.
struct SpeakerData {
    bool mono = false;
    int32_t surroundAngle = -1;
    int32_t heightAngle = -1;
    int32_t frontAngle = -1;
    std::array<int32_t, 8> renderingConfig = {-1, -1, -1, -1, -1, -1, -1, -1};
    int32_t startBin = -1;
    std::vector<int32_t> outputMixMatrix;
    std::vector<int32_t> advancedOutputMixMatrix;
};

}  // namespace ovela

#endif  // OVELA_SPEAKER_DATA_H
