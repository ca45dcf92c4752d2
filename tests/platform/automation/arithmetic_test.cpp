#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "platform/automation/operators.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

using Operator = Variant (*)(const Variant&, const Variant&);

struct Case {
    Variant a;
    Variant b;
    const char* expected;
};

void Expect(Operator operation, std::initializer_list<Case> cases) {
    for (const Case& c : cases) {
        EXPECT_EQ(Outcome([&] { return operation(c.a, c.b); }), c.expected) << Describe(c.a) << ", " << Describe(c.b);
    }
}

// One value of each type, all worth 2; each row of a table is the left operand.
const Variant kTwos[] = {Value("Y2"), Value("I2"), Value("L2"), Value("S2"), Value("D2"),
                         Value("$2"), Value("C2"), Value("T2"), Value("M2")};

void ExpectTypes(Operator operation, std::initializer_list<const char*> rows, const char* result) {
    const std::pair<char, const char*> names[] = {{'Y', "Byte "},   {'I', "Integer "}, {'L', "Long "},
                                                  {'S', "Single "}, {'D', "Double "},  {'C', "Currency "},
                                                  {'T', "Date "},   {'M', "Decimal "}, {'$', "String "}};
    const Variant* left = kTwos;
    for (const char* row : rows) {
        for (const Variant& right : kTwos) {
            const auto* name = std::ranges::find(names, *row++, &std::pair<char, const char*>::first);
            const bool joined = name->first == '$';
            EXPECT_EQ(Describe(operation(*left, right)), std::string(name->second) + (joined ? "22" : result))
                << Describe(*left) << ", " << Describe(right);
        }
        ++left;
    }
}

TEST(ArithmeticTest, ResultTypesFollowTheTables) {
    ExpectTypes(Add,
                {"YILSDDCTM", "IILSDDCTM", "LLLDDDCTM", "SSDSDDCTM", "DDDDDDCTM", "DDDDD$CTM", "CCCCCCCTM", "TTTTTTTTT",
                 "MMMMMMMTM"},
                "4");
    ExpectTypes(Multiply,
                {"YILSDDCDM", "IILSDDCDM", "LLLDDDCDM", "SSDSDDDDM", "DDDDDDDDM", "DDDDDDDDM", "CCCDDDCDM", "DDDDDDDDM",
                 "MMMMMMMMM"},
                "4");
    ExpectTypes(Divide,
                {"DDDSDDDDM", "DDDSDDDDM", "DDDDDDDDM", "SSDSDDDDM", "DDDDDDDDM", "DDDDDDDDM", "DDDDDDDDM", "DDDDDDDDM",
                 "MMMMMMMMM"},
                "1");
    ExpectTypes(IntegerDivide,
                {"YILLLLLLL", "IILLLLLLL", "LLLLLLLLL", "LLLLLLLLL", "LLLLLLLLL", "LLLLLLLLL", "LLLLLLLLL", "LLLLLLLLL",
                 "LLLLLLLLL"},
                "1");
}

TEST(ArithmeticTest, WholeNumbersWiden) {
    ExpectResults(
        Add,
        "I32767, I1 -> Long 32768; Y255, Y1 -> Integer 256; L2147483647, I1 -> Double 2147483648; "
        "I32767, L1 -> Long 32768; I1, L1 -> Long 2; B1, B1 -> Integer -2; E, E -> Integer 0; E, Y7 -> Byte 7");
    ExpectResults(Subtract, "Y1, Y2 -> Integer -1; L-2147483648, L1 -> Double -2147483649; I-32768, I1 -> Long -32769");
    ExpectResults(Multiply,
                  "Y255, Y255 -> Long 65025; Y16, Y16 -> Integer 256; I256, I256 -> Long 65536; "
                  "L65536, L65536 -> Double 4294967296");
    const auto negate = [](const Text& form) { return Outcome([&] { return Negate(Value(form.ToUtf8())); }); };
    ExpectEach(
        "I-32768 -> Long 32768; L-2147483648 -> Double 2147483648; Y1 -> Integer -1; B1 -> Integer 1; "
        "E -> Integer 0; $5 -> Double -5; S1.5 -> Single -1.5; C-922337203685477.5808 -> error 6; "
        "C1.5 -> Currency -1.5; T1.5 -> Date -1.5; M5 -> Decimal -5; N -> Null; $abc -> error 13",
        negate);
    const auto identity = [](const Text& form) { return Outcome([&] { return Identity(Value(form.ToUtf8())); }); };
    ExpectEach("$5 -> Double 5; Y1 -> Byte 1; B1 -> Integer -1; E -> Integer 0; N -> Null; $abc -> error 13", identity);
    EXPECT_EQ(ErrorOf([] { Negate(Variant::Nothing()); }), 91);
    EXPECT_EQ(ErrorOf([] { Negate(Array()); }), 13);
    EXPECT_EQ(ErrorOf([] { Identity(Array()); }), 13);
}

