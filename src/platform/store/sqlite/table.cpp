#include "platform/store/sqlite/table.h"

#include "platform/automation/errors.h"
#include "platform/automation/operators.h"

namespace ov::sqlite {

std::string QuoteName(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c;
        if (c == '"') quoted += c;
    }
    return quoted + '"';
}

Table::Table(sqlite3* db, const std::string& name, const std::vector<std::string>& keyNames, RowShapes& shapes)
    : mDb(db), mSource(" FROM main." + QuoteName(name)) {
    mWalk.emplace(db, "SELECT *" + mSource);
    mShape = shapes.Of(mWalk->get());
    for (const std::string& keyName : keyNames) {
        const std::optional<std::size_t> column = mShape->names->Find(Text::FromUtf8(keyName));
        if (!column) Raise(ErrorNumber::ObjectDamaged);
        mKey.push_back(*column);
        mKeyNames.push_back(QuoteName(keyName));
    }
    mFind.resize(mKey.size() + 1);
}

std::string Table::KeyNames(const char* between, std::size_t count) const {
    std::string names;
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) names += between;
        names += mKeyNames[i];
    }
    return names;
}

RowStore Table::ReadRows(bool byKey) {
    if (!byKey) return mWalk->ReadRows(mShape->columns.size());
    if (!mWalkByKey) mWalkByKey.emplace(mDb, "SELECT *" + mSource + " ORDER BY " + KeyNames(", ", mKey.size()));
    return mWalkByKey->ReadRows(mShape->columns.size());
}

std::int64_t Table::CountRows() {
    if (!mCount) mCount.emplace(mDb, "SELECT count(*)" + mSource);
    return mCount->ReadRows(1)[0]->integer;
}

RowStore Table::Find(std::span<const Variant> values) {
    RowStore none(mShape->columns.size());
    std::vector<Variant> keys;
    bool mustDecode = false;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const ColumnType type = mShape->columns[mKey[i]].type;
        std::optional<Variant> key = ConvertKey(values[i], type);
        if (!key) return none;
        keys.push_back(std::move(*key));
        mustDecode = mustDecode || HasSeveralForms(type);
    }
    if (mustDecode) return FindDecoded(keys);

    std::optional<Statement>& find = mFind[keys.size()];
    if (!find) {
        std::string sql = "SELECT *" + mSource + " WHERE " + KeyNames(" = ? AND ", keys.size()) + " = ?";
        if (keys.size() < mKey.size()) sql += " ORDER BY " + KeyNames(", ", mKey.size());
        find.emplace(mDb, sql);
    }
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!find->Bind(static_cast<int>(i) + 1, keys[i])) return none;
    }
    return find->ReadRows(mShape->columns.size(), 1);
}

bool Table::BeginsWith(const Cell* row, std::span<const Variant> values) const {
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Variant value = Decode(row[mKey[i]], mShape->columns[mKey[i]].type);
        if (!EqualValues(value, values[i])) return false;
    }
    return true;
}

// Goes through all rows. Keys of such types are rare, and their tables small.
RowStore Table::FindDecoded(std::span<const Variant> values) {
    const RowStore rows = ReadRows(true);
    RowStore found(mShape->columns.size());
    std::size_t row = 0;
    while (row < rows.size() && !BeginsWith(rows[row], values)) {
        ++row;
    }
    if (row < rows.size()) found.Append(rows[row]);
    return found;
}

}  // namespace ov::sqlite
