// The classes of lists, each by what a host sees.
#include <gtest/gtest.h>

#include "parameters/parameter_enum.h"
#include "parameters/parameter_enum_s.h"
#include "parameters/parameter_select.h"
#include "parameters/parameter_testing.h"
#include "support/test_database.h"

namespace ov {
namespace {

using ::ov::testing::Cells;
using ::ov::testing::TestDatabase;

constexpr const char* kLists = R"(
CREATE TABLE Enums (enumSubType TEXT, value LONG, valueText LONG);
INSERT INTO Enums VALUES
    ('valve', 3, 13), ('valve', 1, 11), ('valve', 2, 12),
    ('own', 0, 11), ('own', NULL, 20), ('free', 5, 11), ('free', NULL, 21),
    ('again', 1, 11), ('again', 2, 12), ('again', 2, 13), ('again', 3, 13),
    ('twin', 1, 11), ('twin', 2, 11), ('twin', 3, 13), ('Swap_Reverse', 258, 11), (NULL, NULL, 1), (NULL, NULL, 22);
CREATE TABLE EnumsStr (enumSubType TEXT, value TEXT, valueText LONG);
INSERT INTO EnumsStr VALUES ('unit', 'kg', 12), ('unit', 'g', 11), ('free', 'a', 11), ('free', NULL, 21);
CREATE TABLE Actions (ActionID TEXT, value TEXT, actionScript TEXT);
INSERT INTO Actions VALUES ('push', '1', 'one P()'), ('push', NULL, 'else P()');
CREATE TABLE Sensors (id LONG PRIMARY KEY, name LONG, note TEXT, module LONG);
INSERT INTO Sensors VALUES (4, 11, 'x', 2), (7, 12, NULL, 2), (9, 13, 'y', 3);
CREATE TABLE FieldProperties (TableName TEXT, FieldName TEXT, PropertyName TEXT, PropertyValue TEXT);
INSERT INTO FieldProperties VALUES ('Sensors', 'name', 'RowSource', 'SELECT TEXT_IDX, Text_7 From Texts');
)";

class ListTest : public ::ov::testing::ParameterTest {
protected:
    ListTest() {
        group->module->db = file.Open();
        group->module->texts = {
            {11, u"auf"}, {12, u"zu"}, {13, u"halb"}, {20, u"? %1dec"}, {21, u"unknown %1hex4%consistent"},
            {22, u"frei"}};
    }
    template <class Class = ParameterEnum>
    void Make(Cells cells) {
        Take(MakeObject<Class>(), cells);
        list = gui->editValues();
    }
    /// The rows of the list that was handed out first.
    std::string Rows() {
        EXPECT_EQ(list.get(), gui->editValues().get()) << "one object for life";
        std::string rows;
        for (std::int32_t at = 1; at <= list->Count(); ++at) {
            rows += (at > 1 ? "," : "") + ToText(list->Item(at)).ToUtf8();
        }
        return rows;
    }
    std::string Written(const char16_t* text) {
        gui->let_value(text);
        return Shown();
    }

