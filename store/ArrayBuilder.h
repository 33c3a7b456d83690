#ifndef OVELA_ARRAY_BUILDER_H
#define OVELA_ARRAY_BUILDER_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>

#include "KyrParameterId.h"
#include "LoadTrace.h"
#include "PackedEntry.h"

namespace ovela {

class ParameterValues;

// Builds one packed parameter array in words that the caller provides. An
// entry that does not fit is refused and the builder stays overflowed, so that
// the load which owns it can give up as a whole instead of storing a cut
// array; it still counts the words that the array would need.
class ArrayBuilder {
  public:
    // Builds into `words`, room for `capacity` words, header included;
    // `header` becomes word 0 (profile id or tuning ordinal).
    ArrayBuilder(int32_t* words, size_t capacity, int32_t header);

    // Appends one entry whose values are the runs, in order.
    void append(int32_t device, KyrParameterId code, std::initializer_list<ValueRun> runs);
    // Appends an entry for every parameter of `entity` that has an effect
    // code and holds values, in parameter order: the one place where a
    // parameter meets its code.
    void composeParams(int32_t device, const ParameterValues& entity);

    // For a load that reports: every entry appended from now on is recorded
    // in `record`, with where its values came from as `trace` tells.
    void recordInto(ArrayRecord* record, const LoadTrace* trace) {
        mRecord = record;
        mTrace = trace;
    }
    // The entries appended from now on come from `entity`, which `label`
    // names, read at `place`.
    void setOrigin(EntrySource source, const void* entity, Place place, std::string label);
    // The record of the array; null for a load that does not report.
    ArrayRecord* record() const { return mRecord; }
    // The record of the entry appended last; null when none is recorded.
    EntryOrigin* lastRecorded() {
        return mRecord == nullptr || mRecord->entries.empty() ? nullptr : &mRecord->entries.back();
    }

    bool overflowed() const { return mOverflowed; }
    int32_t getHeader() const { return mWords[0]; }
    int32_t getParamCount() const { return mWords[1]; }
    size_t getWordCount() const { return mPosition; }
    // The words that the array needs, refused entries included.
    size_t getNeededWords() const { return mNeeded; }
    size_t getCapacity() const { return mCapacity; }
    uint32_t getSizeInBytes() const;

    // A malloc'ed copy of the words written so far, for the store to own;
    // null when malloc fails.
    int32_t* copyArray() const;

  private:
    int32_t* mWords;
    size_t mCapacity;
    size_t mPosition;
    size_t mNeeded;
    bool mOverflowed = false;
    ArrayRecord* mRecord = nullptr;
    const LoadTrace* mTrace = nullptr;
    const void* mEntity = nullptr;
    EntryOrigin mOrigin;
};

}  // namespace ovela

#endif  // OVELA_ARRAY_BUILDER_H
