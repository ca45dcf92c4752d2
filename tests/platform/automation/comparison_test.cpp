#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/automation/operators.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

/// "<", "=", ">", "Null" or the error. Both directions must agree.
std::string Order(const Variant& a, const Variant& b, LiteralSide literal = LiteralSide::None) {
    try {
        const auto order = Compare(a, b, literal);
        const auto reversed = Compare(b, a, literal);
        EXPECT_EQ(order.has_value(), reversed.has_value());
        if (!order) return "Null";
        EXPECT_TRUE(*order == 0 <=> *reversed);
        return *order < 0 ? "<" : *order > 0 ? ">" : "=";
    } catch (const RuntimeError& error) {
        return std::string("error ").append(std::to_string(error.number()));
    }
}

struct Case {
    Variant a;
    Variant b;
    const char* expected;
};

void Expect(std::initializer_list<Case> cases, LiteralSide literal = LiteralSide::None) {
    for (const Case& c : cases) {
        EXPECT_EQ(Order(c.a, c.b, literal), c.expected) << Describe(c.a) << ", " << Describe(c.b);
    }
}

void Expect(std::string_view cases, LiteralSide literal = LiteralSide::None) {
    ExpectPairs(cases, [&](const Variant& a, const Variant& b) { return Order(a, b, literal); });
}

const Variant kFive(std::int16_t{5});

TEST(ComparisonTest, NumbersOfAllTypes) {
    const double infinity = std::numeric_limits<double>::infinity();
    Expect(
        "L5, I5 -> =; L-1, B1 -> =; Y255, B1 -> >; D5.5, I5 -> >; T5, I5 -> =; S0.1, D0.1 -> =; "
        "L16777217, S16777216.0 -> >; C1.0001, D1.00014 -> =; C1, D1e300 -> <; C5, L5 -> =; C5, T5.00001 -> <; "
        "M0.1, D0.1 -> =; M5, C5.0001 -> <; M5, D1e300 -> <");
    Expect({{Decimal(5), -infinity, ">"},
            {std::nan(""), -infinity, "<"},
            {std::nan(""), std::nan(""), "="},
            {Decimal(5), std::nan(""), ">"}});
}

TEST(ComparisonTest, EmptyAndNull) {
    Expect(
        "E, I5 -> <; E, D0 -> =; E, $ -> =; E, $a -> <; E, B0 -> =; E, E -> =; N, N -> Null; N, $a -> Null; "
        "E, N -> Null");
    Expect({{Variant::Null(), Variant(ValueObject::WithoutDefault()), "Null"}});
    EXPECT_FALSE(EqualValues(Variant::Null(), Variant::Null()));
    EXPECT_TRUE(EqualValues(Variant(), std::int32_t{0}));
}

TEST(ComparisonTest, TextsByCharacterCode) {
    Expect("$a, $B -> >; $a, $a -> =; $a, $aa -> <; $ä, $z -> >; $10, $9 -> <");
}

TEST(ComparisonTest, TextBesideNumberDependsOnTheLiteral) {
    Expect("$5, I5 -> >; $, L-5 -> >; $5, B1 -> >; $5, T9 -> >");
    Expect(
        "$5, I5 -> =; $ 5.0 , D5 -> =; $&HFF, L255 -> =; $10, I5 -> >; $abc, I5 -> error 13; $, I5 -> error 13; "
        "$1e400, I5 -> error 6; $a, $b -> <; E, I5 -> <; N, I5 -> Null",
        LiteralSide::Number);
    Expect("$5, I5 -> =; $10, I5 -> <; $5.0, I5 -> >; $True, B1 -> =; $, E -> =", LiteralSide::Text);
    ScopedLocale german("de-DE");
    Expect("$1,5, D1.5 -> =", LiteralSide::Text);
    Expect("$1,5, D1.5 -> =", LiteralSide::Number);
}

TEST(ComparisonTest, ObjectsAndWhatHasNoValue) {
    const Variant object(ValueObject::Of(kFive));
    Expect({{object, kFive, "="},
            {object, u"5", "<"},
            {Variant::Nothing(), kFive, "error 91"},
            {Array(), kFive, "error 13"},
            {Array(), Array(), "error 13"},
            {ErrorCode{5}, u"a", "error 13"},
            {Variant::Missing(), kFive, "error 448"}});
    EXPECT_FALSE(EqualValues(u"5", kFive));
    EXPECT_TRUE(EqualValues(5.0, object));
}

}  // namespace
}  // namespace ov
