#ifndef OVELA_PROFILE_PARAM_PARSER_H
#define OVELA_PROFILE_PARAM_PARSER_H

#include <cstdint>

#include "KyrParameterId.h"
#include "ParserBuffer.h"

namespace ovela {

// Walks a packed parameter array: a header of (profile id, entry count), then
// entries of (device word, parameter code, value count, values). Call
// validate() once, then begin() and next() until it returns false; after each
// successful next() the getters describe that entry.
class ProfileParamParser : public ParserBuffer {
  public:
    ProfileParamParser(void* data, int length);

    // Rewinds and reads the header.
    bool begin();
    // Reads the next entry; false after the last counted entry or when the
    // entry runs past the end of the buffer.
    bool next();
    // True when the header and every counted entry lie within the buffer.
    // Leaves the cursor at the end: call begin() before walking.
    bool validate();

    int32_t getProfileId() const { return mProfileId; }
    int32_t getParamCount() const { return mParamCount; }
    // Entries read whole since begin().
    int32_t getParamsRead() const { return mParamsRead; }
    int32_t getDevice() const { return mDevice; }
    KyrParameterId getParamId() const { return mParamId; }
    int32_t getValueCount() const { return mValueCount; }
    const int32_t* getValues() const { return mValues; }

  private:
    int32_t mProfileId;
    int32_t mParamCount;
    int32_t mParamsRead;
    int32_t mDevice;
    KyrParameterId mParamId;
    int32_t mValueCount;
    const int32_t* mValues;
};

}  // namespace ovela

#endif  // OVELA_PROFILE_PARAM_PARSER_H
