#include "platform/store/sqlite/sql_text.h"
#include "platform/store/statement_timeout.h"
#include "platform/store/store_testing.h"

namespace ov {
namespace {

constexpr const char* kTables = R"(
    CREATE TABLE t(id LONG PRIMARY KEY, name TEXT, flag YESNO, n LONG);
    INSERT INTO t VALUES(1, 'Alpha', -1, 10), (2, 'beta', 0, NULL), (3, NULL, 1, 30), (4, 'a*b', NULL, 40);
    CREATE TABLE [Order](id LONG, [value] TEXT, [True] LONG);
    INSERT INTO [Order] VALUES(1, 'x', 5);
    CREATE VIEW v AS SELECT mid(name, 2, 3) AS part FROM t WHERE id = 1;
)";

class StoreSql : public ::testing::Test {
protected:
    std::string Eval(const std::string& expression) { return Ask(mDb, "SELECT " + expression); }
    // The ids of the rows of t for which a condition holds.
    std::string Where(const std::string& condition) {
        const Ref<Recordset> rows =
            mDb->OpenRecordset(Text::FromUtf8("SELECT id FROM t WHERE " + condition + " ORDER BY id"));
        std::string ids;
        for (; !rows->Eof(); rows->MoveNext()) {
            ids += ToText(rows->ValueAt(0)).ToUtf8();
        }
        return ids;
    }

