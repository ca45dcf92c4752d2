#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "platform/store/store_testing.h"

namespace ov {
namespace {

constexpr std::size_t kPage = 512;

// A file of few and small pages that has everything: a tree of two levels, an overflow, an index, a view, blobs.
std::string SmallFile() {
    const TestDatabase file(
        "PRAGMA page_size = 512; CREATE TABLE a(id LONG PRIMARY KEY, name TEXT, amount CURRENCY, at DATE, data BLOB);"
        "CREATE TABLE b(k TEXT, n INTEGER, PRIMARY KEY(k, n)) WITHOUT ROWID; CREATE VIEW v AS SELECT id, name FROM a;"
        "WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c WHERE x < 30)"
        " INSERT INTO a SELECT x, 'Name ' || x, x / 4.0, '2001-02-' || (10 + x % 18), x'0102' FROM c;"
        "INSERT INTO a VALUES(99, printf('%.*c', 1500, 'x'), -1, 5, NULL);"
        "INSERT INTO b SELECT name, id FROM a WHERE id < 9");
    std::ifstream stream(file.path(), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// Walks over everything that there is. Every outcome is an answer or a RuntimeError.
// @returns the number of values that were read
std::size_t ReadAll(const Text& path) {
    std::size_t values = 0;
    const auto attempt = [](auto&& action) {
        try {
            action();
        } catch (const RuntimeError& error) {
            // A damaged length can ask for more memory than there is.
            EXPECT_TRUE(error.number() > 3000 || error.number() == 7) << error.what();
        }
    };
    attempt([&] {
        const Ref<Database> db =
            DefaultStoreEngine().CreateWorkspace(u"", u"", u"")->OpenDatabase(path, false, true, u"");
        std::vector<Text> sources = db->TableNames();
        for (const char16_t* query : {u"v", u"SELECT a.id, b.k FROM a, b WHERE a.name = b.k ORDER BY a.at"}) {
            sources.emplace_back(query);
        }
        for (const Text& source : sources) {
            attempt([&] {
                for (const Ref<Recordset> rows = db->OpenRecordset(source); !rows->Eof(); rows->MoveNext()) {
                    std::vector<Variant> row(rows->Columns()->size());
                    rows->ReadRow(row.data());
                    values += row.size();
                }
            });
        }
        attempt([&] {
            const Ref<Recordset> rows = db->OpenRecordset(u"a", RecordsetType::dbOpenTable);
            rows->let_Index(u"PrimaryKey");
            const Variant key = 17;
            rows->Seek(u"=", {&key, 1});
            rows->RecordCount();
        });
    });
    return values;
}

class StoreDamagedFile : public ::testing::Test {
protected:
    StoreDamagedFile() { std::ofstream(mFolder / "device.db", std::ios::binary) << mWhole; }

    // Writes in place, since a file that is replaced waits for the disk.
    void Write(std::size_t at, std::string_view bytes) {
        std::fstream stream(mFolder / "device.db", std::ios::binary | std::ios::in | std::ios::out);
        stream.seekp(static_cast<std::streamoff>(at));
        stream << bytes;
    }
    std::size_t Read() { return ReadAll(mFolder.Of("device.db")); }
    // Reads the file with some bytes changed, which it then gets back.
    void ReadWith(std::size_t at, std::string_view bytes) {
        Write(at, bytes);
        Read();
        Write(at, std::string_view(mWhole).substr(at, bytes.size()));
    }

    static constexpr std::size_t kValues = 31 * 5 + 8 * 2 + 31 * 2 + 8 * 2;

    testing::TemporaryFolder mFolder;
    const std::string mWhole = SmallFile();
};

TEST_F(StoreDamagedFile, WholeFileGivesAllValues) {
    ASSERT_LE(mWhole.size(), 12u * 1024);
    ASSERT_GE(mWhole.size(), 10 * kPage);
    EXPECT_EQ(Read(), kValues);
}

TEST_F(StoreDamagedFile, AnyChangedByteIsAnAnswerOrAnError) {
    std::minstd_rand random(20'240'229);
    for (std::size_t at = 0; at < mWhole.size(); ++at) {
        const char changed = static_cast<char>(mWhole[at] ^ (1 << random() % 8));
        ReadWith(at, {&changed, 1});
    }
    EXPECT_EQ(Read(), kValues);
}

TEST_F(StoreDamagedFile, AnyOverwrittenRunIsAnAnswerOrAnError) {
    for (const char filler : {'\0', '\xFF', 'A'}) {
        for (std::size_t at = 0; at + 16 <= mWhole.size(); at += 16) {
            ReadWith(at, std::string(16, filler));
        }
    }
    EXPECT_EQ(Read(), kValues);
}

TEST_F(StoreDamagedFile, AnyTruncationIsAnAnswerOrAnError) {
    for (std::size_t length = mWhole.size() - 1; length > kPage / 2; length -= kPage / 2) {
        std::filesystem::resize_file(mFolder / "device.db", length);
        // The last page can be one that no value is on.
        EXPECT_LE(Read(), kValues) << length;
    }
    EXPECT_EQ(Read(), 0u);
}

TEST_F(StoreDamagedFile, DamageIsToldWhereItIsRead) {
    const TestDatabase file(
        "PRAGMA page_size = 512; CREATE TABLE good(a); INSERT INTO good VALUES(1); CREATE TABLE bad(a);"
        "WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c WHERE x < 200) INSERT INTO bad SELECT x FROM "
        "c");
    {
        std::fstream stream(file.path(), std::ios::binary | std::ios::in | std::ios::out);
        stream.seekp(static_cast<std::streamoff>(2 * kPage));  // the root of the second table
        stream << std::string(kPage, '\x77');
    }
    const Ref<Database> db = file.Open();
    EXPECT_EQ(Ask(db, "good"), "Long 1");
    EXPECT_EQ(Ask(db, "bad"), "error 3011");
    EXPECT_EQ(Ask(db, "SELECT * FROM bad"), "error 3011");
}

}  // namespace
}  // namespace ov
