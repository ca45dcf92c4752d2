#include "platform/store/store_testing.h"

namespace ov {
namespace {

struct StoredValue {
    const char* type;
    const char* literal;
    const char* value;
};

// Each in a table of its own, with the type as its only column's.
void ExpectValues(const std::vector<StoredValue>& cases) {
    std::string sql;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const std::string table = "t" + std::to_string(i);
        sql.append("CREATE TABLE ").append(table).append("(v ").append(cases[i].type).append("); INSERT INTO ");
        sql.append(table).append(" VALUES(").append(cases[i].literal).append(");");
    }
    const TestDatabase file(sql);
    const Ref<Database> db = file.Open();
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const Ref<Recordset> rows = db->OpenRecordset(u"t" + Text::FromInteger(static_cast<std::int64_t>(i)));
        EXPECT_EQ(Describe(rows->ValueAt(0)), cases[i].value) << cases[i].type << " " << cases[i].literal;
    }
}

TEST(StoreColumnTypes, DeclarationGivesTheType) {
    ExpectValues({
        {"YESNO", "-1", "True"},
        {"boolean", "1", "True"},
        {"BIT", "0", "False"},
        {"LOGICAL", "0.5", "True"},
        {"BYTE", "255", "Byte 255"},
        {"TinyInt", "0", "Byte 0"},
        {"SHORT", "-32768", "Integer -32768"},
        {"SMALLINT", "7", "Integer 7"},
        {"LONG", "2147483647", "Long 2147483647"},
        {"INTEGER", "'12'", "Long 12"},
        {"INT (11)", "1", "Long 1"},
        {"COUNTER", "1", "Long 1"},
        {"[AUTOINCREMENT]", "1", "Long 1"},
        {"SINGLE", "0.1", "Single 0.1"},
        {"REAL", "3", "Single 3"},
        {"DOUBLE", "0.1", "Double 0.1"},
        {"FLOAT", "3", "Double 3"},
        {"NUMBER(10, 2)", "2.5", "Double 2.5"},
        {"CURRENCY", "1.23455", "Currency 1.2346"},
        {"MONEY", "-922337203685477", "Currency -922337203685477"},
        {"DECIMAL(18,4)", "9223372036854775807", "Decimal 9223372036854775807"},
        {"NUMERIC", "0.1", "Decimal 0.1"},
        {"DATETIME", "36526.5", "Date 36526.5"},
        {"DATE", "'2000-01-01'", "Date 36526"},
        {"TIMESTAMP", "'2000-01-01 12:00:00'", "Date 36526.5"},
        {"DATE", "'1899-12-29T06:00Z'", "Date -1.25"},
        {"TIME", "'18:00:00.000'", "Date 0.75"},
        {"VARCHAR(50)", "'12'", "String 12"},
        {"TEXT", "12", "String 12"},
        {"CHAR(2)", "'äß€😀'", "String äß€😀"},
        {"MEMO", "'1.50 m'", "String 1.50 m"},
        {"LONGTEXT", "''", "String "},
        {"STRING", "2.5", "String 2.5"},
        {"GUID", "'{0}'", "String {0}"},
        {"", "12", "Long 12"},
        {"WORD", "-2147483648", "Long -2147483648"},
        {"UNSIGNED BIG INT", "2147483648", "Decimal 2147483648"},
        {"WORDTHATISLONGERTHANANYTYPE", "1.5", "Double 1.5"},
        {"", "'x'", "String x"},
    });
}

TEST(StoreColumnTypes, NullIsNullInEveryType) {
    for (const char* type : {"YESNO", "BYTE", "LONG", "SINGLE", "CURRENCY", "DECIMAL", "DATE", "TEXT", "BLOB", ""}) {
        ExpectValues({{type, "NULL", "Null"}});
    }
}

