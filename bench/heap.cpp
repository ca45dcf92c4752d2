#include "heap.h"

#include <malloc.h>

namespace {

std::size_t gAllocations = 0;

}  // namespace

// The C library's own allocator, counted. Operator new ends here as well.
extern "C" void* __libc_malloc(std::size_t bytes);
extern "C" void* malloc(std::size_t bytes) {
    ++gAllocations;
    return __libc_malloc(bytes);
}

namespace ov::bench {

std::size_t BytesInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::size_t AllocationCount() {
    return gAllocations;
}

}  // namespace ov::bench
