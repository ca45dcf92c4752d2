#include "platform/automation/conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

void ExpectConversions(VarType type, std::string_view cases) {
    ExpectEach(cases, [&](const Text& form) { return Outcome([&] { return ConvertTo(type, Value(form.ToUtf8())); }); });
}

TEST(ConversionsTest, IntegersRoundToEvenAndCheckTheRange) {
    ExpectConversions(
        VarType::Integer,
        "D2.5 -> Integer 2; D3.5 -> Integer 4; S-2.5 -> Integer -2; D32767.49 -> Integer 32767; D32767.5 -> error 6; "
        "D-32768.5 -> Integer -32768; C2.5 -> Integer 2; C-3.5 -> Integer -4; M1.5 -> Integer 2; T1.5 -> Integer 2; "
        "B1 -> Integer -1; L32768 -> error 6; Y9 -> Integer 9; $&HFFFF -> Integer -1; $&HFFFF& -> error 6; "
        "$&H10000 -> error 6; $(5) -> Integer -5; $2.5 -> Integer 2; $32768 -> error 6");
    EXPECT_EQ(Outcome([] { return ConvertTo(VarType::Integer, std::nan("")); }), "error 6");
    ExpectConversions(
        VarType::Byte,
        "D255.49 -> Byte 255; D255.5 -> error 6; D-0.5 -> Byte 0; I-1 -> error 6; B1 -> Byte 255; $&HFF -> Byte 255; "
        "$&H100 -> error 6");
    ExpectConversions(
        VarType::Long,
        "D2147483647.5 -> error 6; D2147483646.5 -> Long 2147483646; D-2147483648.5 -> Long -2147483648; "
        "$&HFFFF -> Long 65535; $&HFFFFFFFF -> Long -1; $&H80000000 -> Long -2147483648; $&H100000000 -> error 6; "
        "$&O17 -> Long 15; $1e400 -> error 6; $12,345 -> Long 12345; C2147483647.5 -> error 6");
    EXPECT_EQ(Outcome([] { return ConvertTo(VarType::Long, kInfinity); }), "error 6");
}

TEST(ConversionsTest, FractionsKeepWhatTheirTypeHolds) {
    ExpectConversions(
        VarType::Double,
        "$0.1 -> Double 0.1; $&HFFFF -> Double 65535; $&HFFFFFFFF -> Double 4294967295; C-0.0015 -> Double -0.0015; "
        "T1.5 -> Double 1.5; B0 -> Double 0; $1e400 -> error 6");
    ExpectConversions(
        VarType::Single,
        "D0.1 -> Single 0.1; D3.4028235e38 -> Single 3.402823E+38; D3.5e38 -> error 6; $1e-60 -> Single 0");
    EXPECT_EQ(Outcome([] { return ConvertTo(VarType::Single, kInfinity); }), "Single 1.#INF");
    ExpectConversions(
        VarType::Currency,
        "D0.03125 -> Currency 0.0312; D-0.09375 -> Currency -0.0938; $0.00025 -> Currency 0.0002; "
        "$922337203685477.5807 -> Currency 922337203685477.5807; $922337203685477.58075 -> error 6; "
        "$-922337203685477.5808 -> Currency -922337203685477.5808; D922337203685478 -> error 6; L-7 -> Currency -7; "
        "M1.23456 -> Currency 1.2346");
    ExpectConversions(
        VarType::Decimal,
        "$18446744073709551615 -> Decimal 18446744073709551615; $&HFFFFFFFFFFFFFFFF -> Decimal 18446744073709551615; "
        "$-1,234.50 -> Decimal -1234.5; S0.1 -> Decimal 0.1; C-0.0001 -> Decimal -0.0001; D1e29 -> error 6; "
        "$1e29 -> error 6");
    ExpectConversions(
        VarType::Date,
        "D1.5 -> Date 1.5; $1.5 -> Date 1.5; $2024-03-05 12:00 -> Date 45356.5; D-657434.9 -> Date -657434.9; "
        "D-657435 -> error 6; D2958466 -> error 6; $tomorrow -> error 13");
    EXPECT_EQ(Outcome([] { return ConvertTo(VarType::Date, std::nan("")); }), "error 6");
    ExpectConversions(
        VarType::Boolean,
        "$true -> True; $FALSE -> False; $0.0 -> False; $0.1 -> True; $yes -> error 13; $ True -> error 13; "
        "M0 -> False; C0.0001 -> True; T0 -> False");
}

