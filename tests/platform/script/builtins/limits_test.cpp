#include "platform/automation/memory_account.h"
#include "platform/script/builtins/builtin_call.h"
#include "platform/script/vbscript/builtins/regexp_object.h"

namespace ov::vbscript {
namespace {

using namespace testing;

constexpr const char* kTimeIsOver = "error 99";

Text Long(std::size_t count, char16_t c = u'a') {
    return Text::Repeat(count, c);
}

// A function that does not look at the time would take this test for ever, or for as long as its work takes; each of
// these would go on for much more than the checks that it is given.
TEST(BuiltinLimits, TimeEndsEveryFunctionThatCanRunLong) {
    const Text text = Long(400'000);
    const Text almost = Long(200'000) + u"b";
    // Each second place begins like this one, which is not there.
    const Text pairs = ReplaceAll(Long(200'000), u"a", u"ab");
    const Text almostPairs = ReplaceAll(Long(100'000), u"a", u"ab") + u"aab";
    const Variant list = Array::OfVariants(std::vector<Variant>(200'000, Variant(u"abc")));
    const std::vector<CallCase> cases = {
        {u"String", {100'000'000, u"x"}, kTimeIsOver},
        {u"Space", {100'000'000}, kTimeIsOver},
        {u"LCase", {text}, kTimeIsOver},
        {u"InStr", {pairs, almostPairs}, kTimeIsOver},
        {u"InStr", {1, text, almost, 1}, kTimeIsOver},
        {u"InStrRev", {text, u"b" + Long(200'000)}, kTimeIsOver},
        {u"InStrB", {text, almost}, kTimeIsOver},
        {u"Replace", {text, u"a", u"b"}, kTimeIsOver},
        {u"Replace", {pairs, almostPairs, u"b"}, kTimeIsOver},
        {u"Split", {text, u"a"}, kTimeIsOver},
        {u"Join", {list, u","}, kTimeIsOver},
        {u"Filter", {list, u"c"}, kTimeIsOver},
        {u"Escape", {text}, kTimeIsOver},
        {u"Unescape", {text}, kTimeIsOver},
    };
    for (const CallCase& c : cases) {
        TestContext context;
        context.timeLimit = 20;
        EXPECT_EQ(Call(context, c.name, c.arguments), c.result) << Text(c.name).ToUtf8();
        EXPECT_EQ(context.checks, 20);
    }
}

TEST(BuiltinLimits, MemoryEndsEveryFunctionThatGrows) {
    const Text text = Long(400'000);
    const Variant list = Array::OfVariants(std::vector<Variant>(1000, Variant(text)));
    const std::vector<CallCase> cases = {
        {u"String", {1 << 30, u"x"}, "error 7"},
        {u"Space", {std::numeric_limits<std::int32_t>::max()}, "error 14"},
        {u"Replace", {text, u"a", text}, "error 7"},
        {u"Replace", {text, u"a", Long(20)}, "error 7"},
        {u"Split", {Long(1'000'000, u','), u","}, "error 7"},
        {u"Join", {list, u","}, "error 7"},
        {u"Escape", {Long(4'000'000, u'€')}, "error 7"},
        {u"UCase", {Long(8'000'000)}, "error 7"},
    };
    for (const CallCase& c : cases) {
        const MemoryAccount::Limit limit(10'000'000);
        EXPECT_EQ(Call(c.name, c.arguments), c.result) << Text(c.name).ToUtf8();
    }
}

std::string Outcome(TestContext& context, const Text& pattern, const Text& text) {
    const Ref<IRegExp> regex = MakeRegExp(context.LinkHere());
    regex->let_Pattern(pattern);
    regex->let_Global(true);
    try {
        return std::to_string(regex->Execute(text)->Count());
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(error.number());
    }
}

TEST(BuiltinLimits, TimeEndsASearchWithinOneMatch) {
    // Each ends in a set of characters: the library looks for a single last character before it searches.
    const struct {
        Text pattern;
        Text text;
    } cases[] = {
        {u"(a+)+[bc]", Long(100)},
        {u"(a|a)*[bc]", Long(100)},
        {u"(?:a*)*[bc]", Long(100)},
        {u"a*a*a*a*a*[bc]", Long(2000)},
        {u"(.*)\\1\\1[bc]", Long(9000)},
        {u".*.*.*[xy]", Long(2000)},
        {u"a?a?a?a?[bc]|a*[bc]", Long(20'000)},
        {u"(?=a*[bc])", Long(40'000)},
        {u"a", Long(400'000)},
    };
    for (const auto& [pattern, text] : cases) {
        TestContext context;
        context.timeLimit = 50;
        EXPECT_EQ(Outcome(context, pattern, text), kTimeIsOver) << pattern.ToUtf8();
        EXPECT_EQ(context.checks, 50);
    }
}

TEST(BuiltinLimits, AnExpressionIsBoundedWithoutAnEngine) {
    auto context = std::make_unique<TestContext>();
    const Ref<IRegExp> regex = MakeRegExp(context->LinkHere());
    context.reset();
    const auto outcome = [&](const Text& pattern, const Text& text) -> std::int32_t {
        try {
            regex->let_Pattern(pattern);
            return regex->Test(text) ? 1 : 0;
        } catch (const RuntimeError& error) {
            return error.number();
        }
    };
    EXPECT_EQ(outcome(u"(a|a)*[bc]", Long(100)), 51);
    EXPECT_EQ(outcome(u"(?:a|b)*$", Long(3'000'000)), 7);
    EXPECT_EQ(outcome(u"(?:a|b)*$", Long(10'000)), 1);
}

TEST(BuiltinLimits, MatchesAreAccounted) {
    TestContext context;
    const Text text = Long(1'000'000);
    const MemoryAccount::Limit limit(1'000'000);
    EXPECT_EQ(Outcome(context, u"", text), "error 7");
}

TEST(BuiltinLimits, ObjectsAreAccounted) {
    TestContext context;
    std::vector<Ref<IDispatch>> kept;
    const MemoryAccount::Limit limit(1'000'000);
    const auto keepMany = [&](auto make) {
        kept.clear();
        try {
            for (int i = 0; i < 100'000; ++i) {
                kept.push_back(make());
            }
        } catch (const RuntimeError& error) {
            return error.number();
        }
        return std::int32_t{0};
    };
    EXPECT_EQ(keepMany([&] { return NewBuiltinObject(u"RegExp", context); }), 7);
    EXPECT_EQ(keepMany([&] {
                  const Ref<IRegExp> regex = MakeRegExp(context.LinkHere());
                  regex->let_Pattern(u"(a|b){1,50}");
                  regex->Test(u"a");
                  return regex;
              }),
              7);
    EXPECT_LT(kept.size(), 1000u);  // the compiled expressions count, too
    kept.clear();
    const Ref<IRegExp> regex = MakeRegExp(context.LinkHere());
    EXPECT_EQ(keepMany([&] { return regex->Execute(u"a"); }), 7);
    kept.clear();
    const Ref<IMatches> matches = regex->Execute(u"a");
    EXPECT_EQ(keepMany([&] { return matches->Item(0); }), 7);
    EXPECT_EQ(keepMany([&] { return matches->Item(0)->SubMatches(); }), 7);
    EXPECT_EQ(keepMany([&] { return matches->NewEnum(); }), 7);
    kept.clear();
    EXPECT_TRUE(regex->Test(u"a"));
}

TEST(BuiltinLimits, WhatWasTakenIsReturned) {
    const Text text = Long(100'000, u',');
    const MemoryAccount::Limit limit(8'000'000);
    TestContext context;
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(Call(u"Split", {text, u","}).size(), 100'001 * 7 + 100'000 * 2 + 2u);
        EXPECT_EQ(Outcome(context, u",", text), "100000");
    }
}

}  // namespace
}  // namespace ov::vbscript
