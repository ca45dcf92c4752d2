#include "platform/automation/errors.h"
#include "platform/automation/object.h"
#include "platform/store/sqlite/file_opening.h"
#include "platform/store/sqlite/sqlite_database.h"
#include "platform/store/store.h"
#include "platform/system/file_system.h"

namespace ov {

namespace {

// SQLite knows no users and no passwords: names and connect strings are taken and not looked at.
class SqliteWorkspace final : public Object<SqliteWorkspace, Facet<Workspace>> {
public:
    static constexpr const char* kClassName = "Workspace";

    explicit SqliteWorkspace(Text name) : mName(std::move(name)) {}

    Text Name() override { return mName; }

    // Read-only whatever is asked for: nothing that descriptors can do is a write.
    Ref<Database> OpenDatabase(const Text& name, bool exclusive, bool, const Text&) override {
        if (!file_system::FileExists(name)) {
            throw RuntimeError(ErrorNumber::FileNotFoundByEngine, u"Could not find file '" + name + u"'.");
        }
        // The content tells the format; a reader of another one would be asked here next.
        std::shared_ptr<sqlite::Connection> connection = sqlite::OpenFile(file_system::NativePath(name), exclusive);
        if (!connection) {
            throw RuntimeError(ErrorNumber::UnrecognizedFormat, u"Unrecognized database format '" + name + u"'.");
        }
        return MakeObject<sqlite::SqliteDatabase>(name, std::move(connection));
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
