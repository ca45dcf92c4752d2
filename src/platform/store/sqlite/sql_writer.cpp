#include "platform/store/sqlite/sql_writer.h"

#include <algorithm>
#include <utility>

#include "platform/store/sqlite/engine_error.h"
#include "platform/store/sqlite/sql_tokens.h"

namespace ov::sqlite {

namespace {

std::string Joined(const std::vector<std::string>& parts, const char* between) {
    std::string joined;
    for (const std::string& part : parts) {
        joined += (joined.empty() ? "" : between) + part;
    }
    return joined;
}

std::string BracketPath(const std::vector<std::string>& path) {
    std::vector<std::string> names;
    for (const std::string& name : path) {
        names.push_back(BracketName(name));
    }
    return Joined(names, ".");
}

// A query inside TOP is written twice or thrice, and so is one inside that.
void CheckLength(const std::string& sql) {
    constexpr std::size_t kMost = std::size_t{1} << 20;
    if (sql.size() > kMost) throw BadQuery(u"query is too long");
}

std::string BracketNames(const std::vector<std::string>& names) {
    std::vector<std::string> written;
    for (const std::string& name : names) {
        written.push_back(BracketName(name));
    }
    return "(" + Joined(written, ", ") + ")";
}

}  // namespace

// The rows' order: what the query tells, and behind it the place of each row, so that an index in use never shows.
class SqlWriter::OrderClause {
public:
    OrderClause(SqlWriter& writer, const SqlQuery& query, const SqlSelect& select, SqlScope& scope) {
        for (const SqlOrderTerm& term : query.orderBy) {
            Add(writer, term, select, scope);
        }
        const bool hasRows = !scope.isAggregate && select.groupBy.empty();
        if (!hasRows || (select.isDistinct && !mTerms.empty())) return;
        for (const std::string& place : scope.RowOrder()) {
            mTerms.push_back(place);
        }
    }

    std::string Text() const { return mTerms.empty() ? "" : " ORDER BY " + Joined(mTerms, ", "); }
    // The terms that the query tells, in words that need no column of the result; "" for none.
    std::string Ranking() const { return Joined(mRanking, ", "); }

private:
    void Add(SqlWriter& writer, const SqlOrderTerm& term, const SqlSelect& select, SqlScope& scope) {
        const SqlExpression& value = *term.value;
        const auto alias = [&]() -> const SqlScope::Alias* {
            if (value.kind != SqlExpression::Kind::Name || value.path.size() != 1) return nullptr;
            const auto found = std::ranges::find_if(
                scope.aliases, [&](const SqlScope::Alias& each) { return SameName(each.name, value.path[0]); });
            return found != scope.aliases.end() ? &*found : nullptr;
        }();
        const bool isPlace = value.kind == SqlExpression::Kind::Number;
        if (isPlace) {
            mTerms.push_back(value.text + term.direction);
            const std::size_t place = std::strtoul(value.text.c_str(), nullptr, 10);
            const bool isThere = place > 0 && place <= select.columns.size();
            mRanking.push_back(
                (isThere ? writer.Value(*select.columns[place - 1].value, scope).text : std::string("0")) +
                term.direction);
            return;
        }
        SqlWritten written = alias ? SqlWritten{.text = alias->text, .type = alias->type} : writer.Value(value, scope);
        mRanking.push_back(writer.Ordered(written) + term.direction);
        if (alias) written.text = BracketName(alias->name);
        mTerms.push_back(writer.Ordered(written) + term.direction);
    }