    TestDatabase file{kLists};
    Ref<ICollection> list;
};

TEST_F(ListTest, AnEnumerationIsReadOnceAndWrittenByTextOrDigits) {
    Make({{u"Type", u"ENUM"}, {u"subtype", u"valve"}});
    EXPECT_EQ(gui->editType(), eEditType::enumeration);
    EXPECT_EQ(Rows(), "auf,zu,halb") << "in the order of the values";
    EXPECT_EQ(ToText(list->Item(u"3")), u"halb");
    EXPECT_EQ(Shown(), "auf") << "the first entry is the default";
    EXPECT_EQ(Written(u"HALB"), "halb");
    EXPECT_EQ(Written(u"2"), "zu");
    EXPECT_EQ(Told(u"99"), "") << "refused, whatever else";
    EXPECT_EQ(Told(u"zu"), "") << "equal: and no action either";
    EXPECT_EQ(Shown(), "zu");
    for (const auto& [text, passes] : {std::pair{u"auf", true}, {u"3", true}, {u"99", false}, {u"", false}}) {
        EXPECT_EQ(gui->consistent(text), passes);
    }
    EXPECT_TRUE(internal->CheckConsistency());
    spec->let_value(99);
    EXPECT_EQ(gui->error(), u"3");
    EXPECT_EQ(Shown(), "frei (99)") << "by the last of the rows for all enumerations";
    EXPECT_FALSE(internal->CheckConsistency());
    EXPECT_EQ(gui->FormatValue(1, {}), u"auf");

    group->module->db = nullptr;  // another one works from what was read
    Make({{u"Type", u"ENUM"},
          {u"subtype", u"valve"},
          {u"Min", u"2"},
          {u"DefaultValue", u"3"},
          {u"displayFormat", u"ICON"}});
    EXPECT_TRUE(internal->CheckConsistency());
    EXPECT_EQ(Rows(), "zu,halb");
    EXPECT_EQ(gui->editType(), eEditType::Icon);
    EXPECT_EQ(Shown(), "/devices/halb");
    group->module->texts[13] = u"half";
    group->module->language = 9;
    EXPECT_EQ(Told([&] { EXPECT_EQ(Shown(), "/devices/half"); }), "") << "nobody is told";
    EXPECT_EQ(Rows(), "zu,half");
}

TEST_F(ListTest, LimitsNarrowTheListThatIsOut) {
    std::int32_t most = 3;
    group->scripts["most"] = [&] { return Variant(most); };
    Make({{u"Type", u"ENUM"}, {u"subtype", u"valve"}, {u"Max", u"!:most"}});
    EXPECT_EQ(Told([&] { internal->CheckConsistency(); }), "");
    most = 2;
    EXPECT_EQ(Told([&] { internal->CheckConsistency(); }), "A:Reconfigured group:Reconfigured");
    EXPECT_EQ(Rows(), "auf,zu");
    most = 9;
    internal->CheckConsistency();
    EXPECT_EQ(Rows(), "auf,zu,halb");
}

TEST_F(ListTest, AFormatTellsOfValuesThatAreNotListed) {
    Make({{u"Type", u"ENUM"}, {u"subtype", u"free"}, {u"DefaultValue", u"255"}});
    EXPECT_EQ(Shown(), "unknown 00FF");
    EXPECT_TRUE(internal->CheckConsistency()) << "legitimate";
    EXPECT_FALSE(gui->consistent(u"255")) << "but not for a user to write";
    EXPECT_EQ(Written(u"99"), "unknown 00FF");
    struct Case {
        const char16_t* format;
        const char* number;
        const char* text;
    };
    for (const Case& c : {Case{u"", " (255)", " (s)"},
                          {u"x%1dec,%1dec", "x255,%1dec", "xs,%1dec"},
                          {u"%1str %1dec", "%1str 255", "%1str s"},
                          {u"%1str", "%1str", "%1str"},
                          {u"a%1nonb%consistent", "ab", "ab"},
                          {u"%1hex!", "FF!", "%1hex! (s)"},
                          {u"%1hex1%1hex", "F%1hex", "%1hex1%1hex (s)"},
                          {u"%1hex9", "0000000FF", "%1hex9 (s)"},
                          {u"%1hex0", "", "%1hex0 (s)"},
                          {u"%1other", "%1other (255)", "%1other (s)"},
                          {u"%1", "%1 (255)", "%1 (s)"}}) {
        EXPECT_EQ(FormatUnlistedValue(c.format, u"255", Text(u"FF")).ToUtf8(), c.number);
        EXPECT_EQ(FormatUnlistedValue(c.format, u"s", std::nullopt).ToUtf8(), c.text);
    }
}

TEST_F(ListTest, ListsThatCannotBeReadAreEmpty) {
    for (const char16_t* subtype : {u"nothing", u"it's", u""}) {
        Make({{u"Type", u"ENUM"}, {u"subtype", subtype}});
        EXPECT_EQ(Rows(), "");
        EXPECT_EQ(Shown(), "frei (0)");
        EXPECT_EQ(gui->error(), u"3");
        EXPECT_FALSE(internal->CheckConsistency());
    }
    for (const char16_t* statement : {u"no SELECT", u"DELETE FROM Enums", u"SELECT * FROM Nowhere", u"SELECT NULL"}) {
        Make({{u"Type", u"SELECT"}, {u"subtype", statement}});
        EXPECT_EQ(Rows() + Shown(), "frei (0)");
        Make<ParameterSelect>({{u"subtype", statement}});
        EXPECT_EQ(Rows() + Shown(), "frei (0)");
        EXPECT_FALSE(internal->CheckConsistency());
    }
    EXPECT_EQ(group->module->GetDB()->OpenRecordset(u"SELECT * FROM Enums")->RecordCount() > 0, true);
    group->module->db = nullptr;
    const std::string log = Logged([&] { Make({{u"Type", u"ENUM"}, {u"subtype", u"unread"}}); });
    EXPECT_THAT(log, ::testing::HasSubstr("ReloadCollections(): ONERROR: Error 91: "));
    EXPECT_THAT(log, ::testing::HasSubstr("(ParamId 7) SetMyValueToDefault: Default-Value '' ist kein Long: 9\n"));
    EXPECT_THAT(
        log, ::testing::HasSubstr("(ParamId 7) SetMyValueToDefault: Default-Value '' ist ein nicht eingetragener Wert! "
                                  "strs<>nums: 0<>0"));
}

TEST_F(ListTest, ATextThatTwoRowsHaveIsFoundOnce) {
    const Cells cells = {{u"Type", u"ENUM"}, {u"subtype", u"twin"}, {u"DefaultValue", u"9"}};
    const std::string log = Logged([&] { Make(cells); });
    EXPECT_THAT(log, ::testing::HasSubstr("Id '7': IBase_Internal_Config(): ERROR adding ENUM-item 'auf' (value=2): "));
    EXPECT_THAT(log, ::testing::HasSubstr("strs<>nums: 3<>2"));
    EXPECT_EQ(Rows(), "auf,auf,halb");
    EXPECT_THAT(Logged([&] { Make(cells); }), ::testing::HasSubstr("ReloadCollections(): ONERROR: Error 457: "));
    EXPECT_EQ(Rows(), "auf") << "the reading from memory ends there";
}

TEST_F(ListTest, APushButtonGoesBack) {
    const Cells action = {{u"Type", u"ACTION"}, {u"subtype", u"valve"}, {u"actionOnChange", u"push"}};
    Make(action);
    spec->let_value(3);
    EXPECT_EQ(Told(u"zu"), "dependencies A:Value group:Value run else 2 dependencies A:Value group:Value");
    EXPECT_EQ(Told([&] { spec->let_value(2); }), "A:Value group:Value run else 2 dependencies A:Value group:Value");
    EXPECT_EQ(Shown(), "auf");
    Cells enumeration = action;
    enumeration[0].second = u"ENUM";
    Make(enumeration);
    EXPECT_EQ(Told(u"zu"), "dependencies A:Value group:Value run else 2");
    EXPECT_EQ(Told(u"auf"), "dependencies A:Value group:Value run one 1");
    EXPECT_EQ(Told([&] { spec->let_value(2); }), "A:Value group:Value") << "the engine's writes run nothing";
    enumeration[2].second = u"it's";
    Make(enumeration);
    EXPECT_THAT(Logged([&] { gui->let_value(u"zu"); }),
                ::testing::MatchesRegex("LoadActionTable\\(\\): ONERROR: Error 3075: Syntax error.* \\(7\\)\n"));
}

// In a statement's list such a row is left out; in an enumeration's it is the last one read.
TEST_F(ListTest, AValueThatTwoRowsHaveIsListedOnce) {
    const char16_t* statement = u"SELECT 1 - (id > 4), id FROM Sensors UNION ALL SELECT 3, 1";
    const Cells cells = {{u"Type", u"SELECT"}, {u"subtype", statement}, {u"displayFormat", u"nr $1"}};
    EXPECT_THAT(Logged([&] { Make(cells); }),
                ::testing::HasSubstr("Id '7': IBase_Internal_Config(): ERROR adding ENUM-item 'nr 9' (value=2): "));
    EXPECT_EQ(Rows(), "nr 4,nr 7,nr 1");
    EXPECT_EQ(Logged([&] { Make(cells); }), "") << "from memory";
    EXPECT_EQ(Rows(), "nr 4,nr 7,nr 1");
    Make({{u"Type", u"ENUM"}, {u"subtype", u"again"}});
    EXPECT_EQ(Rows(), "auf,zu");
}

TEST_F(ListTest, AStatementIsAListWithTextsOfItsOwn) {
    const Cells cells = {{u"Type", u"SELECT"},
                         {u"subtype", u"SELECT id, name, note FROM Sensors WHERE module = $module OR id = $value"},
                         {u"displayFormat", u"$0: $1 ($2)"}};
    Make(cells);
    EXPECT_EQ(Rows(), "4: auf (x),7: zu ()");
    EXPECT_EQ(Written(u"7"), "7: zu ()");
    group->module->texts[12] = u"closed";
    group->module->language = 9;
    EXPECT_EQ(Shown(), "7: closed ()");
    EXPECT_TRUE(group->module->enums.Get(u"SELECT id, name, note FROM Sensors WHERE module = 2 OR id = 0"))
        << "kept under the statement as it was run";
    group->module->db = nullptr;
    Make(cells);
    EXPECT_EQ(Rows(), "") << "so another parameter asks the database again";
    // A translation that holds its own mark comes to an end.
    group->module->texts[30] = u"<gettext(30)>";
    EXPECT_LT(ResolveGetText(u"gettext(30", *group->module, Search::FromTheStart).size(), 100000u);
    EXPECT_EQ(ResolveGetText(u"a GetText(11)b gettext(13)", *group->module, Search::Onward), u"a aufb halb");
}

// The marks of its template are filled once: neither a field's own text nor a translation has any.
TEST_F(ListTest, TheOlderSelectKnowsMarksOfTheTemplateAlone) {
    group->module->texts[11] = u"gettext(13)";
    const char16_t* statement = u"SELECT id, name, 'a gettext(12)' FROM Sensors WHERE id = 4";
    const Cells cells = {{u"subtype", statement}, {u"displayFormat", u"gettext(11) gettext(12) $1 $2"}};
    Make<ParameterSelect>(cells);
    EXPECT_EQ(Rows(), "gettext(13) zu gettext(13) a gettext(12)");
    Cells enumeration = cells;
    enumeration.emplace_back(u"Type", u"SELECT");
    Make(enumeration);
    EXPECT_EQ(Rows(), "halb zu halb a zu") << "the newer one resolves all marks";
}

TEST_F(ListTest, TheOlderSelectAsksItsRuleInAnyCase) {
    group->scripts["4 < 9"] = [this] {
        events.emplace_back("rule");
        return Variant(true);
    };
    const Cells cells = {{u"subtype", u"SELECT id FROM Sensors"}, {u"Min", u"5"}, {u"consistency", u"#:P() < 9"}};
    Make<ParameterSelect>(cells);
    EXPECT_FALSE(internal->CheckConsistency());
    EXPECT_EQ(events,
              (::ov::testing::Events{"rule", "A:Reconfigured", "group:Reconfigured", "A:State", "group:State"}));
}

TEST_F(ListTest, TheOlderSelectShowsOneLanguageAndReadsAnother) {
    Make<ParameterSelect>({{u"subtype", u"SELECT id, name FROM Sensors"},
                           {u"displayFormat", u"gettext(22) $1"},
                           {u"DefaultValue", u"7"}});
    EXPECT_EQ(Rows(), "frei auf,frei zu,frei halb");
    EXPECT_EQ(Shown(), "frei zu");
    group->module->texts[11] = u"open";
    group->module->language = 9;
    EXPECT_EQ(Shown(), "frei zu");
    EXPECT_EQ(Rows(), "frei open,frei zu,frei halb");
    EXPECT_EQ(Written(u"frei open"), "frei zu") << "unknown";
    EXPECT_EQ(Written(u"frei auf"), "frei open");
    EXPECT_EQ(Logged([&] { spec->let_value(u"abc"); }),
              "(ParamId 7) Property Let IBase_SpecParameter_value(abc): ERROR: Aktion nicht möglich\n");
    EXPECT_EQ(gui->error(), u"0");
    spec->let_value(8);
    EXPECT_EQ(Shown(), "frei (8)");
    EXPECT_FALSE(internal->CheckConsistency());
}

TEST_F(ListTest, AChoiceByTextKnowsBothTexts) {
    Make<ParameterEnumS>({{u"Type", u"ENUMSTR"}, {u"subtype", u"unit"}, {u"Max", u"1"}, {u"displayFormat", u"0.0"}});
    EXPECT_EQ(Rows(), "zu,auf") << "in the order of the table";
    EXPECT_EQ(Written(u"G"), "auf");
    EXPECT_EQ(spec->get_value().AsText(), u"g") << "as the list spells it";
    EXPECT_EQ(Written(u"zu"), "auf") << "too long; limits leave the list alone";
    EXPECT_EQ(Rows(), "zu,auf");
    EXPECT_EQ(Logged([&] { Shown(); }),
              "(ParamId 7) Get IBase_GuiParameter_value(): displayFormat is set (0.0) but will be ignored!\n");
    spec->let_value(u"m");
    EXPECT_EQ(Shown() + gui->error().ToUtf8(), "frei (m)3");
    Make<ParameterEnumS>({{u"Type", u"ENUMSTR"}, {u"subtype", u"free"}, {u"DefaultValue", u"zz"}});
    EXPECT_TRUE(internal->CheckConsistency());
    Make<ParameterEnumS>({{u"Type", u"SELECTSTR"}, {u"subtype", u"SELECT note, name FROM Sensors WHERE note <> ''"}});
    EXPECT_EQ(Rows() + Shown(), "x,yx");
    ByteArray image{{9, 9, 9, 9}, 1};
    EXPECT_TRUE(spec->ExportToByteArrayMapByMemory(image, 2, 16, 0, {}));
    EXPECT_EQ(image.bytes, (std::vector<std::uint8_t>{9, 'x', 0, 9}));
    EXPECT_TRUE(spec->ImportFromByteArrayMapByMemory({{0, 'y', 0, 0}}, 1, 24, {}, {}));
    EXPECT_EQ(Shown(), "y");
    EXPECT_EQ(Logged([&] { EXPECT_FALSE(spec->ImportFromByteArrayMapByMemory(image, 2, 12, {}, {})); }),
              "IBase_SpecParameter_ImportFromByteArrayMapByMemory(): ERROR: bitlength>=8 and other than 8, 16, 24: "
              "BitLen=12\n");
    EXPECT_EQ(Shown(), "Internal error");
}

TEST_F(ListTest, NumbersOfListsLieInImagesByTheCallersWidth) {
    Make({{u"Type", u"ENUM"}, {u"subtype", u"Swap_Reverse"}});
    ByteArray image{{0, 0, 0}};
    EXPECT_TRUE(spec->ExportToByteArrayMapByMemory(image, 1, 16, {}, eByteOrder::eLittleEndian));
    EXPECT_EQ(image.bytes, (std::vector<std::uint8_t>{0, 1, 2})) << "the order is turned round";
    Text text = u"0000";
    EXPECT_TRUE(spec->ExportToHexStringMapByMemory(text, 1, {}, {}, {}));
    EXPECT_EQ(text, u"0002") << "8 bits unless the caller says more";
    EXPECT_FALSE(spec->ExportToByteArrayMapByMemory(image, 0, 40, {}, {}));
    EXPECT_TRUE(spec->ImportFromByteArrayMapByMemory({{0, 0x28}}, 0, 4, 11, {}));
    EXPECT_EQ(spec->get_value().AsLong(), 5);
    EXPECT_FALSE(spec->ImportFromByteArrayMapByMemory(image, 0, 12, {}, {}));
    EXPECT_EQ(gui->error(), u"4");
}

}  // namespace
}  // namespace ov
