/// @file
/// Reference counting for the engine's own things, held by Ref.
#pragma once

#include <cstdint>

namespace ov::vbscript {

/// Base of @p Self, which ends with its last reference. Begins with one reference: use Ref::Adopt.
template <class Self>
class Counted {
public:
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    std::uint32_t AddRef() const noexcept { return ++mReferences; }
    std::uint32_t Release() const noexcept {
        const std::uint32_t left = --mReferences;
        if (left == 0) delete static_cast<const Self*>(this);
        return left;
    }

protected:
    Counted() noexcept = default;
    ~Counted() = default;

private:
    mutable std::uint32_t mReferences = 1;
};

}  // namespace ov::vbscript
