#ifndef OVELA_PARSER_BUFFER_H
#define OVELA_PARSER_BUFFER_H

#include <cstdint>

#include "Export.h"

namespace ovela {

/**
 * A read cursor over a caller's buffer that never moves past its end. The
 * buffer stays the caller's: it must outlive the cursor, which never writes to
 * it or frees it. One thread at a time uses a cursor; it takes no lock.
 */
class OVELA_EXPORT ParserBuffer {
  public:
    /**
     * A cursor at the start of `length` bytes at `data`. A null `data`, or a
     * negative `length`, gives an empty buffer.
     */
    ParserBuffer(void* data, int length);

    /**
     * Moves the cursor `n` bytes on when that stays within the buffer;
     * otherwise leaves it where it is.
     *
     * @return Whether the cursor moved; false for a negative `n`.
     */
    bool skip(int n);

  protected:
    /** Reads the 32-bit word at the cursor, in the machine's byte order, and moves past it. */
    bool readWord(int32_t* word);
    /** The bytes between the cursor and the end of the buffer. */
    int remaining() const;

    const uint8_t* mData;  ///< The caller's buffer.
    int mLength;           ///< Its length in bytes.
    int mOffset;           ///< The cursor, in bytes from the start.
};

}  // namespace ovela

#endif  // OVELA_PARSER_BUFFER_H
