/// @file
/// The database engine as the model calls it: workspaces, databases, recordsets, fields.
///
/// The shape is that of the engine that descriptors were first written for; what stands behind it is open. Everything
/// is read-only. Errors are RuntimeErrors with that engine's numbers. Objects live on the host's one thread.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "platform/automation/collection.h"
#include "platform/automation/dispatch.h"
#include "platform/automation/enumeration.h"
#include "platform/automation/text.h"

namespace ov {

class Recordset;

/// What OpenRecordset makes.
enum class RecordsetType : std::int32_t {
    Default = 0,  ///< a table for the name of one, else a query
    dbOpenTable = 1,
    dbOpenDynaset = 2,
    dbOpenSnapshot = 4,
};
/// Options of OpenRecordset; all recordsets are read-only anyhow.
enum class RecordsetOptions : std::int32_t { None = 0, dbReadOnly = 4 };

/// One column of the current row of a recordset. Holds its recordset.
class Field : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{1E3A7C60-52D4-4B0B-9A8E-0C5D7F2B6A11}");
    static constexpr const char* kName = "Field";
    static constexpr bool kIsEngineObject = true;
    static const InterfaceInfo& Members();

    /// The value in the recordset's current row. @throws RuntimeError 3021 "No current record."
    virtual Variant Value() = 0;
    virtual Text Name() = 0;
    /// True if the column takes no Null.
    virtual bool Required() = 0;
    /// A property of the column, such as "RowSource". @throws RuntimeError 3265 if it has none of that name
    virtual Variant Properties(const Text& name) = 0;
};

/// The columns of a recordset as hosts and scripts see them.
class FieldList : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{1E3A7C60-52D4-4B0B-9A8E-0C5D7F2B6A15}");
    static constexpr const char* kName = "Fields";
    static constexpr bool kIsEngineObject = true;
    static const InterfaceInfo& Members();

    virtual std::int32_t Count() = 0;
    /// As Recordset::Fields. The default member.
    virtual Ref<Field> Item(const Variant& item) = 0;
    virtual Ref<IEnumVariant> NewEnum() = 0;
};

/// The rows of a table or query, one of them current. A fresh recordset stands on its first row, if it has one.
class Recordset : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{1E3A7C60-52D4-4B0B-9A8E-0C5D7F2B6A12}");
    static constexpr const char* kName = "Recordset";
    static constexpr bool kIsEngineObject = true;
    static const InterfaceInfo& Members();

    /// Name of the index in use; "" for none.
    virtual Text get_Index() = 0;
    /// Table recordsets only (RuntimeError 3251 else): the order of the walk and the key of Seek; goes to the first
    /// row. @throws RuntimeError 3015 if the table has no such index
    virtual void let_Index(const Text& name) = 0;
    /// Makes the first row current whose key is @p keys, compared by the columns' types; leaves no current row and sets
    /// NoMatch if there is none. @p comparison is "=".
    /// @throws RuntimeError 3019 without an index, 3001 for another comparison or too many keys
    virtual void Seek(const Text& comparison, std::span<const Variant> keys) = 0;
    virtual bool NoMatch() = 0;
    /// @throws RuntimeError 3021 if there are no rows
    virtual void MoveFirst() = 0;
    /// @throws RuntimeError 3021 behind the last row
    virtual void MoveNext() = 0;
    /// True behind the last row, and if there are no rows.
    virtual bool Eof() = 0;
    /// Above 0 exactly if there are rows; of a table their number.
    virtual std::int32_t RecordCount() = 0;
    /// Lets go of the rows; any further use is RuntimeError 3420. Closing twice does nothing.
    virtual void Close() = 0;
    /// A recordset of the same rows and the same index with a current row of its own, which is the first.
    virtual Ref<Recordset> Clone() = 0;
    /// The field of a name, without regard to case, or of a number from 0 on. @throws RuntimeError 3265
    virtual Ref<Field> Fields(const Variant& item) = 0;
    /// Number of columns.
    virtual std::int32_t FieldCount() = 0;
    /// The field that @p item names, or all of them where it is left out.
    Variant FieldOrFields(const std::optional<Variant>& item);

    /// The columns' names, shared by all rows; never nullptr.
    virtual const std::shared_ptr<const ColumnNames>& Columns() = 0;
    /// The value of one column in the current row. @throws RuntimeError 3021, 3265
    virtual Variant ValueAt(std::size_t column) = 0;
    /// All values of the current row, one for each column. @throws RuntimeError 3021
    virtual void ReadRow(Variant* values) = 0;
};

/// What those who read a database keep beside it. Ends with it.
class DatabaseAnnex {
public:
    virtual ~DatabaseAnnex() = default;
};

/// An open database file.
class Database : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{1E3A7C60-52D4-4B0B-9A8E-0C5D7F2B6A13}");
    static constexpr const char* kName = "Database";
    static constexpr bool kIsEngineObject = true;
    static const InterfaceInfo& Members();

    /// The path of the file as it was given to OpenDatabase.
    virtual Text Name() = 0;
    /// Version of the engine.
    virtual Text Version() = 0;
    /// Opens a table by name or a query by its SQL text.
    /// @throws RuntimeError 3078 for no such table or query, 3075 for bad SQL, 3061 for names that the query does not
    /// know, 3027 for anything that is not a read, 3011 for a damaged file, 3050 for one that another holds, 3001 for a
    /// query that takes longer than StatementTimeout
    virtual Ref<Recordset> OpenRecordset(const Text& source, std::optional<RecordsetType> type = {},
                                         std::optional<RecordsetOptions> options = {}) = 0;
    /// The names of the tables that a descriptor brought, in the order of their creation.
    virtual std::vector<Text> TableNames() = 0;
    /// A line for each thing of the file that cannot be opened, such as a saved query that is no selection.
    virtual std::vector<Text> LeftOut() = 0;

    /// A number that is another one once the content of the file has changed. @throws RuntimeError as OpenRecordset
    virtual std::int64_t Revision() = 0;
    virtual std::unique_ptr<DatabaseAnnex>& Annex() noexcept = 0;
};

/// A session with the engine.
class Workspace : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{1E3A7C60-52D4-4B0B-9A8E-0C5D7F2B6A14}");
    static constexpr const char* kName = "Workspace";
    static constexpr bool kIsEngineObject = true;
    static const InterfaceInfo& Members();

    virtual Text Name() = 0;
    /// Opens a database file. @p exclusive wants the file for this process alone; @p connect is ";PWD=" and a password.
    /// @throws RuntimeError 3024 for a missing file, 3343 for one that is no database, 3050 for one that another holds,
    /// 3031 for another password than the file's, 3011 for a damaged Jet file
    virtual Ref<Database> OpenDatabase(const Text& name, bool exclusive, bool readOnly, const Text& connect) = 0;
};

/// A store: makes workspaces.
class StoreEngine {
public:
    virtual ~StoreEngine() = default;
    virtual Ref<Workspace> CreateWorkspace(const Text& name, const Text& user, const Text& password) = 0;
};

/// The engine that the system uses: SQLite, which Jet files are read into.
StoreEngine& DefaultStoreEngine();

}  // namespace ov
