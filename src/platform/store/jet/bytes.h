/// @file
/// Bytes of a file that nobody vouches for.
#pragma once

#include <bit>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/automation/errors.h"

namespace ov::jet {

/// A view of little-endian bytes in which every access is checked: one beyond
/// the end is RuntimeError 3011.
class Bytes {
public:
    Bytes() = default;
    explicit Bytes(std::span<const std::uint8_t> bytes) noexcept : mBytes(bytes) {}

    std::size_t size() const noexcept { return mBytes.size(); }
    bool empty() const noexcept { return mBytes.empty(); }
    const std::uint8_t* data() const noexcept { return mBytes.data(); }
    std::string_view view() const noexcept { return {reinterpret_cast<const char*>(mBytes.data()), mBytes.size()}; }

    std::uint8_t U8(std::size_t at) const {
        Check(at, 1);
        return mBytes[at];
    }
    std::uint16_t U16(std::size_t at) const { return Read<std::uint16_t>(at); }
    std::uint32_t U32(std::size_t at) const { return Read<std::uint32_t>(at); }
    std::uint64_t U64(std::size_t at) const { return Read<std::uint64_t>(at); }
    double Double(std::size_t at) const { return std::bit_cast<double>(U64(at)); }

    Bytes Part(std::size_t at, std::size_t count) const {
        Check(at, count);
        return Bytes(mBytes.subspan(at, count));
    }
    Bytes From(std::size_t at) const {
        Check(at, 0);
        return Bytes(mBytes.subspan(at));
    }

private:
    void Check(std::size_t at, std::size_t count) const {
        if (at > mBytes.size() || count > mBytes.size() - at) Raise(ErrorNumber::ObjectDamaged);
    }
    template <class T>
    T Read(std::size_t at) const {
        Check(at, sizeof(T));
        T value = 0;
        for (std::size_t i = 0; i < sizeof(T); ++i) {
            value = static_cast<T>(value | static_cast<T>(static_cast<T>(mBytes[at + i]) << (8 * i)));
        }
        return value;
    }

    std::span<const std::uint8_t> mBytes;
};

}  // namespace ov::jet
