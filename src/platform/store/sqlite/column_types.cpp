#include "platform/store/sqlite/column_types.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "platform/automation/conversions.h"
#include "platform/automation/date_text.h"
#include "platform/automation/errors.h"
#include "platform/store/sqlite/iso_date.h"

namespace ov::sqlite {

namespace {

struct TypeName {
    std::string_view name;
    ColumnType type;
};

// Sorted by name.
constexpr std::array kTypeNames = {
    TypeName{"AUTOINCREMENT", ColumnType::Long}, TypeName{"BINARY", ColumnType::Bytes},
    TypeName{"BIT", ColumnType::Boolean},        TypeName{"BLOB", ColumnType::Bytes},
    TypeName{"BOOLEAN", ColumnType::Boolean},    TypeName{"BYTE", ColumnType::Byte},
    TypeName{"CHAR", ColumnType::String},        TypeName{"COUNTER", ColumnType::Long},
    TypeName{"CURRENCY", ColumnType::Currency},  TypeName{"DATE", ColumnType::Date},
    TypeName{"DATETIME", ColumnType::Date},      TypeName{"DECIMAL", ColumnType::Decimal},
    TypeName{"DOUBLE", ColumnType::Double},      TypeName{"FLOAT", ColumnType::Double},
    TypeName{"GUID", ColumnType::String},        TypeName{"INT", ColumnType::Long},
    TypeName{"INTEGER", ColumnType::Long},       TypeName{"LOGICAL", ColumnType::Boolean},
    TypeName{"LONG", ColumnType::Long},          TypeName{"LONGBINARY", ColumnType::Bytes},
    TypeName{"LONGTEXT", ColumnType::String},    TypeName{"MEMO", ColumnType::String},
    TypeName{"MONEY", ColumnType::Currency},     TypeName{"NUMBER", ColumnType::Double},
    TypeName{"NUMERIC", ColumnType::Decimal},    TypeName{"OLE", ColumnType::Bytes},
    TypeName{"REAL", ColumnType::Single},        TypeName{"SHORT", ColumnType::Integer},
    TypeName{"SINGLE", ColumnType::Single},      TypeName{"SMALLINT", ColumnType::Integer},
    TypeName{"STRING", ColumnType::String},      TypeName{"TEXT", ColumnType::String},
    TypeName{"TIME", ColumnType::Date},          TypeName{"TIMESTAMP", ColumnType::Date},
    TypeName{"TINYINT", ColumnType::Byte},       TypeName{"VARCHAR", ColumnType::String},
    TypeName{"YESNO", ColumnType::Boolean},
};
static_assert(std::ranges::is_sorted(kTypeNames, {}, &TypeName::name));

constexpr char ToUpperAscii(char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
}

bool IsAscii(std::string_view bytes) noexcept {
    std::size_t at = 0;
    std::uint64_t high = 0;
    for (; at + 8 <= bytes.size(); at += 8) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, bytes.data() + at, 8);
        high |= eight;
    }
    for (; at < bytes.size(); ++at) {
        high |= static_cast<unsigned char>(bytes[at]);
    }
    return (high & 0x8080808080808080u) == 0;
}

// Nearly all texts of a descriptor are ASCII, and they are most of what is read.
Text FromStoredText(std::string_view bytes) {
    return IsAscii(bytes) ? Text::FromAscii(bytes) : Text::FromUtf8(bytes);
}

Text TextOf(const Cell& cell) {
    switch (cell.kind) {
        case CellKind::Integer:
            return Text::FromInteger(cell.integer);
        case CellKind::Real:
            return ToInvariantText(cell.real);
        case CellKind::Text:
        case CellKind::Blob:
            return FromStoredText(cell.Bytes());
        case CellKind::Null:
            break;
    }
    return {};
}

