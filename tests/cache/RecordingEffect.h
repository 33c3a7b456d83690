#ifndef OVELA_TESTS_RECORDING_EFFECT_H
#define OVELA_TESTS_RECORDING_EFFECT_H

#include <gmock/gmock.h>

#include <cstdint>
#include <ostream>
#include <vector>

#include "../store/PackedWords.h"
#include "AudioDevices.h"
#include "IEffectKyr.h"

namespace ovela::testing {

// One call that the cache made on the effect: a setParameter with its entry,
// or a commitParameters with its device word (code 0, no values).
struct EffectCall {
    bool commit;
    Entry entry;

    bool operator==(const EffectCall& other) const {
        return commit == other.commit && entry == other.entry;
    }
};

inline std::ostream& operator<<(std::ostream& out, const EffectCall& call) {
    if (call.commit) {
        return out << "commitParameters(0x" << std::hex << call.entry.device << std::dec << ")";
    }
    out << "setParameter(0x" << std::hex << call.entry.device << std::dec << ", "
        << kyrCodeText(call.entry.code) << ", {";
    for (int32_t value : call.entry.values) {
        out << " " << value;
    }
    return out << " })";
}

// The calls of one sent array: a setParameter per entry, then one commit.
inline std::vector<EffectCall> sends(const std::vector<Entry>& entries) {
    std::vector<EffectCall> calls;
    for (const Entry& entry : entries) {
        calls.push_back({false, entry});
    }
    calls.push_back({true, {kDeviceAll, 0, {}}});
    return calls;
}

inline std::vector<EffectCall> operator+(std::vector<EffectCall> a,
                                         const std::vector<EffectCall>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// An effect that records every call, in order, and answers each commit with
// `commitResult`.
class RecordingEffect : public IEffectKyr {
  public:
    explicit RecordingEffect(int commitResult) {
        ON_CALL(*this, setParameter).WillByDefault([this](int device, KyrParameterId code, const int* values, int count) {
            calls.push_back({false, {device, code, std::vector<int32_t>(values, values + count)}});
        });
        ON_CALL(*this, commitParameters).WillByDefault([this, commitResult](int device) {
            calls.push_back({true, {device, 0, {}}});
            return commitResult;
        });
    }

    MOCK_METHOD(void, setParameter, (int device, KyrParameterId code, const int* values, int count),
                (override));
    MOCK_METHOD(int, commitParameters, (int device), (override));

    std::vector<EffectCall> calls;
};

}  // namespace ovela::testing

#endif  // OVELA_TESTS_RECORDING_EFFECT_H
