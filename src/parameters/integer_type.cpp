#include "parameters/integer_type.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "parameters/bit_conversions.h"
#include "platform/automation/conversions.h"
#include "platform/conversion/hex_digits.h"

namespace ov {

std::int32_t IntegerType<std::int32_t>::PatternOf(const Text& digits) {
    return ToLong(u"&H" + digits);
}

Text IntegerType<std::int32_t>::DigitsOf(std::int32_t pattern) {
    constexpr int kBitsOfDigit = 4;
    std::array<char16_t, 8> digits;
    std::size_t first = digits.size();
    auto rest = static_cast<std::uint32_t>(pattern);
    do {
        digits[--first] = HexDigit(rest);
        rest >>= kBitsOfDigit;
    } while (rest != 0);
    return std::u16string_view(digits.data() + first, digits.size() - first);
}

std::int32_t IntegerType<std::int32_t>::ToSigned(std::int32_t pattern, std::int32_t width) {
    return Unsigned2SignedL(pattern, width);
}

std::int32_t IntegerType<std::int32_t>::ToPattern(std::int32_t number, std::int32_t width) {
    return Signed2UnsignedL(number, width);
}

Decimal IntegerType<Decimal>::PatternOf(const Text& digits) {
    return Hex2Dec(digits, eByteOrder::eBigEndian);
}

Text IntegerType<Decimal>::DigitsOf(const Decimal& pattern) {
    constexpr std::int32_t kAllDigits = 16;
    const Text digits = Dec2Hex(pattern, eByteOrder::eBigEndian, kAllDigits);
    const std::size_t first = std::min(digits.view().find_first_not_of(u'0'), digits.size() - 1);
    return digits.view().substr(first);
}

Decimal IntegerType<Decimal>::ToSigned(const Decimal& pattern, std::int32_t width) {
    return Unsigned2Signed(pattern, width);
}

Decimal IntegerType<Decimal>::ToPattern(const Decimal& number, std::int32_t width) {
    return Signed2Unsigned(number, width);
}

}  // namespace ov
