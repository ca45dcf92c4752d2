#include "platform/store/sqlite/sqlite_recordset.h"

#include <algorithm>
#include <limits>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"

namespace ov::sqlite {

namespace {

constexpr std::u16string_view kPrimaryKey = u"PrimaryKey";

class SqliteField final : public Object<SqliteField, Facet<Field>> {
public:
    static constexpr const char* kClassName = "Field";

    SqliteField(SqliteRecordset* recordset, std::size_t column) : mRecordset(recordset), mColumn(column) {}

    Variant Value() override { return mRecordset->ValueAt(mColumn); }
    Text Name() override { return (*mRecordset->Columns())[mColumn]; }
    bool Required() override { return mRecordset->OpenConnection().IsRequired(mRecordset->ColumnAt(mColumn)); }
    Variant Properties(const Text& name) override {
        const Variant* value = mRecordset->OpenConnection().FindProperty(mRecordset->ColumnAt(mColumn), name);
        if (!value) Raise(ErrorNumber::ItemNotFound);
        return *value;
    }

private:
    Ref<SqliteRecordset> mRecordset;
    std::size_t mColumn;
};

}  // namespace

void SqliteRecordset::CheckOpen() const {
    if (!mSource.connection) Raise(ErrorNumber::ObjectInvalid);
}

Connection& SqliteRecordset::OpenConnection() {
    CheckOpen();
    return *mSource.connection;
}

const RowStore& SqliteRecordset::Rows() {
    if (!mSource.rows) mSource.rows = std::make_shared<const RowStore>(mSource.table->ReadRows(mSource.byKey));
    return *mSource.rows;
}

void SqliteRecordset::GoToRow(std::size_t row) {
    const RowStore& rows = Rows();
    mFound.reset();
    mRow = row;
    mPlace = row < rows.size() ? Place::Row : Place::End;
    mCurrent = row < rows.size() ? rows[row] : nullptr;
}

// The current row, or nullptr if there is none.
const Cell* SqliteRecordset::FindCurrent() {
    CheckOpen();
    if (mPlace == Place::First) GoToRow(0);
    return mCurrent;
}

const Cell* SqliteRecordset::Current() {
    const Cell* current = FindCurrent();
    if (!current) Raise(ErrorNumber::NoCurrentRecord);
    return current;
}

Text SqliteRecordset::get_Index() {
    CheckOpen();
    return mSource.byKey ? Text(kPrimaryKey) : Text();
}

void SqliteRecordset::let_Index(const Text& name) {
    CheckOpen();
    if (!mSource.table) Raise(ErrorNumber::OperationNotSupported);
    const bool byKey = !name.empty();
    if (byKey && (!EqualNoCase(name, kPrimaryKey) || mSource.table->Key().empty())) {
        throw RuntimeError(ErrorNumber::NotAnIndex, u"'" + name + u"' is not an index in this table.");
    }
    if (byKey != mSource.byKey) mSource.rows.reset();
    mSource.byKey = byKey;
    GoToFirst();
}

void SqliteRecordset::Seek(const Text& comparison, std::span<const Variant> keys) {
    CheckOpen();
    if (!mSource.table) Raise(ErrorNumber::OperationNotSupported);
    if (!mSource.byKey) Raise(ErrorNumber::NoCurrentIndex);
    if (comparison != u"=" || keys.empty() || keys.size() > mSource.table->Key().size()) {
        Raise(ErrorNumber::InvalidEngineArgument);
    }
    mPlace = Place::Nowhere;
    mCurrent = nullptr;
    mNoMatch = true;
    mFound = std::make_unique<const RowStore>(mSource.table->Find(keys));
    if (mFound->size() == 0) return;
    mPlace = Place::Found;
    mCurrent = (*mFound)[0];
    mNoMatch = false;
}

bool SqliteRecordset::NoMatch() {
    CheckOpen();
    return mNoMatch;
}

// Where the first row is wanted, none is read as long as nobody looks.
void SqliteRecordset::GoToFirst() noexcept {
    mFound.reset();
    mCurrent = nullptr;
    mPlace = Place::First;
}

void SqliteRecordset::MoveFirst() {
    CheckOpen();
    GoToFirst();
    static_cast<void>(Current());
}

// The place of the found row among all rows; their number if it is gone since.
std::size_t SqliteRecordset::RowOfFound() {
    const RowStore& rows = Rows();
    std::size_t row = 0;
    const auto same = [&](std::size_t column) { return SameCell(rows[row][column], mCurrent[column]); };
    while (row < rows.size() && !std::ranges::all_of(mSource.table->Key(), same)) {
        ++row;
    }
    return row;
}

void SqliteRecordset::MoveNext() {
    static_cast<void>(Current());
    if (mPlace == Place::Found) mRow = RowOfFound();
    GoToRow(mRow + 1);
}

bool SqliteRecordset::Eof() {
    const bool hasCurrent = FindCurrent() != nullptr;
    if (mPlace == Place::Nowhere) return RecordCount() == 0;
    return !hasCurrent;
}

std::int32_t SqliteRecordset::RecordCount() {
    CheckOpen();
    const std::int64_t count =
        mSource.rows ? static_cast<std::int64_t>(mSource.rows->size()) : mSource.table->CountRows();
    return static_cast<std::int32_t>(std::min<std::int64_t>(count, std::numeric_limits<std::int32_t>::max()));
}

void SqliteRecordset::Close() {
    mFound.reset();
    mCurrent = nullptr;
    mSource = {};
}

Ref<Recordset> SqliteRecordset::Clone() {
    CheckOpen();
    return MakeObject<SqliteRecordset>(mSource);
}

Ref<Field> SqliteRecordset::Fields(const Variant& item) {
    CheckOpen();
    const Variant value = item.IsObject() ? DefaultValue(item) : item;
    if (value.IsString()) {
        const std::optional<std::size_t> column = mSource.shape->names->Find(value.AsText());
        if (!column) Raise(ErrorNumber::ItemNotFound);
        return MakeObject<SqliteField>(this, *column);
    }
    const std::int32_t number = ToLong(value);
    if (number < 0 || number >= FieldCount()) Raise(ErrorNumber::ItemNotFound);
    return MakeObject<SqliteField>(this, static_cast<std::size_t>(number));
}

std::int32_t SqliteRecordset::FieldCount() {
    CheckOpen();
    return static_cast<std::int32_t>(mSource.shape->columns.size());
}

const std::shared_ptr<const ColumnNames>& SqliteRecordset::Columns() {
    CheckOpen();
    return mSource.shape->names;
}

Variant SqliteRecordset::ValueAt(std::size_t column) {
    const Cell* row = Current();
    if (column >= mSource.shape->columns.size()) Raise(ErrorNumber::ItemNotFound);
    return Decode(row[column], mSource.shape->columns[column].type);
}

void SqliteRecordset::ReadRow(Variant* values) {
    const Cell* row = Current();
    TextPool& texts = mSource.connection->Pool();
    for (const Column& column : mSource.shape->columns) {
        *values++ = Decode(*row++, column.type, texts);
    }
}

}  // namespace ov::sqlite
