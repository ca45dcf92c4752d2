/// @file
/// The functions and operators that authors of descriptors use in queries.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/store/sqlite/column_types.h"

namespace ov::sqlite {

// Functions that stand for operators which SQLite has not, or has with another meaning, and for conversions that the
// types of columns ask for. No query can call them by name.
inline constexpr const char* kJoinFunction = "&";
inline constexpr const char* kAsDateFunction = "as date";
inline constexpr const char* kAsSingleFunction = "as single";
inline constexpr const char* kOtherLikeFunction = "alike";

/// How a function is written in SQLite's words.
enum class SqlRole : std::uint8_t {
    Function,     ///< a call
    Condition,    ///< a call that gives a truth, as SQLite has it
    Choice,       ///< IIf: a CASE, so that one value alone is made
    Aggregate,    ///< over all rows of a group
    FirstOrLast,  ///< over all rows, and it has to know their order
};

/// A function of the descriptors' dialect.
struct SqlFunction {
    std::string_view name;
    SqlRole role;
    ColumnType type;  ///< of its result
};

/// The function of a name, without regard to case, or nullptr for one that is SQLite's or nobody's.
const SqlFunction* FindSqlFunction(std::string_view name) noexcept;

/// Runs the queries that domain functions such as DLookUp are.
class SqlDomainReader {
public:
    virtual ~SqlDomainReader() = default;
    /// The first value of the first row of a query; Null if there is none. @throws RuntimeError of the query
    virtual Variant ReadFirst(const std::string& sql) = 0;
};

/// The functions of one database. They stand for as long as it lives.
///
/// All names of the dialect that SQLite has, too, are taken over whatever the arguments, so that none of SQLite's own
/// answers there. A Null argument gives Null, but for those that ask for it. What the arguments cannot be is an error
/// of the query with the words of the run-time error.
class SqlFunctions {
public:
    /// @throws RuntimeError of the engine
    SqlFunctions(sqlite3* db, SqlDomainReader& domains);
    SqlFunctions(const SqlFunctions&) = delete;
    SqlFunctions& operator=(const SqlFunctions&) = delete;
    ~SqlFunctions();

private:
    class Context;
    struct Bound;

    std::unique_ptr<Context> mContext;
    std::vector<Bound> mBound;  // SQLite has pointers to them
};

}  // namespace ov::sqlite
