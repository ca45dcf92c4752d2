/// @file
/// What the process takes from the heap.
#pragma once

#include <cstddef>

namespace ov::bench {

/// Bytes that are allocated now, without the overhead of the allocator.
std::size_t BytesInUse();
/// Allocations since the process began.
std::size_t AllocationCount();

}  // namespace ov::bench
