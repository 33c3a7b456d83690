#include "ToldSizes.h"

namespace ovela {

ToldSizes& ToldSizes::ofThisThread() {
    thread_local ToldSizes told;
    return told;
}

void ToldSizes::tell(uint64_t store, OvlProfileId profile, uint32_t size) {
    tell({store, false, profile, std::string(), size});
}

void ToldSizes::tell(uint64_t store, const std::string& tuning, uint32_t size) {
    tell({store, true, 0, tuning, size});
}

uint32_t ToldSizes::sizeOf(uint64_t store, OvlProfileId profile) const {
    return sizeOf({store, false, profile, std::string(), 0});
}

uint32_t ToldSizes::sizeOf(uint64_t store, const std::string& tuning) const {
    return sizeOf({store, true, 0, tuning, 0});
}

void ToldSizes::tell(Told told) {
    for (Told& known : mTold) {
        if (known.names(told)) {
            known.size = told.size;
            return;
        }
    }
    if (mTold.size() == kKept) {
        mTold.erase(mTold.begin());
    }
    mTold.push_back(std::move(told));
}

uint32_t ToldSizes::sizeOf(const Told& key) const {
    for (const Told& known : mTold) {
        if (known.names(key)) {
            return known.size;
        }
    }
    return 0;
}

}  // namespace ovela