TEST(ArithmeticTest, FloatingNumbersOverflow) {
    ExpectResults(Add, "D1.7e308, D1.7e308 -> error 6; S3e38, S3e38 -> Double 6.00000001099551E+38");
    ExpectResults(Multiply, "D1e200, D1e200 -> error 6; D1e200, $1e200 -> error 6; D1e-200, D1e-200 -> Double 0");
    ExpectResults(
        Divide,
        "I1, I0 -> error 11; I0, I0 -> error 6; D0, E -> error 6; M1, M0 -> error 11; M0, I0 -> error 6; "
        "D1e300, D1e-300 -> error 6; I1, I4 -> Double 0.25; S1.0, S3.0 -> Single 0.3333333; M1, D8 -> Decimal 0.125");
    const double infinity = std::numeric_limits<double>::infinity();
    Expect(Add, {{infinity, 1.0, "Double 1.#INF"}});  // it did not come from here
}

TEST(ArithmeticTest, AmountsDatesAndDecimals) {
    ExpectResults(
        Add,
        "C1, D0.00005 -> Currency 1; C922337203685477.5807, C0.0001 -> error 6; C0.0001, D1e30 -> error 6; "
        "T1, D0.5 -> Date 1.5; T2958465, I1 -> Double 2958466; M1, $0.1 -> Decimal 1.1; M1, D1e30 -> error 6");
    ExpectResults(Subtract,
                  "C-922337203685477.5808, C0.0001 -> error 6; M1, $0.1 -> Decimal 0.9; D2.5, D1 -> Double 1.5; "
                  "T3, T1 -> Double 2; I3, T1 -> Date 2; T3, L1 -> Date 2");
    ExpectResults(Multiply,
                  "C1.5, C1.5001 -> Currency 2.2502; C0.5, C0.0001 -> Currency 0; C-1.5, C0.0001 -> Currency -0.0002; "
                  "C922337203685477.5807, I2 -> error 6; C1.5, D1.5 -> Double 2.25");
}

TEST(ArithmeticTest, IntegerDivisionRoundsItsOperands) {
    ExpectResults(
        IntegerDivide,
        "D5.5, D2.5 -> Long 3; I-7, I2 -> Integer -3; I-32768, I-1 -> Long 32768; L-2147483648, L-1 -> error 6; "
        "I7, D0.5 -> error 11; D1e10, I0 -> error 6; N, I0 -> Null; D1e10, N -> Null; $abc, N -> Null; "
        "$abc, I0 -> error 13");
    ExpectResults(Modulo,
                  "D6.5, I4 -> Long 2; I-7, I2 -> Integer -1; Y7, Y4 -> Byte 3; L-2147483648, L-1 -> Long 0; "
                  "D2147483648, I2 -> error 6; I7, I0 -> error 11");
}

TEST(ArithmeticTest, Powers) {
    ExpectResults(
        Power,
        "I2, I10 -> Double 1024; I-2, I3 -> Double -8; I-8, D0.5 -> error 5; I0, I-1 -> error 5; I0, I0 -> Double 1; "
        "D10, D400 -> error 6; M2, C0.5 -> Double 1.4142135623731; N, $x -> Null");
}

TEST(ArithmeticTest, TextsJoinOrAdd) {
    ExpectResults(
        Add,
        "$a, $b -> String ab; $1, $2 -> String 12; $1, I2 -> Double 3; $abc, I2 -> error 13; $abc, E -> String abc; "
        "E, $abc -> String abc; $5, B1 -> Double 4; $a, N -> Null");
    ExpectResults(Concatenate,
                  "$a, I1 -> String a1; N, $b -> String b; N, N -> Null; E, E -> String ; B1, D1.5 -> String True1.5");
    Expect(Concatenate, {{u"a", ErrorCode{5}, "error 13"}, {u"a", Array(), "error 13"}});
}

TEST(ArithmeticTest, ObjectsStandForTheirValues) {
    const Variant five(ValueObject::Of(Variant(std::int16_t{5})));
    const Variant bare(ValueObject::WithoutDefault());
    Expect(Add, {{five, five, "Integer 10"},
                 {bare, Value("I1"), "error 438"},
                 {Variant::Nothing(), bare, "error 91"},  // left before right

                 {bare, Variant::Nothing(), "error 438"},
                 {bare, Variant::Null(), "Null"},
                 {Variant::Missing(), Value("I1"), "error 448"},
                 {ErrorCode{1}, Value("I1"), "error 13"},
                 {Array(), Value("I1"), "error 13"}});
    Expect(Concatenate, {{five, u"!", "String 5!"}});
    EXPECT_EQ(Describe(Negate(five)), "Integer -5");
}

}  // namespace
}  // namespace ov
