/// @file
/// The queries that differ in a number alone: one for each group of a device.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/store/sqlite/sql_text.h"

namespace ov::sqlite {

/// Knows how a query was translated, for the next one that has another number behind its last "= ": it is the same
/// statement with another value.
class QueryForms {
public:
    /// The translation of @p sql, or nullopt if no query of its form is known.
    std::optional<SqliteQuery> Find(std::string_view sql) const;
    /// Keeps the form of @p sql, which @p translated is, if all queries of the form are translated alike.
    void Learn(const std::string& sql, const SqliteQuery& translated, SqlSchema& schema);

private:
    static constexpr std::size_t kMost = 64;

    std::unordered_map<std::string, std::string> mTexts;  // translated text by the query with its number left out
};

}  // namespace ov::sqlite
