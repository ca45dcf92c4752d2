/// @file
/// The properties of a table's columns.
#pragma once

#include <string>
#include <vector>

#include "platform/store/jet/column_text.h"

namespace ov::jet {

struct Property {
    std::string column;
    std::string name;
    std::string value;  ///< as text; a Boolean is "-1" or "0"
};

/// Reads the properties of columns, not those of the table itself, from what
/// the catalogue stores for a table.
/// @throws RuntimeError 3011
std::vector<Property> ReadProperties(const Bytes& stored, ColumnText& text);

}  // namespace ov::jet
