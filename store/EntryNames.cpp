#include "EntryNames.h"

#include <algorithm>

#include "CompositeEntries.h"
#include "Parameter.h"
#include "TuningFileVocabulary.h"

namespace ovela {

std::vector<std::string> entryNamesOf(KyrParameterId code) {
    std::vector<std::string> names;
    for (const CompositeEntry& entry : kCompositeEntries) {
        if (entry.code == code) {
            for (size_t i = 0; i < entry.partCount; ++i) {
                names.push_back(xmlNameOf(entry.parts[i]));
            }
            return names;
        }
    }
    for (size_t parameter = 0; parameter < kNumParameters; ++parameter) {
        if (kParameterCodes[parameter] == code) {
            names.push_back(xmlNameOf(static_cast<Parameter>(parameter)));
        }
    }
    return names;
}

std::vector<KyrParameterId> entryCodesOf(Parameter parameter) {
    std::vector<KyrParameterId> codes;
    if (kParameterCodes[parameter] != 0) {
        codes.push_back(kParameterCodes[parameter]);
    }
    for (const CompositeEntry& entry : kCompositeEntries) {
        if (std::find(entry.parts, entry.parts + entry.partCount, parameter) !=
            entry.parts + entry.partCount) {
            codes.push_back(entry.code);
        }
    }
    return codes;
}

}  // namespace ovela
