/// @file
/// What a Jet file tells of a table: its columns, its primary key, where its
/// rows are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/store/jet/column_text.h"
#include "platform/store/jet/page_file.h"

namespace ov::jet {

/// Types of columns by Jet's numbers. A file can hold others; their values are
/// bytes.
enum class ColumnType : std::uint8_t {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    LongBinary = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16,
};

struct Column {
    std::string name;  // UTF-8
    ColumnType type;
    std::uint16_t number;         ///< bit of the null bitmap; those of deleted columns
                                  ///< are not used again
    bool isFixed;                 ///< stands at fixedOffset, not behind an entry of the row's
                                  ///< offsets
    bool isCounter;               ///< Jet gives new rows its value
    std::uint16_t fixedOffset;    ///< from the first fixed column
    std::uint16_t variableIndex;  ///< among the row's offsets
    std::uint16_t length;         ///< most bytes; 0 for long values
    std::uint8_t scale;           ///< digits behind the point of a Decimal
};

struct TableDefinition {
    std::uint32_t page = 0;
    std::vector<Column> columns;  ///< in the order of their numbers
    bool hasVariableColumns = false;
    std::vector<std::size_t> primaryKey;  ///< of the index "PrimaryKey"; places among the columns
    RowPointer usageMap{};                ///< tells the pages of the rows
};

/// Reads the definition on page @p page and those behind it. @throws
/// RuntimeError 3011
TableDefinition ReadTableDefinition(PageFile& file, std::uint32_t page, ColumnText& text);

}  // namespace ov::jet