TEST(ConversionsTest, WhatHasNoValueIsRefusedByAll) {
    const std::pair<Variant, std::int32_t> cases[] = {{Variant::Null(), 94},
                                                      {Variant::Missing(), 448},
                                                      {Array(), 13},
                                                      {Variant::Nothing(), 91},
                                                      {Variant(ValueObject::WithoutDefault()), 438}};
    for (VarType type : {VarType::Boolean, VarType::Byte, VarType::Integer, VarType::Long, VarType::Single,
                         VarType::Double, VarType::Currency, VarType::Decimal, VarType::Date, VarType::String}) {
        for (const auto& [value, expected] : cases) {
            EXPECT_EQ(ErrorOf([&, &from = value] { ConvertTo(type, from); }), expected);
        }
        if (type == VarType::String) continue;
        EXPECT_EQ(ErrorOf([&] { ConvertTo(type, ErrorCode{5}); }), 13);
        ExpectConversions(type, "$ -> error 13; $abc -> error 13");
        if (type == VarType::Boolean) continue;
        const Variant viaObject(ValueObject::Of(Variant(ValueObject::Of(Variant(u"7")))));
        EXPECT_EQ(ToLong(ConvertTo(type, viaObject)), 7);
        EXPECT_EQ(ToLong(ConvertTo(type, Variant())), 0);
    }
}

TEST(ConversionsTest, TypesThatAreNone) {
    EXPECT_EQ(Outcome([] { return ConvertTo(VarType::Empty, u"x"); }), "String x");
    const Variant object(ValueObject::WithoutDefault());
    EXPECT_EQ(ConvertTo(VarType::Object, object).AsObject(), object.AsObject());
    for (VarType type : {VarType::Object, VarType::Null, VarType::Error, VarType::Array, VarType::Missing}) {
        EXPECT_EQ(Outcome([&] { return ConvertTo(type, std::int32_t{1}); }), "error 13");
    }
}

TEST(ConversionsTest, Texts) {
    ScopedLocale german("de-DE");
    ExpectEach(
        "E -> ; B1 -> True; B0 -> False; Y200 -> 200; I-5 -> -5; D1.5 -> 1,5; S0.1 -> 0,1; C-1.25 -> -1,25; "
        "M0.18446744073709551616 -> 0,18446744073709551616; T45356.5 -> 05.03.2024 12:00:00; $1.5 -> 1.5",
        [](const Text& form) { return ToText(Value(form.ToUtf8())).ToUtf8(); });
    EXPECT_EQ(ToText(ErrorCode{13}), u"Error 13");
    EXPECT_EQ(ToInvariantText(1.5), u"1.5");
    EXPECT_EQ(ToInvariantText(Variant(Currency{-12500})), u"-1.25");
    EXPECT_EQ(ToInvariantText(Variant(u"1,5")), u"1,5");
    EXPECT_EQ(ToInvariantText(Variant(ValueObject::Of(Variant(2.5f)))), u"2.5");
    EXPECT_EQ(ErrorOf([] { ToInvariantText(Variant::Null()); }), 94);
    EXPECT_EQ(ErrorOf([] { ToInvariantText(Variant(Date{1})); }), 13);
}

TEST(ConversionsTest, TestsForNumbersAndDates) {
    const Variant object(ValueObject::Of(Variant(std::int32_t{1})));
    for (const char* form : {"E", "B1", "Y1", "C1", "M1", "S0.5", "$1,000", "$&HFF"}) {
        EXPECT_TRUE(IsNumeric(Value(form))) << form;
        EXPECT_FALSE(IsDate(Value(form))) << form;
    }
    for (const Variant& other : {Variant::Null(), Variant::Missing(), Variant(Date{1}), Variant(u""), Variant(u"True"),
                                 Variant(u"1e999"), Variant(Array()), Variant(ErrorCode{1}), object}) {
        EXPECT_FALSE(IsNumeric(other)) << Describe(other);
    }
    EXPECT_TRUE(IsDate(Variant(Date{1})));
    EXPECT_TRUE(IsDate(Variant(u"2024-03-05")));
    EXPECT_FALSE(IsDate(object));
}

TEST(ConversionsTest, DefaultValueEndsOnEndlessChains) {
    const Ref<ValueObject> endless = ValueObject::Of({});
    endless->SetValue(Variant(endless));
    EXPECT_EQ(ErrorOf([&] { DefaultValue(Variant(endless)); }), 438);
    endless->SetValue({});
    EXPECT_TRUE(DefaultValue(Variant(endless)).IsEmpty());
    EXPECT_EQ(Describe(DefaultValue(Variant(u"as it is"))), "String as it is");
}

}  // namespace
}  // namespace ov
