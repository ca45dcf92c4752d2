/// @file
/// The one table of the functions that queries of descriptors have.
#pragma once

#include <span>

#include "platform/functions/builtin.h"
#include "platform/store/sqlite/sql_functions.h"

namespace ov::sqlite {

/// What a call in a query needs of its surroundings.
class SqlCallContext : public vbscript::BuiltinContext {
public:
    /// The first value of a query's first row; Null for none.
    virtual Variant ReadFirst(const std::string& sql) = 0;
};

struct SqlFunctionEntry {
    SqlFunction function;
    bool nullSpreads;
    std::uint8_t fewest;
    std::uint8_t most;
    /// nullptr for those that are written in other words, or that SQLite or the aggregates have.
    Variant (*call)(vbscript::BuiltinContext& context, std::span<Variant> arguments);

    bool Takes(std::size_t count) const noexcept { return count >= fewest && count <= most; }
};

std::span<const SqlFunctionEntry> SqlFunctionTable();

}  // namespace ov::sqlite
