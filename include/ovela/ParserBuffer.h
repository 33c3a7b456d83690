#ifndef OVELA_PARSER_BUFFER_H
#define OVELA_PARSER_BUFFER_H

#include <cstdint>

namespace ovela {

// A read cursor over a caller's buffer that never moves past its end.
class ParserBuffer {
  public:
    // A null buffer has length 0, whatever `length` says.
    ParserBuffer(void* data, int length);

    // Moves the cursor `n` bytes on when that stays within the buffer;
    // otherwise leaves it where it is and returns false.
    bool skip(int n);

  protected:
    // Reads the 32-bit word at the cursor and moves past it.
    bool readWord(int32_t* word);
    // Bytes between the cursor and the end of the buffer.
    int remaining() const;

    const uint8_t* mData;
    int mLength;
    int mOffset;
};

}  // namespace ovela

#endif  // OVELA_PARSER_BUFFER_H