    TestDatabase mFile{kTables};
    Ref<Database> mDb = mFile.Open();
};

TEST_F(StoreSql, JoinsTextsWithTheRightPrecedence) {
    EXPECT_EQ(Eval("'a' & 'b' & 'c'"), "String abc");
    EXPECT_EQ(Eval("1 + 2 & 3 * 4"), "String 312");
    EXPECT_EQ(Eval("'a' & NULL & 2.0"), "String a2");
    EXPECT_EQ(Eval("NULL & ''"), "String ");
    EXPECT_EQ(Eval("'a' & 'b' = 'ab'"), "Long -1");
    EXPECT_EQ(Eval("('a' & ('b' & 'c')) & Len('x' & 'yz')"), "String abc3");
    EXPECT_EQ(Eval("'<' & CASE 'a' & 'b' WHEN 'ab' THEN 'y' & 'z' ELSE 'n' END & '>'"), "String <yz>");
    EXPECT_EQ(Eval("'a & b' & \"'\" & '''&'"), "String a & b''&");
    EXPECT_EQ(Eval("'a' -- & 'x'\n & /* & */ 'b'"), "String ab");
    EXPECT_EQ(Ask(mDb, "SELECT [id] & ':' & [value] AS [a & b] FROM [Order] WHERE [id] & '' IN ('1' & '')"),
              "String 1:x");
    EXPECT_EQ(Where("name & '' = ''"), "3");
    EXPECT_EQ(Where("NOT name & '' = '' AND id & name LIKE '1' & 'a%'"), "1");
    EXPECT_EQ(Eval("'a' & (SELECT name & '!' FROM t WHERE id & '' = 1 & '')"), "String aAlpha!");
    std::string many = "'x'", any = "id = 0";
    for (int i = 1; i < 300; ++i) {
        many += " & ''";
        any += " OR id = " + std::to_string(i);
    }
    EXPECT_EQ(Eval(many), "String x");
    EXPECT_EQ(Where(any), "1234");
    EXPECT_EQ(Eval("'a' &"), "error 3075");
}

TEST_F(StoreSql, TruthIsAnyNumberButZero) {
    EXPECT_EQ(Where("flag = True"), "13");
    EXPECT_EQ(Where("[flag]=FALSE"), "2");
    EXPECT_EQ(Where("flag <> True"), "2");
    EXPECT_EQ(Where("flag != false"), "13");
    EXPECT_EQ(Where("True = flag AND id < 3"), "1");
    EXPECT_EQ(Where("(id > 2) = True"), "34");
    EXPECT_EQ(Where("flag IS TRUE"), "13");
    EXPECT_EQ(Where("flag IS NOT TRUE"), "24");
    EXPECT_EQ(Where("True"), "1234");
    EXPECT_EQ(Where("NOT False AND NOT (True = False)"), "1234");
    EXPECT_EQ(Eval("True"), "Long -1");
    EXPECT_EQ(Eval("-True"), "Long 1");
    EXPECT_EQ(Eval("IIf(False, 'a', 'b')"), "String b");
    EXPECT_EQ(Eval("'True' & [True] & b.true FROM [Order] AS b"), "String True55");
}

TEST_F(StoreSql, FunctionsMeanWhatAuthorsExpect) {
    ExpectEach(
        "Left('abc', 2) -> String ab; LEFT ('abc', 9) -> String abc; Right('abc', 2) -> String bc; right('abc', 9) -> "
        "String abc; Right('abc', 0) -> String ; Left(NULL, 1) -> Null; Left('a', -1) -> error 3075; "
        "Mid('abcdef', 2, 3) -> String bcd; Mid('abc', 2) -> String bc; Mid('abc', 9) -> String ; Mid('a', 0) -> error "
        "3075; Mid(12345, 2, 2) -> String 23; Len('äöü') -> Long 3; Len('') -> Long 0; Len(NULL) -> Null; "
        "Val('12abc') -> Double 12; Val(' -1.5') -> Double -1.5; Val('&H1F') -> Double 31; Val('x') -> Double 0; "
        "CStr(2.0) -> String 2; CStr(1.5) -> String 1.5; CStr(NULL) -> Null; CStr(12) & '' -> String 12; "
        "CLng(2.5) -> Long 2; CLng('3.5') -> Long 4; CLng(NULL) -> Null; CLng('x') -> error 3075; CLng(3e9) -> error "
        "3075; UCase('aä') -> String AÄ; LCase('AÖ') -> String aö; Trim('  a b ') -> String a b; "
        "InStr('abc', 'B') -> Long 2; InStr('abc', 'x') -> Long 0; InStr(3, 'abcabc', 'B') -> Long 5; "
        "InStr(1, 'abcB', 'B', 0) -> Long 4; InStr(1, 'abcB', 'B', 1) -> Long 2; InStr('abc', '') -> Long 1; "
        "InStr(9, 'abc', 'a') -> Long 0; InStr('', '') -> Long 0; InStr('a', NULL) -> Null; "
        "Nz(NULL) -> String ; Nz(NULL, 7) -> Long 7; Nz(3, 7) -> Long 3; IIf(1 > 0, 'y', 'n') -> String y; "
        "IIf(NULL, 'y', 'n') -> String n; Left('Left(', 4) & Right('x)', 1) -> String Left); Foo(1) -> error 3075",
        [&](const Text& expression) { return Eval(expression.ToUtf8()); });
    EXPECT_EQ(Ask(mDb, "SELECT t.id FROM t LEFT JOIN [Order] AS o ON o.id = t.id WHERE o.id = 1"), "Long 1");
    EXPECT_EQ(Ask(mDb, "SELECT part FROM v"), "String lph");
    const ScopedLocale german("de-DE");
    EXPECT_EQ(Eval("CStr(1.5) & 2.5"), "String 1,52,5");
    EXPECT_EQ(Eval("Val(1.5)"), "Double 1.5");
}

TEST_F(StoreSql, LikeKnowsBothKindsOfWildcards) {
    const auto like = [&](const std::string& text, const std::string& pattern) {
        return Eval("'" + text + "' LIKE '" + pattern + "'") == "Long -1";
    };
    EXPECT_TRUE(like("Alpha", "al*"));
    EXPECT_TRUE(like("Alpha", "%PH_"));
    EXPECT_TRUE(like("a7", "?#"));
    EXPECT_FALSE(like("ab", "?#"));
    EXPECT_TRUE(like("", "*%"));
    EXPECT_FALSE(like("", "?"));
    EXPECT_FALSE(like("abc", "ab"));
    EXPECT_TRUE(like("aXbXc", "a*b*c"));
    EXPECT_TRUE(like("ÄB", "äb"));
    EXPECT_TRUE(like(std::string(20000, 'a') + "b", "*a*a*a*a*a*b"));
    EXPECT_FALSE(like(std::string(20000, 'a'), "*a*a*a*a*a*b"));
    EXPECT_EQ(Where("name LIKE 'a!*b' ESCAPE '!'"), "4");
    EXPECT_EQ(Where("name NOT LIKE '*a*'"), "");
    EXPECT_EQ(Eval("NULL LIKE '*'"), "Null");
    EXPECT_EQ(Eval("'a' LIKE 'a' ESCAPE 'xy'"), "error 3075");
}

TEST_F(StoreSql, TopLimitsItsSelect) {
    EXPECT_EQ(Ask(mDb, "SELECT TOP 2 id FROM t ORDER BY id DESC;"), "Long 4, Long 3");
    EXPECT_EQ(Ask(mDb, "SELECT DISTINCT TOP 1 id FROM t"), "Long 1");
    EXPECT_EQ(Ask(mDb, "SELECT id FROM t WHERE id = (SELECT TOP 1 id FROM t ORDER BY id DESC) & ''"), "Long 4");
    EXPECT_EQ(Ask(mDb, "SELECT top FROM (SELECT 5 AS top)"), "Long 5");
}

TEST_F(StoreSql, TextsThatDifferInValuesShareAStatement) {
    struct : sqlite::SqlSchema {
        std::optional<Source> FindSource(const std::string&) override { return Source{nullptr, "rowid"}; }
        std::string_view TextCollation() const noexcept override { return {}; }
    } schema;
    const auto rewrite = [&](const char* sql) { return sqlite::SqlText(sql).Rewrite(schema); };
    const sqlite::SqliteQuery query = rewrite("SELECT * FROM t WHERE id = 12 AND name = 'it''s' AND n > 5");
    EXPECT_EQ(query.text, rewrite("SELECT * FROM t WHERE id = 3 AND name = 'x' AND n > 5").text);
    ASSERT_EQ(query.values.size(), 2u);
    EXPECT_EQ(Describe(query.values[0]) + Describe(query.values[1]), "Long 12String it's");
    EXPECT_TRUE(rewrite("SELECT 1 WHERE 1 = 1.5 OR 1 = 0x1F OR 1 = 99999999999").values.empty());
    for (int i = 0; i < 300; ++i) {
        const std::string id = std::to_string(i % 5);
        EXPECT_EQ(Where("id = " + id + " AND " + std::to_string(i) + " >= 0"), i % 5 == 0 ? "" : id);
    }
    EXPECT_EQ(Where("name = 'Alpha'"), "1");
    EXPECT_EQ(Where("name = ''"), "");
}

TEST_F(StoreSql, ErrorsHaveTheEnginesNumbers) {
    const auto error = [&](std::int32_t number, const char* words, const char* sql) {
        SCOPED_TRACE(sql);
        ExpectError(number, words, [&] { mDb->OpenRecordset(Text::FromUtf8(sql)); });
    };
    error(3078, "cannot find the input table or query 'Missing'.", "Missing");
    error(3078, "cannot find the input table or query 'Not there'.", "[Not there]");
    error(3078, "cannot find the input table or query 'Missing'.", "SELECT * FROM [Missing]");
    error(3078, "cannot find the input table or query 'Missing'.", "SELECT * FROM main.Missing");
    error(3078, "''", "");
    error(3061, "Too few parameters. Expected 1.", "SELECT missing FROM t");
    error(3061, "Too few parameters. Expected 1.", "SELECT * FROM t WHERE [idx] = 3");
    error(3061, "Too few parameters. Expected 2.", "SELECT * FROM t WHERE id = $module OR n = ? OR id = $module");
    error(3075, "syntax error", "SELECT FROM t");
    error(3075, "syntax error", "SELEC id, n FROM t");
    error(3075, "incomplete input", "SELECT id FROM t WHERE id = (1");
    error(3075, "unrecognized token", "SELECT 'abc");
    error(3075, "no such function: Foo", "SELECT Foo(1) FROM t");
    error(3075, "wrong number of arguments to function Date", "SELECT Date('now')");
    EXPECT_EQ(Eval(std::string(90, '(') + "1" + std::string(90, ')')), "Long 1");
    std::string sum = "SELECT 1", top = "SELECT 1 AS a";
    for (int i = 0; i < 5000; ++i) {
        sum += " + 1";
    }
    for (int i = 0; i < 40; ++i) {
        top = "SELECT TOP 9 PERCENT a FROM (" + top + ") ORDER BY a";
    }
    error(3075, "too long", sum.c_str());
    error(3075, "too long", top.c_str());
    error(3075, "nested too deeply", (std::string("SELECT ") + std::string(5000, '(')).c_str());
    error(3075, "end of SQL statement", "SELECT 1; SELECT 2");
    error(3075, "too many",
          ("SELECT 1" +
           [] {
               std::string many;
               for (int i = 0; i < 3000; ++i)
                   many += ", 1";
               return many;
           }())
              .c_str());
    ExpectError(3075, "unrecognized", [&] { mDb->OpenRecordset(std::u16string_view(u"SELECT 1\0, 2", 12)); });
    EXPECT_EQ(Ask(mDb, "SELECT id FROM t WHERE id = 1 ; -- that is all"), "Long 1");
}

TEST_F(StoreSql, NothingButReadsPasses) {
    for (const char* sql : {"INSERT INTO t VALUES(9, 'x', 0, 0)",
                            "UPDATE t SET n = 0",
                            "DELETE FROM t",
                            "DROP TABLE t",
                            "CREATE TABLE u(a)",
                            "CREATE TEMP TABLE u(a)",
                            "ATTACH 'other.db' AS o",
                            "DETACH main",
                            "PRAGMA user_version",
                            "PRAGMA user_version = 5",
                            "PRAGMA journal_mode = WAL",
                            "SELECT * FROM pragma_table_info('t')",
                            "VACUUM",
                            "VACUUM INTO 'copy.db'",
                            "BEGIN EXCLUSIVE",
                            "SAVEPOINT s",
                            "REINDEX",
                            "ANALYZE",
                            "SELECT load_extension('x')",
                            "SELECT 1; DELETE FROM t",
                            "WITH a AS (SELECT 1) DELETE FROM t",
                            "CREATE VIRTUAL TABLE f USING fts5(a)"}) {
        SCOPED_TRACE(sql);
        ExpectError(3027, "Cannot update. Database or object is read-only.",
                    [&] { mDb->OpenRecordset(Text::FromUtf8(sql)); });
    }
    EXPECT_EQ(Ask(mDb, "SELECT count(*) FROM t"), "Long 4");
    EXPECT_EQ(Ask(mDb, "WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c WHERE x < 3) SELECT x FROM c"),
              "Long 1, Long 2, Long 3");
}

TEST_F(StoreSql, ResultsWithoutEndAreRefused) {
    SetStatementTimeout(300'000);  // it is the memory that ends them
    EXPECT_EQ(Ask(mDb, "WITH RECURSIVE c(x) AS (SELECT zeroblob(1000000) UNION ALL SELECT x FROM c) SELECT x FROM c"),
              "error 7");
    EXPECT_EQ(Ask(mDb,
                  "WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c) SELECT zeroblob(100000), x FROM c "
                  "ORDER BY -x"),
              "error 7");
    SetStatementTimeout(kUsualStatementTimeout);
    EXPECT_EQ(Ask(mDb, "SELECT zeroblob(100000000)"), "error 3075");
}

// Each view of the chain doubles what the one before stands for.
TEST_F(StoreSql, ViewsThatDoubleAreRefused) {
    std::string sql = "CREATE VIEW v0 AS SELECT 1 AS a;";
    for (int i = 1; i < 40; ++i) {
        const std::string before = "v" + std::to_string(i - 1);
        sql += "CREATE VIEW v" + std::to_string(i) + " AS SELECT x.a FROM " + before + " x, " + before + " y;";
    }
    const TestDatabase file(sql);
    const Ref<Database> db = file.Open();
    EXPECT_EQ(Ask(db, "v5"), "Long 1");
    ExpectError(3075, "view 'v39' stands on too many others", [&] { db->OpenRecordset(u"v39"); });
    ExpectError(3075, "stands on too many others", [&] { db->OpenRecordset(u"SELECT a FROM t1, v30"); });
}

TEST_F(StoreSql, ObjectsOfTheFileRunNothing) {
    const TestDatabase file(
        "CREATE TABLE t(a); INSERT INTO t VALUES(1); CREATE VIRTUAL TABLE f USING fts4(a); INSERT INTO f VALUES('x');"
        "CREATE VIEW v AS SELECT * FROM pragma_database_list");
    const Ref<Database> db = file.Open();
    EXPECT_EQ(Ask(db, "t"), "Long 1");
    EXPECT_EQ(Ask(db, "f"), "error 3075");
    EXPECT_EQ(Ask(db, "SELECT * FROM f"), "error 3075");
    EXPECT_NE(Ask(db, "v").find("error"), std::string::npos);
}

}  // namespace
}  // namespace ov
