#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/store/jet/jet_copy.h"
#include "platform/store/store_testing.h"
#include "platform/store/table_facts.h"

namespace ov {
namespace {

using jet::ColumnType;
using jet::Version;
using testing::CopyToJet;
using testing::JetFile;
using testing::JetRow;
using testing::JetTable;
using testing::JetValue;
using testing::TemporaryFolder;
using testing::WriteJet;

using Bytes = std::vector<std::uint8_t>;

const Bytes kGuid = {0x78, 0x56, 0x34, 0x12, 0xBC, 0x9A, 0xF0, 0xDE, 1, 2, 3, 4, 5, 6, 7, 8};

Ref<Database> Open(const std::string& path, const Text& connect = u"", bool exclusive = false) {
    const Ref<Workspace> workspace = DefaultStoreEngine().CreateWorkspace(u"test", u"Admin", u"");
    return workspace->OpenDatabase(Text::FromUtf8(path), exclusive, true, connect);
}

std::string OpenAndWalk(const std::string& path, const Text& connect = u"", bool exclusive = false) {
    try {
        return Walk(Open(path, connect, exclusive)->OpenRecordset(u"t"));
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(error.number());
    }
}

JetTable Numbers(int rows) {
    JetTable table{"t", {{"id", ColumnType::Long, true}, {"name", ColumnType::Text}}, {}, {}};
    for (std::int64_t i = 1; i <= rows; ++i) {
        table.rows.push_back({{i, "n" + std::to_string(i)}});
    }
    return table;
}

struct Kind {
    const char* name;
    Version version;
    std::uint32_t pageKey;
};

class JetKinds : public ::testing::TestWithParam<Kind> {
protected:
    std::string Write(std::vector<JetTable> tables, const std::string& password = "") const {
        WriteJet({GetParam().version, password, GetParam().pageKey, std::move(tables)}, mFolder / "device.mdb");
        return mFolder / "device.mdb";
    }

