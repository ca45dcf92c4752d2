#include "platform/store/sqlite/sql_text.h"

#include <algorithm>
#include <array>

#include "platform/store/sqlite/engine_error.h"
#include "platform/store/sqlite/sql_parser.h"
#include "platform/store/sqlite/sql_writer.h"

namespace ov::sqlite {

namespace {

bool IsSignificant(const SqlToken& token) noexcept {
    return token.kind != SqlTokenKind::Space;
}

}  // namespace

bool SqlText::IsNameOnly() const noexcept {
    return std::ranges::all_of(mTokens, [](const SqlToken& token) {
        return token.kind == SqlTokenKind::Space || token.kind == SqlTokenKind::Word ||
               token.kind == SqlTokenKind::Name || token.kind == SqlTokenKind::Quoted;
    });
}

std::string_view SqlText::Name() const noexcept {
    std::string_view name = mSql;
    const std::size_t first = name.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    name = name.substr(first, name.find_last_not_of(' ') - first + 1);
    const bool bracketed = name.size() > 2 && name.front() == '[' && name.find(']') == name.size() - 1;
    return bracketed ? name.substr(1, name.size() - 2) : name;
}

bool SqlText::BeginsStatement() const noexcept {
    static constexpr std::array<std::string_view, 25> kWords = {
        "SELECT", "WITH",    "VALUES",   "INSERT",    "UPDATE",  "DELETE",     "REPLACE",  "CREATE", "DROP",
        "ALTER",  "ATTACH",  "DETACH",   "PRAGMA",    "EXPLAIN", "BEGIN",      "COMMIT",   "END",    "ANALYZE",
        "VACUUM", "REINDEX", "ROLLBACK", "SAVEPOINT", "RELEASE", "PARAMETERS", "TRANSFORM"};
    const auto first = std::ranges::find_if(mTokens, IsSignificant);
    return first != mTokens.end() && first->kind == SqlTokenKind::Word &&
           std::ranges::any_of(kWords, [&](std::string_view word) { return EqualsUpper(first->text, word); });
}

bool SqlText::MayBeName() const noexcept {
    return !BeginsStatement() || std::ranges::count_if(mTokens, IsSignificant) == 1;
}

SqliteQuery SqlText::Rewrite(SqlSchema& schema) const {
    if (mSql.find('\0') != std::string::npos) throw BadQuery(u"unrecognized token");
    SqlStatement statement = ParseSql(mSql);
    if (!statement.query) return {mSql, {}};
    // One with parameters of its own stays as it is, so that it can be told how many those are.
    const bool hasParameters = !statement.parameters.empty() || std::ranges::any_of(mTokens, [](const SqlToken& token) {
        return token.kind == SqlTokenKind::Parameter;
    });
    SqlWriter writer(schema, std::move(statement.parameters), !hasParameters);
    SqliteQuery query;
    query.text = writer.Write(*statement.query) + statement.rest;
    query.values = writer.TakeValues();
    return query;
}

std::string SqlText::RewriteForView(SqlSchema& schema) const {
    const SqlStatement statement = ParseSql(mSql);
    if (!statement.query) throw BadQuery(u"it is no selection");
    if (!statement.parameters.empty()) throw BadQuery(u"it has parameters");
    return SqlWriter(schema, {}, false).Write(*statement.query);
}

}  // namespace ov::sqlite
