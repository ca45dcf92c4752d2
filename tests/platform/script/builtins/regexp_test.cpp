#include "platform/script/vbscript/builtins/regexp_object.h"

#include "platform/automation/memory_account.h"
#include "platform/script/builtins/builtin_call.h"

namespace ov::vbscript {
namespace {

using namespace testing;

/// A regular expression of flags: "g" all matches, "i" without regard to case, "m" lines.
Ref<IRegExp> Make(TestContext& context, const Text& pattern, std::string_view flags = "") {
    Ref<IRegExp> regex = MakeRegExp(context.LinkHere());
    regex->let_Pattern(pattern);
    regex->let_Global(flags.find('g') != std::string_view::npos);
    regex->let_IgnoreCase(flags.find('i') != std::string_view::npos);
    regex->let_Multiline(flags.find('m') != std::string_view::npos);
    return regex;
}

/// "index:match(group,group)" of each match, a group that took no part as "-"; or "error" and its number.
std::string Found(const char16_t* pattern, std::string_view flags, const Text& text) {
    TestContext context;
    try {
        const Ref<IMatches> matches = Make(context, pattern, flags)->Execute(text);
        std::string all;
        for (std::int32_t i = 0; i < matches->Count(); ++i) {
            const Ref<IMatch> match = matches->Item(i);
            EXPECT_EQ(match->Length(), static_cast<std::int32_t>(match->Value().size()));
            all += (i > 0 ? " " : "") + std::to_string(match->FirstIndex()) + ":" + match->Value().ToUtf8();
            const Ref<ISubMatches> groups = match->SubMatches();
            for (std::int32_t g = 0; g < groups->Count(); ++g) {
                const Variant group = groups->Item(g);
                all += (g == 0 ? "(" : ",") + (group.IsEmpty() ? "-" : ToText(group).ToUtf8());
            }
            if (groups->Count() > 0) all += ")";
        }
        return all;
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(error.number());
    }
}

struct SearchCase {
    const char16_t* pattern;
    const char* flags;
    const char16_t* text;
    const char* found;
};

void CheckSearches(const std::vector<SearchCase>& cases) {
    for (const SearchCase& c : cases) {
        EXPECT_EQ(Found(c.pattern, c.flags, c.text), c.found)
            << Text(c.pattern).ToUtf8() << " in " << Text(c.text).ToUtf8();
    }
}

TEST(RegExp, FindsWhatThePatternSays) {
    CheckSearches({
        {u"b+", "", u"abbcbb", "1:bb"},
        {u"b+", "g", u"abbcbb", "1:bb 4:bb"},
        {u"B", "", u"abc", ""},
        {u"B", "i", u"abc", "1:b"},
        {u"(\\d+)-(\\d+)", "g", u"1-22 333-4", "0:1-22(1,22) 5:333-4(333,4)"},
        {u"(a)|(b)", "g", u"ab", "0:a(a,-) 1:b(-,b)"},
        {u"a.c", "g", u"abc a\nc a\rc", "0:abc 8:a\rc"},
        {u"^.", "g", u"ab\ncd", "0:a"},
        {u"^.", "gm", u"ab\ncd\ref", "0:a 3:c 6:e"},
        {u".$", "g", u"ab\ncd\n", ""},
        {u"\\w$", "gm", u"ab\rcd\n", "1:b 4:d"},
        {u"$", "", u"ab\n", "3:"},
        {u"\\bo", "g", u"on to of", "0:o 6:o"},
        {u"\\Bo", "g", u"on to of", "4:o"},
        {u"<.+?>", "g", u"<a><b>", "0:<a> 3:<b>"},
        {u"a{2}", "", u"aaa", "0:aa"},
        {u"a{2,}", "", u"aaaa", "0:aaaa"},
        {u"a{1,2}?", "g", u"aaa", "0:a 1:a 2:a"},
        {u"x(?=y)", "g", u"xz xy", "3:x"},
        {u"x(?!y)", "g", u"xy xz", "3:x"},
        {u"(?:ab)+", "", u"ababa", "0:abab"},
        {u"(a)(?:b)(c)", "", u"abc", "0:abc(a,c)"},
        {u"(.)\\1", "g", u"abba", "1:bb(b)"},
        {u"(a)?b\\1", "", u"b", "0:b(-)"},
        {u"", "g", u"ab", "0: 1: 2:"},
        {u"a*", "g", u"baac", "0: 1:aa 3: 4:"},
        {u"x", "g", u"", ""},
        {u"\\0", "", u"", ""},
        {u"\\s+", "g", u"a \t\n\v\f\rb\u00A0c", "1: \t\n\v\f\r"},
        {u"\\S\\D\\W", "", u"1 é", "0:1 é"},
    });
}

TEST(RegExp, ReadsEscapesAndClasses) {
    CheckSearches({
        {u"[a-c]+", "", u"xabcx", "1:abc"},
        {u"[^a-c]+", "", u"abxyc", "2:xy"},
        {u"[]", "", u"]", ""},
        {u"[^]", "g", u"]\n", "0:] 1:\n"},
        {u"[\\]]", "", u"]", "0:]"},
        {u"[-a]+", "", u"b-a", "1:-a"},
        {u"[a-]+", "", u"b-a", "1:-a"},
        {u"[\\d.]+", "", u"a1.5", "1:1.5"},
        {u"[\\w-]+", "", u" a-b_9 ", "1:a-b_9"},
        {u"[a-\\d]+", "", u"x-1a", "1:-1a"},
        {u"[^\\W]+", "", u"-ab", "1:ab"},
        {u"[\\D]+", "", u"1ab2", "1:ab"},
        {u"[\\S]", "", u" \tx", "2:x"},
        {u"[\\b]", "", u"a\b", "1:\b"},
        {u"[[:alpha:]]", "", u"x:]", "1::]"},
        {u"[\\x41-\\u0043]+", "", u"xABCD", "1:ABC"},
        {u"\\x41\\u0042", "", u"AB", "0:AB"},
        {u"\\x4g\\u12", "", u"x4gu12", "0:x4gu12"},
        {u"\\cJ", "", u"a\n", "1:\n"},
        {u"\\c1", "", u"c1", "0:c1"},
        {u"\\t\\v\\f\\r\\n", "", u"\t\v\f\r\n", "0:\t\v\f\r\n"},
        {u"\\101\\60", "", u"A0", "0:A0"},
        {u"\\777", "", u"?7", "0:?7"},
        {u"(a)\\11", "", u"aa1", "0:aa1(a)"},
        {u"\\1(a)", "",
         u"\x01"
         u"a",
         "0:\x01"
         "a(a)"},
        {u"\\8", "", u"8", "0:8"},
        {u"\\.\\*\\\\\\/\\-", "", u".*\\/-", "0:.*\\/-"},
        {u"{a", "", u"{a", "0:{a"},
        {u"a{,2}", "", u"a{,2}", "0:a{,2}"},
        {u"a{1", "", u"a{1", "0:a{1"},
        {u"]}", "", u"]}", "0:]}"},
        // Other libraries' signs are nothing special here.
        {u"\\Aa\\z", "", u"Aaz", "0:Aaz"},
        {u"\\Qa.\\E", "", u"QaxE", "0:QaxE"},
        {u"\\pL\\R\\h\\K", "", u"pLRhK", "0:pLRhK"},
        {u"a#b c", "", u"a#b c", "0:a#b c"},
        {u"\\g1\\k", "", u"g1k", "0:g1k"},
    });
    EXPECT_EQ(Found(u"\\0\\x00[\\0]", "", Text::Repeat(3, u'\0')), std::string("0:\0\0\0", 5));
}

TEST(RegExp, IgnoresTheCaseOfAllLetters) {
    CheckSearches({
        {u"größe", "i", u"GRÖSSE GRÖßE", "7:GRÖßE"},
        {u"[à-ö]+", "gi", u"ÀÖ", "0:ÀÖ"},
        {u"ж", "i", u"Ж", "0:Ж"},
        {u"(.)\\1", "i", u"äÄ", "0:äÄ(ä)"},
        {u"[^ä]", "i", u"Äx", "1:x"},
        // Whatever the pattern, the sets and the ends of words know ASCII only.
        {u"ä\\b", "gi", u"ä x", ""},
        {u"ä\\B", "gi", u"Ä x", "0:Ä"},
        {u"ü|\\w+", "gi", u"éaÉÜ", "1:a 3:Ü"},
        {u"ü|\\d", "gi",
         u"\u0663"
         u"1",
         "1:1"},
        {u"ü|\\W", "gi", u"aé", "1:é"},
        // The Kelvin sign folds to "k" in Unicode, but letters of ASCII stand among themselves.
        {u"k", "i", u"\u212A", ""},
        {u"[a-z]", "i", u"\u017F", ""},
    });
}

TEST(RegExp, RaisesForWrongPatterns) {
    const struct {
        const char16_t* pattern;
        const char* error;
    } cases[] = {
        {u"*a", "error 5018"},    {u"a**", "error 5018"},     {u"a++", "error 5018"},
        {u"|*", "error 5018"},    {u"(?<n>a)", "error 5018"}, {u"(?i)a", "error 5018"},
        {u"(?>a)", "error 5018"}, {u"(*UTF)a", "error 5018"}, {u"^*", "error 5018"},
        {u"\\b+", "error 5018"},  {u"a{1}{2}", "error 5018"}, {u"{1}", "error 5018"},
        {u"(?", "error 5018"},    {u"a???", "error 5018"},    {u"[a", "error 5019"},
        {u"[", "error 5019"},     {u"[a\\", "error 5019"},    {u"[]a", ""},
        {u"(a", "error 5020"},    {u"((a)", "error 5020"},    {u"a)", "error 5017"},
        {u"a\\", "error 5017"},   {u"a{3,2}", "error 5017"},  {u"[z-a]", "error 5021"},
        {u"[\\d-\\x01]", ""},     {u"a{1,70000}", "error 7"}, {u"a{99999}", "error 7"},
    };
    for (const auto& [pattern, error] : cases) {
        EXPECT_EQ(Found(pattern, "", u"x"), error) << Text(pattern).ToUtf8();
    }
    // Nothing looks at the pattern before it is used.
    TestContext context;
    const Ref<IRegExp> regex = Make(context, u"a");
    regex->let_Pattern(u"(");
    EXPECT_EQ(regex->get_Pattern(), u"(");
    EXPECT_THROW(regex->Test(u"x"), RuntimeError);
    regex->let_Pattern(u"x");
    EXPECT_TRUE(regex->Test(u"x"));
    regex->let_IgnoreCase(true);
    EXPECT_TRUE(regex->Test(u"X"));
}

TEST(RegExp, BoundsPatternsOfAnySize) {
    const auto error = [](const std::u16string& pattern) { return Found(pattern.c_str(), "", u"x"); };
    EXPECT_EQ(error(std::u16string(200, u'(') + std::u16string(200, u')')).substr(0, 2), "0:");
    EXPECT_EQ(error(std::u16string(5000, u'(') + std::u16string(5000, u')')), "error 28");
    EXPECT_EQ(error(std::u16string(70000, u'a')), "error 7");
    EXPECT_EQ(error(std::u16string(60000, u'a')), "error 7");
    EXPECT_EQ(error(u"((a{1000}){1000}){1000}"), "error 7");
    std::u16string stars;
    for (int i = 0; i < 3000; ++i) {
        stars += u"a*";
    }
    EXPECT_EQ(error(stars), "0:");
}

TEST(RegExp, Replaces) {
    const struct {
        const char16_t* pattern;
        const char* flags;
        const char16_t* text;
        Variant replacement;
        const char16_t* result;
    } cases[] = {
        {u"fox", "i", u"The FOX", u"cat", u"The cat"},
        {u"a", "", u"aaa", u"b", u"baa"},
        {u"a", "g", u"aaa", u"b", u"bbb"},
        {u"x", "g", u"aaa", u"b", u"aaa"},
        {u"(\\S+)(\\s+)(\\S+)", "", u"one two three", u"$3$2$1", u"two one three"},
        {u"b", "", u"abc", u"[$&|$`|$'|$$]", u"a[b|a|c|$]c"},
        {u"(b)", "", u"abc", u"$2$x$0$", u"a$2$x$0$c"},
        {u"(b)(x)?", "", u"abc", u"<$1$2>", u"a<b>c"},
        {u"(b)", "", u"abc", u"$10|$01|$11", u"ab0|b|b1c"},
        {u"(.)(.)(.)(.)(.)(.)(.)(.)(.)(.)", "", u"abcdefghij", u"$10$1", u"ja"},
        {u"", "g", u"ab", u"-", u"-a-b-"},
        {u"a*", "g", u"baac", u"-", u"-b--c-"},
        {u"$", "", u"ab", u"!", u"ab!"},
        {u"b", "", u"abc", u"", u"ac"},
        {u".", "g", u"abc", u"", u""},
        {u"1", "", u"a1", 25, u"a25"},
    };
    for (const auto& [pattern, flags, text, replacement, result] : cases) {
        TestContext context;
        EXPECT_EQ(Make(context, pattern, flags)->Replace(text, replacement).ToUtf8(), Text(result).ToUtf8())
            << Text(pattern).ToUtf8();
    }
    TestContext context;
    EXPECT_EQ(Make(context, u"b")->Replace(u"abc", Held(u"-")), u"a-c");
    EXPECT_THROW(Make(context, u"b")->Replace(u"abc", kNull), RuntimeError);
}

/// Stands for what GetRef of the language gives.
class ScriptFunction final : public Object<ScriptFunction, Facet<IHolder>> {
public:
    static constexpr const char* kClassName = "Function";
    const InterfaceInfo* GetTypeInfo() const noexcept override { return nullptr; }
    Variant Value() override { return 0; }
};

TEST(RegExp, ReplacesByAProcedure) {
    auto context = std::make_unique<TestContext>();
    const Ref<IRegExp> regex = Make(*context, u"(b)(x)?", "g");
    const Variant function = MakeObject<ScriptFunction>();
    EXPECT_EQ(regex->Replace(u"abcb", function).ToUtf8(), "a<b,b,-,1,abcb>c<b,b,-,3,abcb>");
    // The object lives on when its engine is gone; only the procedure cannot run.
    context.reset();
    EXPECT_TRUE(regex->Test(u"abc"));
    EXPECT_EQ(regex->Replace(u"abc", u"-"), u"a-c");
    EXPECT_THROW(regex->Replace(u"abc", function), RuntimeError);
}

TEST(RegExp, ShowsItselfByName) {
    TestContext context;
    EXPECT_FALSE(NewBuiltinObject(u"Dictionary", context));
    const Ref<IDispatch> regex = NewBuiltinObject(u"regexp", context);
    ASSERT_TRUE(regex);
    EXPECT_EQ(TypeNameOf(regex), u"IRegExp2");
    const auto let = [&](std::u16string_view name, Variant value) {
        CallByName(regex.get(), name, CallKind::Let, {&value, 1});
    };
    EXPECT_EQ(Describe(CallByName(regex.get(), u"Global", CallKind::Get)), "Boolean False");
    EXPECT_EQ(Describe(CallByName(regex.get(), u"Pattern", CallKind::Get)), "String ");
    let(u"pattern", u"(\\w)(\\d)?");
    let(u"GLOBAL", true);
    let(u"multiline", 1);
    let(u"IgnoreCase", u"True");
    Variant text(u"a1 b");
    EXPECT_EQ(Describe(CallByName(regex.get(), u"Test", CallKind::Call, {&text, 1})), "Boolean True");
    const Variant matches = CallByName(regex.get(), u"Execute", CallKind::Call, {&text, 1});
    EXPECT_EQ(TypeNameOf(matches), u"IMatchCollection2");
    EXPECT_EQ(Describe(CallByName(matches.AsObject(), u"Count", CallKind::Get)), "Long 2");

    std::string all;
    const Ref<IEnumVariant> enumerator = Enumerate(matches.AsObject());
    for (Variant match; enumerator->Next(match);) {
        EXPECT_EQ(TypeNameOf(match), u"IMatch2");
        const Variant groups = CallByName(match.AsObject(), u"SubMatches", CallKind::Get);
        EXPECT_EQ(TypeNameOf(groups), u"ISubMatches");
        all += ToText(match).ToUtf8() + ":";
        const Ref<IEnumVariant> groupEnumerator = Enumerate(groups.AsObject());
        for (Variant group; groupEnumerator->Next(group);) {
            all += Describe(group) + ";";
        }
    }
    EXPECT_EQ(all, "a1:String a;String 1;b:String b;Empty;");
    enumerator->Reset();
    Variant first;
    EXPECT_TRUE(enumerator->Next(first));

    for (const int index : {-1, 2}) {
        Variant wrong(index);
        Arguments arguments{{&wrong, 1}};
        EXPECT_THROW(matches.AsObject()->Invoke(kDispIdValue, CallKind::Get, arguments), RuntimeError);
        const Variant groups = CallByName(first.AsObject(), u"SubMatches", CallKind::Get);
        EXPECT_THROW(CallByName(groups.AsObject(), u"Item", CallKind::Get, {&wrong, 1}), RuntimeError);
    }
}

}  // namespace
}  // namespace ov::vbscript
