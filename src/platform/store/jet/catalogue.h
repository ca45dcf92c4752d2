/// @file
/// The objects of a Jet file: which tables there are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/store/jet/properties.h"
#include "platform/store/jet/values.h"

namespace ov::jet {

struct CatalogueTable {
    std::string name;
    std::uint32_t definitionPage;
    std::vector<Property> properties;
};

struct CatalogueQuery {
    std::string name;
    std::int64_t id;
};

/// What the file holds besides the engine's own tables.
struct Catalogue {
    std::vector<CatalogueTable> tables;  ///< by the order of their definitions in the file
    std::vector<CatalogueQuery> queries;
    std::uint32_t queriesPage = 0;    ///< definition of the table that holds the parts of the queries; 0 for none
    std::vector<std::string> losses;  ///< a line for each object that is not read, with the reason
    bool isDamaged = false;           ///< a loss is one of a damaged file
};

/// @throws RuntimeError 3011 if the catalogue cannot be found
Catalogue ReadCatalogue(PageFile& file, ValueReader& values);

}  // namespace ov::jet
