/// @file
/// The tagged value type of every public value.
#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

#include "platform/automation/array.h"
#include "platform/automation/decimal.h"
#include "platform/automation/text.h"
#include "platform/automation/unknown.h"

namespace ov {

class IDispatch;

/// What a Variant holds; the numbers are those that the rule language's VarType gives.
enum class VarType : std::uint16_t {
    Empty = 0,
    Null = 1,
    Integer = 2,  ///< 16-bit signed
    Long = 3,     ///< 32-bit signed
    Single = 4,
    Double = 5,
    Currency = 6,  ///< 64-bit signed, in units of 1/10,000
    Date = 7,      ///< Double day count from 1899-12-30
    String = 8,
    Object = 9,    ///< may be Nothing
    Error = 10,    ///< an error code, not a value
    Boolean = 11,  ///< 0 and -1 as numbers
    Decimal = 14,
    Byte = 17,
    Missing = 0x1000,  ///< an optional argument that was left out; VarType in the rule language says Error
    Array = 0x2000,
};

/// A fixed-point amount: units of 1/10,000.
struct Currency {
    std::int64_t scaled = 0;
    friend bool operator==(Currency, Currency) noexcept = default;
};

/// A point in time: days from 1899-12-30, the time of day as the fraction's absolute value.
struct Date {
    double days = 0;
    friend bool operator==(Date, Date) noexcept = default;
};

/// An error code as a value.
struct ErrorCode {
    std::int32_t code = 0;
    friend bool operator==(ErrorCode, ErrorCode) noexcept = default;
};

/// A value with its type, in 16 bytes. Text, objects and arrays are shared by count; everything else lies inside.
///
/// The accessors AsX need the matching Type() and do not convert; conversions are in conversions.h.
class Variant {
public:
    Variant() noexcept : mBits(0) {}
    Variant(bool value) noexcept : mType(VarType::Boolean), mBits(value) {}
    Variant(std::uint8_t value) noexcept : mType(VarType::Byte), mBits(value) {}
    Variant(std::int16_t value) noexcept : mType(VarType::Integer), mBits(static_cast<std::uint64_t>(value)) {}
    Variant(std::int32_t value) noexcept : mType(VarType::Long), mBits(static_cast<std::uint64_t>(value)) {}
    Variant(float value) noexcept : mType(VarType::Single), mBits(std::bit_cast<std::uint32_t>(value)) {}
    Variant(double value) noexcept : mType(VarType::Double), mDouble(value) {}
    Variant(Currency value) noexcept : mType(VarType::Currency), mCurrency(value.scaled) {}
    Variant(Date value) noexcept : mType(VarType::Date), mDouble(value.days) {}
    Variant(ErrorCode value) noexcept : mType(VarType::Error), mBits(static_cast<std::uint64_t>(value.code)) {}
    Variant(const Decimal& value) noexcept
        : mType(VarType::Decimal),
          mScale(value.mScale),
          mNegative(value.mNegative),
          mHigh(value.mHigh),
          mBits(value.mLow) {}
    Variant(Text value) noexcept : mType(VarType::String), mText(std::move(value)) {}
    Variant(const char16_t* value) : Variant(Text(value)) {}
    Variant(std::u16string_view value) : Variant(Text(value)) {}
    Variant(Array value) noexcept : mType(VarType::Array), mArray(std::move(value)) {}
    /// An object, or Nothing; takes a reference.
    Variant(IDispatch* object) noexcept;
    template <std::derived_from<IDispatch> T>
    Variant(const Ref<T>& object) noexcept : Variant(static_cast<IDispatch*>(object.get())) {}
    template <class T>
    requires(std::integral<T> || (std::is_pointer_v<T> && !std::convertible_to<T, IDispatch*> &&
                                  !std::convertible_to<T, const char16_t*>)) Variant(T)
    = delete;  // a width or a pointer that no Variant type has would change silently

    Variant(const Variant& other) noexcept { CopyFrom(other); }
    Variant(Variant&& other) noexcept { MoveFrom(other); }
    Variant& operator=(const Variant& other) noexcept {
        if (this != &other) {
            Variant copy(other);  // first, since ending the old value may end what holds `other`
            Clear();
            MoveFrom(copy);
        }
        return *this;
    }
    Variant& operator=(Variant&& other) noexcept {
        if (this != &other) {
            Variant taken(std::move(other));
            Clear();
            MoveFrom(taken);
        }
        return *this;
    }
    ~Variant() {
        if (NeedsRelease()) ReleaseContent();
    }

