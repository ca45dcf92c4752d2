/// @file
/// Memory for the nodes of one syntax tree, freed as a whole.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/automation/memory_account.h"

namespace ov::vbscript {

/// Hands out memory for objects that need no destructor. The first block, if it is none of more than the common size,
/// stays for the next use after Clear.
class Arena {
public:
    template <class T, class... Args>
    T* New(Args&&... args) {
        static_assert(std::is_trivially_destructible_v<T>);
        return new (Allocate(sizeof(T), alignof(T))) T{std::forward<Args>(args)...};
    }

    /// A copy of @p items that lives as long as the tree.
    template <class T>
    std::span<T> Copy(std::span<const T> items) {
        static_assert(std::is_trivially_destructible_v<T>);
        if (items.empty()) return {};
        T* to = static_cast<T*>(Allocate(items.size_bytes(), alignof(T)));
        std::uninitialized_copy(items.begin(), items.end(), to);
        return {to, items.size()};
    }

    void Clear() noexcept {
        if (mBlocks.size() > 1) mBlocks.resize(1);
        if (!mBlocks.empty() && mBlocks.front().size > kBlockSize) mBlocks.clear();
        mUsed = 0;
        mMemory.Resize(0);
        mSize = 0;
    }

private:
    struct Block {
        std::unique_ptr<std::byte[]> memory;
        std::size_t size;
    };
    static constexpr std::size_t kBlockSize = std::size_t{16} * 1024;

    void* Allocate(std::size_t bytes, std::size_t alignment) {
        mUsed = (mUsed + alignment - 1) & ~(alignment - 1);
        if (mBlocks.empty() || mUsed + bytes > mBlocks.back().size) {
            const std::size_t size = bytes > kBlockSize ? bytes : kBlockSize;
            mMemory.Resize(mSize + size);
            mSize += size;
            mBlocks.push_back({std::unique_ptr<std::byte[]>(new std::byte[size]), size});
            mUsed = 0;
        }
        void* at = mBlocks.back().memory.get() + mUsed;
        mUsed += bytes;
        return at;
    }

    std::vector<Block> mBlocks;
    std::size_t mUsed = 0;  // in the last block
    std::size_t mSize = 0;  // of the blocks that came with this tree
    MemoryAccount::Share mMemory;
};

}  // namespace ov::vbscript
