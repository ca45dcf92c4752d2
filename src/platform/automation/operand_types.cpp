#include "platform/automation/operand_types.h"

#include <array>
#include <string_view>

#include "platform/automation/errors.h"

namespace ov {

namespace {

// Rows are the left operand, columns the right one, both in the order
//   Empty  Byte  Boolean  Integer  Long  Single  Double  String  Currency  Date  Decimal
// A letter is the type of the result: Y Byte, B Boolean, I Integer, L Long, S Single, D Double, C Currency, T Date,
// M Decimal.
constexpr std::size_t kOperands = 11;
using Table = std::array<std::string_view, kOperands>;

constexpr Table kSum = {
    "IYIILSDDCTM",  // Empty
    "YYIILSDDCTM",  // Byte
    "IIIILSDDCTM",  // Boolean
    "IIIILSDDCTM",  // Integer
    "LLLLLDDDCTM",  // Long: a Single has too few digits for it
    "SSSSDSDDCTM",  // Single
    "DDDDDDDDCTM",  // Double
    "DDDDDDDDCTM",  // String
    "CCCCCCCCCTM",  // Currency
    "TTTTTTTTTTT",  // Date
    "MMMMMMMMMTM",  // Decimal
};

constexpr Table kProduct = {
    "IYIILSDDCDM",  // Empty
    "YYIILSDDCDM",  // Byte
    "IIIILSDDCDM",  // Boolean
    "IIIILSDDCDM",  // Integer
    "LLLLLDDDCDM",  // Long
    "SSSSDSDDDDM",  // Single
    "DDDDDDDDDDM",  // Double
    "DDDDDDDDDDM",  // String
    "CCCCCDDDCDM",  // Currency: times a floating number it is one
    "DDDDDDDDDDM",  // Date
    "MMMMMMMMMMM",  // Decimal
};

constexpr Table kQuotient = {
    "DDDDDSDDDDM",  // Empty
    "DDDDDSDDDDM",  // Byte
    "DDDDDSDDDDM",  // Boolean
    "DDDDDSDDDDM",  // Integer
    "DDDDDDDDDDM",  // Long
    "SSSSDSDDDDM",  // Single
    "DDDDDDDDDDM",  // Double
    "DDDDDDDDDDM",  // String
    "DDDDDDDDDDM",  // Currency
    "DDDDDDDDDDM",  // Date
    "MMMMMMMMMMM",  // Decimal
};

// Only the first four rows and columns differ from Long.
constexpr Table kWholeQuotient = {
    "IYIILLLLLLL",  // Empty
    "YYIILLLLLLL",  // Byte
    "IIIILLLLLLL",  // Boolean
    "IIIILLLLLLL",  // Integer
    "LLLLLLLLLLL", "LLLLLLLLLLL", "LLLLLLLLLLL", "LLLLLLLLLLL", "LLLLLLLLLLL", "LLLLLLLLLLL", "LLLLLLLLLLL",
};

constexpr Table kBitwise = {
    "LLLLLLLLLLL",  // Empty
    "LYIILLLLLLL",  // Byte
    "LIBILLLLLLL",  // Boolean
    "LIIILLLLLLL",  // Integer
    "LLLLLLLLLLL", "LLLLLLLLLLL", "LLLLLLLLLLL", "LLLLLLLLLLL", "LLLLLLLLLLL", "LLLLLLLLLLL", "LLLLLLLLLLL",
};

std::size_t IndexOf(const Variant& operand) {
    switch (operand.Type()) {
        case VarType::Empty:
            return 0;
        case VarType::Byte:
            return 1;
        case VarType::Boolean:
            return 2;
        case VarType::Integer:
            return 3;
        case VarType::Long:
            return 4;
        case VarType::Single:
            return 5;
        case VarType::Double:
            return 6;
        case VarType::String:
            return 7;
        case VarType::Currency:
            return 8;
        case VarType::Date:
            return 9;
        case VarType::Decimal:
            return 10;
        case VarType::Missing:
            Raise(ErrorNumber::NamedArgumentNotFound);
        default:
            Raise(ErrorNumber::TypeMismatch);
    }
}

VarType TypeOf(char letter) noexcept {
    switch (letter) {
        case 'Y':
            return VarType::Byte;
        case 'B':
            return VarType::Boolean;
        case 'I':
            return VarType::Integer;
        case 'L':
            return VarType::Long;
        case 'S':
            return VarType::Single;
        case 'C':
            return VarType::Currency;
        case 'T':
            return VarType::Date;
        case 'M':
            return VarType::Decimal;
        default:
            return VarType::Double;
    }
}

VarType LookUp(const Table& table, const Variant& a, const Variant& b) {
    const std::size_t row = IndexOf(a);
    return TypeOf(table[row][IndexOf(b)]);
}

}  // namespace

VarType SumType(const Variant& a, const Variant& b) {
    return LookUp(kSum, a, b);
}
VarType ProductType(const Variant& a, const Variant& b) {
    return LookUp(kProduct, a, b);
}
VarType QuotientType(const Variant& a, const Variant& b) {
    return LookUp(kQuotient, a, b);
}
VarType WholeQuotientType(const Variant& a, const Variant& b) {
    return LookUp(kWholeQuotient, a, b);
}
VarType BitwiseType(const Variant& a, const Variant& b) {
    return LookUp(kBitwise, a, b);
}

}  // namespace ov
