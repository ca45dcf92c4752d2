#include "platform/store/sqlite/statement.h"

#include "platform/automation/conversions.h"
#include "platform/store/sqlite/engine_error.h"
#include "platform/system/deadline.h"

namespace ov::sqlite {

namespace {

// The run of a statement: it ends, and with it the lock, however it ends. SQLite sorts in memory; where a query would
// have more of it than a result may take, or more time than there is, it is broken off. Runs nest: a function of a
// query can run another.
class Run {
public:
    explicit Run(sqlite3_stmt* statement) noexcept
        : mStatement(statement), mMemoryBefore(sqlite3_memory_used()), mOuter(sInnermost) {
        sInnermost = this;
        Watch();
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() {
        sqlite3_reset(mStatement);
        sqlite3_progress_handler(sqlite3_db_handle(mStatement), 0, nullptr, nullptr);
        sInnermost = mOuter;
        if (mOuter) mOuter->Watch();
    }

    bool Step() {
        const int code = sqlite3_step(mStatement);
        if (code != SQLITE_ROW && code != SQLITE_DONE) RaiseEngineError(sqlite3_db_handle(mStatement), code);
        return code == SQLITE_ROW;
    }

private:
    void Watch() noexcept {
        constexpr int kInstructions = 1'000;  // between two looks
        sqlite3_progress_handler(sqlite3_db_handle(mStatement), kInstructions, &TakesTooMuch, this);
    }
    static int TakesTooMuch(void* self) noexcept {
        if (Deadline::IsOver()) return 1;
        const sqlite3_int64 taken = sqlite3_memory_used() - static_cast<const Run*>(self)->mMemoryBefore;
        return taken > static_cast<sqlite3_int64>(RowStore::kMaxBytes) ? 1 : 0;
    }

    static inline Run* sInnermost = nullptr;

    sqlite3_stmt* mStatement;
    sqlite3_int64 mMemoryBefore;
    Run* mOuter;
};

// A whole number stays exact where SQLite can hold it.
int BindDecimal(sqlite3_stmt* statement, int index, const Decimal& value) {
    const Decimal number = value.Normalized();
    if (number.Scale() == 0 && number.High() == 0 && number.Low() >> 63 == 0) {
        return sqlite3_bind_int64(statement, index, number.ToInt64());
    }
    return sqlite3_bind_double(statement, index, number.ToDouble());
}

}  // namespace

Statement::Statement(sqlite3* db, std::string_view sql, std::string_view* rest) {
    sqlite3_stmt* handle = nullptr;
    const char* tail = nullptr;
    const int code =
        sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT, &handle, &tail);
    mHandle.reset(handle);
    if (code != SQLITE_OK) RaiseEngineError(db, code);
    if (rest) *rest = sql.substr(static_cast<std::size_t>(tail - sql.data()));
}

bool Statement::Bind(int index, const Variant& value) {
    sqlite3_stmt* handle = mHandle.get();
    int code = SQLITE_OK;
    switch (value.Type()) {
        case VarType::Boolean:
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
            code = sqlite3_bind_int(handle, index, ToLong(value));
            break;
        case VarType::Single:
        case VarType::Double:
        case VarType::Currency:
            code = sqlite3_bind_double(handle, index, ToDouble(value));
            break;
        case VarType::Decimal:
            code = BindDecimal(handle, index, value.AsDecimal());
            break;
        case VarType::Date:
            code = sqlite3_bind_double(handle, index, value.AsDate().days);
            break;
        case VarType::String: {
            const Text& text = value.AsText();
            code = sqlite3_bind_text64(handle, index, reinterpret_cast<const char*>(text.data()),
                                       text.size() * sizeof(char16_t), SQLITE_TRANSIENT, SQLITE_UTF16);
            break;
        }
        case VarType::Array: {
            if (value.AsArray().ElementType() != VarType::Byte) return false;
            const std::span<const std::uint8_t> bytes = value.AsArray().Bytes();
            code = sqlite3_bind_blob64(handle, index, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
            break;
        }
        default:
            return false;
    }
    if (code == SQLITE_TOOBIG) return false;
    if (code != SQLITE_OK) RaiseEngineError(sqlite3_db_handle(handle), code);
    return true;
}

RowStore Statement::ReadRows(std::size_t width, std::size_t limit) {
    RowStore rows(width);
    Run run(mHandle.get());
    while (rows.size() < limit && run.Step()) {
        // The number can change with the schema of the file, for which a statement prepares itself anew.
        if (static_cast<std::size_t>(Columns()) != width) Raise(ErrorNumber::ObjectDamaged);
        rows.Append(mHandle.get());
    }
    return rows;
}

}  // namespace ov::sqlite
