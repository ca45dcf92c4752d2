#include "support/test_database.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

namespace ov::testing {

TestDatabase::TestDatabase(const std::string& sql, const std::string& name) : mPath(mFolder / name) {
    Run(sql);
}

void TestDatabase::Run(const std::string& sql) const {
    sqlite3* handle = nullptr;
    const int opened = sqlite3_open(mPath.c_str(), &handle);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> db(handle, &sqlite3_close);
    const std::string statements = "PRAGMA synchronous = OFF;" + sql;  // a test's file need not stand a power failure
    if (opened != SQLITE_OK || sqlite3_exec(db.get(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(db.get()));
    }
}

Ref<Database> TestDatabase::Open(bool exclusive) const {
    return DefaultStoreEngine().CreateWorkspace(u"test", u"Admin", u"")->OpenDatabase(Path(), exclusive, true, u"");
}

}  // namespace ov::testing
