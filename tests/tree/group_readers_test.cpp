// The typed readers in both generations, and the evaluation of texts by channels.
#include "tree/channel.h"
#include "tree/group.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Row;
using testing::TreeTest;

class Readers : public TreeTest {
protected:
    ov::Group& Owner() { return dynamic_cast<ov::Group&>(*facet<ParameterOwner>(Group())); }
    static std::string Shown(const Variant& value) {
        if (value.IsEmpty()) return "Empty";
        return ToText(value).ToUtf8();
    }
    // Long, Boolean, Decimal, Single, Double and text of one cell.
    std::string AllOf(const Text& text) {
        ov::Group& owner = Owner();
        std::string all = std::to_string(owner.GetLongFromScript(text, 1));
        for (const Variant& value :
             {Variant(owner.GetBoolFromScript(text, 1)), owner.GetDecimalFromScript(text, 1),
              Variant(owner.GetSingleFromScript(text, 1)), Variant(owner.GetDoubleFromScript(text, 1)),
              Variant(owner.GetStringFromScript(text, 1))}) {
            all += " " + Shown(value);
        }
        return all;
    }
};

TEST_F(Readers, TakeATextByTheGenerationOfTheDescriptor) {
    const struct {
        const char16_t* text;
        const char* tagged;
        const char* shaped;
    } cases[] = {
        {u"12", "12 True 12 12 12 12", "12 True 12 12 12 12"},
        {u"2.5", "2 True 2.5 2.5 2.5 2.5", "2 True 2.5 2.5 2.5 2.5"},
        {u"TRUE", "0 True Empty 0 0 TRUE", "-1 True -1 -1 -1 TRUE"},
        {u"1+1", "0 False Empty 1 1 1+1", "2 True 2 2 2 1+1"},
        {u"#:1+1", "2 True 2 2 2 2", "0 False 0 0 0 #:1+1"},
        {u"!:P(\"1\")+1", "6 True 6 6 6 6", "0 False 0 0 0 "},
        {u"P(\"1\")+1", "0 False Empty 0 0 P(\"1\")+1", "6 True 6 6 6 6"},
        {u"#:P(", "0 False 0 0 0 ", "0 False 0 0 0 #:P("},
        {u"#:Null", "0 False Empty 0 0 ", "0 False 0 0 0 #:Null"},
        {u"\"quoted\"", "0 False Empty 0 0 \"quoted\"", "0 False Empty 0 0 quoted"},
        {u"\"", "0 False Empty 0 0 \"", "0 False 0 0 0 \""},
        {u"QNAN", "0 False Empty 0 0 QNAN", "0 False 0 0 0 QNAN"},
        {u"#:1 ^^+ 1", "2 True 2 2 2 2", "0 False 0 0 0 #:1 ^^+ 1"},
        {u"", "0 False Empty 0 0 ", "0 False 0 0 0 "},
        {u"99999999999", "0 True 99999999999 1E+11 99999999999 99999999999",
         "0 True 99999999999 1E+11 99999999999 99999999999"},
    };
    for (const int generation : {1, 0}) {
        Load(Row(1, 1, "DefaultValue=5"), generation);
        for (const auto& c : cases) {
            EXPECT_EQ(AllOf(c.text), generation ? c.tagged : c.shaped) << generation << " " << Text(c.text).ToUtf8();
        }
    }
}

TEST_F(Readers, TellTheLogWhatTheyCouldNotRead) {
    Load();
    EXPECT_EQ(Logged([&] { EXPECT_EQ(Owner().GetLongFromScript(u"x", 7), 0); }),
              "GetLongFromScript('x')(ParamId 7) could not be processed!\n");
    EXPECT_EQ(Logged([&] { Owner().EvaluateRawScript(u"Empty", false, false); }),
              "(id 1) :EvaluateRawScript(Empty): ERROR: result is Null or Empty!\n");
    EXPECT_THAT(Logged([&] {
                    EXPECT_EQ(Shown(Owner().EvaluateRawScript(u"abc(", false, true)), "abc(");
                    EXPECT_EQ(Shown(Owner().EvaluateRawScript(u"abc(", true, false)), "Empty");
                }),
                IsEmpty());
    EXPECT_THAT(Logged([&] { Owner().EvaluateRawScript(u"abc(", false, false); }),
                HasSubstr("Evaluate(abc(): ERROR: "));
    EXPECT_TRUE(Owner().GetBoolFromVariantOrScript(Variant::Null(), true, 1));
    EXPECT_FALSE(Owner().GetBoolFromVariantOrScript(u"nonsense", true, 1)) << "the fallback is for Null alone";
}

