/// @file
/// The 192-bit integer in which Decimal computes before it rounds.
#pragma once

#include <array>
#include <bit>
#include <compare>
#include <cstdint>

#include "platform/automation/rounding.h"

namespace ov {

/// An unsigned integer of 192 bits: room for the product of two 96-bit magnitudes, and for one that is shifted by 28
/// decimal places. The operations do not overflow in that range, and do not test for it.
class Unsigned192 {
public:
    explicit Unsigned192(UInt128 value) noexcept
        : mLimbs{static_cast<std::uint64_t>(value), static_cast<std::uint64_t>(value >> 64), 0} {}

    /// @pre both below 2^96
    static Unsigned192 Product(UInt128 a, UInt128 b) noexcept {
        Unsigned192 low(a);
        low.MultiplyBy(static_cast<std::uint64_t>(b));
        Unsigned192 high(a);
        high.MultiplyBy(static_cast<std::uint64_t>(b >> 64));
        high.mLimbs = {0, high.mLimbs[0], high.mLimbs[1]};
        return low += high;
    }

    void MultiplyBy(std::uint64_t factor) noexcept {
        UInt128 carry = 0;
        for (std::uint64_t& limb : mLimbs) {
            carry += static_cast<UInt128>(limb) * factor;
            limb = static_cast<std::uint64_t>(carry);
            carry >>= 64;
        }
    }
    /// @returns the remainder.
    std::uint64_t DivideBy(std::uint64_t divisor) noexcept {
        UInt128 rest = 0;
        for (std::size_t i = mLimbs.size(); i-- > 0;) {
            rest = (rest << 64) | mLimbs[i];
            mLimbs[i] = static_cast<std::uint64_t>(rest / divisor);
            rest %= divisor;
        }
        return static_cast<std::uint64_t>(rest);
    }
    Unsigned192& operator+=(const Unsigned192& other) noexcept {
        UInt128 carry = 0;
        for (std::size_t i = 0; i < mLimbs.size(); ++i) {
            carry += static_cast<UInt128>(mLimbs[i]) + other.mLimbs[i];
            mLimbs[i] = static_cast<std::uint64_t>(carry);
            carry >>= 64;
        }
        return *this;
    }
    /// @pre other <= *this
    Unsigned192& operator-=(const Unsigned192& other) noexcept {
        std::uint64_t borrow = 0;
        for (std::size_t i = 0; i < mLimbs.size(); ++i) {
            const UInt128 difference = static_cast<UInt128>(mLimbs[i]) - other.mLimbs[i] - borrow;
            mLimbs[i] = static_cast<std::uint64_t>(difference);
            borrow = static_cast<std::uint64_t>(difference >> 64) & 1;
        }
        return *this;
    }

    /// The number of bits up to the highest one that is set.
    int BitLength() const noexcept {
        for (std::size_t i = mLimbs.size(); i-- > 0;) {
            if (mLimbs[i] != 0) return static_cast<int>(i * 64) + static_cast<int>(std::bit_width(mLimbs[i]));
        }
        return 0;
    }
    UInt128 Low128() const noexcept { return (static_cast<UInt128>(mLimbs[1]) << 64) | mLimbs[0]; }

    friend std::strong_ordering operator<=>(const Unsigned192& a, const Unsigned192& b) noexcept {
        for (std::size_t i = a.mLimbs.size(); i-- > 0;) {
            if (a.mLimbs[i] != b.mLimbs[i]) return a.mLimbs[i] <=> b.mLimbs[i];
        }
        return std::strong_ordering::equal;
    }

private:
    std::array<std::uint64_t, 3> mLimbs;  // least significant first
};

}  // namespace ov
