#include "ArrayBuilder.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "ProfileParamArray.h"

namespace ovela {

namespace {

constexpr size_t kHeaderWords = 2;
constexpr size_t kEntryHeaderWords = 3;

}  // namespace

ArrayBuilder::ArrayBuilder(int32_t header, size_t capacity)
    : mWords(std::max(capacity, kHeaderWords), 0), mPosition(kHeaderWords), mOverflowed(false) {
    mWords[0] = header;
}

void ArrayBuilder::append(int32_t device, KyrParameterId code, const std::vector<int>& values) {
    if (mOverflowed || kEntryHeaderWords + values.size() > mWords.size() - mPosition) {
        mOverflowed = true;
        return;
    }
    int* out = mWords.data() + mPosition;
    out[0] = device;
    out[1] = code;
    out[2] = static_cast<int>(values.size());
    std::copy(values.begin(), values.end(), out + kEntryHeaderWords);
    mPosition += kEntryHeaderWords + values.size();
    mWords[1]++;
}

void ArrayBuilder::compose(int32_t device, ParameterValues& entity) {
    if (mOverflowed) {
        return;
    }
    int room = static_cast<int>(mWords.size() - mPosition);
    int written = ProfileParamArray::composeParams(mWords.data() + mPosition, room, device, &entity,
                                                   mWords[1]);
    if (written < 0) {
        mOverflowed = true;
        return;
    }
    mPosition += static_cast<size_t>(written);
}

uint32_t ArrayBuilder::getSizeInBytes() const {
    return static_cast<uint32_t>(mPosition * sizeof(int32_t));
}

int32_t* ArrayBuilder::copyArray() const {
    auto* array = static_cast<int32_t*>(malloc(getSizeInBytes()));
    if (array != nullptr) {
        memcpy(array, mWords.data(), getSizeInBytes());
    }
    return array;
}

}  // namespace ovela
