#include <array>
#include <bit>

#include "platform/functions/arguments.h"
#include "platform/functions/themes.h"

namespace ov::vbscript {

namespace {

template <auto Convert>
Variant Converted(BuiltinContext&, std::span<Variant> arguments) {
    return Convert(arguments[0]);
}

/// The bits that Hex and Oct show: as many as the number's type has. What is no integer is a Long.
std::uint32_t BitsOf(const Variant& number) {
    switch (number.Type()) {
        case VarType::Byte:
            return number.AsByte();
        case VarType::Empty:
        case VarType::Boolean:
        case VarType::Integer:
            return static_cast<std::uint16_t>(ToInteger(number));
        default:
            return static_cast<std::uint32_t>(ToLong(number));
    }
}

template <unsigned BitsPerDigit>
Variant Digits(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    std::uint32_t bits = BitsOf(ValueAt(arguments, 0));
    std::array<char16_t, 32 / BitsPerDigit + 1> digits;
    std::size_t first = digits.size();
    do {
        digits[--first] = u"0123456789ABCDEF"[bits & ((1u << BitsPerDigit) - 1)];
        bits >>= BitsPerDigit;
    } while (bits != 0);
    return std::u16string_view(&digits[first], digits.size() - first);
}

constexpr std::array kBuiltins = {
    Builtin{u"CBool", 1, 1, &Converted<&ToBoolean>},
    Builtin{u"CByte", 1, 1, &Converted<&ToByte>},
    Builtin{u"CCur", 1, 1, &Converted<&ToCurrency>},
    Builtin{u"CDate", 1, 1, &Converted<&ToDate>},
    Builtin{u"CDbl", 1, 1, &Converted<&ToDouble>},
    Builtin{u"CInt", 1, 1, &Converted<&ToInteger>},
    Builtin{u"CLng", 1, 1, &Converted<&ToLong>},
    Builtin{u"CSng", 1, 1, &Converted<&ToSingle>},
    Builtin{u"CStr", 1, 1, &Converted<&ToText>},
    Builtin{u"Hex", 1, 1, &Digits<4>},
    Builtin{u"Oct", 1, 1, &Digits<3>},
};

}  // namespace

std::span<const Builtin> ConversionBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
