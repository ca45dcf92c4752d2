/// @file
/// The database object of the SQLite engine.
#pragma once

#include <memory>

#include "platform/automation/object.h"
#include "platform/store/sqlite/connection.h"
#include "platform/store/store.h"

namespace ov::sqlite {

class SqliteDatabase final : public Object<SqliteDatabase, Facet<Database>> {
public:
    static constexpr const char* kClassName = "Database";

    /// @param name what Name answers, whatever the rows of @p connection come from
    SqliteDatabase(Text name, std::shared_ptr<Connection> connection)
        : mName(std::move(name)), mConnection(std::move(connection)) {}

    Text Name() override { return mName; }
    Text Version() override;
    Ref<Recordset> OpenRecordset(const Text& source, std::optional<RecordsetType> type,
                                 std::optional<RecordsetOptions> options) override;
    std::vector<Text> TableNames() override { return mConnection->TableNames(); }
    std::vector<Text> LeftOut() override;
    std::int64_t Revision() override { return mConnection->Revision(); }
    std::unique_ptr<DatabaseAnnex>& Annex() noexcept override { return mAnnex; }

private:
    Ref<Recordset> OpenTable(const Text& name);
    Ref<Recordset> RowsOf(QueryResult result);

    Text mName;
    std::shared_ptr<Connection> mConnection;
    std::unique_ptr<DatabaseAnnex> mAnnex;
};

}  // namespace ov::sqlite
