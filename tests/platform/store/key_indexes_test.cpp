#include "platform/store/open_connection.h"
#include "platform/store/store_testing.h"

namespace ov {
namespace {

constexpr int kGroups = 200;

// kGroups groups of five rows each in a table without an index; two rows belong to no group.
constexpr const char* kTable = R"(
    CREATE TABLE Members(id LONG, [group] LONG, name TEXT, nick TEXT COLLATE NOCASE);
    WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 999)
        INSERT INTO Members SELECT 1000 - i, i % 200, 'N' || (i % 200), 'K' || (i % 200) FROM n;
    INSERT INTO Members VALUES(0, NULL, NULL, NULL), (-1, NULL, 'x', 'x');
)";
constexpr std::int64_t kRows = 1002;

class StoreIndexes : public ::testing::Test {
protected:
    /// The first column of the rows of a query, a number each.
    std::string Rows(const std::string& sql) {
        const auto [shape, rows] = mConnection->RunQuery(sqlite::SqlText(sql));
        std::string all;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            all += std::to_string(rows[row][0].integer) + " ";
        }
        return all;
    }

    TestDatabase mFile{kTable};
    std::shared_ptr<sqlite::Connection> mConnection = OpenConnection(mFile.Path(), false, u"");
};

TEST_F(StoreIndexes, AreMadeOfOnePassWhereAFileHasNone) {
    for (int group = 0; group < kGroups; ++group) {
        const std::string number = std::to_string(group);
        const auto member = [group](int which) { return std::to_string(1000 - group - kGroups * which) + " "; };
        const std::string down = member(0) + member(1) + member(2) + member(3) + member(4);
        const std::string up = member(4) + member(3) + member(2) + member(1) + member(0);
        EXPECT_EQ(Rows("SELECT * FROM Members WHERE [group] = " + number), down);
        EXPECT_EQ(Rows("SELECT * FROM [members] WHERE [Group] = " + number + " ORDER BY id"), up);
        EXPECT_EQ(Rows("SELECT id FROM Members AS m WHERE id > 0 AND m.name = 'N" + number + "'"), down);
        EXPECT_EQ(Rows("SELECT id FROM Members WHERE name = 'n" + number + "'"), "");
        EXPECT_EQ(Rows("SELECT id FROM Members WHERE nick = 'k" + number + "'"), down);
        EXPECT_EQ(Rows("SELECT id FROM Members WHERE [group] = " + number + " OR [group] IS NULL"), down + "0 -1 ");
    }
    // Each of the six has walked through the table once before it was known to come again.
    EXPECT_LE(mConnection->RowsScanned(), 6 * kRows);
}

TEST_F(StoreIndexes, FollowTheFile) {
    const std::string sql = "SELECT id FROM Members WHERE [group] = 7";
    const auto expect = [&](const char* rows) {
        for (int times = 0; times < 4; ++times) {
            EXPECT_EQ(Rows(sql), rows);
        }
    };
    expect("993 793 593 393 193 ");
    mFile.Run("UPDATE Members SET [group] = 7 WHERE id = 0");
    expect("993 793 593 393 193 0 ");
    mFile.Run(
        "ALTER TABLE Members RENAME TO Old; CREATE TABLE Members(id LONG, [group] LONG);"
        "INSERT INTO Members VALUES(1, 7)");
    expect("1 ");
}

}  // namespace
}  // namespace ov