    static Variant Null() noexcept { return Variant(VarType::Null); }
    static Variant Missing() noexcept { return Variant(VarType::Missing); }
    static Variant Nothing() noexcept { return Variant(static_cast<IDispatch*>(nullptr)); }

    VarType Type() const noexcept { return mType; }
    bool IsEmpty() const noexcept { return mType == VarType::Empty; }
    bool IsNull() const noexcept { return mType == VarType::Null; }
    bool IsMissing() const noexcept { return mType == VarType::Missing; }
    bool IsString() const noexcept { return mType == VarType::String; }
    bool IsObject() const noexcept { return mType == VarType::Object; }
    bool IsArray() const noexcept { return mType == VarType::Array; }
    bool IsNothing() const noexcept { return mType == VarType::Object && mObject == nullptr; }

    bool AsBoolean() const noexcept { return mBoolean; }
    std::uint8_t AsByte() const noexcept { return mByte; }
    std::int16_t AsInteger() const noexcept { return mInteger; }
    std::int32_t AsLong() const noexcept { return mLong; }
    float AsSingle() const noexcept { return mSingle; }
    double AsDouble() const noexcept { return mDouble; }
    Currency AsCurrency() const noexcept { return {mCurrency}; }
    Date AsDate() const noexcept { return {mDouble}; }
    ErrorCode AsError() const noexcept { return {mLong}; }
    Decimal AsDecimal() const noexcept { return {mNegative, mHigh, mBits, mScale}; }
    const Text& AsText() const noexcept { return mText; }
    Text& AsText() noexcept { return mText; }
    const Array& AsArray() const noexcept { return mArray; }
    Array& AsArray() noexcept { return mArray; }
    /// Borrowed; nullptr for Nothing.
    IDispatch* AsObject() const noexcept { return mObject; }

private:
    explicit Variant(VarType type) noexcept : mType(type), mBits(0) {}

    bool NeedsRelease() const noexcept {
        return mType == VarType::String || mType == VarType::Object || mType == VarType::Array;
    }
    // All that lies before the bits, in one step.
    void CopyHead(const Variant& other) noexcept {
        std::memcpy(static_cast<void*>(this), static_cast<const void*>(&other), sizeof(std::uint64_t));
    }
    void CopyFrom(const Variant& other) noexcept {
        CopyHead(other);
        if (other.NeedsRelease()) {
            ShareContent(other);
        } else {
            mBits = other.mBits;
        }
    }
    // A Text, an Array and an object are each one pointer, so a move takes the bits over.
    void MoveFrom(Variant& other) noexcept {
        CopyHead(other);
        mBits = std::exchange(other.mBits, 0);
        other.mType = VarType::Empty;
    }
    void Clear() noexcept {
        if (NeedsRelease()) ReleaseContent();
        mType = VarType::Empty;
        mBits = 0;
    }
    void ShareContent(const Variant& other) noexcept;
    void ReleaseContent() noexcept;

    // A value is written and copied in two whole words, whatever its type: a processor waits for a word of which a part
    // has just been written. Its narrow forms are the low end of mBits.
    static_assert(std::endian::native == std::endian::little);

    VarType mType = VarType::Empty;
    std::uint8_t mScale = 0;  // of a Decimal
    bool mNegative = false;   // of a Decimal
    std::uint32_t mHigh = 0;  // of a Decimal
    union {
        std::uint64_t mBits;
        bool mBoolean;
        std::uint8_t mByte;
        std::int16_t mInteger;
        std::int32_t mLong;
        float mSingle;
        double mDouble;
        std::int64_t mCurrency;
        Text mText;
        Array mArray;
        IDispatch* mObject;
    };
};

static_assert(sizeof(Variant) == 16);

inline const Variant* Array::Find(std::int32_t index) const noexcept {
    if (!mRep) return nullptr;
    const std::int64_t offset = std::int64_t{index} - mRep->lower;
    if (static_cast<std::uint64_t>(offset) >= mRep->count) return nullptr;
    return mRep->row + offset;
}

inline Variant* Array::FindOwn(std::int32_t index) noexcept {
    if (!mRep || mRep->references != 1 || mRep->element != VarType::Empty) return nullptr;
    return const_cast<Variant*>(Find(index));
}

}  // namespace ov
