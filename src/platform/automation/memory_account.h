/// @file
/// The account of the bytes that texts, arrays and tables hold.
#pragma once

#include <cstddef>
#include <limits>
#include <utility>

namespace ov {

/// Counts the bytes in texts, arrays and tables of the process and refuses growth above a limit. A script engine lowers
/// the limit while a script runs, so that a script cannot take the host's memory; otherwise there is none.
class MemoryAccount {
public:
    /// @throws RuntimeError 7 "Out of memory" where @p bytes would exceed the limit; nothing is taken then.
    static void Take(std::size_t bytes) {
        sUsed += bytes;
        if (sLimited && Grown() > sLimit) Refuse(bytes);
    }
    static void Return(std::size_t bytes) noexcept { sUsed -= bytes; }

    /// Bounds the growth to @p bytes above what is used now, for the life of this object; never widens an outer bound.
    class Limit {
    public:
        explicit Limit(std::size_t bytes) noexcept;
        ~Limit();
        Limit(const Limit&) = delete;
        Limit& operator=(const Limit&) = delete;

    private:
        bool mLimited;
        std::size_t mFloor;
        std::size_t mLimit;
    };

    /// Lifts the bound for its life: for what has to be there to tell that the memory is exhausted.
    class Exemption {
    public:
        Exemption() noexcept : mLimited(std::exchange(sLimited, false)) {}
        ~Exemption() { sLimited = mLimited; }
        Exemption(const Exemption&) = delete;
        Exemption& operator=(const Exemption&) = delete;

    private:
        bool mLimited;
    };

    /// The bytes that one thing holds, returned when it ends.
    class Share {
    public:
        Share() noexcept = default;
        Share(Share&& other) noexcept : mBytes(std::exchange(other.mBytes, 0)) {}
        Share& operator=(Share&& other) noexcept {
            std::swap(mBytes, other.mBytes);
            return *this;
        }
        ~Share() { Return(mBytes); }
        /// @throws as Take, with nothing changed
        void Resize(std::size_t bytes) {
            if (bytes > mBytes) Take(bytes - mBytes);
            if (bytes < mBytes) Return(mBytes - bytes);
            mBytes = bytes;
        }

    private:
        std::size_t mBytes = 0;
    };

private:
    [[noreturn]] static void Refuse(std::size_t bytes);
    // More than half of the range is a negative difference: memory from before the bound was returned.
    static std::size_t Grown() noexcept {
        const std::size_t grown = sUsed - sFloor;
        return grown > std::numeric_limits<std::size_t>::max() / 2 ? 0 : grown;
    }

    // Counts from any start: what another module of the process allocated may be returned here. Differences hold.
    static inline std::size_t sUsed = 0;
    static inline bool sLimited = false;
    static inline std::size_t sFloor = 0;
    static inline std::size_t sLimit = 0;
};

}  // namespace ov
