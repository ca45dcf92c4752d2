/// @file
/// The values of a row, as SQLite takes them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/store/jet/long_values.h"
#include "platform/store/jet/rows.h"

namespace ov::jet {

/// A value in one of SQLite's forms.
struct Value {
    enum class Kind : std::uint8_t { Null, Integer, Real, Text, Blob };

    Kind kind = Kind::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view bytes{};  ///< of Text (UTF-8) and Blob; valid until the reader's next call
};

/// Reads the values of rows.
class ValueReader {
public:
    explicit ValueReader(PageFile& file);

    /// @throws RuntimeError 3011
    Value Read(const Row& row, const Column& column);
    /// Decodes texts as the columns have them.
    ColumnText& text() noexcept { return mText; }

private:
    Value TextValue(std::string_view text) const noexcept { return {.kind = Value::Kind::Text, .bytes = text}; }
    Value CurrencyValue(std::int64_t scaled);
    Value DecimalValue(const Bytes& stored, std::uint8_t scale);
    Value GuidValue(const Bytes& stored);

    ColumnText mText;
    LongValues mLongValues;
    std::string mBuffer;
};

}  // namespace ov::jet
