#include "platform/store/jet/saved_queries.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace ov::jet {

namespace {

// What a row of the table of queries is a part of.
enum Part : std::int64_t {
    kType = 1,
    kParameter = 2,
    kOptions = 3,
    kSource = 5,
    kColumn = 6,
    kJoin = 7,
    kWhere = 8,
    kGroupBy = 9,
    kHaving = 10,
    kOrderBy = 11,
};
enum Type : std::int64_t { kSelection = 1, kUnion = 9 };
enum Option : std::int64_t {
    kAllColumns = 0x01,
    kDistinct = 0x02,
    kDistinctRow = 0x08,
    kTop = 0x10,
    kPercent = 0x20,
};
constexpr std::int64_t kWithoutDoubles = 0x02;  // of a union: UNION and not UNION ALL

struct QueryPart {
    std::int64_t kind = 0;
    std::string order;  // bytes that sort the parts of one kind
    std::string name1, name2, expression;
    std::int64_t flag = 0;
};
using Parts = std::vector<QueryPart>;

class PartReader {
public:
    PartReader(ValueReader& values, const TableDefinition& table) : mValues(values) {
        static constexpr std::array kNames = {"ObjectId", "Attribute", "Order", "Name1", "Name2", "Expression", "Flag"};
        for (std::size_t i = 0; i < kNames.size(); ++i) {
            const auto found = std::ranges::find(table.columns, kNames[i], &Column::name);
            if (found == table.columns.end()) Raise(ErrorNumber::ObjectDamaged);
            mColumns[i] = &*found;
        }
    }

    std::int64_t Query(const Row& row) { return mValues.Read(row, *mColumns[0]).integer; }
    QueryPart Read(const Row& row) {
        QueryPart part;
        part.kind = mValues.Read(row, *mColumns[1]).integer;
        part.order = mValues.Read(row, *mColumns[2]).bytes;
        part.name1 = mValues.Read(row, *mColumns[3]).bytes;
        part.name2 = mValues.Read(row, *mColumns[4]).bytes;
        part.expression = mValues.Read(row, *mColumns[5]).bytes;
        part.flag = mValues.Read(row, *mColumns[6]).integer;
        return part;
    }

private:
    ValueReader& mValues;
    std::array<const Column*, 7> mColumns{};
};

std::string Bracketed(const std::string& name) {
    return "[" + name + "]";
}

/// Puts the parts of a selection together.
class Selection {
public:
    explicit Selection(const Parts& parts) : mParts(parts) {}

    std::string Sql() {
        std::string parameters;
        for (const QueryPart* part : Of(kParameter)) {
            parameters += (parameters.empty() ? "" : ", ") + Bracketed(part->name1) + " Value";
        }
        std::string sql = parameters.empty() ? "" : "PARAMETERS " + parameters + "; ";
        sql += "SELECT " + Options() + Columns() + " FROM " + From();
        sql += Clause(" WHERE ", kWhere, " AND ") + Clause(" GROUP BY ", kGroupBy, ", ");
        sql += Clause(" HAVING ", kHaving, " AND ") + Clause(" ORDER BY ", kOrderBy, ", ");
        return sql;
    }

private:
    struct Joined {
        std::vector<std::string> names;
        std::string text;
    };

    std::vector<const QueryPart*> Of(std::int64_t kind) const {
        std::vector<const QueryPart*> parts;
        for (const QueryPart& part : mParts) {
            if (part.kind == kind) parts.push_back(&part);
        }
        return parts;
    }

    std::int64_t OptionFlags() const {
        const auto options = Of(kOptions);
        return options.empty() ? 0 : options.front()->flag;
    }

    std::string Options() const {
        const std::int64_t flags = OptionFlags();
        std::string words = (flags & kDistinct) != 0 ? "DISTINCT " : (flags & kDistinctRow) != 0 ? "DISTINCTROW " : "";
        if ((flags & kTop) != 0) words += "TOP " + Of(kOptions).front()->name1 + " ";
        if ((flags & kPercent) != 0) words += "PERCENT ";
        return words;
    }

    std::string Columns() const {
        std::string columns;
        for (const QueryPart* part : Of(kColumn)) {
            if (!columns.empty()) columns += ", ";
            columns += part->expression;
            if (!part->name1.empty()) columns += " AS " + Bracketed(part->name1);
        }
        const bool hasAll = (OptionFlags() & kAllColumns) != 0 || columns.empty();
        return columns + (hasAll ? (columns.empty() ? "*" : ", *") : "");
    }