TEST(StoreColumnTypes, WhatTheTypeCannotHoldIsAText) {
    ExpectValues({
        {"YESNO", "'yes'", "String yes"},
        {"BYTE", "256", "String 256"},
        {"BYTE", "-1", "String -1"},
        {"SHORT", "32768", "String 32768"},
        {"LONG", "2147483648", "String 2147483648"},
        {"LONG", "1.5", "String 1.5"},
        {"LONG", "'abc'", "String abc"},
        {"LONG", "x'6162'", "String ab"},
        {"SINGLE", "1e39", "String 1E+39"},
        {"DOUBLE", "'1,5'", "String 1,5"},
        {"CURRENCY", "1e15", "String 1000000000000000"},
        {"MONEY", "1e30", "String 1E+30"},
        {"DECIMAL", "1e30", "String 1E+30"},
        {"DATE", "2958466", "String 2958466"},
        {"DATE", "'2001-02-29'", "String 2001-02-29"},
        {"DATE", "'1.2.2001'", "String 1.2.2001"},
        {"TIME", "'24:00'", "String 24:00"},
        {"DATETIME", "'2000-01-01 12:00 x'", "String 2000-01-01 12:00 x"},
        {"BLOB", "'abc'", "String abc"},
        {"OLE", "1", "String 1"},
        {"TEXT", "x'41'", "String A"},
    });
}

TEST(StoreColumnTypes, LocaleDoesNotChangeStoredValues) {
    const ScopedLocale german("de-DE");
    ExpectValues(
        {{"STRING", "2.5", "String 2.5"}, {"LONG", "1.5", "String 1.5"}, {"DATE", "'2000-01-02'", "Date 36527"}});
}

TEST(StoreColumnTypes, BlobsAreArraysOfByte) {
    const TestDatabase file("CREATE TABLE t(a LONGBINARY, b); INSERT INTO t VALUES(x'00FF10', x'')");
    const Ref<Recordset> rows = file.Open()->OpenRecordset(u"t");
    const Variant bytes = rows->ValueAt(0);
    ASSERT_TRUE(bytes.IsArray());
    const std::span<const std::uint8_t> content = bytes.AsArray().Bytes();
    EXPECT_EQ(std::vector<int>(content.begin(), content.end()), (std::vector<int>{0, 255, 16}));
    ASSERT_TRUE(rows->ValueAt(1).IsArray());
    EXPECT_EQ(rows->ValueAt(1).AsArray().size(), 0u);
}

TEST(StoreColumnTypes, TextsMayHoldAnything) {
    const TestDatabase file(
        "CREATE TABLE t(v TEXT); INSERT INTO t VALUES('a' || char(0) || 'b'), (CAST(x'41FF42' AS TEXT)),"
        "(printf('%.*c', 5000, 'x'))");
    const Ref<Recordset> rows = file.Open()->OpenRecordset(u"t");
    EXPECT_EQ(rows->ValueAt(0).AsText(), std::u16string_view(u"a\0b", 3));
    rows->MoveNext();
    EXPECT_EQ(rows->ValueAt(0).AsText(), u"A\uFFFDB");
    rows->MoveNext();
    EXPECT_EQ(rows->ValueAt(0).AsText(), Text::Repeat(5000, u'x'));
}

TEST(StoreColumnTypes, ColumnsOfAQueryHaveTheirTablesTypes) {
    const TestDatabase file(
        "CREATE TABLE t(a YESNO, b SHORT, c CURRENCY); INSERT INTO t VALUES(-1, 2, 1.5);"
        "CREATE VIEW v AS SELECT c AS amount, a FROM t");
    const Ref<Database> db = file.Open();
    EXPECT_EQ(Ask(db, "SELECT a FROM t"), "True");
    EXPECT_EQ(Ask(db, "SELECT x FROM (SELECT b AS x FROM t)"), "Integer 2");
    EXPECT_EQ(Ask(db, "SELECT [amount] FROM [v]"), "Currency 1.5");
    EXPECT_EQ(Ask(db, "SELECT b + 1 FROM t"), "Long 3");
    EXPECT_EQ(Ask(db, "SELECT 3000000000"), "Decimal 3000000000");
    EXPECT_EQ(Ask(db, "SELECT NULL"), "Null");
}

}  // namespace
}  // namespace ov