    std::vector<std::string> mTerms;
    std::vector<std::string> mRanking;
};

std::string SqlWriter::Ordered(const SqlWritten& value) const {
    return value.text + CollationOf(value);
}

SqlWriter::Rows SqlWriter::Query(const SqlQuery& query, SqlScope* outer) {
    const std::size_t commonTables = mCommonTables.size();
    const std::string with = CommonTables(query);
    Rows rows = query.unions.empty() ? Select(query.selects.front(), &query, outer) : Union(query, outer);
    rows.text.insert(0, with);
    mCommonTables.resize(commonTables);
    return rows;
}

std::string SqlWriter::CommonTables(const SqlQuery& query) {
    if (query.with.empty()) return {};
    std::string text;
    for (const SqlCommonTable& table : query.with) {
        text += (text.empty() ? (query.isRecursive ? "WITH RECURSIVE " : "WITH ") : ", ") + BracketName(table.name);
        if (!table.columns.empty()) text += BracketNames(table.columns);
        mCommonTables.push_back({table.name, nullptr});  // while it is written it may read itself
        Rows rows = Query(*table.query, nullptr);
        text += " AS (" + rows.text + ")";
        for (std::size_t i = 0; i < std::min(table.columns.size(), rows.columns.size()); ++i) {
            rows.columns[i].name = table.columns[i];
        }
        mCommonTables.back().columns = std::make_shared<const SqlNamedTypes>(std::move(rows.columns));
    }
    return text + " ";
}

// Only the whole of a union has an order in SQLite, so a SELECT with one of its own stands in brackets.
SqlWriter::Rows SqlWriter::Union(const SqlQuery& query, SqlScope* outer) {
    Rows all;
    for (std::size_t i = 0; i < query.selects.size(); ++i) {
        const SqlSelect& select = query.selects[i];
        Rows rows = Select(select, nullptr, outer);
        if (i > 0) all.text += " " + query.unions[i - 1] + " ";
        all.text += select.top.empty() ? rows.text : "SELECT * FROM (" + rows.text + ")";
        if (i == 0) all.columns = std::move(rows.columns);
    }
    SqlScope scope(outer);
    scope.sources.push_back({"", std::make_shared<const SqlNamedTypes>(all.columns), ""});
    std::vector<std::string> terms;
    for (const SqlOrderTerm& term : query.orderBy) {
        SqlWritten value = Value(*term.value, scope);
        value.isColumn = false;
        const bool isPlace = term.value->kind == SqlExpression::Kind::Number;
        terms.push_back((isPlace ? value.text : Ordered(value)) + term.direction);
    }
    if (!terms.empty()) all.text += " ORDER BY " + Joined(terms, ", ");
    all.text += LimitClause(query, scope);
    return all;
}

std::string SqlWriter::LimitClause(const SqlQuery& query, SqlScope& scope) {
    std::string text;
    if (query.limit) text += " LIMIT " + Value(*query.limit, scope).text;
    if (query.offset) text += " OFFSET " + Value(*query.offset, scope).text;
    return text;
}

SqlWriter::Rows SqlWriter::ValueRows(const SqlSelect& select, SqlScope* outer) {
    SqlScope scope(outer);
    Rows rows;
    std::vector<std::string> lists;
    for (const SqlExpressionPtr& value : select.values) {
        const std::string text = Value(*value, scope).text;
        lists.push_back(value->kind == SqlExpression::Kind::List ? text : "(" + text + ")");
    }
    rows.text = "VALUES " + Joined(lists, ", ");
    const std::size_t width = std::max<std::size_t>(1, select.values.front()->parts.size());
    for (std::size_t i = 1; i <= width; ++i) {
        rows.columns.push_back({"column" + std::to_string(i), ColumnType::AsStored});
    }
    return rows;
}

// TOP n takes the rows, too, that are level with the last of them by the order that the query tells.
SqlWriter::Rows SqlWriter::Select(const SqlSelect& select, const SqlQuery* order, SqlScope* outer) {
    static const SqlQuery kNoOrder;
    SqlScope scope(outer);
    if (!select.values.empty()) {
        Rows rows = ValueRows(select, outer);
        if (order) rows.text += OrderClause(*this, *order, select, scope).Text() + LimitClause(*order, scope);
        return rows;
    }
    Rows rows;
    if (select.inBrackets) {
        Rows inner = Query(*select.inBrackets, outer);
        rows.columns = inner.columns;
        scope.sources.push_back({"", std::make_shared<const SqlNamedTypes>(std::move(inner.columns)), ""});
        rows.text = "SELECT * FROM (" + inner.text + ")";
        if (order) rows.text += OrderClause(*this, *order, select, scope).Text() + LimitClause(*order, scope);
        return rows;
    }
    std::string from;
    if (select.from) from = " FROM " + Source(*select.from, scope);
    // Rows that are compared as a whole have to tell how their texts compare.
    const bool comparesRows = select.isDistinct || !order;
    const std::string columns = ColumnList(select, comparesRows, scope, rows);
    std::string rest = from;
    if (select.where) {
        rest += " WHERE " + Condition(*select.where, scope);
        rest += PlaceFilter(*select.where, scope);
    }
    std::vector<std::string> groups;
    for (const SqlExpressionPtr& group : select.groupBy) {
        groups.push_back(Ordered(Value(*group, scope)));
    }
    if (!groups.empty()) rest += " GROUP BY " + Joined(groups, ", ");
    if (select.having) rest += " HAVING " + Condition(*select.having, scope);

    rows.text = (select.isDistinct ? "SELECT DISTINCT " : "SELECT ") + columns + rest;
    // In a union the whole alone has an order, but where TOP takes a part the brackets around it allow one.
    if (!order && select.top.empty()) return rows;
    const OrderClause clause(*this, order ? *order : kNoOrder, select, scope);
    std::string limit = select.top;
    if (select.isTopPercent) limit = "(SELECT (count(*) * " + select.top + " + 99) / 100 FROM (" + rows.text + "))";
    const bool hasTies = !select.top.empty() && !clause.Ranking().empty() && !select.isDistinct && !scope.usesOuter;
    if (hasTies) {
        limit = "(SELECT count(*) FROM (SELECT rank() OVER (ORDER BY " + clause.Ranking() + ") AS [rank]" + rest +
                ") WHERE [rank] <= " + limit + ")";
    }
    CheckLength(rows.text);
    rows.text += clause.Text();
    rows.text += select.top.empty() ? LimitClause(order ? *order : kNoOrder, scope) : " LIMIT " + limit;
    return rows;
}

// A column without a name has the one that the engine of the descriptors gives: "Expr1000" and on, by its place.
std::string SqlWriter::ColumnList(const SqlSelect& select, bool comparesRows, SqlScope& scope, Rows& rows) {
    constexpr std::size_t kFirstNumber = 1000;
    std::vector<std::string> written;
    for (std::size_t i = 0; i < select.columns.size(); ++i) {
        const SqlColumn& column = select.columns[i];
        const SqlExpression& value = *column.value;
        if (value.kind == SqlExpression::Kind::Star) {
            written.push_back(value.path.empty() ? "*" : BracketPath(value.path) + ".*");
            for (const SqlScope::Source& source : scope.sources) {
                const bool isMeant = value.path.empty() || SameName(source.name, value.path.back());
                if (!isMeant || !source.columns) continue;
                rows.columns.insert(rows.columns.end(), source.columns->begin(), source.columns->end());
            }
            continue;
        }
        SqlWritten text = Value(value, scope);
        const bool isPlain = value.kind == SqlExpression::Kind::Name && text.isColumn;
        if (text.isCondition) text.text = "-(" + text.text + ")";
        if (comparesRows && !isPlain) text.text = Ordered(text);
        std::string name = column.alias;
        if (name.empty()) name = isPlain ? value.path.back() : "Expr" + std::to_string(kFirstNumber + i);
        const bool isNamed = !column.alias.empty() || !isPlain;
        written.push_back(text.text + (isNamed ? " AS " + BracketName(name) : ""));
        if (isNamed) scope.aliases.push_back({name, "(" + text.text + ")", text.type});
        rows.columns.push_back({std::move(name), text.type});
    }
    return Joined(written, ", ");
}

std::string SqlWriter::Source(const SqlSource& source, SqlScope& scope) {
    std::string text;
    const std::string alias = source.alias.empty() ? "" : " AS " + BracketName(source.alias);
    switch (source.kind) {
        case SqlSource::Kind::Table:
            return TableSource(source, scope) + alias;
        case SqlSource::Kind::Join:
            return JoinSource(source, scope);
        case SqlSource::Kind::Query: {
            Rows rows = Query(*source.query, nullptr);
            scope.sources.push_back({source.alias, std::make_shared<const SqlNamedTypes>(std::move(rows.columns)), ""});
            return "(" + rows.text + ")" + alias;
        }
        case SqlSource::Kind::Function: {
            SqlScope none(nullptr);
            std::vector<std::string> arguments;
            for (const SqlExpressionPtr& argument : source.arguments) {
                arguments.push_back(Argument(*argument, none));
            }
            scope.sources.push_back({source.alias.empty() ? source.path.back() : source.alias, nullptr, ""});
            return BracketPath(source.path) + "(" + Joined(arguments, ", ") + ")" + alias;
        }
    }
    return text;
}

std::string SqlWriter::TableSource(const SqlSource& source, SqlScope& scope) {
    const std::string& name = source.path.back();
    SqlScope::Source named{source.alias.empty() ? name : source.alias, nullptr, ""};
    const auto common = std::ranges::find_if(mCommonTables.rbegin(), mCommonTables.rend(),
                                             [&](const CommonTable& table) { return SameName(table.name, name); });
    if (source.path.size() == 1 && common != mCommonTables.rend()) {
        named.columns = common->columns;
    } else if (const std::optional<SqlSchema::Source> found = mSchema.FindSource(name)) {
        named.columns = found->columns;
        named.rowNumber = found->rowNumber;
        named.table = name;
    }
    scope.sources.push_back(std::move(named));
    return BracketPath(source.path);
}

// Joins in brackets on the left are the order of joining anyhow. Behind those on the right SQLite has no places of
// rows.
std::string SqlWriter::JoinSource(const SqlSource& source, SqlScope& scope) {
    std::string text = Source(*source.left, scope);
    text += source.join == "," ? ", " : " " + source.join + " ";
    const std::size_t known = scope.sources.size();
    const std::string right = Source(*source.right, scope);
    const bool isNested = source.right->kind == SqlSource::Kind::Join;
    text += isNested ? "(" + right + ")" : right;
    for (std::size_t i = known; isNested && i < scope.sources.size(); ++i) {
        scope.sources[i].rowNumber.clear();
    }
    if (source.on) text += " ON " + Condition(*source.on, scope);
    if (!source.usingColumns.empty()) text += " USING " + BracketNames(source.usingColumns);
    return text;
}

}  // namespace ov::sqlite
