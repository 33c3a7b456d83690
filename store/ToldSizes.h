#ifndef OVELA_TOLD_SIZES_H
#define OVELA_TOLD_SIZES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "OvlProfileId.h"

// The store's record of the sizes it told; not part of the library's interface.
namespace ovela {

// The sizes of arrays that one thread was last told, per store. A caller of
// the two-call queries sizes its buffer by the size query, and a reload by
// another thread before the copy may make the array larger: the copy then
// writes nothing rather than past that buffer. The record keeps the last few
// sizes told; one never told (or long forgotten) counts as 0.
class ToldSizes {
  public:
    // The record of the calling thread.
    static ToldSizes& ofThisThread();

    void tell(uint64_t store, OvlProfileId profile, uint32_t size);
    void tell(uint64_t store, const std::string& tuning, uint32_t size);
    uint32_t sizeOf(uint64_t store, OvlProfileId profile) const;
    uint32_t sizeOf(uint64_t store, const std::string& tuning) const;

  private:
    // A caller asks for few sizes before it copies.
    static constexpr size_t kKept = 32;

    struct Told {
        uint64_t store;
        bool isTuning;
        OvlProfileId profile;
        std::string tuning;
        uint32_t size;

        bool names(const Told& other) const {
            return store == other.store && isTuning == other.isTuning &&
                   (isTuning ? tuning == other.tuning : profile == other.profile);
        }
    };

    void tell(Told told);
    uint32_t sizeOf(const Told& key) const;

    std::vector<Told> mTold;
};

}  // namespace ovela

#endif  // OVELA_TOLD_SIZES_H
