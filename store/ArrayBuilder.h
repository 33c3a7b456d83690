#ifndef OVELA_ARRAY_BUILDER_H
#define OVELA_ARRAY_BUILDER_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "KyrParameterId.h"

namespace ovela {

class ParameterValues;

// Builds one packed parameter array in a room of fixed size. An entry that
// does not fit is refused and the builder stays overflowed, so that the load
// which owns it can give up as a whole instead of storing a cut array.
class ArrayBuilder {
  public:
    // `header` becomes word 0 (profile id or tuning ordinal); `capacity`
    // counts words, the two header words included.
    ArrayBuilder(int32_t header, size_t capacity);

    void append(int32_t device, KyrParameterId code, const std::vector<int>& values);
    // Appends an entry for every parameter of `entity` that has an effect
    // code and holds values.
    void compose(int32_t device, ParameterValues& entity);

    bool overflowed() const { return mOverflowed; }
    int32_t getHeader() const { return mWords[0]; }
    int32_t getParamCount() const { return mWords[1]; }
    size_t getWordCount() const { return mPosition; }
    size_t getCapacity() const { return mWords.size(); }
    uint32_t getSizeInBytes() const;

    // A malloc'ed copy of the words written so far, for the store to own;
    // null when malloc fails.
    int32_t* copyArray() const;

  private:
    std::vector<int> mWords;
    size_t mPosition;
    bool mOverflowed;
};

}  // namespace ovela

#endif  // OVELA_ARRAY_BUILDER_H
