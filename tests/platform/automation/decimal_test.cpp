#include "platform/automation/decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "platform/automation/rounding.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

Decimal Read(const char* digits) {
    return Decimal::Parse(Text::FromAscii(digits)).value();
}

std::string Show(const Decimal& number) {
    return Text(number.ToString()).ToUtf8();
}

constexpr const char* kGreatest = "79228162514264337593543950335";

TEST(DecimalTest, ReadsAndWritesDigits) {
    ExpectEach(
        "0 -> 0; -0.00 -> 0; 1.50 -> 1.5; -.001 -> -0.001; +12. -> 12; 1e3 -> 1000; 12345e-7 -> 0.0012345; "
        "1E-28 -> 0.0000000000000000000000000001; 4e-29 -> 0; 5e-29 -> 0; "
        "15e-29 -> 0.0000000000000000000000000002; 50001e-33 -> 0.0000000000000000000000000001; "
        "79228162514264337593543950335 -> 79228162514264337593543950335; "
        "79228162514264337593543950335.4 -> 79228162514264337593543950335; "
        "7.92281625142643375935439503355 -> 7.922816251426433759354395034; "
        "0.00000000000000000000000000000000001 -> 0; 1e-100000000 -> 0; 0e999999999 -> 0",
        [](const Text& text) { return Show(Decimal::Parse(text).value()); });
    for (const char16_t* text : {u"", u"-", u".", u"1e", u"1,5", u" 1", u"1 ", u"--1", u"1.2.3", u"1e1.5"}) {
        EXPECT_FALSE(Decimal::Parse(text)) << Text(text).ToUtf8();
    }
    for (const char* text :
         {"79228162514264337593543950336", "1e29", "79228162514264337593543950335.5", "1e100000000"}) {
        EXPECT_EQ(ErrorOf([&] { Read(text); }), 6) << text;
    }
}

