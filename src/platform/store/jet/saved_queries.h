/// @file
/// The queries that are saved in a Jet file.
#pragma once

#include <vector>

#include "platform/store/jet/catalogue.h"
#include "platform/store/jet/import_report.h"

namespace ov::jet {

/// The queries of the file, in the order of the catalogue. A query that cannot be read has that as its obstacle.
std::vector<ImportReport::Query> ReadSavedQueries(PageFile& file, ValueReader& values, const Catalogue& catalogue);

}  // namespace ov::jet
