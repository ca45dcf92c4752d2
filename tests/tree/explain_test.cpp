// What the record tells of rules: texts, results, reads, readers, refusals, and what would help.
#include "contract/explain.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

using testing::Row;

class Explain : public testing::TreeTest {
protected:
    Ref<IExplain_Parameter> Of(const Text& id) { return facet<IExplain_Parameter>(Parameter(id)); }

    static std::string Told(IExplain_Read& read) {
        return read.path().ToUtf8() + "=" + ToText(read.value()).ToUtf8() + " '" + read.shown().ToUtf8() + "'";
    }
    static std::string Told(IExplain_Rule& rule) {
        const std::string result = rule.hasRun() ? ToText(rule.result()).ToUtf8() : "not run";
        return rule.path().ToUtf8() + " " + rule.column().ToUtf8() + (rule.isInForce() ? "" : "-") + " " +
               rule.text().ToUtf8() + " -> " + result + (rule.volatility().empty() ? "" : " volatile") + " [" +
               ToldAll<IExplain_Read>(rule.reads()) + "]";
    }
    template <class Element>
    static std::string ToldAll(const Ref<ICollection>& list) {
        std::string told;
        const Ref<IEnumVariant> walk = list->NewEnum();
        for (Variant item; walk->Next(item);) {
            told += (told.empty() ? "" : "; ") + Told(*facet<Element>(item.AsObject()));
        }
        return told;
    }
};

TEST_F(Explain, TellsRulesReadsReadersAndRemedies) {
    Load(
        "CREATE TABLE Enums (enumSubType TEXT, value LONG, valueText LONG);"
        "INSERT INTO Enums VALUES ('e', 0, 1), ('e', 1, 2);" +
        Row(1, 1, "Type='ENUM';subtype='e';DefaultValue=0") +
        Row(1, 2, "Max='!:P(\"1\") + ENV.n(\"k\") + 5';DefaultValue=3;realGain='!:Rnd * 0 + 1'") +
        Row(1, 3, "dependency='!:P(\"1\") = 1';DefaultValue=4") +
        Row(1, 3, "dependency='!:P(\"1\") + P(\"2\") = 9';DefaultValue=5") + Row(1, 4, "dependency='!:P(\"1\") = 2'"));
    module->Environment()->let_Variable(u"k", Variant(2));
    module->UpdateDependencies();

    EXPECT_EQ(Of(u"2")->path().ToUtf8(), "1/1/2");
    EXPECT_EQ(ToldAll<IExplain_Rule>(Of(u"2")->rules()),
              "1/1/2 realGain !:Rnd * 0 + 1 -> 1 volatile []; "
              "1/1/2 Max !:P(\"1\") + ENV.n(\"k\") + 5 -> 7 [1/1/1=0 'Gerät'; ENV.Variable(\"k\")=2 '2']");
    EXPECT_EQ(ToldAll<IExplain_Rule>(Of(u"3")->rules()),
              "1/1/3 dependency- !:P(\"1\") = 1 -> False [1/1/1=0 'Gerät']; "
              "1/1/3 dependency- !:P(\"1\") + P(\"2\") = 9 -> False [1/1/1=0 'Gerät'; 1/1/2=3 '3']");
    EXPECT_EQ(ToldAll<IExplain_Read>(Of(u"3")->remedies()), "1/1/1=1 'Beschreibung'");
    EXPECT_EQ(ToldAll<IExplain_Read>(Of(u"4")->remedies()), "") << "no listed value helps";
    EXPECT_EQ(ToldAll<IExplain_Rule>(Of(u"2")->readers()),
              "1/1/3 dependency- !:P(\"1\") + P(\"2\") = 9 -> False [1/1/1=0 'Gerät'; 1/1/2=3 '3']");
    EXPECT_EQ(Parameter(u"1")->get_value().ToUtf8(), "Gerät") << "remedies are tried in a copy";

    Parameter(u"1")->let_value(u"Beschreibung");
    EXPECT_EQ(Told(*facet<IExplain_Rule>(Of(u"3")->rules()->Item(Variant(1)).AsObject())),
              "1/1/3 dependency !:P(\"1\") = 1 -> True [1/1/1=1 'Beschreibung']");
}

TEST_F(Explain, TellsWhoWroteAndWhatWasRefused) {
    Load(Row(1, 1, "Max=9;DefaultValue=1;consistency='!:P() <> 7'"));
    EXPECT_EQ(Of(u"1")->writtenBy(), u"default");
    Parameter(u"1")->let_value(u"12");
    EXPECT_EQ(Of(u"1")->refusal().ToUtf8(), "Value (12) is bigger than Maximum (9) ");
    EXPECT_EQ(Of(u"1")->refusedBy(), u"Max");
    Parameter(u"1")->let_value(u"7");
    EXPECT_EQ(Of(u"1")->refusedBy(), u"consistency");
    Parameter(u"1")->let_value(u"no number");
    EXPECT_EQ(Of(u"1")->refusal().ToUtf8(), "Type mismatch");
    EXPECT_EQ(Of(u"1")->refusedBy(), u"");
    Parameter(u"1")->let_value(u"2");
    EXPECT_EQ(Of(u"1")->refusal(), u"");
    EXPECT_EQ(Of(u"1")->writtenBy(), u"user");
    Parameter(u"1")->Spec()->let_value(Variant(3));
    EXPECT_EQ(Of(u"1")->writtenBy(), u"engine");
    Eval(u"P.SetValue(\"1\", 4)");
    EXPECT_EQ(Of(u"1")->writtenBy(), u"rule");
}

}  // namespace
}  // namespace ov
