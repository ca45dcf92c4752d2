/// @file
/// Jet files of a test's own.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/store/jet/header.h"
#include "platform/store/jet/table_definition.h"

namespace ov::testing {

/// A value as the type of its column wants it: a bool, a number (Currency and Decimal: of their smallest units), a text
/// (UTF-8), or bytes; nothing is Null.
using JetValue = std::variant<std::monostate, bool, std::int64_t, double, std::string, std::vector<std::uint8_t>>;

struct JetColumn {
    std::string name;
    jet::ColumnType type;
    bool isKey = false;
    std::uint8_t scale = 0;
    bool isCounter = false;
};

struct JetRow {
    enum class Place : std::uint8_t { Plain, Moved, Deleted };

    std::vector<JetValue> values;
    Place place = Place::Plain;
};

struct JetProperty {
    std::string column;
    std::string name;
    std::string value;
};

struct JetTable {
    std::string name;
    std::vector<JetColumn> columns;
    std::vector<JetRow> rows;
    std::vector<JetProperty> properties;
    int type = 1;              ///< in the catalogue: 6 is a link, 5 a query
    bool hasMapPages = false;  ///< its map of pages is on pages of its own
    std::int64_t id = 0;       ///< of a query
};

struct JetFile {
    jet::Version version = jet::Version::Jet4;
    std::string password;
    std::uint32_t pageKey = 0;  ///< 0 leaves the pages plain
    std::vector<JetTable> tables;
};

/// The bytes of the file.
std::vector<std::uint8_t> WriteJet(const JetFile& file);
/// Writes it to @p path.
void WriteJet(const JetFile& file, const std::string& path);

}  // namespace ov::testing
