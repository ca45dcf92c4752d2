#include "platform/store/store_testing.h"

namespace ov {
namespace {

constexpr const char* kTables = R"(
    CREATE TABLE Texts(TEXT_IDX LONG PRIMARY KEY, Text_7 TEXT, Text_9 TEXT NOT NULL);
    INSERT INTO Texts VALUES(30, 'drei', 'three'), (10, 'eins', 'one'), (20, NULL, 'two');
    CREATE TABLE Versions(Name TEXT PRIMARY KEY, Value MEMO);
    INSERT INTO Versions VALUES('Version', '1.2 a'), ('12', 'twelve');
    CREATE TABLE Pairs(a LONG, b TEXT, c LONG, PRIMARY KEY(b, a));
    INSERT INTO Pairs VALUES(2, 'x', 1), (1, 'y', 2), (1, 'x', 3), (NULL, 'x', 4);
    CREATE TABLE Rows(id INTEGER PRIMARY KEY, t TEXT);
    INSERT INTO Rows VALUES(5, 'five'), (-3, 'minus three'), (4, 'four');
    CREATE TABLE Keyed(k TEXT, v LONG, PRIMARY KEY(k)) WITHOUT ROWID;
    INSERT INTO Keyed VALUES('b', 2), ('a', 1);
    CREATE TABLE [Odd "name"]([a b] LONG, [select] LONG);
    INSERT INTO [Odd "name"] VALUES(1, 2);
    CREATE TABLE Vacant(id LONG PRIMARY KEY);
    CREATE TABLE FieldProperties(TableName TEXT, FieldName TEXT, PropertyName TEXT, PropertyValue TEXT);
    INSERT INTO FieldProperties VALUES('texts', 'TEXT_7', 'RowSource', 'SELECT * FROM TEXTS'), ('Texts', 'Text_9', 'Empty', NULL);
    CREATE VIEW Named AS SELECT Text_7 AS german, TEXT_IDX FROM Texts WHERE Text_7 IS NOT NULL;
)";

class StoreRecordset : public ::testing::Test {
protected:
    Ref<Recordset> Table(const char16_t* name, bool byKey = false) {
        Ref<Recordset> rows = mDb->OpenRecordset(name, RecordsetType::dbOpenTable);
        if (byKey) rows->let_Index(u"PrimaryKey");
        return rows;
    }
    // The value of a column in the row with the keys, or "none".
    static std::string Find(const Ref<Recordset>& rows, std::vector<Variant> keys, std::size_t column) {
        rows->Seek(u"=", keys);
        return rows->NoMatch() ? "none" : Describe(rows->ValueAt(column));
    }

