// The shared databases, and the escape for a file that another process holds.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "descriptor/database_cache.h"
#include "descriptor/row_collection.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/locale/locale.h"
#include "platform/system/file_system.h"
#include "support/scoped_settings.h"
#include "support/test_database.h"

namespace ov {
namespace {

namespace fs = std::filesystem;
using testing::ScopedVariable;
using testing::TemporaryFolder;
using testing::TestDatabase;

/// Another process that holds an exclusive lock on a database for the life of this object.
class LockingProcess {
public:
    explicit LockingProcess(const std::string& path) {
        int ready[2];
        if (pipe(ready) != 0) return;
        mChild = fork();
        if (mChild == 0) {
            sqlite3* database = nullptr;
            const bool locked = sqlite3_open(path.c_str(), &database) == SQLITE_OK &&
                                sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) == SQLITE_OK;
            if (write(ready[1], locked ? "y" : "n", 1) == 1) pause();
            _exit(0);
        }
        close(ready[1]);
        char answer = 'n';
        mLocked = read(ready[0], &answer, 1) == 1 && answer == 'y';
        close(ready[0]);
    }
    ~LockingProcess() {
        kill(mChild, SIGKILL);
        waitpid(mChild, nullptr, 0);
    }
    LockingProcess(const LockingProcess&) = delete;
    LockingProcess& operator=(const LockingProcess&) = delete;

    bool locked() const { return mLocked; }

private:
    pid_t mChild = -1;
    bool mLocked = false;
};

std::string ValueIn(Database& database) {
    return ToText(database.OpenRecordset(u"T", RecordsetType::dbOpenTable)->ValueAt(0)).ToUtf8();
}

constexpr const char* kTable = "CREATE TABLE T (a TEXT PRIMARY KEY); INSERT INTO T VALUES ('first');";

class LockedFile : public ::testing::Test {
protected:
    // The folder of the copies is found once per process, so all tests share it.
    static const TemporaryFolder& Cache() {
        static const TemporaryFolder folder;
        static const ScopedVariable registry("OV_MODEL_REGISTRY", folder / "none.ini");
        static const ScopedVariable cache("XDG_CACHE_HOME", folder.path());
        return folder;
    }
    fs::path CopyOf(const TestDatabase& database) const {
        char checksum[8];
        std::snprintf(checksum, sizeof checksum, "%X", PathChecksum(database.Path()));
        return fs::path(Cache().path()) / "Orvane" / "TempFileCopy" / ("device." + std::string(checksum) + ".db");
    }
    void SetUp() override { Cache(); }
};

TEST_F(LockedFile, IsReadFromAPrivateCopyWithItsTime) {
    const TestDatabase database(kTable);
    const LockingProcess other(database.path());
    ASSERT_TRUE(other.locked());
    const Ref<Database> opened = DatabaseCache(database.Path());
    ASSERT_TRUE(opened);
    const fs::path copy = CopyOf(database);
    EXPECT_EQ(opened->Name().ToUtf8(), copy.string());
    EXPECT_EQ(ValueIn(*opened), "first");
    EXPECT_EQ(fs::last_write_time(copy), fs::last_write_time(database.path()));
    EXPECT_EQ(DatabaseCache(database.Path()), opened);
}

TEST_F(LockedFile, CopyIsMadeOnlyOnceInAProcess) {
    const TestDatabase stale(kTable);
    // What somebody has left there, with the time of the file.
    fs::create_directories(CopyOf(stale).parent_path());
    std::ofstream(CopyOf(stale)) << "left behind";
    fs::last_write_time(CopyOf(stale), fs::last_write_time(stale.path()));
    EXPECT_EQ(GetTempFileCopy(stale.Path()).ToUtf8(), CopyOf(stale).string());
    EXPECT_EQ(fs::file_size(CopyOf(stale)), fs::file_size(stale.path()));

    fs::remove(CopyOf(stale));
    EXPECT_FALSE(GetTempFileCopy(stale.Path()).empty());  // known, so not looked at again
    EXPECT_FALSE(fs::exists(CopyOf(stale)));
    EXPECT_TRUE(GetTempFileCopy(u"/no/such/file.db").empty());
}

TEST_F(LockedFile, OpensExclusivelyWhereSharingCannotBeHad) {
    // A file in write-ahead mode whose shared memory cannot be made.
    const TestDatabase database(std::string("PRAGMA journal_mode = WAL;") + kTable);
    fs::remove(database.path() + "-shm");
    fs::create_symlink("/no/such/folder/shm", database.path() + "-shm");
    const Ref<Database> opened = DatabaseCache(database.Path());
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->Name(), database.Path());
    EXPECT_EQ(ValueIn(*opened), "first");
    EXPECT_FALSE(fs::exists(CopyOf(database)));
}

