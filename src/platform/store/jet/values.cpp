#include "platform/store/jet/values.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>

namespace ov::jet {

namespace {

constexpr std::int64_t kMostExact = std::int64_t{1} << 53;  // whole numbers up to it are exact as a double

Value IntegerValue(std::int64_t value) noexcept {
    return {.kind = Value::Kind::Integer, .integer = value};
}

// What is no number cannot be stored as one; SQLite would make it NULL.
Value RealValue(double value) noexcept {
    return {.kind = Value::Kind::Real, .real = value};
}

Value BlobValue(const Bytes& bytes) noexcept {
    return {.kind = Value::Kind::Blob, .bytes = bytes.view()};
}

// The digits of an unsigned number of 128 bits, highest part first.
std::string Digits(std::array<std::uint32_t, 4> number) {
    constexpr std::uint64_t kBillion = 1'000'000'000;
    constexpr std::size_t kDigitsOfOne = 9;
    std::string digits;
    while (std::ranges::any_of(number, [](std::uint32_t part) { return part != 0; })) {
        std::uint64_t rest = 0;
        for (std::uint32_t& part : number) {
            rest = rest << 32 | part;
            part = static_cast<std::uint32_t>(rest / kBillion);
            rest %= kBillion;
        }
        std::string nine = std::to_string(rest);
        digits.insert(0, std::string(kDigitsOfOne - nine.size(), '0') + nine);
    }
    digits.erase(0, digits.find_first_not_of('0'));
    return digits;
}

// Sets the point and takes off what means nothing: "12.50" is "12.5".
std::string WithPoint(std::string digits, std::size_t scale) {
    if (digits.size() <= scale) digits.insert(0, scale + 1 - digits.size(), '0');
    if (scale == 0) return digits;
    digits.insert(digits.size() - scale, ".");
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') digits.pop_back();
    return digits;
}

}  // namespace

ValueReader::ValueReader(PageFile& file) : mText(file.header().version, file.header().codePage), mLongValues(file) {}

Value ValueReader::Read(const Row& row, const Column& column) {
    if (column.type == ColumnType::Boolean) return IntegerValue(row.IsSet(column) ? -1 : 0);
    const std::optional<Bytes> stored = row.Stored(column);
    if (!stored) return {};
    switch (column.type) {
        case ColumnType::Byte:
            return IntegerValue(stored->U8(0));
        case ColumnType::Integer:
            return IntegerValue(static_cast<std::int16_t>(stored->U16(0)));
        case ColumnType::Long:
            return IntegerValue(static_cast<std::int32_t>(stored->U32(0)));
        case ColumnType::Currency:
            return CurrencyValue(static_cast<std::int64_t>(stored->U64(0)));
        case ColumnType::Single:
            return RealValue(static_cast<double>(std::bit_cast<float>(stored->U32(0))));
        case ColumnType::Double:
        case ColumnType::Date:
            return RealValue(stored->Double(0));
        case ColumnType::Text:
            return TextValue(mText.ToUtf8(*stored));
        case ColumnType::Memo:
            return TextValue(mText.ToUtf8(mLongValues.Read(*stored)));
        case ColumnType::LongBinary:
            return BlobValue(mLongValues.Read(*stored));
        case ColumnType::Guid:
            return GuidValue(*stored);
        case ColumnType::Decimal:
            return DecimalValue(*stored, column.scale);
        case ColumnType::Boolean:
        case ColumnType::Binary:
            break;
    }
    return BlobValue(*stored);
}

// Units of 1/10,000. What a double cannot hold is kept as its digits.
Value ValueReader::CurrencyValue(std::int64_t scaled) {
    constexpr std::int64_t kUnits = 10'000;
    if (scaled % kUnits == 0) return IntegerValue(scaled / kUnits);
    if (scaled >= -kMostExact && scaled <= kMostExact) return RealValue(static_cast<double>(scaled) / kUnits);
    const bool isNegative = scaled < 0;
    const auto size = isNegative ? 0 - static_cast<std::uint64_t>(scaled) : static_cast<std::uint64_t>(scaled);
    mBuffer = (isNegative ? "-" : "") + WithPoint(std::to_string(size), 4);
    return {.kind = Value::Kind::Blob, .bytes = mBuffer};
}

// A sign, then 128 bits in four parts, the highest one first. Up to 15 digits a
// double means the same; more are kept as digits. They are no SQLite text,
// which would become a double where it looks like a number.
Value ValueReader::DecimalValue(const Bytes& stored, std::uint8_t scale) {
    constexpr std::size_t kDigitsOfDouble = 15;
    const std::array number = {stored.U32(1), stored.U32(5), stored.U32(9), stored.U32(13)};
    std::string digits = Digits(number);
    const bool isShort = digits.size() <= kDigitsOfDouble && scale <= kDigitsOfDouble;
    mBuffer = (stored.U8(0) & 0x80) != 0 && !digits.empty() ? "-" : "";
    mBuffer += WithPoint(std::move(digits), scale);
    if (!isShort) return {.kind = Value::Kind::Blob, .bytes = mBuffer};
    double value = 0;
    std::from_chars(mBuffer.data(), mBuffer.data() + mBuffer.size(), value);
    return RealValue(value);
}

Value ValueReader::GuidValue(const Bytes& stored) {
    // The first three parts are numbers, the rest are bytes in their order.
    static constexpr std::array<std::size_t, 16> kOrder = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    mBuffer = "{";
    for (std::size_t i = 0; i < kOrder.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) mBuffer += '-';
        const std::uint8_t byte = stored.U8(kOrder[i]);
        mBuffer += kHexDigits[byte >> 4];
        mBuffer += kHexDigits[byte & 0xF];
    }
    mBuffer += '}';
    return TextValue(mBuffer);
}

}  // namespace ov::jet
