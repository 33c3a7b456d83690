#ifndef OVELA_PROFILE_PARAM_PARSER_H
#define OVELA_PROFILE_PARAM_PARSER_H

#include <cstdint>

#include "Export.h"
#include "KyrParameterId.h"
#include "ParserBuffer.h"

namespace ovela {

/**
 * Walks a packed parameter array, a run of 32-bit words in the machine's byte
 * order: a header of (profile id, entry count), then per entry (device word,
 * parameter code, value count n, n values); its size in bytes is
 * 4 x (2 + the sum over entries of 3 + n).
 *
 * Call validate() once, then begin() and next() until it returns false; after
 * each successful next() the getters describe that entry. A walk never reads
 * outside the buffer, whatever its words say. Failures are logged at error
 * level under the tag "OvlProfileParamParser".
 *
 * @code
 * ProfileParamParser parser(bytes.data(), size);
 * if (parser.validate() && parser.begin()) {
 *     while (parser.next()) {
 *         use(parser.getDevice(), parser.getParamId(), parser.getValues(), parser.getValueCount());
 *     }
 * }
 * @endcode
 */
class OVELA_EXPORT ProfileParamParser : public ParserBuffer {
  public:
    /** A parser over `length` bytes at `data`, the caller's, which must outlive it. */
    ProfileParamParser(void* data, int length);

    /**
     * Rewinds and reads the header.
     *
     * @return False when the buffer holds no whole header.
     */
    bool begin();
    /**
     * Reads the next entry.
     *
     * @return False after the last entry that the header counts, or when the
     *     entry does not lie whole within the buffer.
     */
    bool next();
    /**
     * Reads the whole array.
     *
     * @return True when the header and every entry that it counts lie within
     *     the buffer; bytes after the last entry are ignored. The cursor is
     *     left at the end: call begin() before walking.
     */
    bool validate();

    /** The header's word 0: the profile id, -1 for the general array, or a tuning's ordinal. */
    int32_t getProfileId() const { return mProfileId; }
    /** The header's word 1: the number of entries. */
    int32_t getParamCount() const { return mParamCount; }
    /** The entries read whole since begin(). */
    int32_t getParamsRead() const { return mParamsRead; }
    /** The device word of the current entry (AudioDevices.h). */
    int32_t getDevice() const { return mDevice; }
    /** The parameter code of the current entry. */
    KyrParameterId getParamId() const { return mParamId; }
    /** The number of values of the current entry. */
    int32_t getValueCount() const { return mValueCount; }
    /**
     * The values of the current entry, inside the caller's buffer: valid as
     * long as the buffer, aligned when the buffer is.
     */
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
