#include "platform/automation/variant.h"

#include <gtest/gtest.h>

#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

TEST(VariantTest, HoldsEveryType) {
    const Decimal decimal(true, 0xFFFFFFFF, 0x123456789ABCDEF0, 28);
    const std::pair<Variant, const char*> cases[] = {{Variant(), "Empty"},
                                                     {Variant::Null(), "Null"},
                                                     {Variant::Missing(), "Missing"},
                                                     {true, "True"},
                                                     {std::uint8_t{255}, "Byte 255"},
                                                     {std::int16_t{-1}, "Integer -1"},
                                                     {std::int32_t{-1}, "Long -1"},
                                                     {0.5f, "Single 0.5"},
                                                     {0.5, "Double 0.5"},
                                                     {Currency{-1}, "Currency -0.0001"},
                                                     {Date{-1.5}, "Date -1.5"},
                                                     {u"text", "String text"}};
    for (const auto& [value, expected] : cases) {
        Variant copy = value;
        EXPECT_EQ(Describe(copy), expected);
        const Variant moved = std::move(copy);
        EXPECT_EQ(Describe(moved), expected);
        EXPECT_TRUE(copy.IsEmpty());  // NOLINT: what a move leaves behind is told
    }
    const Variant held(decimal);
    EXPECT_EQ(Variant(held).AsDecimal(), decimal);
    EXPECT_EQ(held.AsDecimal().Scale(), 28);
    EXPECT_EQ(Variant(ErrorCode{13}).AsError().code, 13);
}

TEST(VariantTest, CountsTheObjectsItHolds) {
    {
        Variant a(ValueObject::Of(Variant(u"x")));
        Variant b = a;
        EXPECT_EQ(ValueObject::alive, 1);
        a = Variant(u"text");
        EXPECT_EQ(ValueObject::alive, 1);
        b = std::move(a);
        EXPECT_EQ(ValueObject::alive, 0);
        b = Variant(Array::OfVariants({Variant(ValueObject::WithoutDefault())}));
        Variant& self = b;
        b = self;
        EXPECT_EQ(ValueObject::alive, 1);
        // The old value holds the new one.
        b = b.AsArray().At(0);
        EXPECT_EQ(ValueObject::alive, 1);
    }
    EXPECT_EQ(ValueObject::alive, 0);
    EXPECT_TRUE(Variant::Nothing().IsNothing());
}

}  // namespace
}  // namespace ov