    TestDatabase mFile{kTables};
    Ref<Database> mDb = mFile.Open();
};

TEST_F(StoreRecordset, DatabaseTellsItsFacts) {
    EXPECT_EQ(mDb->Name(), mFile.Path());
    EXPECT_EQ(mDb->Version().ToUtf8().substr(0, 2), "3.");
    const std::vector<Text> names = mDb->TableNames();
    ASSERT_EQ(names.size(), 8u);
    EXPECT_EQ(names.front(), u"Texts");
    EXPECT_EQ(names[5], u"Odd \"name\"");
    EXPECT_EQ(names.back(), u"FieldProperties");
}

TEST_F(StoreRecordset, OpensTablesViewsAndQueriesByNameWithoutRegardToCase) {
    EXPECT_EQ(mDb->OpenRecordset(u"TEXTS", RecordsetType::dbOpenTable)->RecordCount(), 3);
    EXPECT_EQ(mDb->OpenRecordset(u" [texts] ")->Fields(u"text_IDX")->Name(), u"TEXT_IDX");
    EXPECT_EQ(Walk(mDb->OpenRecordset(u"named")), "String drei, String eins");
    EXPECT_EQ(Walk(mDb->OpenRecordset(u"Odd \"name\"")), "Long 1");
    EXPECT_EQ(Walk(mDb->OpenRecordset(u"[Odd \"name\"]", RecordsetType::dbOpenSnapshot), 1), "Long 2");
    // Only the default and the table type make a table of a name.
    EXPECT_EQ(ErrorOf([&] { mDb->OpenRecordset(u"Texts")->let_Index(u"PrimaryKey"); }), 0);
    EXPECT_EQ(ErrorOf([&] {
                  mDb->OpenRecordset(u"Texts", RecordsetType::dbOpenDynaset, RecordsetOptions::dbReadOnly)
                      ->let_Index(u"PrimaryKey");
              }),
              3251);
    for (const char16_t* missing : {u"Named", u"None", u"SELECT * FROM Texts", u"sqlite_schema", u""}) {
        EXPECT_EQ(ErrorOf([&] { mDb->OpenRecordset(missing, RecordsetType::dbOpenTable); }), 3078);
    }
    EXPECT_EQ(ErrorOf([&] { mDb->OpenRecordset(u"Texts", static_cast<RecordsetType>(8)); }), 3001);
}

TEST_F(StoreRecordset, WalksInRowOrderOrInKeyOrder) {
    const Ref<Recordset> texts = Table(u"Texts");
    EXPECT_EQ(texts->get_Index(), u"");
    EXPECT_EQ(Walk(texts), "Long 30, Long 10, Long 20");
    texts->let_Index(u"primarykey");
    EXPECT_EQ(texts->get_Index(), u"PrimaryKey");
    EXPECT_EQ(Walk(texts), "Long 10, Long 20, Long 30");
    texts->let_Index(u"");
    EXPECT_EQ(Walk(texts), "Long 30, Long 10, Long 20");
    EXPECT_EQ(Walk(Table(u"Rows")), "Long -3, Long 4, Long 5");
    EXPECT_EQ(Walk(Table(u"Pairs", true), 2), "Long 4, Long 3, Long 1, Long 2");
    EXPECT_EQ(Walk(Table(u"Keyed")), "String a, String b");
}

TEST_F(StoreRecordset, SeekComparesByTheColumnsType) {
    const Ref<Recordset> texts = Table(u"Texts", true);
    EXPECT_EQ(Find(texts, {20}, 2), "String two");
    EXPECT_EQ(Find(texts, {Variant(u"20")}, 2), "String two");
    EXPECT_EQ(Find(texts, {20.0}, 2), "String two");
    EXPECT_EQ(Find(texts, {21}, 2), "none");
    EXPECT_EQ(Find(texts, {Variant(u"two")}, 2), "none");
    EXPECT_EQ(Find(texts, {Variant::Null()}, 2), "none");
    EXPECT_EQ(Find(texts, {1e300}, 2), "none");
    EXPECT_EQ(Find(texts, {Variant::Nothing()}, 2), "none");

    const Ref<Recordset> versions = Table(u"Versions", true);
    EXPECT_EQ(Find(versions, {Variant(u"Version")}, 1), "String 1.2 a");
    EXPECT_EQ(Find(versions, {12}, 1), "String twelve");
    EXPECT_EQ(Find(Table(u"Rows", true), {Variant(u"-3")}, 1), "String minus three");
    EXPECT_EQ(Find(Table(u"Keyed", true), {Variant(u"b")}, 1), "Long 2");
    EXPECT_EQ(Find(Table(u"Vacant", true), {1}, 0), "none");
}

TEST_F(StoreRecordset, SeekTakesKeysOfSeveralColumnsAndTheirFirstOnes) {
    const Ref<Recordset> pairs = Table(u"Pairs", true);
    EXPECT_EQ(Find(pairs, {Variant(u"x"), 2}, 2), "Long 1");
    EXPECT_EQ(Find(pairs, {Variant(u"y"), 2}, 2), "none");
    EXPECT_EQ(Find(pairs, {Variant(u"y")}, 2), "Long 2");
    EXPECT_EQ(Find(pairs, {Variant(u"x")}, 2), "Long 4");  // the first in the order of the key
    const std::vector<Variant> three = {Variant(u"x"), 1, 1};
    EXPECT_EQ(ErrorOf([&] { pairs->Seek(u"=", three); }), 3001);
    EXPECT_EQ(ErrorOf([&] { pairs->Seek(u"=", {}); }), 3001);
    EXPECT_EQ(ErrorOf([&] { pairs->Seek(u">=", std::span(three).first(1)); }), 3001);
}

TEST_F(StoreRecordset, SeekFindsValuesThatAreStoredInAnotherForm) {
    const TestDatabase file(
        "CREATE TABLE b(k YESNO PRIMARY KEY, v); INSERT INTO b VALUES(0, 'no'), (1, 'yes');"
        "CREATE TABLE d(k DATE PRIMARY KEY, v); INSERT INTO d VALUES('2000-01-01', 'text'), (36527, 'number');"
        "CREATE TABLE s(k SINGLE PRIMARY KEY, v); INSERT INTO s VALUES(0.1, 'tenth');"
        "CREATE TABLE m(k DECIMAL PRIMARY KEY, v); INSERT INTO m VALUES(9007199254740993, 'big'), (0.5, 'half');"
        "CREATE TABLE t(k MEMO PRIMARY KEY, v); INSERT INTO t VALUES('007', 'bond');");
    const Ref<Database> db = file.Open();
    const auto find = [&](const char16_t* table, Variant key) {
        const Ref<Recordset> rows = db->OpenRecordset(table);
        rows->let_Index(u"PrimaryKey");
        return Find(rows, {std::move(key)}, 1);
    };
    EXPECT_EQ(find(u"b", true), "String yes");
    EXPECT_EQ(find(u"b", 0), "String no");
    EXPECT_EQ(find(u"d", Date{36526}), "String text");
    EXPECT_EQ(find(u"d", 36527.0), "String number");
    EXPECT_EQ(find(u"d", 1.0), "none");
    EXPECT_EQ(find(u"s", 0.1f), "String tenth");
    EXPECT_EQ(find(u"m", Decimal(std::int64_t{9007199254740993})), "String big");
    EXPECT_EQ(find(u"m", 0.5), "String half");
    EXPECT_EQ(find(u"t", Variant(u"007")), "String bond");
}

TEST_F(StoreRecordset, ReadsOnFromTheRowThatSeekFound) {
    const Ref<Recordset> pairs = Table(u"Pairs", true);
    EXPECT_EQ(Find(pairs, {Variant(u"x"), 1}, 2), "Long 3");
    EXPECT_FALSE(pairs->Eof());
    pairs->MoveNext();
    EXPECT_EQ(Walk(pairs, 2), "Long 1, Long 2");
    EXPECT_EQ(Find(pairs, {Variant(u"y")}, 2), "Long 2");
    pairs->MoveNext();
    EXPECT_TRUE(pairs->Eof());
    pairs->MoveFirst();
    EXPECT_EQ(Describe(pairs->ValueAt(2)), "Long 4");
}

TEST_F(StoreRecordset, FailedSeekLeavesNoCurrentRow) {
    const Ref<Recordset> texts = Table(u"Texts", true);
    EXPECT_FALSE(texts->NoMatch());
    EXPECT_EQ(Find(texts, {99}, 0), "none");
    EXPECT_EQ(ErrorOf([&] { texts->ValueAt(0); }), 3021);
    EXPECT_EQ(ErrorOf([&] { texts->MoveNext(); }), 3021);
    EXPECT_FALSE(texts->Eof());
    EXPECT_EQ(Find(texts, {10}, 0), "Long 10");
    EXPECT_FALSE(texts->NoMatch());
    const Ref<Recordset> vacant = Table(u"Vacant", true);
    EXPECT_EQ(Find(vacant, {1}, 0), "none");
    EXPECT_TRUE(vacant->Eof());
}

TEST_F(StoreRecordset, IndexAndSeekHaveTheirErrors) {
    const TestDatabase file("CREATE TABLE t(a LONG); CREATE INDEX Other ON t(a)");
    const Ref<Recordset> rows = file.Open()->OpenRecordset(u"t");
    const Variant key = 1;
    ExpectError(3015, "'PrimaryKey' is not an index in this table.", [&] { rows->let_Index(u"PrimaryKey"); });
    ExpectError(3015, "'Other' is not an index in this table.", [&] { rows->let_Index(u"Other"); });
    ExpectError(3019, "Operation invalid without a current index.", [&] { rows->Seek(u"=", {&key, 1}); });
    EXPECT_EQ(ErrorOf([&] { Table(u"Texts", true)->let_Index(u"x"); }), 3015);
    const Ref<Recordset> query = mDb->OpenRecordset(u"SELECT * FROM Texts");
    EXPECT_EQ(ErrorOf([&] { query->Seek(u"=", {&key, 1}); }), 3251);
    EXPECT_EQ(query->get_Index(), u"");
}

TEST_F(StoreRecordset, EndsAreEnds) {
    const Ref<Recordset> rows = mDb->OpenRecordset(u"SELECT TEXT_IDX FROM Texts WHERE TEXT_IDX < 20");
    EXPECT_EQ(rows->RecordCount(), 1);
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    ExpectError(3021, "No current record.", [&] { rows->MoveNext(); });
    EXPECT_EQ(ErrorOf([&] { rows->Fields(0)->Value(); }), 3021);
    Variant values[1];
    EXPECT_EQ(ErrorOf([&] { rows->ReadRow(values); }), 3021);
    rows->MoveFirst();
    EXPECT_FALSE(rows->Eof());
    for (const Ref<Recordset>& empty : {Table(u"Vacant"), mDb->OpenRecordset(u"SELECT * FROM Vacant")}) {
        EXPECT_TRUE(empty->Eof());
        EXPECT_EQ(empty->RecordCount(), 0);
        EXPECT_EQ(ErrorOf([&] { empty->ValueAt(0); }), 3021);
        EXPECT_EQ(ErrorOf([&] { empty->MoveNext(); }), 3021);
        EXPECT_EQ(ErrorOf([&] { empty->MoveFirst(); }), 3021);
    }
}

TEST_F(StoreRecordset, CloneHasACurrentRowOfItsOwn) {
    const Ref<Recordset> texts = Table(u"Texts", true);
    EXPECT_EQ(Find(texts, {20}, 0), "Long 20");
    const Ref<Recordset> clone = texts->Clone();
    EXPECT_EQ(clone->get_Index(), u"PrimaryKey");
    EXPECT_EQ(Walk(clone), "Long 10, Long 20, Long 30");
    EXPECT_EQ(Describe(texts->ValueAt(0)), "Long 20");
    clone->Close();
    EXPECT_EQ(Describe(texts->ValueAt(0)), "Long 20");

    const Ref<Recordset> query = mDb->OpenRecordset(u"SELECT TEXT_IDX FROM Texts ORDER BY 1");
    query->MoveNext();
    EXPECT_EQ(Walk(query->Clone()), "Long 10, Long 20, Long 30");
    EXPECT_EQ(Walk(query), "Long 20, Long 30");
}

TEST_F(StoreRecordset, CloseEndsEveryUse) {
    for (const Ref<Recordset>& rows : {Table(u"Texts", true), mDb->OpenRecordset(u"SELECT * FROM Texts")}) {
        const Ref<Field> field = rows->Fields(0);
        rows->Close();
        rows->Close();
        Variant values[3];
        const std::function<void()> uses[] = {
            [&] { rows->get_Index(); },  [&] { rows->let_Index(u"PrimaryKey"); },
            [&] { rows->NoMatch(); },    [&] { rows->Seek(u"=", {values, 1}); },
            [&] { rows->MoveFirst(); },  [&] { rows->MoveNext(); },
            [&] { rows->Eof(); },        [&] { rows->RecordCount(); },
            [&] { rows->Clone(); },      [&] { rows->Fields(0); },
            [&] { rows->FieldCount(); }, [&] { rows->Columns(); },
            [&] { rows->ValueAt(0); },   [&] { rows->ReadRow(values); },
            [&] { field->Value(); },     [&] { field->Name(); },
            [&] { field->Required(); },  [&] { field->Properties(u"RowSource"); },
        };
        for (const auto& use : uses) {
            ExpectError(3420, "Object invalid or no longer set.", use);
        }
    }
}

TEST_F(StoreRecordset, RecordsetsOutliveTheirDatabase) {
    const Ref<Recordset> texts = Table(u"Texts", true);
    const Ref<Field> field = texts->Fields(u"Text_9");
    mDb = nullptr;
    EXPECT_EQ(Find(texts, {30}, 1), "String drei");
    EXPECT_EQ(Describe(field->Value()), "String three");
}

TEST_F(StoreRecordset, FieldsByNameAndByNumber) {
    const Ref<Recordset> texts = Table(u"Texts");
    EXPECT_EQ(texts->FieldCount(), 3);
    EXPECT_EQ(texts->Fields(2)->Name(), u"Text_9");
    const Variant all = texts->FieldOrFields({});
    EXPECT_EQ(facet<FieldList>(all.AsObject())->Count(), 3);
    std::string names;
    Variant field;
    for (const Ref<IEnumVariant> each = Enumerate(all.AsObject()); each->Next(field);) {
        names += facet<Field>(field.AsObject())->Name().ToUtf8() + " ";
    }
    EXPECT_EQ(names, "TEXT_IDX Text_7 Text_9 ");
    EXPECT_EQ(Describe(texts->Fields(u"TEXT_7")->Value()), "String drei");
    for (const Variant& item : {Variant(u"Text_8"), Variant(u"2"), Variant(3), Variant(-1)}) {
        ExpectError(3265, "Item not found in this collection.", [&] { texts->Fields(item); });
    }
    EXPECT_EQ(ErrorOf([&] { texts->ValueAt(3); }), 3265);
    EXPECT_TRUE(texts->Fields(u"Text_9")->Required());
    EXPECT_FALSE(texts->Fields(u"Text_7")->Required());
    EXPECT_TRUE(Table(u"Rows")->Fields(0)->Required());
    EXPECT_TRUE(Table(u"Keyed")->Fields(0)->Required());
    EXPECT_FALSE(Table(u"Pairs")->Fields(u"a")->Required());
    EXPECT_FALSE(mDb->OpenRecordset(u"SELECT 1")->Fields(0)->Required());
    // As a script sees it: fields, and by default their values.
    Variant name = u"Text_9";
    Arguments arguments{{&name, 1}};
    const Variant single = texts->Invoke(kDispIdValue, CallKind::Call, arguments);
    EXPECT_EQ(ToText(single), u"three");
}

TEST_F(StoreRecordset, FieldPropertiesFollowAColumnIntoQueries) {
    const char16_t* source = u"SELECT * FROM TEXTS";
    EXPECT_EQ(Table(u"Texts")->Fields(u"Text_7")->Properties(u"RowSource").AsText(), source);
    const auto property = [&](const char16_t* query, const char16_t* name) {
        return Outcome([&] { return mDb->OpenRecordset(query)->Fields(0)->Properties(name); });
    };
    EXPECT_EQ(property(u"SELECT Text_7 AS x FROM Texts", u"ROWSOURCE"), "String SELECT * FROM TEXTS");
    EXPECT_EQ(property(u"SELECT german FROM Named", u"RowSource"), "String SELECT * FROM TEXTS");
    EXPECT_EQ(property(u"SELECT Text_9 FROM Texts", u"Empty"), "Null");
    EXPECT_EQ(property(u"SELECT Text_9 FROM Texts", u"RowSource"), "error 3265");
    EXPECT_EQ(property(u"SELECT Text_7 || '' FROM Texts", u"RowSource"), "error 3265");
    const TestDatabase plain("CREATE TABLE t(a)");
    EXPECT_EQ(ErrorOf([&] { plain.Open()->OpenRecordset(u"t")->Fields(0)->Properties(u"RowSource"); }), 3265);
}

TEST_F(StoreRecordset, RowsShareTheNamesOfTheirColumns) {
    const Ref<Recordset> first = mDb->OpenRecordset(u"SELECT * FROM Texts WHERE TEXT_IDX = 10");
    const Ref<Recordset> second = mDb->OpenRecordset(u"SELECT * FROM [Texts] WHERE [TEXT_IDX] > 10");
    EXPECT_EQ(first->Columns(), second->Columns());
    EXPECT_EQ(first->Columns(), Table(u"Texts")->Columns());
    std::vector<Variant> values(3);
    first->ReadRow(values.data());
    EXPECT_EQ(Describe(values[0]) + Describe(values[1]) + Describe(values[2]), "Long 10String einsString one");
}

}  // namespace
}  // namespace ov
