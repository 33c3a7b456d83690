#include "EntryNames.h"

#include <algorithm>

#include "CompositeEntries.h"
#include "Parameter.h"

namespace ovela {

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
