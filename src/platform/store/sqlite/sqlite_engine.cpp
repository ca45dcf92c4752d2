#include "platform/automation/object.h"
#include "platform/store/open_connection.h"
#include "platform/store/sqlite/sqlite_database.h"
#include "platform/store/store.h"

namespace ov {

namespace {

// Users and their passwords are taken and not looked at; a file can have a password of its own.
class SqliteWorkspace final : public Object<SqliteWorkspace, Facet<Workspace>> {
public:
    static constexpr const char* kClassName = "Workspace";

    explicit SqliteWorkspace(Text name) : mName(std::move(name)) {}

    Text Name() override { return mName; }

    // Read-only whatever is asked for: nothing that descriptors can do is a write.
    Ref<Database> OpenDatabase(const Text& name, bool exclusive, bool, const Text& connect) override {
        return MakeObject<sqlite::SqliteDatabase>(name, OpenConnection(name, exclusive, connect));
    }

private:
    Text mName;
};

class SqliteEngine final : public StoreEngine {
public:
    Ref<Workspace> CreateWorkspace(const Text& name, const Text&, const Text&) override {
        return MakeObject<SqliteWorkspace>(name);
    }
};

}  // namespace

StoreEngine& DefaultStoreEngine() {
    static SqliteEngine engine;
    return engine;
}

}  // namespace ov
