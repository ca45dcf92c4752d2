#include <fcntl.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/store/store_testing.h"

namespace ov {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTable =
    "CREATE TABLE t(id LONG PRIMARY KEY, name TEXT); INSERT INTO t VALUES(1, 'one'), (2, 'two');";

std::string OpenAndRead(const TestDatabase& file, bool exclusive = false) {
    try {
        return Walk(file.Open(exclusive)->OpenRecordset(u"t"));
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(error.number());
    }
}

// Another process that runs SQL on the file and keeps its connection open.
class OtherProcess {
public:
    OtherProcess(const std::string& path, const char* sql) {
        int ready[2];
        int end[2];
        if (pipe(ready) != 0 || pipe(end) != 0) return;
        mProcess = fork();
        if (mProcess == 0) {
            close(end[1]);  // else this process would wait for itself
            sqlite3* db = nullptr;
            const bool ran = sqlite3_open(path.c_str(), &db) == SQLITE_OK &&
                             sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
            char signal = ran ? 'y' : 'n';
            if (write(ready[1], &signal, 1) == 1) static_cast<void>(read(end[0], &signal, 1));
            _exit(0);
        }
        char answer = 'n';
        mReady = read(ready[0], &answer, 1) == 1 && answer == 'y';
        close(ready[0]);
        close(ready[1]);
        close(end[0]);
        mEnd = end[1];
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    ~OtherProcess() { End(); }

    bool ready() const { return mReady; }
    void End() {
        if (mEnd < 0) return;
        close(mEnd);
        waitpid(mProcess, nullptr, 0);
        mEnd = -1;
    }

private:
    pid_t mProcess = -1;
    int mEnd = -1;
    bool mReady = false;
};

// Runs `action` in another process. @returns true if it answers true
template <class Action>
bool InOtherProcess(Action action) {
    const pid_t process = fork();
    if (process == 0) _exit(action() ? 0 : 1);
    int status = 1;
    waitpid(process, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool CanWrite(const std::string& path) {
    return InOtherProcess([&] {
        sqlite3* db = nullptr;
        return sqlite3_open(path.c_str(), &db) == SQLITE_OK &&
               sqlite3_exec(db, "BEGIN EXCLUSIVE; UPDATE t SET name = name; COMMIT", nullptr, nullptr, nullptr) ==
                   SQLITE_OK;
    });
}

TEST(StoreOpening, ContentTellsWhatADatabaseIs) {
    const TestDatabase file(kTable);
    const Ref<Workspace> workspace = DefaultStoreEngine().CreateWorkspace(u"OV", u"Admin", u"");
    EXPECT_EQ(workspace->Name(), u"OV");
    const auto open = [&](const std::string& name) {
        workspace->OpenDatabase(file.folder().Of(name), false, true, u";PWD=abcde");
    };
    const auto write = [&](const std::string& name, const std::string& bytes) {
        std::ofstream(file.folder() / name, std::ios::binary) << bytes;
    };
    open("device.db");
    ExpectError(3024, "Could not find file '" + (file.folder() / "none.db") + "'.", [&] { open("none.db"); });
    ExpectError(3024, "Could not find file", [&] { open(""); });
    EXPECT_EQ(ErrorOf([&] { workspace->OpenDatabase(std::u16string_view(u"a\0b", 3), false, true, u""); }), 3024);
    write("empty.db", "");
    ExpectError(3343, "Unrecognized database format '" + (file.folder() / "empty.db") + "'.",
                [&] { open("empty.db"); });
    write("text.db", std::string(5000, 'x'));
    ExpectError(3343, "text.db'.", [&] { open("text.db"); });
    write("short.db", "SQLite format 3");
    ExpectError(3343, "short.db'.", [&] { open("short.db"); });
}

TEST(StoreOpening, PathsMayHoldAnyCharacters) {
    for (const char* name : {"a b%20c?mode=memory#d.db", "ÄÖ€.db", ":memory:", "file:x.db", "a\\b.db"}) {
        const TestDatabase file(kTable, name);
        EXPECT_EQ(OpenAndRead(file), "Long 1, Long 2") << name;
    }
    const TestDatabase file(kTable);
    const fs::path former = fs::current_path();
    fs::current_path(file.folder().path());
    fs::create_directory("sub");
    const Ref<Workspace> workspace = DefaultStoreEngine().CreateWorkspace(u"", u"", u"");
    EXPECT_EQ(workspace->OpenDatabase(u"sub\\..\\device.db", false, true, u"")->Name(), u"sub\\..\\device.db");
    EXPECT_EQ(ErrorOf([&] { workspace->OpenDatabase(u":memory:", false, true, u""); }), 3024);
    fs::current_path(former);
}

TEST(StoreOpening, FileThatAnotherWritesCannotBeLocked) {
    const TestDatabase file(kTable);
    const Ref<Database> before = file.Open();
    const Ref<Recordset> table = before->OpenRecordset(u"t");
    OtherProcess writer(file.path(), "BEGIN EXCLUSIVE");
    ASSERT_TRUE(writer.ready());
    ExpectError(3050, "Could not lock file.", [&] { file.Open(); });
    EXPECT_EQ(OpenAndRead(file, true), "error 3050");
    EXPECT_EQ(ErrorOf([&] { before->OpenRecordset(u"SELECT * FROM t"); }), 3050);
    EXPECT_EQ(ErrorOf([&] { table->Eof(); }), 3050);
    writer.End();
    EXPECT_EQ(OpenAndRead(file), "Long 1, Long 2");
    EXPECT_EQ(Walk(table), "Long 1, Long 2");
}

TEST(StoreOpening, OthersReadersAndOpenersMatterToExclusiveUseAlone) {
    const TestDatabase file(kTable);
    OtherProcess reader(file.path(), "BEGIN; SELECT * FROM t");
    ASSERT_TRUE(reader.ready());
    EXPECT_EQ(OpenAndRead(file), "Long 1, Long 2");
    EXPECT_EQ(OpenAndRead(file, true), "error 3050");
    reader.End();
    EXPECT_EQ(OpenAndRead(file, true), "Long 1, Long 2");
}

TEST(StoreOpening, OpenRecordsetsLockNobodyOut) {
    const TestDatabase file(kTable);
    const Ref<Database> db = file.Open();
    const Ref<Recordset> table = db->OpenRecordset(u"t");
    table->let_Index(u"PrimaryKey");
    const Variant key = 1;
    table->Seek(u"=", {&key, 1});
    const Ref<Recordset> walk = table->Clone();
    walk->MoveNext();
    const Ref<Recordset> query = db->OpenRecordset(u"SELECT * FROM t");
    EXPECT_TRUE(CanWrite(file.path()));
    EXPECT_EQ(Describe(table->ValueAt(1)), "String one");
    EXPECT_EQ(Walk(walk), "Long 2");
    // What others write later is met by what is opened later.
    file.Run("INSERT INTO t VALUES(3, 'three')");
    EXPECT_EQ(query->RecordCount(), 2);
    EXPECT_EQ(db->OpenRecordset(u"SELECT * FROM t")->RecordCount(), 3);
    EXPECT_EQ(Walk(table->Clone()), "Long 1, Long 2, Long 3");
}

TEST(StoreOpening, ChangedSchemaIsAnErrorAndNoConfusion) {
    const TestDatabase file(kTable);
    const Ref<Database> db = file.Open();
    const Ref<Recordset> table = db->OpenRecordset(u"t");
    EXPECT_EQ(db->OpenRecordset(u"SELECT * FROM t")->FieldCount(), 2);
    file.Run("ALTER TABLE t ADD COLUMN more TEXT; CREATE TABLE u(a); INSERT INTO u VALUES(7)");
    EXPECT_EQ(ErrorOf([&] { table->ValueAt(0); }), 3011);
    EXPECT_EQ(ErrorOf([&] { db->OpenRecordset(u"SELECT * FROM t"); }), 3011);
    EXPECT_EQ(Walk(db->OpenRecordset(u"u")), "Long 7");
}

// A journal that another process left when it died: exclusive use must not read past it.
TEST(StoreOpening, JournalsThatAreNeededAreNotPassedOver) {
    const TestDatabase file(kTable);
    const std::string journal = file.path() + "-journal";
    const std::string wal = file.path() + "-wal";
    for (const std::string& left : {journal, wal}) {
        std::ofstream(left, std::ios::binary) << "something";
        EXPECT_EQ(OpenAndRead(file, true), "error 3050") << left;
        fs::resize_file(left, 0);
        EXPECT_EQ(OpenAndRead(file, true), "Long 1, Long 2") << left;
        fs::remove(left);
    }
    std::ofstream(journal, std::ios::binary) << "something";
    EXPECT_EQ(OpenAndRead(file), "error 3050");  // it would have to be played back
    std::ofstream(journal, std::ios::binary) << std::string(512, '\0');
    EXPECT_EQ(OpenAndRead(file, true), "Long 1, Long 2");
}

TEST(StoreOpening, SharedMemoryThatCannotBeMadeIsALockThatCannotBeHad) {
    const TestDatabase file(std::string("PRAGMA journal_mode = WAL;") + kTable);
    EXPECT_EQ(OpenAndRead(file), "Long 1, Long 2");
    fs::remove(file.path() + "-wal");
    fs::remove(file.path() + "-shm");
    fs::create_symlink("nowhere/at/all", file.path() + "-shm");
    EXPECT_EQ(OpenAndRead(file), "error 3050");
    EXPECT_EQ(OpenAndRead(file, true), "Long 1, Long 2");
}

// As another process sees it.
bool IsLocked(const std::string& path) {
    return InOtherProcess([&] {
        struct flock lock {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        lock.l_start = 0x40000000;
        lock.l_len = 512;
        const int file = open(path.c_str(), O_RDONLY);
        return file >= 0 && fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    });
}

// The system drops all locks of a process on a file when it closes any of its descriptors. Only a connection to a file
// in WAL mode has a lock all the time.
TEST(StoreOpening, ExclusiveOpeningKeepsTheProcessesOwnLocks) {
    const TestDatabase file(std::string("PRAGMA journal_mode = WAL;") + kTable);
    const Ref<Database> db = file.Open();
    EXPECT_EQ(db->OpenRecordset(u"t")->RecordCount(), 2);
    EXPECT_TRUE(IsLocked(file.path()));
    EXPECT_EQ(OpenAndRead(file, true), "Long 1, Long 2");
    EXPECT_TRUE(IsLocked(file.path()));
}

}  // namespace
}  // namespace ov
