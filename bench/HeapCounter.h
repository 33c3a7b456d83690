#ifndef OVELA_BENCH_HEAP_COUNTER_H
#define OVELA_BENCH_HEAP_COUNTER_H

#include <cstdint>

namespace ovela::bench {

// Counts the bytes of every live malloc block of the process, and their peak.
// Linking HeapCounter.cpp replaces malloc and its family with counting
// wrappers around the C library's own allocator.
class HeapCounter {
  public:
    // Starts a measurement: the peak becomes the bytes now in use.
    static void resetPeak();
    // Counting costs every allocation a little; a program that times its
    // work turns it off around the timed part. On at start.
    static void setCounting(bool counting);
    static int64_t bytesInUse();
    static int64_t peakBytes();
};

}  // namespace ovela::bench

#endif  // OVELA_BENCH_HEAP_COUNTER_H
