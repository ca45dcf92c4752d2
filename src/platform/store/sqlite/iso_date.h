/// @file
/// Dates as SQLite's tools write them.
#pragma once

#include <optional>
#include <string_view>

#include "platform/automation/variant.h"

namespace ov::sqlite {

/// An ISO date "2001-02-03", time "04:05[:06[.789]]", or both with "T" or blanks between; nullopt for any other text.
std::optional<Date> ReadIsoDate(std::string_view text) noexcept;

}  // namespace ov::sqlite
