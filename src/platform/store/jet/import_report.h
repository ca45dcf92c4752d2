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

    std::vector<Table> tables;
    std::vector<std::string> losses;  ///< a line for each: links, queries, properties, rows, pages
    bool isDamaged = false;           ///< something is missing because it cannot be read
};

}  // namespace ov::jet