    TemporaryFolder mFolder;
};

INSTANTIATE_TEST_SUITE_P(All, JetKinds,
                         ::testing::Values(Kind{"Jet3", Version::Jet3, 0}, Kind{"Jet3Encoded", Version::Jet3, 0xBEEF01},
                                           Kind{"Jet4", Version::Jet4, 0}, Kind{"Jet4Encoded", Version::Jet4, 77}),
                         [](const auto& each) { return each.param.name; });

TEST_P(JetKinds, EveryTypeHasItsValues) {
    struct Case {
        ColumnType type;
        std::uint8_t scale;
        JetValue value;
        const char* expected;
    };
    const std::string longText = "ä" + std::string(70'000, 'y');
    const std::vector<Case> cases = {
        {ColumnType::Boolean, 0, true, "True"},
        {ColumnType::Boolean, 0, false, "False"},
        {ColumnType::Byte, 0, std::int64_t{255}, "Byte 255"},
        {ColumnType::Integer, 0, std::int64_t{-32768}, "Integer -32768"},
        {ColumnType::Long, 0, std::int64_t{-5}, "Long -5"},
        {ColumnType::Currency, 0, std::int64_t{-12345}, "Currency -1.2345"},
        {ColumnType::Currency, 0, std::int64_t{9223372036854775807}, "Currency 922337203685477.5807"},
        {ColumnType::Single, 0, 0.1, "Single 0.1"},
        {ColumnType::Double, 0, 0.1, "Double 0.1"},
        {ColumnType::Decimal, 3, std::int64_t{-12050}, "Decimal -12.05"},
        {ColumnType::Decimal, 18, std::int64_t{1234567890123456789}, "Decimal 1.234567890123456789"},
        {ColumnType::Decimal, 0, std::int64_t{0}, "Decimal 0"},
        {ColumnType::Text, 0, "007", "String 007"},
        {ColumnType::Text, 0, "Gerät €", "String Gerät €"},
        {ColumnType::Text, 0, {}, "Null"},
        {ColumnType::Memo, 0, "1e3", "String 1e3"},
        {ColumnType::Memo, 0, std::string(300, 'm'), nullptr},
        {ColumnType::Memo, 0, longText, nullptr},
        {ColumnType::Guid, 0, kGuid, "String {12345678-9ABC-DEF0-0102-030405060708}"},
        {ColumnType::Date, 0, {}, "Null"},
    };
    JetTable table{"t", {}, {{}}, {}};
    for (std::size_t i = 0; i < cases.size(); ++i) {
        table.columns.push_back({"c" + std::to_string(i), cases[i].type, false, cases[i].scale});
        table.rows[0].values.push_back(cases[i].value);
    }
    table.columns.push_back({"date", ColumnType::Date});
    table.rows[0].values.push_back(-1.25);
    table.columns.push_back({"blob", ColumnType::LongBinary});
    table.rows[0].values.push_back(Bytes(5000, 3));
    const Ref<Recordset> rows = Open(Write({table}))->OpenRecordset(u"T");
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const std::string expected =
            cases[i].expected ? cases[i].expected : "String " + std::get<std::string>(cases[i].value);
        EXPECT_TRUE(Describe(rows->ValueAt(i)) == expected) << i << ": " << Describe(rows->ValueAt(i)).substr(0, 100);
    }
    EXPECT_EQ(ValueOf(rows, u"date").AsDate().days, -1.25);
    EXPECT_EQ(ValueOf(rows, u"blob").AsArray().Bytes().size(), 5000U);
}

TEST_P(JetKinds, RowsKeepTheirOrderAcrossPages) {
    JetTable table = Numbers(900);
    std::ranges::reverse(table.rows);
    table.rows[10].place = JetRow::Place::Moved;
    table.rows[20].place = JetRow::Place::Deleted;
    const Ref<Recordset> rows = Open(Write({table}))->OpenRecordset(u"t", RecordsetType::dbOpenTable);
    std::string expected;
    for (int i = 900; i >= 1; --i) {
        if (i != 880) expected += (i < 900 ? ", " : "") + ("Long " + std::to_string(i));
    }
    EXPECT_EQ(Walk(rows), expected);
    rows->let_Index(u"PrimaryKey");
    EXPECT_EQ(Describe(rows->ValueAt(1)), "String n1");
    rows->Seek(u"=", std::array<Variant, 1>{890});
    EXPECT_EQ(Describe(rows->ValueAt(1)), "String n890");
}

TEST_P(JetKinds, KeysPropertiesAndNameAreThere) {
    JetTable table{"Keys",
                   {{"value", ColumnType::Long},
                    {"second", ColumnType::Text, true},
                    {"first", ColumnType::Long, true},
                    {"filler", ColumnType::Text}},
                   {},
                   {{"value", "RowSource", "SELECT a FROM TEXTS"}, {"filler", "RowSource", "x"}}};
    for (std::int64_t i = 0; i < 3; ++i) {
        table.rows.push_back({{i, "Key" + std::to_string(i), std::int64_t{7}, std::string(200, 'f')}});
    }
    // A definition of many columns goes over several pages.
    JetTable wide{"Wide", {}, {{}}, {}};
    for (int i = 0; i < 200; ++i) {
        wide.columns.push_back({"a column with a long name " + std::to_string(i), ColumnType::Text});
        wide.rows[0].values.push_back(i % 3 == 0 ? JetValue("v" + std::to_string(i)) : JetValue());
    }
    const std::string path = Write({table, wide, {"Link", {}, {}, {}, 6}});
    const Ref<Database> db = Open(path);
    EXPECT_EQ(db->Name(), Text::FromUtf8(path));
    EXPECT_EQ(Ask(db, "SELECT first FROM [Keys] WHERE second = 'KEY2'"), "Long 7");
    const Ref<Recordset> rows = db->OpenRecordset(u"Keys", RecordsetType::dbOpenTable);
    EXPECT_EQ(rows->Fields(u"value")->Properties(u"RowSource").AsText(), u"SELECT a FROM TEXTS");
    const std::vector<TableFacts> facts = DescribeDatabase(Text::FromUtf8(path), u"").tables;
    ASSERT_EQ(facts.size(), 3U);
    EXPECT_EQ(facts[0].rows, 3);
    EXPECT_EQ(facts[0].columns[0].keyPlace, 0U);
    EXPECT_EQ(facts[0].columns[1].keyPlace, 1U);
    EXPECT_EQ(facts[0].columns[2].keyPlace, 2U);
    rows->let_Index(u"PrimaryKey");
    rows->Seek(u"=", std::array<Variant, 2>{Text(u"kEY1"), 7});
    EXPECT_EQ(Describe(rows->ValueAt(0)), "Long 1");
    const Ref<Recordset> wideRows = db->OpenRecordset(u"Wide");
    EXPECT_EQ(Describe(wideRows->ValueAt(198)) + Describe(wideRows->ValueAt(199)), "String v198Null");
    EXPECT_EQ(Ask(db, "SELECT * FROM Link"), "error 3078");
    EXPECT_EQ(Ask(db, "DELETE FROM Wide"), "error 3027");
}

TEST_P(JetKinds, PasswordMustBeTheFiles) {
    struct Case {
        const char* password;
        const char16_t* connect;
        const char* expected;
    };
    for (const Case& each : {Case{"9kelp", u";PWD=9kelp", "Long 1"}, Case{"9kelp", u"MS;pwd=9kelp;x=1", "Long 1"},
                             Case{"9kelp", u";PWD=9KELP", "error 3031"}, Case{"9kelp", u"", "error 3031"},
                             Case{"", u";PWD=9kelp", "Long 1"}, Case{"ein Wört", u";PWD=ein Wört", "Long 1"}}) {
        EXPECT_EQ(OpenAndWalk(Write({Numbers(1)}, each.password), each.connect), each.expected) << each.password;
    }
}

// Rows stand behind all that tells of them, so a file that was cut off lacks rows alone.
TEST_P(JetKinds, CutFileIsDamaged) {
    JetTable table = Numbers(400);
    for (const bool hasMapPages : {false, true}) {
        table.hasMapPages = hasMapPages;
        const std::string path = Write({table});
        ASSERT_TRUE(OpenAndWalk(path).starts_with("Long 1, Long 2"));
        const std::uintmax_t size = std::filesystem::file_size(path);
        const std::size_t pageSize = jet::PageSize(GetParam().version);
        for (const std::uintmax_t cut : {size - pageSize, size - 1, size - 3 * pageSize}) {
            Write({table});
            std::filesystem::resize_file(path, cut);
            EXPECT_EQ(OpenAndWalk(path), "error 3011") << hasMapPages << " " << cut;
        }
    }
}

TEST_P(JetKinds, FilesThatAreNoneAreNotRead) {
    const std::string path = Write({Numbers(1)});
    std::filesystem::resize_file(path, std::uintmax_t{1} << 30);
    EXPECT_EQ(OpenAndWalk(path), "error 3011");
    std::filesystem::resize_file(path, (std::uintmax_t{1} << 31) + 4096);
    EXPECT_EQ(OpenAndWalk(path), "error 3011");
}

// A part of a saved query, as the catalogue of queries has it.
JetRow Part(std::int64_t query, std::int64_t kind, const char* name1, const char* name2, const char* expression,
            std::int64_t flag) {
    static int order = 0;
    const auto text = [](const char* value) { return *value ? JetValue(value) : JetValue(); };
    const Bytes place = {static_cast<std::uint8_t>(++order)};
    return {{query, kind, place, text(name1), text(name2), text(expression), flag}};
}

TEST_P(JetKinds, SavedSelectionsAreViews) {
    JetTable parts{"MSysQueries",
                   {{"ObjectId", ColumnType::Long},
                    {"Attribute", ColumnType::Byte},
                    {"Order", ColumnType::Binary},
                    {"Name1", ColumnType::Text},
                    {"Name2", ColumnType::Text},
                    {"Expression", ColumnType::Memo},
                    {"Flag", ColumnType::Integer}},
                   {Part(-5, 1, "", "", "", 1),
                    Part(-5, 3, "", "", "", 2),
                    Part(-5, 5, "t", "", "", 0),
                    Part(-5, 5, "t", "u", "", 0),
                    Part(-5, 6, "label", "", "UCase(t.name) & \"!\"", 0),
                    Part(-5, 7, "t", "u", "t.id = u.id", 1),
                    Part(-5, 8, "", "", "t.id > 1", 0),
                    Part(-5, 11, "D", "", "t.id", 0),
                    Part(-6, 1, "", "", "", 4),
                    Part(-6, 5, "t", "", "", 0),
                    Part(-7, 1, "", "", "", 9),
                    Part(-7, 3, "", "", "", 0),
                    Part(-7, 5, "", "1", "SELECT label FROM Labels", 0),
                    Part(-7, 5, "", "2", "SELECT name FROM t WHERE id = 1", 0),
                    Part(-8, 1, "", "", "", 1),
                    Part(-8, 3, "2", "", "", 0x11),
                    Part(-8, 5, "t", "", "", 0),
                    Part(-9, 1, "", "", "", 1),
                    Part(-9, 2, "which", "", "", 4),
                    Part(-9, 5, "t", "", "", 0),
                    Part(-9, 6, "", "", "Eval(id)", 0)},
                   {}};
    const auto query = [](const char* name, std::int64_t id) { return JetTable{name, {}, {}, {}, 5, false, id}; };
    const std::string path = Write({query("Both", -7), query("Labels", -5), query("Change", -6), query("First two", -8),
                                    query("Asks", -9), Numbers(3), parts});
    const Ref<Database> db = Open(path);
    EXPECT_EQ(Walk(db->OpenRecordset(u"labels")), "String N3!, String N2!");
    EXPECT_EQ(Ask(db, "SELECT * FROM Both WHERE label LIKE '*!'"), "String N3!, String N2!");
    EXPECT_EQ(Walk(db->OpenRecordset(u"Both")), "String N3!, String N2!, String n1");
    EXPECT_EQ(Ask(db, "SELECT name FROM [First two]"), "String n1, String n2");
    EXPECT_EQ(Ask(db, "SELECT * FROM Change"), "error 3078");
    const std::vector<Text> leftOut = db->LeftOut();
    ASSERT_EQ(leftOut.size(), 2U);
    EXPECT_EQ(leftOut[0], u"query 'Change': it is no selection");
    EXPECT_NE(leftOut[1].view().find(u"it has parameters"), std::u16string_view::npos);
}

// A file is cut at any page, and each byte of its definitions and of its first rows is changed.
TEST_P(JetKinds, DamageIsAnErrorOrNoDifference) {
    const std::string path = Write({Numbers(30)});
    std::ifstream file(path, std::ios::binary);
    const std::string whole((std::istreambuf_iterator<char>(file)), {});
    const std::size_t pageSize = jet::PageSize(GetParam().version);
    const auto open = [&](const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
        return OpenAndWalk(path);
    };
    ASSERT_TRUE(open(whole).starts_with("Long 1, Long 2"));
    for (std::size_t size = pageSize; size < whole.size(); size += pageSize) {
        EXPECT_EQ(open(whole.substr(0, size)).substr(0, 6), "error ") << size;
    }
    for (std::size_t at = 0x99; at < whole.size(); at += 97) {
        std::string changed = whole;
        changed[at] = static_cast<char>(changed[at] ^ 0xFF);
        open(changed);
    }
    EXPECT_EQ(open("\1\2\3\4Standard Jet DB"), "error 3343");
}

// Another process that holds a lock while it lives.
class LockHolder {
public:
    template <class Lock>
    LockHolder(const std::string& path, Lock lock) {
        int ready[2];
        if (pipe(ready) != 0) return;
        mProcess = fork();
        if (mProcess == 0) {
            const int file = open(path.c_str(), O_RDWR);
            const char answer = lock(file) == 0 ? 'y' : 'n';
            if (write(ready[1], &answer, 1) == 1) pause();
            _exit(0);
        }
        char answer = 'n';
        mReady = read(ready[0], &answer, 1) == 1 && answer == 'y';
        close(ready[0]);
        close(ready[1]);
    }
    LockHolder(const LockHolder&) = delete;
    LockHolder& operator=(const LockHolder&) = delete;
    ~LockHolder() {
        kill(mProcess, SIGKILL);
        waitpid(mProcess, nullptr, 0);
    }
    bool ready() const { return mReady; }

private:
    pid_t mProcess = -1;
    bool mReady = false;
};

int LockRange(int file, short type) {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    return fcntl(file, F_SETLK, &lock);
}

TEST(JetLocks, ExclusiveOnesKeepReadersOut) {
    const TemporaryFolder folder;
    const std::string path = folder / "device.mdb";
    WriteJet({Version::Jet4, "", 0, {Numbers(1)}}, path);
    struct Case {
        int (*lock)(int);
        const char* shared;
        const char* exclusive;
    };
    for (const Case& each : {Case{[](int file) { return flock(file, LOCK_EX); }, "error 3050", "error 3050"},
                             Case{[](int file) { return flock(file, LOCK_SH); }, "Long 1", "error 3050"},
                             Case{[](int file) { return LockRange(file, F_WRLCK); }, "error 3050", "error 3050"},
                             Case{[](int file) { return LockRange(file, F_RDLCK); }, "Long 1", "error 3050"}}) {
        const LockHolder holder(path, each.lock);
        ASSERT_TRUE(holder.ready());
        EXPECT_EQ(OpenAndWalk(path), each.shared);
        EXPECT_EQ(OpenAndWalk(path, u"", true), each.exclusive);
    }
    EXPECT_EQ(OpenAndWalk(path, u"", true), "Long 1");
}

std::string ContentOf(const Ref<Database>& db, const TableFacts& facts) {
    std::string content = facts.name.ToUtf8();
    for (const ColumnFacts& column : facts.columns) {
        content += "|" + column.name.ToUtf8() + " " + column.type.ToUtf8();
    }
    const Ref<Recordset> rows = db->OpenRecordset(facts.name, RecordsetType::dbOpenTable);
    for (; !rows->Eof(); rows->MoveNext()) {
        content += "\n";
        for (std::size_t i = 0; i < facts.columns.size(); ++i) {
            content += Describe(rows->ValueAt(i)) + "|";
        }
    }
    return content;
}

TEST(JetDescriptor, SampleIsTheSameAsInSqlite) {
    std::ostringstream sql;
    sql << std::ifstream(OV_MODEL_SOURCE_DIR "/examples/tt200/tt200.sql").rdbuf();
    const TestDatabase sqlite(sql.str());
    const Ref<Database> expected = sqlite.Open();
    JetFile file = CopyToJet(sqlite.Path());
    file.password = "9kelp";
    file.pageKey = 0x2468ACE0;
    const std::string path = sqlite.folder() / "device.mdb";
    WriteJet(file, path);
    const Ref<Database> db = Open(path, u";PWD=9kelp");
    const std::vector<TableFacts> facts = DescribeDatabase(sqlite.Path(), u"").tables;
    ASSERT_EQ(facts.size(), file.tables.size() + 1);
    for (const TableFacts& table : facts) {
        // The rows of the properties have no order of their own.
        if (table.name == u"FieldProperties") continue;
        EXPECT_EQ(ContentOf(db, table), ContentOf(expected, table));
    }
    EXPECT_EQ(db->OpenRecordset(u"Enums")->Fields(u"valueText")->Properties(u"RowSource").AsText(),
              expected->OpenRecordset(u"Enums")->Fields(u"valueText")->Properties(u"RowSource").AsText());
}

}  // namespace
}  // namespace ov
