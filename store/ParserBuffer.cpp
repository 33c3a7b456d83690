#include "ParserBuffer.h"

#include <cstring>

namespace ovela {

ParserBuffer::ParserBuffer(void* data, int length)
    : mData(static_cast<const uint8_t*>(data)),
      mLength(data != nullptr && length > 0 ? length : 0),
      mOffset(0) {}

bool ParserBuffer::skip(int n) {
    if (n < 0 || n > remaining()) {
        return false;
    }
    mOffset += n;
    return true;
}

bool ParserBuffer::readWord(int32_t* word) {
    int offset = mOffset;
    if (!skip(sizeof(int32_t))) {
        return false;
    }
    // The caller's buffer need not be aligned for int32_t.
    memcpy(word, mData + offset, sizeof(int32_t));
    return true;
}

int ParserBuffer::remaining() const {
    return mLength - mOffset;
}

}  // namespace ovela
