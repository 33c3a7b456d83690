#include "EntityArena.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace ovela {

namespace {

// The least room of a region: what a small file's entities take.
constexpr size_t kMinRegionSize = 64 << 10;

size_t roundedToPages(size_t bytes) {
    const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    return (bytes + page - 1) / page * page;
}

}  // namespace

EntityArena::~EntityArena() {
    for (const Region& region : mRegions) {
        if (region.mapped) {
            munmap(region.begin, region.size);
        } else {
            free(region.begin);
        }
    }
}

void EntityArena::reserve(size_t bytes) {
    if (mRegions.empty() || mRegions.back().size - mRegions.back().used < bytes) {
        // Without that much address space, allocate() adds small regions.
        mapRegion(bytes);
    }
}

void* EntityArena::allocate(size_t size, size_t alignment) {
    if (!mRegions.empty()) {
        Region& region = mRegions.back();
        const size_t at = (region.used + alignment - 1) / alignment * alignment;
        if (at + size <= region.size) {
            region.used = at + size;
            return region.begin + at;
        }
    }
    // Past what was reserved: the order still grows when the next region
    // lands above, which the address hint asks for.
    const size_t room = std::max(size, kMinRegionSize);
    if (!mapRegion(room)) {
        // The heap still serves, in its own order.
        void* begin = malloc(room);
        if (begin == nullptr) {
            abort();
        }
        mRegions.push_back({static_cast<unsigned char*>(begin), room, 0, false});
    }
    mRegions.back().used = size;
    return mRegions.back().begin;
}

bool EntityArena::mapRegion(size_t bytes) {
    const size_t size = roundedToPages(std::max(bytes, kMinRegionSize));
    void* hint = mRegions.empty() ? nullptr : mRegions.back().begin + mRegions.back().size;
    void* begin = mmap(hint, size, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (begin == MAP_FAILED) {
        return false;
    }
    mRegions.push_back({static_cast<unsigned char*>(begin), size, 0, true});
    return true;
}

}  // namespace ovela
