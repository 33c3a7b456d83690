#include "HeapCounter.h"

#include <malloc.h>

#include <atomic>
#include <cerrno>
#include <cstddef>

// The C library's allocator, under the names by which it stays reachable
// once malloc and its family are replaced.
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* block);
}

namespace ovela::bench {

namespace {

std::atomic<int64_t> gInUse{0};
std::atomic<int64_t> gPeak{0};
std::atomic<bool> gCounting{true};

void counted(void* block) {
    if (block == nullptr || !gCounting.load(std::memory_order_relaxed)) {
        return;
    }
    const int64_t now = gInUse.fetch_add(static_cast<int64_t>(malloc_usable_size(block))) +
                        static_cast<int64_t>(malloc_usable_size(block));
    int64_t peak = gPeak.load();
    while (now > peak && !gPeak.compare_exchange_weak(peak, now)) {
    }
}

void uncounted(void* block) {
    if (block != nullptr && gCounting.load(std::memory_order_relaxed)) {
        gInUse.fetch_sub(static_cast<int64_t>(malloc_usable_size(block)));
    }
}

}  // namespace

void HeapCounter::resetPeak() {
    gPeak.store(gInUse.load());
}

void HeapCounter::setCounting(bool counting) {
    gCounting.store(counting);
}

int64_t HeapCounter::bytesInUse() {
    return gInUse.load();
}

int64_t HeapCounter::peakBytes() {
    return gPeak.load();
}

}  // namespace ovela::bench

using ovela::bench::counted;
using ovela::bench::uncounted;

extern "C" {

void* malloc(size_t size) {
    void* block = __libc_malloc(size);
    counted(block);
    return block;
}

void* calloc(size_t count, size_t size) {
    void* block = __libc_calloc(count, size);
    counted(block);
    return block;
}

void* realloc(void* block, size_t size) {
    uncounted(block);
    void* moved = __libc_realloc(block, size);
    // A failed realloc leaves the block as it was.
    counted(moved != nullptr || size == 0 ? moved : block);
    return moved;
}

void free(void* block) {
    uncounted(block);
    __libc_free(block);
}

void* memalign(size_t alignment, size_t size) {
    void* block = __libc_memalign(alignment, size);
    counted(block);
    return block;
}

void* aligned_alloc(size_t alignment, size_t size) {
    return memalign(alignment, size);
}

int posix_memalign(void** out, size_t alignment, size_t size) {
    void* block = memalign(alignment, size);
    if (block == nullptr) {
        return ENOMEM;
    }
    *out = block;
    return 0;
}

}  // extern "C"
