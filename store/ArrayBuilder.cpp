#include "ArrayBuilder.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include "Parameter.h"
#include "ParameterValues.h"

namespace ovela {

ArrayBuilder::ArrayBuilder(int32_t* words, size_t capacity, int32_t header)
    : mWords(words), mCapacity(capacity), mPosition(kArrayHeaderWords), mNeeded(kArrayHeaderWords) {
    mWords[0] = header;
    mWords[1] = 0;
}

void ArrayBuilder::setOrigin(EntrySource source, const void* entity, Place place,
                             std::string label) {
    mEntity = entity;
    mOrigin.source = source;
    mOrigin.place = place;
    mOrigin.label = std::move(label);
}

void ArrayBuilder::append(int32_t device, KyrParameterId code,
                          std::initializer_list<ValueRun> runs) {
    const size_t words = kEntryHeaderWords + valueCount(runs);
    mNeeded += words;
    if (mRecord != nullptr) {
        mOrigin.words = words;
        mOrigin.device = device;
        mOrigin.code = code;
        mRecord->entries.push_back(mOrigin);
    }
    if (mOverflowed || words > mCapacity - mPosition) {
        mOverflowed = true;
        return;
    }
    mPosition += writeEntry(mWords + mPosition, device, code, runs);
    mWords[1]++;
}

void ArrayBuilder::composeParams(int32_t device, const ParameterValues& entity) {
    for (const auto& [param, list] : entity.values) {
        if (kParameterCodes[param] == 0 || list.empty()) {
            continue;
        }
        append(device, kParameterCodes[param], {list});
        if (mRecord != nullptr) {
            const TracedValues* traced = mTrace->valuesOf(mEntity, param);
            mRecord->entries.back().parts.push_back(
                {param, 0, list.size(),
                 traced == nullptr ? std::vector<Source>() : traced->sources});
        }
    }
}

uint32_t ArrayBuilder::getSizeInBytes() const {
    return static_cast<uint32_t>(mPosition * sizeof(int32_t));
}

int32_t* ArrayBuilder::copyArray() const {
    auto* array = static_cast<int32_t*>(malloc(getSizeInBytes()));
    if (array != nullptr) {
        memcpy(array, mWords, getSizeInBytes());
    }
    return array;
}

}  // namespace ovela
