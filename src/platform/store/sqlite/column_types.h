/// @file
/// From the declared type of a column to the type of its values.
#pragma once

#include <optional>
#include <string_view>

#include "platform/automation/variant.h"
#include "platform/store/sqlite/row_store.h"
#include "platform/store/sqlite/text_pool.h"

namespace ov::sqlite {

/// What a column's values are.
enum class ColumnType : std::uint8_t {
    AsStored,  ///< no type that is known: Long if it fits, else Decimal; Double; String; array of Byte
    Boolean,
    Byte,
    Integer,
    Long,
    Single,
    Double,
    Currency,
    Decimal,
    Date,
    String,
    Bytes,
};

/// The type that a declaration such as "VARCHAR(50)" names; case and brackets do not count.
ColumnType DeclaredType(std::string_view declaration) noexcept;

/// The value of a cell in a column of @p type. NULL is Null; what the type cannot hold is a String of its text.
Variant Decode(const Cell& cell, ColumnType type);
/// The same; texts come from @p texts.
Variant Decode(const Cell& cell, ColumnType type, TextPool& texts);

/// A search key in the type of a column of @p type, or nullopt if it is Null or cannot be one.
std::optional<Variant> ConvertKey(const Variant& key, ColumnType type);

/// True if equal values of @p type can be stored in different forms (True as -1 and 1, a date as number and as text),
/// so that they can be compared only once they are decoded.
constexpr bool HasSeveralForms(ColumnType type) noexcept {
    return type == ColumnType::Boolean || type == ColumnType::Single || type == ColumnType::Date;
}

}  // namespace ov::sqlite
