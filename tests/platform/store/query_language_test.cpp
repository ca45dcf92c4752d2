#include <fstream>

#include "platform/store/jet/jet_writer.h"
#include "platform/store/store_testing.h"
#include "platform/system/deadline.h"

namespace ov {
namespace {

using jet::ColumnType;
using testing::JetTable;
using testing::JetValue;
using testing::TemporaryFolder;

constexpr const char* kTables = R"(
    CREATE TABLE Motor(id LONG PRIMARY KEY, name TEXT, flag YESNO, n LONG, made DATETIME, price DOUBLE);
    INSERT INTO Motor VALUES(3, 'Beta', 0, 30, 36892, 2.5), (1, 'alpha', -1, 10, 36526, 1.5),
        (2, 'GAMMA', -1, NULL, NULL, 3.5), (4, NULL, 0, 30, 36892.5, 4.5);
    CREATE TABLE Part(first TEXT, second LONG, [text] TEXT, motor LONG, PRIMARY KEY(first, second));
    INSERT INTO Part VALUES('b', 2, 'w', 1), ('a', 9, 'x', 3), ('b', 1, 'y', 3), ('a', 1, 'z', 9);
)";

JetTable Table(const char* name, std::vector<testing::JetColumn> columns, std::vector<std::vector<JetValue>> rows) {
    JetTable table{name, std::move(columns), {}, {}};
    for (std::vector<JetValue>& row : rows) {
        table.rows.push_back({std::move(row)});
    }
    return table;
}

constexpr std::int64_t operator""_n(unsigned long long value) {
    return static_cast<std::int64_t>(value);
}

// The same rows in both kinds of file.
class QueryLanguage : public ::testing::TestWithParam<const char*> {
protected:
    QueryLanguage() {
        std::string path = mFile.Path().ToUtf8();
        if (IsJet()) {
            path = mFolder / "device.mdb";
            testing::WriteJet(
                {jet::Version::Jet4,
                 "",
                 0,
                 {Table("Motor",
                        {{"id", ColumnType::Long, true},
                         {"name", ColumnType::Text},
                         {"flag", ColumnType::Boolean},
                         {"n", ColumnType::Long},
                         {"made", ColumnType::Date},
                         {"price", ColumnType::Double}},
                        {{3_n, "Beta", false, 30_n, 36892.0, 2.5},
                         {1_n, "alpha", true, 10_n, 36526.0, 1.5},
                         {2_n, "GAMMA", true, {}, {}, 3.5},
                         {4_n, {}, false, 30_n, 36892.5, 4.5}}),
                  Table("Part",
                        {{"first", ColumnType::Text, true},
                         {"second", ColumnType::Long, true},
                         {"text", ColumnType::Text},
                         {"motor", ColumnType::Long}},
                        {{"b", 2_n, "w", 1_n}, {"a", 9_n, "x", 3_n}, {"b", 1_n, "y", 3_n}, {"a", 1_n, "z", 9_n}})}},
                path);
        }
        mDb = DefaultStoreEngine()
                  .CreateWorkspace(u"t", u"Admin", u"")
                  ->OpenDatabase(Text::FromUtf8(path), false, true, u"");
    }
    static bool IsJet() { return std::string(GetParam()) == "Jet"; }
    std::string Rows(const std::string& sql) {
        try {
            const Ref<Recordset> rows = mDb->OpenRecordset(Text::FromUtf8(sql));
            std::string all;
            for (; !rows->Eof(); rows->MoveNext()) {
                if (!all.empty()) all += " ";
                for (std::int32_t i = 0; i < rows->FieldCount(); ++i) {
                    const Variant value = rows->ValueAt(static_cast<std::size_t>(i));
                    all += (i > 0 ? "," : "") + (value.IsNull() ? "Null" : ToText(value).ToUtf8());
                }
            }
            return all;
        } catch (const RuntimeError& error) {
            return "error " + std::to_string(error.number());
        }
    }

