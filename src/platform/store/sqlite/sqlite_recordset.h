/// @file
/// The recordset and the field of the SQLite engine.
#pragma once

#include <memory>

#include "platform/automation/object.h"
#include "platform/store/sqlite/connection.h"
#include "platform/store/store.h"

namespace ov::sqlite {

/// Where the rows of a recordset and of its clones come from.
struct RowSource {
    std::shared_ptr<Connection> connection;
    std::shared_ptr<Table> table;  // nullptr for a query
    std::shared_ptr<const RowShape> shape;
    std::shared_ptr<const RowStore> rows;  // nullptr until a table's are read
    bool byKey = false;                    // a table's in the order of its key
};

/// Rows of a table or of a query.
///
/// A query's rows are copied when it is opened. A table's are copied when the first of them is asked for; Seek reads
/// its one row by itself and copies no others. So no recordset has a lock on the file between two calls, however long
/// somebody keeps it. What has been copied stays until Close or another index, and clones share it. A recordset that
/// is kept for long is best walked over on a clone, which is then closed.
class SqliteRecordset final : public Object<SqliteRecordset, Facet<Recordset>> {
public:
    static constexpr const char* kClassName = "Recordset";

    explicit SqliteRecordset(RowSource source) : mSource(std::move(source)) {}

    Text get_Index() override;
    void let_Index(const Text& name) override;
    void Seek(const Text& comparison, std::span<const Variant> keys) override;
    bool NoMatch() override;
    void MoveFirst() override;
    void MoveNext() override;
    bool Eof() override;
    std::int32_t RecordCount() override;
    void Close() override;
    Ref<Recordset> Clone() override;
    Ref<Field> Fields(const Variant& item) override;
    std::int32_t FieldCount() override;

    const std::shared_ptr<const ColumnNames>& Columns() override;
    Variant ValueAt(std::size_t column) override;
    void ReadRow(Variant* values) override;

    // For its fields.
    /// @throws RuntimeError 3420 if it is closed
    Connection& OpenConnection();
    const Column& ColumnAt(std::size_t column) const noexcept { return mSource.shape->columns[column]; }

private:
    enum class Place {
        First,    // on the first row, which need not have been read, nor be there
        Row,      // on a row that has been read
        Found,    // on the row that Seek found, which is not one of the rows read
        Nowhere,  // behind a Seek that found nothing
        End,
    };

    void CheckOpen() const;
    const RowStore& Rows();
    const Cell* FindCurrent();
    const Cell* Current();
    void GoToFirst() noexcept;
    void GoToRow(std::size_t row);
    std::size_t RowOfFound();

    RowSource mSource;  // without a connection once it is closed
    bool mNoMatch = false;
    Place mPlace = Place::First;
    std::size_t mRow = 0;
    const Cell* mCurrent = nullptr;  // of Row and Found
    std::unique_ptr<const RowStore> mFound;
};

}  // namespace ov::sqlite
