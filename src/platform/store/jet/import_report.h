/// @file
/// What an import of a Jet file brought.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ov::jet {

/// What an import brought, and what it did not. Names are UTF-8.
struct ImportReport {
    struct Table {
        std::string name;
        std::int64_t rows;
    };

    /// A query that is saved in the file. No table comes of it.
    struct Query {
        std::string name;
        std::string sql;       ///< of a selection, in the engine's own words
        std::string obstacle;  ///< why it is none; "" if it is one
    };

    std::vector<Table> tables;
    std::vector<Query> queries;
    std::vector<std::string> losses;  ///< a line for each thing that is missing: a link, rows
    bool isDamaged = false;           ///< something is missing because it cannot be read
};

}  // namespace ov::jet
