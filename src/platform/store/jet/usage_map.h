/// @file
/// The pages that belong to a table.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/store/jet/page_file.h"

namespace ov::jet {

/// The numbers of the pages that the usage map at @p at names, in ascending order. They may lie behind the end of a
/// file that was cut off. @throws RuntimeError 3011
std::vector<std::uint32_t> ReadUsageMap(PageFile& file, RowPointer at);

}  // namespace ov::jet