TEST_F(LockedFile, FailsWhereNoCopyCanBeMade) {
    const TestDatabase database(kTable);
    fs::create_directories(CopyOf(database) / "in the way");
    const LockingProcess other(database.path());
    ASSERT_TRUE(other.locked());
    EXPECT_FALSE(DatabaseCache(database.Path()));
}

TEST(DatabaseCacheTest, SharesDatabasesAndRecordsets) {
    const TestDatabase database(std::string(kTable) + "CREATE TABLE NoKey (a TEXT); INSERT INTO NoKey VALUES ('x')");
    const Ref<Database> opened = DatabaseCache(database.Path());
    ASSERT_TRUE(opened);
    EXPECT_EQ(DatabaseCache(Text(ToUpperCase(database.Path()))), opened);  // by the key; no file is looked at
    const Ref<Recordset> rows = RecordSetCache(opened.get(), u"T");
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->get_Index(), u"PrimaryKey");
    EXPECT_EQ(RecordSetCache(opened.get(), u"t"), rows);
    EXPECT_FALSE(RecordSetCache(opened.get(), u"Missing"));
    const Ref<Recordset> noKey = RecordSetCache(opened.get(), u"NoKey");
    ASSERT_TRUE(noKey);
    EXPECT_THROW(noKey->Seek(u"=", std::array{Variant(u"x")}), RuntimeError);
    EXPECT_FALSE(DatabaseCache(u"/no/such/file.db"));
}

TEST(DatabaseCacheTest, ChecksumsPaths) {
    EXPECT_EQ(PathChecksum(u""), 0);
    EXPECT_EQ(PathChecksum(u"123456789"), 0x6F91);  // the check value of CRC-16/MCRF4XX
    EXPECT_NE(PathChecksum(u"ä"), PathChecksum(u"ö"));
    EXPECT_EQ(PathChecksum(u"\u4E2D"), PathChecksum(u"?"));  // outside the code page
}

TEST(RowCollection, CopiesTheRowAndOutlivesIt) {
    const TestDatabase database("CREATE TABLE R (Id LONG, [Min Value] TEXT); INSERT INTO R VALUES (1, NULL), (2, 'b')");
    const Ref<Recordset> rows = database.Open()->OpenRecordset(u"SELECT * FROM R ORDER BY Id");
    const Ref<Collection> first = RowToCollection(*rows);
    rows->MoveNext();
    const Ref<Collection> second = RowToCollection(*rows);
    rows->Close();
    EXPECT_EQ(first->Get(u"ID").AsLong(), 1);
    EXPECT_TRUE(first->Get(u"min value").IsNull());
    EXPECT_EQ(ToText(second->Item(Variant(2))), u"b");
    EXPECT_THROW(first->Get(u"none"), RuntimeError);
    first->RemoveKey(u"Id");  // a row that is changed leaves the others alone
    EXPECT_TRUE(first->TryAdd(u"Id", Variant(9)));
    EXPECT_EQ(first->At(1).first, u"Id");
    EXPECT_EQ(second->Get(u"id").AsLong(), 2);
}

}  // namespace
}  // namespace ov
