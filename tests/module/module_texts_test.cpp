// Texts and files in the module's language, and the module's environment.
#include <gtest/gtest.h>

#include "module/module.h"
#include "platform/automation/conversions.h"
#include "support/small_descriptor.h"
#include "support/test_database.h"

namespace ov {
namespace {

using testing::kSmallDescriptor;
using testing::TestDatabase;

Ref<Module> Loaded(const TestDatabase& database) {
    Ref<Module> module = MakeObject<Module>();
    module->SetSourcePath(database.Path());
    EXPECT_TRUE(module->Load(u"A", {}, {}));
    return module;
}

TEST(ModuleTexts, FallBackToTheBaseLanguage) {
    const TestDatabase database(kSmallDescriptor + "INSERT INTO SupportedLanguages VALUES ('0410')");
    const Ref<Module> module = Loaded(database);
    EXPECT_EQ(module->GetTranslatedText(1), u"Gerät");
    EXPECT_EQ(module->GetTranslatedText(3), u"");
    EXPECT_EQ(module->GetTranslatedText(0), u"");
    EXPECT_EQ(module->GetTranslatedText(4711), u"");
    ASSERT_TRUE(module->SetLanguage(9));
    EXPECT_EQ(module->GetTranslatedText(1), u"Device");
    EXPECT_EQ(module->GetTranslatedText(2), u"Beschreibung");
    ASSERT_TRUE(module->SetLanguage(16));  // no column
    EXPECT_EQ(module->GetTranslatedText(1), u"Gerät");
}

TEST(ModuleTexts, OddTablesGiveEmptyTexts) {
    const std::string doubled =
        "DROP TABLE Texts; CREATE TABLE Texts (TEXT_IDX LONG, Text_7 TEXT); "
        "INSERT INTO Texts VALUES (1, 'a'), (2, 'b'), (1, 'c'), (3, 'd')";
    const std::string noBase =
        "DROP TABLE Texts; CREATE TABLE Texts (TEXT_IDX LONG PRIMARY KEY, Text_9 TEXT); "
        "INSERT INTO Texts VALUES (1, 'a')";
    for (const std::string& sql : {doubled, noBase, std::string("DROP TABLE Texts")}) {
        const TestDatabase database(kSmallDescriptor + sql);
        const Ref<Module> module = Loaded(database);
        EXPECT_EQ(module->GetTranslatedText(1), u"") << sql;
        EXPECT_EQ(module->GetTranslatedText(2), u"") << sql;
    }
    const TestDatabase typed(kSmallDescriptor + R"(
        DROP TABLE Texts; CREATE TABLE Texts (TEXT_IDX TEXT PRIMARY KEY, Text_7 LONG);
        INSERT INTO Texts VALUES ('1', 5), ('02', 6), ('x', 7))");
    const Ref<Module> module = Loaded(typed);
    EXPECT_EQ(module->GetTranslatedText(1), u"5");  // a key counts by its spelling
    EXPECT_EQ(module->GetTranslatedText(2), u"");
}

TEST(ModuleTexts, FilesRaiseWhereTextsDoNot) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = Loaded(database);
    EXPECT_EQ(module->GetTranslatedFile(1), u"hilfe.htm");
    EXPECT_EQ(module->GetTranslatedFile(2), u"");
    EXPECT_EQ(module->GetIndexedFile(0), u"");
    EXPECT_TRUE(module->GetIndexedFile(1).view().ends_with(u"/hilfe.htm"));
    const TestDatabase doubled(kSmallDescriptor + R"(
        DROP TABLE Files; CREATE TABLE Files (FILE_IDX LONG, Text_7 TEXT);
        INSERT INTO Files VALUES (1, 'a'), (1, 'b'))");
    EXPECT_THROW(Loaded(doubled)->GetTranslatedFile(1), RuntimeError);
    EXPECT_EQ(Loaded(doubled)->GetIndexedFile(1), u"");
    const TestDatabase missing(kSmallDescriptor + "DROP TABLE Files");
    EXPECT_EQ(Loaded(missing)->GetTranslatedFile(1), u"");
}

TEST(ModuleTexts, StaticScriptsNeedAChannel) {
    for (const auto& [sql, call, prefixed] :
         {std::tuple{"", u"f(\"x\")", u"#:1+1"}, {"DELETE FROM DatabaseProperties", u"", u"#:1+1"}}) {
        const TestDatabase database(kSmallDescriptor + sql);
        const Ref<Module> module = Loaded(database);
        EXPECT_EQ(module->ResolveStaticScript(u"abc"), u"abc");
        EXPECT_EQ(module->ResolveStaticScript(u"f(\"x\")"), call);
        EXPECT_EQ(module->ResolveStaticScript(prefixed), prefixed);
    }
}

TEST(ModuleTexts, EnumerationsKeepTheirFirstEntry) {
    const Ref<Module> module = MakeObject<Module>();
    EXPECT_FALSE(module->EnumCacheGet(u"k"));
    const auto first = std::make_shared<CEnumCacheItem>();
    module->EnumCacheSet(u"k", first);
    module->EnumCacheSet(u"K", std::make_shared<CEnumCacheItem>());
    EXPECT_EQ(module->EnumCacheGet(u"k"), first);
}

class Sink final : public Object<Sink, Facet<CBase_EnvironmentEvents>> {
public:
    static constexpr const char* kClassName = "Sink";
    void Changed(const Text& key, const Variant& value) override {
        heard.push_back(key + u"=" + (value.IsArray() ? Text(u"array") : ToText(value)));
    }
    std::vector<Text> heard;
};

TEST(EnvironmentStore, RaisesChangedForChangesAlone) {
    const Ref<Environment> environment = MakeObject<Environment>();
    const Ref<Sink> sink = MakeObject<Sink>();
    const std::int32_t cookie = environment->Advise(sink->Dispatch());
    EXPECT_EQ(ToText(environment->get_Variable(u"debug")), u"0");
    EXPECT_TRUE(environment->get_Variable(u"none").IsEmpty());
    environment->let_Variable(u"a", Variant(1));
    environment->let_Variable(u"A", Variant(1.0));  // equal by value
    environment->let_VariableNoEvent(u"a", Variant(2));
    environment->let_Variable(u"a", Variant(2));
    environment->let_Variable(u"a", Variant::Null());  // nothing differs from Null
    EXPECT_EQ(environment->get_Variable(u"a").AsLong(), 2);
    environment->let_Variable(u"a", Variant(Array::OfBytes({1})));  // what cannot be compared differs
    environment->Unadvise(cookie);
    environment->let_Variable(u"b", Variant(1));
    EXPECT_EQ(sink->heard, (std::vector<Text>{u"a=1", u"a=array"}));
}

TEST(EnvironmentStore, CopiesInTheOrderOfFirstUse) {
    const Ref<Environment> from = MakeObject<Environment>();
    const Ref<Environment> to = MakeObject<Environment>();
    from->let_Variable(u"x", Variant(1));
    from->let_Variable(u"y", Variant(2));
    from->let_Variable(u"x", Variant(3));
    to->let_Variable(u"old", Variant(1));
    const Ref<Sink> sink = MakeObject<Sink>();
    to->Advise(sink->Dispatch());
    from->CopyContentsTo(to.get());
    EXPECT_EQ(sink->heard, (std::vector<Text>{u"DEBUG=0", u"x=3", u"y=2"}));
    EXPECT_TRUE(to->get_Variable(u"old").IsEmpty());
    from->CopyContentsTo(from.get());
    EXPECT_EQ(from->get_Variable(u"y").AsLong(), 2);
}

}  // namespace
}  // namespace ov