TEST_F(Readers, AStaticScriptRunsOncePerRowAndALiveOneAtEachRead) {
    Load(Row(1, 1, "DefaultValue=5"));
    const Ref<Collection> row = MakeObject<Collection>();
    for (const auto& [key, value] :
         std::initializer_list<std::pair<const char16_t*, Variant>>{{u"once", u"#:P(\"1\")"},
                                                                    {u"live", u"!:P(\"1\")"},
                                                                    {u"text", u"7.5x"},
                                                                    {u"null", Variant::Null()},
                                                                    {u"qnan", u"QNAN"},
                                                                    {u"bad", u"!:P("}}) {
        row->TryAdd(key, value);
    }
    const auto read = [&](const char16_t* key, VarType type = VarType::Empty) {
        return Owner().GetParameterDescAsScript(key, *row, 1, type);
    };
    EXPECT_EQ(Shown(read(u"once")), "5");
    Parameter(u"1")->let_value(u"6");
    GlobalDiagnostics().debugCountEval = 0;
    EXPECT_EQ(Shown(read(u"ONCE")), "5");
    EXPECT_EQ(GlobalDiagnostics().debugCountEval, 0);
    EXPECT_EQ(Shown(read(u"live")), "6");
    EXPECT_EQ(Shown(read(u"live")), "6");
    EXPECT_EQ(GlobalDiagnostics().debugCountEval, 2);
    EXPECT_EQ(read(u"text", VarType::Double).AsDouble(), 7.5);
    EXPECT_EQ(Shown(read(u"text", VarType::Long)), "7.5x");
    EXPECT_TRUE(read(u"null", VarType::Long).IsNull());
    EXPECT_EQ(Shown(read(u"qnan", VarType::Single)), "QNAN");
    EXPECT_EQ(Shown(read(u"bad")), "Empty");
    EXPECT_THAT(Logged([&] { EXPECT_EQ(Shown(read(u"none")), "Empty"); }),
                HasSubstr("GetParameterDescAsScript(none, PID = 1): ONERROR: while evaluating skript ()"));
}

TEST_F(Readers, OldCellsAreReadByTheTypeAskedFor) {
    Load(Row(1, 1, "DefaultValue=5"), 0);
    const Ref<Collection> row = MakeObject<Collection>();
    row->TryAdd(u"c", u"P(\"1\") / 2");
    const std::pair<VarType, const char*> types[] = {{VarType::Empty, "2.5"},  {VarType::Long, "2"},
                                                     {VarType::Single, "2.5"}, {VarType::Double, "2.5"},
                                                     {VarType::String, "2.5"}, {VarType::Decimal, "2.5"}};
    for (const auto& [type, expected] : types) {
        EXPECT_EQ(Shown(Owner().GetParameterDescAsScript(u"c", *row, 1, type)), expected);
    }
    EXPECT_EQ(Logged([&] { Owner().GetParameterDescAsScript(u"c", *row, 1, VarType::Date); }),
              "GetParameterDescAsScript(): WARNING: unsupported vartype '7'\n");
}

TEST_F(Readers, ForgetTextsThatAreNotLive) {
    const struct {
        const char16_t* text;
        bool staysTagged, staysShaped;
    } cases[] = {{u"#:1", false, false}, {u"!:1", true, false}, {u"P(\"1\")", false, true}, {u"5", false, false}};
    for (const int generation : {1, 0}) {
        Load("", generation);
        for (const auto& c : cases) {
            Text text = c.text;
            Owner().ForgetStaticScript(text, u"new");
            EXPECT_EQ(text == c.text, generation ? c.staysTagged : c.staysShaped) << Text(c.text).ToUtf8();
        }
    }
}

TEST_F(Readers, AChannelEvaluatesByGeneration) {
    const struct {
        const char16_t* text;
        const char* tagged;
        const char* shaped;
    } cases[] = {{u"#:", "#:", "Empty"},
                 {u"#:1+1", "2", "Empty"},
                 {u"abc", "abc", "Empty"},
                 {u"1+1", "1+1", "2"},
                 {u"!:CONFCH(\"ChannelType\")", "1", "Empty"},
                 {u"#:P(\"1\")", "Empty", "Empty"}};
    for (const int generation : {1, 0}) {
        Load(Row(1, 1), generation);
        const Ref<IBase_SpecChannel> spec = Channel();
        auto* channel = dynamic_cast<ov::Channel*>(spec.get());
        ASSERT_TRUE(channel);
        for (const auto& c : cases) {
            EXPECT_EQ(Shown(channel->Evaluate(c.text, false)), generation ? c.tagged : c.shaped)
                << generation << Text(c.text).ToUtf8();
        }
        EXPECT_EQ(Shown(spec->EvaluateScript(u"1+1")), "2");
        EXPECT_EQ(Shown(spec->EvaluateScript(Variant::Null())), "Empty");
    }
}

}  // namespace
}  // namespace ov