    TestDatabase mFile{kTables};
    TemporaryFolder mFolder;
    Ref<Database> mDb;
};

INSTANTIATE_TEST_SUITE_P(Kinds, QueryLanguage, ::testing::Values("SQLite", "Jet"),
                         [](const auto& each) { return each.param; });

struct Query {
    const char* sql;
    const char* rows;
    const char* jetRows = nullptr;  // where texts compare otherwise
};

constexpr Query kQueries[] = {
    // The order of rows.
    {"SELECT second FROM Part", "2 9 1 1"},
    {"SELECT second FROM Part WHERE first = 'a'", "9 1"},
    {"SELECT [text] FROM Part WHERE first > ''", "w x y z"},
    {"SELECT Motor.id, [text] FROM Motor INNER JOIN Part ON Motor.id = Part.motor", "3,x 3,y 1,w"},
    {"SELECT Part.[text], m.id FROM (Part LEFT JOIN Motor AS m ON Part.motor = m.id) LEFT JOIN Motor ON Motor.id = "
     "m.id",
     "w,1 x,3 y,3 z,Null"},
    {"SELECT id FROM Motor ORDER BY n", "2 1 3 4"},
    {"SELECT id FROM (SELECT id FROM Motor WHERE id > 1)", "3 2 4"},
    {"SELECT DISTINCT first FROM Part", "b a"},
    {"SELECT First(second), Last(second) FROM Part", "2,1"},
    {"SELECT first, First([text]), Last([text]) FROM Part GROUP BY first", "a,x,z b,w,y"},
    // Predicates.
    {"SELECT DISTINCTROW id FROM Motor WHERE id < 3", "1 2"},
    {"SELECT ALL id FROM Motor WHERE id < 2;", "1"},
    {"SELECT TOP 1 id FROM Motor ORDER BY id DESC", "4"},
    {"SELECT TOP 1 id FROM Motor ORDER BY n DESC", "3 4"},
    {"SELECT TOP 2 id FROM Motor", "3 1"},
    {"SELECT TOP 50 PERCENT id FROM Motor ORDER BY id", "1 2"},
    {"SELECT TOP 30 PERCENT id FROM Motor ORDER BY id", "1 2"},
    {"SELECT TOP 1 n AS x FROM Motor GROUP BY n ORDER BY Count(*) DESC", "30"},
    {"SELECT id FROM Motor WHERE id IN (SELECT TOP 1 id FROM Motor ORDER BY id)", "1"},
    {"SELECT TOP 1 id FROM Motor UNION SELECT TOP 1 second FROM Part ORDER BY 1 DESC", "3 2"},
    {"SELECT id FROM Motor WHERE id = 1 WITH OWNERACCESS OPTION;", "1"},
    {"PARAMETERS [which] Long, other Text ( 255 ); SELECT id FROM Motor WHERE id = 2", "2"},
    {"PARAMETERS which Long; SELECT id FROM Motor WHERE id = [which]", "error 3061"},
    // Literals and constants.
    {"SELECT \"it's\" & ' \"x\"' & \"a\"\"b\"", "it's \"x\"a\"b"},
    {"SELECT id FROM Motor WHERE name = \"alpha\"", "1"},
    {"SELECT id AS \"the id\" FROM \"Motor\" WHERE \"Motor\".\"id\" = 1", "1"},
    {"SELECT &H1F, &HFFFF, 'x'&Hex(255)", "31,-1,xFF"},
    {"SELECT Yes, No, On, Off, True, False", "-1,0,-1,0,-1,0"},
    {"SELECT id FROM Motor WHERE flag = Yes", "1 2"},
    {"SELECT id FROM Motor WHERE flag = -1", "1 2"},
    {"SELECT id FROM Motor WHERE flag = Off ORDER BY id", "3 4"},
    {"SELECT id FROM Motor WHERE flag <> -1 AND Not flag", "3 4"},
    {"SELECT id FROM Motor WHERE flag IN (True)", "1 2"},
    {"SELECT flag & '', id = 1, (id = 1) & '!', -(id > 2) FROM Motor WHERE id = 1", "-1,-1,-1!,0"},
    {"SELECT no FROM (SELECT 7 AS no)", "7"},
    // Dates.
    {"SELECT id FROM Motor WHERE made = #1/1/2001#", "3"},
    {"SELECT id FROM Motor WHERE made >= #2001-01-01 12:00#", "4"},
    {"SELECT id FROM Motor WHERE made BETWEEN #1/1/2000# AND #31/12/2000#", "1"},
    {"SELECT Year(made), Month(made), Day(made), Weekday(made) FROM Motor WHERE id = 3", "2001,1,1,2"},
    {"SELECT DateDiff('d', #1/1/2000#, made) FROM Motor WHERE id = 3", "366"},
    {"SELECT Format(DateAdd(\"m\", 1, made), 'yyyy-mm-dd') FROM Motor WHERE id = 3", "2001-02-01"},
    {"SELECT Format(made + 1, 'yyyy-mm-dd hh:nn') FROM Motor WHERE id = 4", "2001-01-02 12:00"},
    {"SELECT Format(Max(made), 'yyyy') FROM Motor", "2001"},
    {"SELECT Format(DateSerial(2001, 14, 1), 'd.m.yyyy'), DatePart('q', #5/6/2001#)", "1.2.2002,2"},
    {"SELECT id FROM Motor WHERE made < Date() AND made < Now() AND id = 3", "3"},
    {"SELECT id FROM Motor WHERE made = CDate('2001-01-01')", "3"},
    {"SELECT #13/13/2001#", "error 3075"},
    // Operators.
    {"SELECT 7 Mod 3, 7 \\ 2, 2 ^ 3, -2 ^ 2, 1 / 2, 5.5 \\ 2, 2 + 3 * 4", "1,3,8,-4,0.5,3,14"},
    {"SELECT 'a' + 'b', 'a' + NULL, '5' + 2, 1 & 2 + 3", "ab,Null,7,15"},
    {"SELECT name + '!' FROM Motor WHERE id = 1 OR id = 4", "alpha! Null"},
    {"SELECT 1 / 0", "error 3075"},
    {"SELECT 'x' * 2", "error 3075"},
    {"SELECT id FROM Motor WHERE flag XOR id = 1", "2"},
    {"SELECT id FROM Motor WHERE (id = 1 EQV flag) AND (flag IMP id = 1) ORDER BY id", "1 3 4"},
    {"SELECT id FROM Motor WHERE n > ALL (SELECT n FROM Motor WHERE id = 1) ORDER BY id", "3 4"},
    {"SELECT id FROM Motor WHERE id >= ALL (SELECT id FROM Motor)", "4"},
    {"SELECT id FROM Motor WHERE id < ANY (SELECT second FROM Part WHERE second < 3) ORDER BY id", "1"},
    {"SELECT id FROM Motor WHERE id = SOME (SELECT motor FROM Part)", "3 1"},
    {"SELECT id FROM Motor WHERE EXISTS (SELECT * FROM Part WHERE Part.motor = Motor.id)", "3 1"},
    // Patterns.
    {"SELECT id FROM Motor WHERE name LIKE '[a-b]*'", "3 1"},
    {"SELECT id FROM Motor WHERE name LIKE \"[!b]?*\"", "1 2"},
    {"SELECT 'a*c' LIKE 'a[*]c', 'abc' LIKE 'a[*]c', '7' LIKE '#', 'a-' LIKE 'a[-x]'", "-1,0,-1,-1"},
    {"SELECT id FROM Motor WHERE name ALIKE 'al%' AND NOT name ALIKE 'al*'", "1"},
    {"SELECT id FROM Motor WHERE name LIKE '*M*'", "2"},
    // Names.
    {"SELECT Motor!id, Motor!name FROM Motor WHERE Motor!id = 1", "1,alpha"},
    {"SELECT [Motor].[id] FROM [Motor] WHERE [Motor]![name] = 'alpha'", "1"},
    {"SELECT id + 1 AS b, b * 2 AS c FROM Motor WHERE id = 1", "2,4"},
    {"SELECT missing FROM Motor", "error 3061"},
    {"SELECT * FROM Nowhere", "error 3078"},
    {"SELECT id INTO copy FROM Motor", "error 3027"},
    // Functions.
    {"SELECT IsNull(name), IsNumeric('12'), IsNumeric('x'), IsDate('2001-01-01') FROM Motor WHERE id = 4",
     "-1,-1,0,-1"},
    {"SELECT id FROM Motor WHERE IsNull(name) OR NOT IsNull(n) AND n < 20 ORDER BY id", "1 4"},
    {"SELECT CInt(2.5), CDbl('1.5'), CSng(0.1), CByte(7), CCur(1.23456), CBool(5), CVar('x')",
     "2,1.5,0.1,7,1.2346,-1,x"},
    {"SELECT CSng(0.1) & '', Str(5), Str(-5), Str(1.5), Val('12x')", "0.1, 5,-5, 1.5,12"},
    {"SELECT Int(-2.5), Fix(-2.5), Sgn(-3), Abs(-3), Sqr(9), Round(2.5), Round(2.345, 2), Log(1), Exp(0)",
     "-3,-2,-1,3,3,2,2.35,0,1"},
    {"SELECT Chr(65), Chr$(66), Asc('A'), Space(2) & '.', String(3, 'x'), String(2, 65)", "A,B,65,  .,xxx,AA"},
    {"SELECT Left$('abc', 2), Right$('abc', 2), Mid$('abcd', 2, 2), UCase$('a'), LCase$('B'), Trim$(' c ')",
     "ab,bc,bc,A,b,c"},
    {"SELECT StrComp('a', 'A'), StrComp('a', 'A', 0), StrComp('a', 'b'), StrConv('ab cd', 3), StrReverse('abc')",
     "0,1,-1,Ab Cd,cba"},
    {"SELECT InStr('abc', 'B'), InStr(2, 'abab', 'a'), InStrRev('abcb', 'B'), Replace('aXa', 'x', '-')", "2,3,4,a-a"},
    {"SELECT Switch(id = 1, 'one', id = 2, 'two'), Choose(id, 'a', 'b') FROM Motor ORDER BY id",
     "one,a two,b Null,Null Null,Null"},
    {"SELECT IIf(id = 1, 1, 1 / 0) FROM Motor WHERE id = 1", "1"},
    {"SELECT Partition(7, 0, 99, 10), Partition(-1, 0, 99, 10), Partition(100, 0, 99, 10)", "  0:  9,   : -1,100:   "},
    {"SELECT Format(1234.5, '#,##0.00'), Format(0.5, 'Percent'), Format('ab', '>'), Format(NULL, '0')",
     "1,234.50,50.00%,AB,"},
    {"SELECT Hex(255), Oct(8), Nz(NULL, 3), Nz(NULL) & '.', TypeName('x')", "FF,10,3,.,String"},
    {"SELECT StDev(n), Var(n), StDevP(id), VarP(id) FROM Motor WHERE id < 4 AND id <> 2", "14.142135623731,200,1,1"},
    {"SELECT Sum(n), Avg(n), Count(*), Count(n), Min(name), Max(id) FROM Motor WHERE id <> 3", "40,20,3,2,GAMMA,4",
     "40,20,3,2,alpha,4"},
    {"SELECT DLookUp('name', 'Motor', 'id = ' & second) FROM Part", "GAMMA Null alpha alpha"},
    {"SELECT DCount('*', 'Part'), DMax(\"second\", \"Part\", \"first = 'b'\"), DSum('id', '[Motor]')", "4,2,10"},
    {"SELECT MonthName(2), WeekdayName(1), Hour(#13:45#), Minute(#13:45#), TimeSerial(1, 2, 3) = #1:02:03#",
     "February,Sunday,13,45,-1"},
    // None of SQLite's own under these names.
    {"SELECT date('now')", "error 3075"},
    {"SELECT round(1, 2, 3)", "error 3075"},
    {"SELECT format('%d', 5)", "%d"},
    {"SELECT log(100) > 4, hex('a')", "error 3075"},
    {"SELECT instr('ABC', 'b'), trim('xax', 'x')", "error 3075"},
    {"SELECT Eval('1')", "error 3075"},
    // How texts compare.
    {"SELECT id FROM Motor WHERE name = 'ALPHA'", "", "1"},
    {"SELECT id FROM Motor WHERE UCase(name) & '' = 'alpha'", "", "1"},
    {"SELECT id FROM Motor WHERE name IN ('BETA', 'gamma')", "", "3 2"},
    {"SELECT id FROM Motor WHERE name BETWEEN 'B' AND 'h' ORDER BY id", "1 2 3", "2 3"},
    {"SELECT name FROM Motor WHERE id < 4 ORDER BY name", "Beta GAMMA alpha", "alpha Beta GAMMA"},
    {"SELECT Count(*) FROM (SELECT 'ä' AS t FROM Motor UNION SELECT 'Ä' AS t FROM Motor) GROUP BY t & ''", "1 1", "1"},
    {"SELECT CASE name WHEN 'ALPHA' THEN 'y' ELSE 'n' END FROM Motor WHERE id = 1", "n", "y"},
};

TEST_P(QueryLanguage, TextsHaveTheirRows) {
    for (const Query& each : kQueries) {
        EXPECT_EQ(Rows(each.sql), IsJet() && each.jetRows ? each.jetRows : each.rows) << each.sql;
    }
}

// Queries that come again and again get indexes in memory.
TEST_P(QueryLanguage, TextsHaveTheirRowsHoweverOftenTheyCome) {
    constexpr int kTimes = 200;
    for (const Query& each : kQueries) {
        const std::string first = Rows(each.sql);
        std::size_t same = 1;
        while (same < kTimes && Rows(each.sql) == first) {
            ++same;
        }
        EXPECT_EQ(same, kTimes) << each.sql << ": " << Rows(each.sql);
    }
}

TEST_P(QueryLanguage, EndlessQueriesEnd) {
    const char* endless = "WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c) SELECT Max(x) FROM c";
    const Deadline deadline(20);
    ExpectError(3001, "Query timed out", [&] { mDb->OpenRecordset(Text::FromUtf8(endless)); });
    ExpectError(3001, "Query timed out", [&] {
        mDb->OpenRecordset(Text::FromUtf8("SELECT DLookUp(\"x\", \"" + std::string("Motor") +
                                          "\", \"(WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c) "
                                          "SELECT Max(x) FROM c)\")"));
    });
}

TEST_P(QueryLanguage, ColumnsWithoutNameAreNumbered) {
    const Ref<Recordset> rows =
        mDb->OpenRecordset(u"SELECT id, Count(*), Max(n) AS top, made FROM Motor GROUP BY id, made");
    EXPECT_EQ((*rows->Columns())[1], u"Expr1001");
    EXPECT_EQ((*rows->Columns())[2], u"top");
    EXPECT_EQ(Describe(rows->ValueAt(3)).substr(0, 4), "Date");
}

}  // namespace
}  // namespace ov