Variant BytesOf(const Cell& cell) {
    const std::string_view bytes = cell.Bytes();
    return Array::OfBytes(std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
}

Variant AsStored(const Cell& cell) {
    switch (cell.kind) {
        case CellKind::Integer:
            if (cell.integer == static_cast<std::int32_t>(cell.integer)) return static_cast<std::int32_t>(cell.integer);
            return Decimal(cell.integer);
        case CellKind::Real:
            return cell.real;
        case CellKind::Text:
            return FromStoredText(cell.Bytes());
        case CellKind::Blob:
            return BytesOf(cell);
        case CellKind::Null:
            break;
    }
    return Variant::Null();
}

// The cell as a whole number that @p T can hold.
template <class T>
std::optional<T> WholeNumber(const Cell& cell) noexcept {
    if (cell.kind == CellKind::Integer && cell.integer == static_cast<T>(cell.integer)) {
        return static_cast<T>(cell.integer);
    }
    if (cell.kind == CellKind::Real && cell.real >= std::numeric_limits<T>::min() &&
        cell.real <= std::numeric_limits<T>::max() && std::trunc(cell.real) == cell.real) {
        return static_cast<T>(cell.real);
    }
    return std::nullopt;
}

template <class T>
Variant DecodeWhole(const Cell& cell) {
    const std::optional<T> value = WholeNumber<T>(cell);
    return value ? Variant(*value) : Variant(TextOf(cell));
}

std::optional<double> RealNumber(const Cell& cell) noexcept {
    if (cell.kind == CellKind::Real) return cell.real;
    if (cell.kind == CellKind::Integer) return static_cast<double>(cell.integer);
    return std::nullopt;
}

Variant DecodeSingle(const Cell& cell) {
    const std::optional<double> value = RealNumber(cell);
    constexpr auto kMax = static_cast<double>(std::numeric_limits<float>::max());
    const bool fits = value && (std::isinf(*value) || std::abs(*value) <= kMax);
    return fits ? Variant(static_cast<float>(*value)) : Variant(TextOf(cell));
}

// Types whose conversion tells by an error that a value does not fit.
Variant DecodeByConversion(const Cell& cell, VarType type) {
    try {
        if (cell.kind == CellKind::Integer) return ConvertTo(type, Decimal(cell.integer));
        if (cell.kind == CellKind::Real) return ConvertTo(type, cell.real);
        // More digits than a number of SQLite has are stored as text, or as the bytes of one where SQLite would make a
        // number of it.
        if (cell.kind == CellKind::Text || cell.kind == CellKind::Blob) {
            const std::optional<Decimal> parsed = Decimal::Parse(FromStoredText(cell.Bytes()));
            if (parsed) return ConvertTo(type, *parsed);
        }
    } catch (const RuntimeError&) {
        // Its text, then.
    }
    return TextOf(cell);
}

Variant DecodeDate(const Cell& cell) {
    if (cell.kind == CellKind::Text) {
        const std::optional<Date> date = ReadIsoDate(cell.Bytes());
        if (date) return *date;
    }
    const std::optional<double> days = RealNumber(cell);
    return days && IsDateNumber(*days) ? Variant(Date{*days}) : Variant(TextOf(cell));
}

}  // namespace

ColumnType DeclaredType(std::string_view declaration) noexcept {
    std::array<char, 16> word;  // longer than any name of a type
    std::size_t length = 0;
    int depth = 0;
    for (const char c : declaration) {
        if (c == '(') ++depth;
        const bool isQuote = c == '[' || c == ']' || c == '"' || c == '`';
        if (depth == 0 && !isQuote) {
            if (length == word.size()) return ColumnType::AsStored;
            word[length++] = ToUpperAscii(c);
        }
        if (c == ')' && depth > 0) --depth;
    }
    while (length > 0 && word[length - 1] == ' ') {
        --length;
    }
    const std::string_view name(word.data(), length);
    const auto at = std::ranges::lower_bound(kTypeNames, name, {}, &TypeName::name);
    return at != kTypeNames.end() && at->name == name ? at->type : ColumnType::AsStored;
}

Variant Decode(const Cell& cell, ColumnType type) {
    if (cell.kind == CellKind::Null) return Variant::Null();
    switch (type) {
        case ColumnType::AsStored:
            return AsStored(cell);
        case ColumnType::Boolean: {
            const std::optional<double> number = RealNumber(cell);
            return number ? Variant(*number != 0) : Variant(TextOf(cell));
        }
        case ColumnType::Byte:
            return DecodeWhole<std::uint8_t>(cell);
        case ColumnType::Integer:
            return DecodeWhole<std::int16_t>(cell);
        case ColumnType::Long:
            return DecodeWhole<std::int32_t>(cell);
        case ColumnType::Single:
            return DecodeSingle(cell);
        case ColumnType::Double: {
            const std::optional<double> number = RealNumber(cell);
            return number ? Variant(*number) : Variant(TextOf(cell));
        }
        case ColumnType::Currency:
            return DecodeByConversion(cell, VarType::Currency);
        case ColumnType::Decimal:
            return DecodeByConversion(cell, VarType::Decimal);
        case ColumnType::Date:
            return DecodeDate(cell);
        case ColumnType::String:
            return TextOf(cell);
        case ColumnType::Bytes:
            return cell.kind == CellKind::Blob ? BytesOf(cell) : Variant(TextOf(cell));
    }
    return Variant::Null();
}

Variant Decode(const Cell& cell, ColumnType type, TextPool& texts) {
    const bool isText = type == ColumnType::String && cell.kind == CellKind::Text;
    const bool isPooled = isText && cell.length <= TextPool::kLongest && IsAscii(cell.Bytes());
    return isPooled ? Variant(texts.Find(cell.Bytes())) : Decode(cell, type);
}

std::optional<Variant> ConvertKey(const Variant& key, ColumnType type) {
    static constexpr std::array kVarTypes = {
        VarType::Empty,  VarType::Boolean,  VarType::Byte,    VarType::Integer, VarType::Long,   VarType::Single,
        VarType::Double, VarType::Currency, VarType::Decimal, VarType::Date,    VarType::String, VarType::Empty,
    };
    try {
        const Variant value = key.IsObject() ? DefaultValue(key) : key;
        if (value.IsNull()) return std::nullopt;
        switch (type) {
            case ColumnType::AsStored:
            case ColumnType::Bytes:
                return value;
            case ColumnType::String:
                // Stored numbers have no locale, so a number that is looked for has none either.
                if (value.Type() == VarType::Date || value.Type() == VarType::Boolean) return Variant(ToText(value));
                return Variant(ToInvariantText(value));
            default:
                return ConvertTo(kVarTypes[static_cast<std::size_t>(type)], value);
        }
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace ov::sqlite
