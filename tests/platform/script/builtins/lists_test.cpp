#include "platform/script/builtins/builtin_call.h"

namespace ov::vbscript {
namespace {

using namespace testing;

Variant List(std::vector<Variant> elements) {
    return Array::OfVariants(std::move(elements));
}

Variant Grid() {
    const std::array bounds = {ArrayBound{0, 3}, ArrayBound{-1, 4}};
    return Array(VarType::Empty, bounds);
}

TEST(ListBuiltins, MakeAndMeasureArrays) {
    CheckCalls({
        {u"Array", {}, "[]"},
        {u"Array", {1, u"a", kNull, Variant()}, "[Long 1, String a, Null, Empty]"},
        {u"Array", std::vector<Variant>(2, List({1})), "[[Long 1], [Long 1]]"},
        {u"UBound", {List({1, 2, 3})}, "Long 2"},
        {u"LBound", {List({1, 2, 3})}, "Long 0"},
        {u"UBound", {List({})}, "Long -1"},
        {u"UBound", {Grid(), 2}, "Long 2"},
        {u"LBound", {Grid(), 2}, "Long -1"},
        {u"UBound", {Grid(), 3}, "error 9"},
        {u"UBound", {Grid(), 0}, "error 9"},
        {u"UBound", {Grid(), -1}, "error 9"},
        {u"UBound", {Array()}, "error 9"},
        {u"UBound", {u"abc"}, "error 13"},
        {u"UBound", {Variant()}, "error 13"},
        {u"LBound", {Array::OfBytes({1, 2}, 5)}, "Long 5"},
    });
    EXPECT_EQ(Call(u"Array", std::vector<Variant>(1000, Variant(1))).size(), 1000 * 6 + 999 * 2 + 2u);
}

TEST(ListBuiltins, Split) {
    CheckCalls({
        {u"Split", {u"a b c"}, "[String a, String b, String c]"},
        {u"Split", {u"a,,b,", u","}, "[String a, String , String b, String ]"},
        {u"Split", {u"a--b--c", u"--", 2}, "[String a, String b--c]"},
        {u"Split", {u"aXbxc", u"x", -1, 1}, "[String a, String b, String c]"},
        {u"Split", {u"aXbxc", u"x"}, "[String aXb, String c]"},
        {u"Split", {u"abc", u""}, "[String abc]"},
        {u"Split", {u"abc", u",", 1}, "[String abc]"},
        {u"Split", {u"a,b", u",", 1}, "[String a,b]"},
        {u"Split", {u"a,b", u",", 0}, "[]"},
        {u"Split", {u"", u","}, "[]"},
        {u"Split", {u",", u","}, "[String , String ]"},
        {u"Split", {u"a,b", kMissing, 1}, "[String a,b]"},
        {u"Split", {12321, 2}, "[String 1, String 3, String 1]"},
        {u"Split", {u"a,b", u",", -2}, "error 5"},
        {u"Split", {u"a,b", u",", -1, 3}, "error 5"},
        {u"Split", {kNull, u","}, "error 94"},
    });
}

TEST(ListBuiltins, Join) {
    CheckCalls({
        {u"Join", {List({u"a", 1, true, Variant()}), u"-"}, "String a-1-True-"},
        {u"Join", {List({u"a", u"b"})}, "String a b"},
        {u"Join", {List({u"a", u"b"}), u""}, "String ab"},
        {u"Join", {List({}), u","}, "String "},
        {u"Join", {List({Held(u"x"), u"y"}), u","}, "String x,y"},
        {u"Join", {Array::OfBytes({1, 20}), u","}, "String 1,20"},
        {u"Join", {List({u"a", kNull}), u","}, "error 13"},
        {u"Join", {List({List({1})}), u","}, "error 13"},
        {u"Join", {Grid(), u","}, "error 13"},
        {u"Join", {Array(), u","}, "error 13"},
        {u"Join", {u"abc", u","}, "error 13"},
        {u"Join", {kNull, u","}, "error 13"},
        {u"Join", {List({u"a"}), kNull}, "error 94"},
    });
}

TEST(ListBuiltins, Filter) {
    const Variant days = List({u"Sunday", u"Monday", u"Tuesday", u"on"});
    CheckCalls({
        {u"Filter", {days, u"on"}, "[String Monday, String on]"},
        {u"Filter", {days, u"on", false}, "[String Sunday, String Tuesday]"},
        {u"Filter", {days, u"S", true, 1}, "[String Sunday, String Tuesday]"},
        {u"Filter", {days, u"S"}, "[String Sunday]"},
        {u"Filter", {days, u"xyz"}, "[]"},
        {u"Filter", {days, u"", false}, "[]"},
        {u"Filter", {List({12, 21, 33}), 2}, "[String 12, String 21]"},
        {u"Filter", {List({}), u"a"}, "[]"},
        {u"Filter", {List({kNull}), u"a"}, "error 13"},
        {u"Filter", {Grid(), u"a"}, "error 13"},
        {u"Filter", {u"abc", u"a"}, "error 13"},
        {u"Filter", {kNull, u"a"}, "error 13"},
        {u"Filter", {days, u"a", true, 2}, "error 5"},
    });
}

}  // namespace
}  // namespace ov::vbscript