TEST(DecimalTest, ConvertsToAndFromBinaryNumbers) {
    EXPECT_EQ(Show(Decimal::FromDouble(0.1)), "0.1");
    EXPECT_EQ(Show(Decimal::FromDouble(1.0 / 3)), "0.333333333333333");
    EXPECT_EQ(Show(Decimal::FromDouble(-1234567890123456789.0)), "-1234567890123460000");  // 15 digits
    EXPECT_EQ(Show(Decimal::FromSingle(0.1f)), "0.1");
    EXPECT_EQ(Show(Decimal::FromSingle(16777217.0f)), "16777220");
    EXPECT_EQ(Show(Decimal::FromDouble(1e-40)), "0");
    for (double beyond : {1e29, -1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_EQ(ErrorOf([&] { Decimal::FromDouble(beyond); }), 6) << beyond;
    }
    EXPECT_EQ(Show(Decimal(std::numeric_limits<std::int64_t>::min())), "-9223372036854775808");
    EXPECT_EQ(Read("-9223372036854775808.5").ToInt64(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(ErrorOf([] { Read("9223372036854775807.5").ToInt64(); }), 6);
    EXPECT_EQ(Read("2.5").ToInt64(), 2);
    EXPECT_EQ(Read("-3.5").ToInt64(), -4);
    for (const char* digits : {"0.1", "-123456789.123456789", "7.9228162514264337593543950335", kGreatest, "1e-28",
                               "9007199254740993", "0.000000000000000123456789"}) {
        EXPECT_EQ(Read(digits).ToDouble(), std::strtod(digits, nullptr)) << digits;
    }
}

TEST(DecimalTest, RoundsAtTheLimits) {
    const Decimal greatest = Read(kGreatest);
    const Decimal smallest = Read("1e-28");
    EXPECT_EQ(Show(greatest + smallest), kGreatest);
    EXPECT_EQ(ErrorOf([&] { greatest + Read("0.5"); }), 6);
    EXPECT_EQ(Show(greatest - Read("0.5")), "79228162514264337593543950334");  // half to even
    EXPECT_EQ(ErrorOf([&] { greatest + Decimal(1); }), 6);
    EXPECT_EQ(ErrorOf([&] { greatest* Read("1.1"); }), 6);
    EXPECT_EQ(Show(greatest * smallest), "7.9228162514264337593543950335");
    EXPECT_EQ(Show(smallest * Read("0.5")), "0");
    EXPECT_EQ(Show(smallest * Read("1.5")), "0.0000000000000000000000000002");
    EXPECT_EQ(Show(Read("2.50000000000000000001e-8") * Read("1e-20")), "0.0000000000000000000000000003");
    EXPECT_EQ(Show(greatest / Decimal(2)), "39614081257132168796771975168");  // half to even, up and down
    EXPECT_EQ(Show((greatest - Decimal(2)) / Decimal(2)), "39614081257132168796771975166");
    EXPECT_EQ(Show(greatest / greatest), "1");
    // The last digit rounds into a 97th bit.
    EXPECT_EQ(Show(Read("55459713759985036315480765235") / Decimal(7)), "7922816251426433759354395034");
    EXPECT_EQ(ErrorOf([&] { greatest / Read("0.1"); }), 6);
    EXPECT_EQ(ErrorOf([&] { Decimal(1) / Decimal(); }), 11);
    EXPECT_EQ(ErrorOf([&] { Decimal(1) % Decimal(); }), 11);
    EXPECT_EQ(Show(Decimal(1) / Decimal(3)), "0.3333333333333333333333333333");
    EXPECT_EQ(Show(Decimal(2) / Decimal(3)), "0.6666666666666666666666666667");
    EXPECT_EQ(Show(Decimal(20000) / Decimal(-3)), "-6666.6666666666666666666666667");
    EXPECT_EQ(Show(Read("5.5") % Read("-2")), "1.5");
    EXPECT_EQ(Show(greatest % smallest), "0");
    EXPECT_EQ(Show(smallest % greatest), Show(smallest));
    EXPECT_EQ(Show(-Decimal() * Decimal(-1)), "0");
}

TEST(DecimalTest, RoundsToPlacesAndWholes) {
    struct Case {
        const char* number;
        const char* rounded;
        const char* fixed;
        const char* floored;
    };
    for (const Case& c : {Case{"2.345", "2.34", "2", "2"}, Case{"-2.355", "-2.36", "-2", "-3"},
                          Case{"-0.005", "0", "0", "-1"}, Case{"7", "7", "7", "7"}, Case{"-7.000", "-7", "-7", "-7"}}) {
        EXPECT_EQ(Show(Read(c.number).Round(2)), c.rounded);
        EXPECT_EQ(Show(Read(c.number).Fix()), c.fixed);
        EXPECT_EQ(Show(Read(c.number).Floor()), c.floored);
    }
    EXPECT_EQ((Decimal(1) + Read("0.10") - Read("0.10")).Normalized().Scale(), 0);
    EXPECT_EQ(Decimal(false, 0, 100, 2), Decimal(1));
    EXPECT_LT(Decimal(-2), Read("-1.9999"));
    EXPECT_LT(Read("1e-28"), Read(kGreatest));
    EXPECT_EQ(Decimal(true, 0, 0, 5), Decimal());
}

// Operands of up to 18 digits keep every exact result within 128 bits.
TEST(DecimalTest, AgreesWithWholeNumberArithmetic) {
    std::mt19937_64 random(4711);
    const auto power = [](int places) {
        Int128 result = 1;
        while (places-- > 0) {
            result *= 10;
        }
        return result;
    };
    const auto make = [](Int128 magnitude, int scale) {
        const bool negative = magnitude < 0;
        const auto size = static_cast<UInt128>(negative ? -magnitude : magnitude);
        return Decimal(negative, static_cast<std::uint32_t>(size >> 64), static_cast<std::uint64_t>(size),
                       static_cast<std::uint8_t>(scale));
    };
    for (int i = 0; i < 20'000; ++i) {
        const auto draw = [&] { return static_cast<std::int64_t>(random()) >> (random() % 60 + 4); };
        const std::int64_t left = draw();
        const std::int64_t right = draw();
        const int leftScale = static_cast<int>(random() % 6);
        const int rightScale = static_cast<int>(random() % 6);
        const Decimal a = make(left, leftScale);
        const Decimal b = make(right, rightScale);
        const int scale = std::max(leftScale, rightScale);
        const Int128 x = left * power(scale - leftScale);
        const Int128 y = right * power(scale - rightScale);
        EXPECT_EQ(a + b, make(x + y, scale));
        EXPECT_EQ(a - b, make(x - y, scale));
        EXPECT_EQ(a <=> b, x <=> y);
        EXPECT_EQ(a.Round(2), leftScale > 2 ? make(DivideHalfEven(Int128{left}, power(leftScale - 2)), 2) : a);
        if (right != 0) {
            EXPECT_EQ(a % b, make(x % y, scale));
        }
        const Int128 product = Int128{left} * right;
        if (product < power(28) && product > -power(28)) {
            EXPECT_EQ(a * b, make(product, leftScale + rightScale));
        }
        if (right != 0 && left % right == 0) {
            EXPECT_EQ(make(left, 0) / make(right, 0), make(left / right, 0));
        }
    }
}

// A quotient is off by at most half a unit of its last place, and a product that had to be cut likewise.
TEST(DecimalTest, QuotientsTimesDivisorsComeBack) {
    std::mt19937_64 random(1879);
    for (int i = 0; i < 5'000; ++i) {
        const Decimal a(random() % 2 == 0, static_cast<std::uint32_t>(random() >> (random() % 32 + 32)), random(),
                        static_cast<std::uint8_t>(random() % 29));
        const Decimal b(random() % 2 == 0, static_cast<std::uint32_t>(random() % 1000), random() | 1,
                        static_cast<std::uint8_t>(20 + random() % 9));
        const double expected = a.ToDouble() / b.ToDouble();
        if (std::abs(expected) > 7.9e28) {
            EXPECT_EQ(ErrorOf([&] { a / b; }), 6);
            continue;
        }
        const Decimal quotient = a / b;
        EXPECT_NEAR(quotient.ToDouble(), expected, std::abs(expected) * 1e-14 + 1e-28);
        const double back = std::abs(expected * b.ToDouble());
        if (quotient.Scale() > 0 && back < 7e28) {
            const double unit = std::pow(10.0, -quotient.Scale()) * std::abs(b.ToDouble());
            EXPECT_LE(std::abs((quotient * b - a).ToDouble()), unit * 0.51 + back * 2e-28 + 1e-27);
        }
    }
}

}  // namespace
}  // namespace ov