    // The sources that no join names stand side by side.
    std::string From() {
        std::vector<Joined> groups;
        for (const QueryPart* part : Of(kSource)) {
            const std::string& name = part->name2.empty() ? part->name1 : part->name2;
            std::string text = part->name1.empty() ? "(" + part->expression + ")" : Bracketed(part->name1);
            if (!part->name2.empty()) text += " AS " + Bracketed(part->name2);
            groups.push_back({{name}, std::move(text)});
        }
        const std::vector<const QueryPart*> joins = Of(kJoin);
        for (std::size_t i = 0; i < joins.size(); ++i) {
            std::string condition = joins[i]->expression;
            // Further conditions between the same two are rows of their own.
            for (; i + 1 < joins.size() && IsSamePair(*joins[i], *joins[i + 1]); ++i) {
                condition.insert(0, "(").append(") AND (").append(joins[i + 1]->expression).append(")");
            }
            Join(groups, *joins[i], condition);
        }
        std::string from;
        for (const Joined& group : groups) {
            from += (from.empty() ? "" : ", ") + group.text;
        }
        return from;
    }

    static bool IsSamePair(const QueryPart& a, const QueryPart& b) {
        return a.name1 == b.name1 && a.name2 == b.name2 && a.flag == b.flag;
    }

    static void Join(std::vector<Joined>& groups, const QueryPart& join, const std::string& condition) {
        const auto with = [&](const std::string& name) {
            return std::ranges::find_if(
                groups, [&](const Joined& group) { return std::ranges::find(group.names, name) != group.names.end(); });
        };
        const auto left = with(join.name1);
        const auto right = with(join.name2);
        if (left == groups.end() || right == groups.end() || left == right) Raise(ErrorNumber::ObjectDamaged);
        static constexpr std::array kWords = {" INNER JOIN ", " LEFT JOIN ", " RIGHT JOIN "};
        if (join.flag < 1 || join.flag > static_cast<std::int64_t>(kWords.size())) Raise(ErrorNumber::ObjectDamaged);
        const auto whole = [](const Joined& group) {
            return group.names.size() > 1 ? "(" + group.text + ")" : group.text;
        };
        left->text =
            whole(*left) + kWords[static_cast<std::size_t>(join.flag) - 1] + whole(*right) + " ON " + condition;
        left->names.insert(left->names.end(), right->names.begin(), right->names.end());
        groups.erase(right);
    }

    std::string Clause(const char* words, std::int64_t kind, const char* between) const {
        std::string clause;
        for (const QueryPart* part : Of(kind)) {
            clause += (clause.empty() ? words : between) + part->expression;
            if (kind == kOrderBy && (part->name1 == "D" || part->name1 == "d")) clause += " DESC";
        }
        return clause;
    }

    const Parts& mParts;
};

std::string UnionSql(const Parts& parts) {
    std::string sql;
    std::int64_t flags = 0;
    std::string order;
    for (const QueryPart& part : parts) {
        if (part.kind == kOptions) flags = part.flag;
    }
    for (const QueryPart& part : parts) {
        if (part.kind == kOrderBy) order += (order.empty() ? " ORDER BY " : ", ") + part.expression;
        if (part.kind != kSource) continue;
        if (!sql.empty()) sql += (flags & kWithoutDoubles) != 0 ? " UNION " : " UNION ALL ";
        sql += part.expression;
    }
    return sql + order;
}

void Assemble(ImportReport::Query& query, Parts& parts) {
    std::ranges::stable_sort(parts, {}, &QueryPart::order);
    const auto type = std::ranges::find(parts, std::int64_t{kType}, &QueryPart::kind);
    const std::int64_t kind = type == parts.end() ? std::int64_t{kSelection} : type->flag;
    try {
        if (parts.empty()) {
            query.obstacle = "it has no text";
        } else if (kind == kSelection) {
            query.sql = Selection(parts).Sql();
        } else if (kind == kUnion) {
            query.sql = UnionSql(parts);
        } else {
            query.obstacle = "it is no selection";
        }
    } catch (const RuntimeError&) {
        query.obstacle = "its parts do not fit together";
    }
}

}  // namespace

std::vector<ImportReport::Query> ReadSavedQueries(PageFile& file, ValueReader& values, const Catalogue& catalogue) {
    std::map<std::int64_t, Parts> parts;
    try {
        if (!catalogue.queries.empty() && catalogue.queriesPage != 0) {
            const TableDefinition table = ReadTableDefinition(file, catalogue.queriesPage, values.text());
            PartReader reader(values, table);
            RowWalk walk(file, table);
            while (const std::optional<Bytes> body = walk.Next()) {
                const Row row(file.header().version, table, *body);
                parts[reader.Query(row)].push_back(reader.Read(row));
            }
        }
    } catch (const RuntimeError&) {
        if (file.IsExhausted()) throw;
        parts.clear();  // a query of which a part is missing would be another one
    }
    std::vector<ImportReport::Query> queries;
    for (const CatalogueQuery& entry : catalogue.queries) {
        ImportReport::Query& query = queries.emplace_back(ImportReport::Query{entry.name, {}, {}});
        Assemble(query, parts[entry.id]);
    }
    return queries;
}

}  // namespace ov::jet
