/// @file
/// Arrays as values: copied on assignment, any number of dimensions, bounds of their own.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/automation/text.h"

namespace ov {

class Variant;
enum class VarType : std::uint16_t;

/// One dimension of an array.
struct ArrayBound {
    std::int32_t lower = 0;
    std::int32_t count = 0;
};

/// An array value. Copies share their elements until one of them is written, so passing an array by value is cheap and
/// writing to a copy never shows in the original. An array that was never allocated has no dimensions.
///
/// Elements are Variants, but an array of Byte keeps plain bytes. Index errors raise RuntimeError 9.
class Array {
public:
    Array() noexcept = default;
    /// Elements at their start value: Empty, 0, "" or Nothing by @p element.
    /// @throws RuntimeError 7 beyond the memory that can be had, 9 for a negative count.
    Array(VarType element, std::span<const ArrayBound> bounds);
    Array(const Array& other) noexcept;
    Array(Array&& other) noexcept : mRep(std::exchange(other.mRep, nullptr)) {}
    Array& operator=(Array other) noexcept {
        std::swap(mRep, other.mRep);
        return *this;
    }
    ~Array();

    /// One dimension of Variants, numbered from @p lower.
    static Array OfVariants(std::vector<Variant> elements, std::int32_t lower = 0);
    /// One dimension of @p element (other than Byte), whose elements are @p elements.
    static Array Of(VarType element, std::vector<Variant> elements, std::int32_t lower = 0);
    static Array OfBytes(std::vector<std::uint8_t> bytes, std::int32_t lower = 0);

    bool IsAllocated() const noexcept { return mRep != nullptr; }
    /// Number of dimensions; 0 if never allocated.
    std::size_t Rank() const noexcept;
    /// @pre dimension is 1 to Rank(); else RuntimeError 9
    std::int32_t LowerBound(std::size_t dimension) const;
    std::int32_t UpperBound(std::size_t dimension) const;
    /// Number of elements in all.
    std::size_t size() const noexcept;
    /// Empty stands for Variant elements.
    VarType ElementType() const noexcept;

    Variant Get(std::span<const std::int32_t> indexes) const;
    /// The short way to an element of an array of one dimension that is not of Byte; nullptr where it does not lead
    /// there.
    const Variant* Find(std::int32_t index) const noexcept;
    /// The same for a write in place of any Variant: nullptr too while others share the elements, and for an array
    /// whose elements have a type.
    Variant* FindOwn(std::int32_t index) noexcept;
    /// Converts @p value to the element type.
    void Set(std::span<const std::int32_t> indexes, const Variant& value);
    /// The element itself, for a write in place. Not for arrays of Byte: RuntimeError 51.
    Variant& Element(std::span<const std::int32_t> indexes);

    /// Elements in storage order: the first index moves fastest.
    Variant At(std::size_t position) const;
    /// The bytes of an array of Byte; empty for any other.
    std::span<const std::uint8_t> Bytes() const noexcept;
    /// The elements of an array that is not of Byte; empty for any other.
    std::span<const Variant> Elements() const noexcept;

    /// Gives the array new bounds; with @p preserve the elements that both forms have stay, for which only the last
    /// dimension's upper bound may differ (RuntimeError 9 else).
    void Redimension(std::span<const ArrayBound> bounds, bool preserve);
    /// Marks an array whose bounds are part of its declaration: Redimension raises RuntimeError 10.
    void MarkFixed();
    bool IsFixed() const noexcept;
    /// Start values for all elements of a fixed array; back to never allocated for any other.
    void Erase();

private:
    friend class Variant;

    struct Rep {
        std::uint32_t references = 1;
        VarType element;
        bool fixed = false;
        // The short way to the elements: none of them for more dimensions, and for Byte.
        std::int32_t lower = 0;
        std::uint32_t count = 0;
        Variant* row = nullptr;
        std::vector<ArrayBound> bounds;
        std::vector<Variant> elements;
        std::vector<std::uint8_t> bytes;  // instead of `elements`, for arrays of Byte
        std::size_t accounted = 0;

        Rep();
        Rep(const Rep& other);
        Rep& operator=(const Rep&) = delete;
        ~Rep();

        std::size_t Size() const noexcept;
        void Complete();
    };

    std::size_t Position(std::span<const std::int32_t> indexes) const;
    void Detach();
    static void Release(Rep* rep) noexcept;

    Rep* mRep = nullptr;
};

static_assert(sizeof(Array) == 8);

/// Bytes with the number of the first one; the form of an "array of Byte" in the interfaces. Never allocated is empty.
struct ByteArray {
    std::vector<std::uint8_t> bytes;
    std::int32_t lower = 0;
    bool isRow = true;  ///< false for an array of more dimensions, which has no byte at any index and no end
};

}  // namespace ov
