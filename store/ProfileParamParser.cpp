#define LOG_TAG "OvlProfileParamParser"

#include "ProfileParamParser.h"

#include <log/log.h>

namespace ovela {

ProfileParamParser::ProfileParamParser(void* data, int length)
    : ParserBuffer(data, length),
      mProfileId(0),
      mParamCount(0),
      mParamsRead(0),
      mDevice(0),
      mParamId(0),
      mValueCount(0),
      mValues(nullptr) {}

bool ProfileParamParser::begin() {
    mOffset = 0;
    mParamsRead = 0;
    mParamCount = 0;
    if (!readWord(&mProfileId)) {
        ALOGE("%s() failed to extract profile id", __func__);
        return false;
    }
    if (!readWord(&mParamCount)) {
        ALOGE("%s() failed to extract number of parameters", __func__);
        return false;
    }
    return true;
}

bool ProfileParamParser::next() {
    if (mParamsRead >= mParamCount) {
        return false;
    }
    // An entry counts as read only once it lies whole within the buffer, so
    // that validate() rejects an array whose last entry is cut short.
    int32_t number = mParamsRead + 1;
    if (!readWord(&mDevice)) {
        ALOGE("%s() failed to extract device id for parameter #%d", __func__, number);
        return false;
    }
    if (!readWord(&mParamId)) {
        ALOGE("%s() failed to extract parameter id for parameter #%d", __func__, number);
        return false;
    }
    if (!readWord(&mValueCount)) {
        ALOGE("%s() failed to extract number of values for parameter #%d", __func__, number);
        return false;
    }
    const uint8_t* values = mData + mOffset;
    // Checked before multiplying so that a corrupt count cannot overflow.
    if (mValueCount < 0 || mValueCount > remaining() / static_cast<int>(sizeof(int32_t)) ||
        !skip(mValueCount * static_cast<int>(sizeof(int32_t)))) {
        ALOGE("%s() failed to extract %d values for parameter #%d", __func__, mValueCount, number);
        return false;
    }
    mValues = reinterpret_cast<const int32_t*>(values);
    mParamsRead = number;
    return true;
}

bool ProfileParamParser::validate() {
    if (!begin()) {
        ALOGE("%s() EFFECT_PARAM_PROFILE header is incorrect.", __func__);
        return false;
    }
    while (next()) {
    }
    if (mParamsRead != mParamCount) {
        ALOGE("%s() Expected %d parameters, found %d parameters.", __func__, mParamCount,
              mParamsRead);
        return false;
    }
    return true;
}

}  // namespace ovela
