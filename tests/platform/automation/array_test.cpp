#include "platform/automation/array.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

using Bounds = std::vector<ArrayBound>;
using Indexes = std::vector<std::int32_t>;

TEST(ArrayTest, StartsWithTheTypesOwnNothing) {
    const std::pair<VarType, const char*> cases[] = {{VarType::Empty, "Empty"},   {VarType::Byte, "Byte 0"},
                                                     {VarType::Long, "Long 0"},   {VarType::String, "String "},
                                                     {VarType::Boolean, "False"}, {VarType::Currency, "Currency 0"}};
    for (const auto& [type, expected] : cases) {
        const Array array(type, Bounds{{1, 2}});
        EXPECT_EQ(array.ElementType(), type);
        EXPECT_EQ(Describe(array.Get(Indexes{2})), expected);
    }
    EXPECT_TRUE(Array(VarType::Object, Bounds{{0, 1}}).Get(Indexes{0}).IsNothing());
    EXPECT_FALSE(Array().IsAllocated());
}

TEST(ArrayTest, IndexesByBounds) {
    Array array(VarType::Empty, Bounds{{-1, 2}, {5, 3}});
    array.Set(Indexes{0, 6}, u"x");
    EXPECT_EQ(Describe(array.At(3)), "String x");  // the first index moves fastest
    EXPECT_EQ(array.LowerBound(1), -1);
    EXPECT_EQ(array.UpperBound(2), 7);
    EXPECT_EQ(array.size(), 6u);
    for (const Indexes& wrong :
         {Indexes{}, Indexes{0}, Indexes{1, 5}, Indexes{-2, 5}, Indexes{0, 8}, Indexes{0, 5, 0}}) {
        EXPECT_EQ(ErrorOf([&] { array.Get(wrong); }), 9);
    }
    EXPECT_EQ(ErrorOf([&] { array.UpperBound(3); }), 9);
    EXPECT_EQ(ErrorOf([] { Array().UpperBound(1); }), 9);
    EXPECT_EQ(ErrorOf([] { Array(VarType::Empty, Bounds{{0, -1}}); }), 9);
    EXPECT_EQ(ErrorOf([] { Array(VarType::Empty, Bounds{{0, 0x7FFFFFFF}, {0, 0x7FFFFFFF}, {0, 99}}); }), 7);
}

TEST(ArrayTest, CopiesAreTheirOwn) {
    Array a = Array::OfVariants({std::int32_t{1}, std::int32_t{2}});
    Array b = a;
    b.Element(Indexes{0}) = Variant(u"changed");
    EXPECT_EQ(Describe(a.Get(Indexes{0})), "Long 1");
    Array bytes = Array::OfBytes({1, 2, 3}, 1);
    Array copy = bytes;
    copy.Set(Indexes{1}, 9.0);
    EXPECT_EQ(bytes.Bytes()[0], 1);
    EXPECT_EQ(copy.Bytes()[0], 9);
    EXPECT_EQ(ErrorOf([&] { copy.Set(Indexes{1}, std::int32_t{256}); }), 6);
    EXPECT_EQ(ErrorOf([&] { copy.Element(Indexes{1}); }), 51);
    // An array of arrays, edited in place, leaves its copies alone as well.
    Array outer = Array::OfVariants({Variant(a)});
    const Array before = outer;
    outer.Element(Indexes{0}).AsArray().Set(Indexes{1}, u"deep");
    EXPECT_EQ(Describe(before.Get(Indexes{0}).AsArray().Get(Indexes{1})), "Long 2");
}

TEST(ArrayTest, RedimensionKeepsTheLeadingElements) {
    Array array(VarType::Long, Bounds{{0, 2}, {0, 2}});
    array.Set(Indexes{1, 1}, std::int32_t{11});
    array.Redimension(Bounds{{0, 2}, {0, 3}}, true);
    EXPECT_EQ(Describe(array.Get(Indexes{1, 1})), "Long 11");
    EXPECT_EQ(Describe(array.Get(Indexes{1, 2})), "Long 0");
    for (const Bounds& wrong : {Bounds{{0, 3}, {0, 3}}, Bounds{{0, 2}}, Bounds{{0, 2}, {1, 3}}}) {
        EXPECT_EQ(ErrorOf([&] { array.Redimension(wrong, true); }), 9);
    }
    array.Redimension(Bounds{{0, 1}}, false);
    EXPECT_EQ(array.size(), 1u);
    array.Erase();
    EXPECT_FALSE(array.IsAllocated());

    Array fixed(VarType::Empty, Bounds{{0, 1}});
    fixed.MarkFixed();
    fixed.Set(Indexes{0}, true);
    EXPECT_EQ(ErrorOf([&] { fixed.Redimension(Bounds{{0, 5}}, true); }), 10);
    fixed.Erase();
    EXPECT_EQ(Describe(fixed.Get(Indexes{0})), "Empty");
    EXPECT_TRUE(fixed.IsFixed());
}

}  // namespace
}  // namespace ov
