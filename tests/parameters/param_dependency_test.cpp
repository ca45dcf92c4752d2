#include "parameters/param_dependency.h"

#include <gtest/gtest.h>

#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

TEST(ParamDependencyTest, WalksInARing) {
    const auto ring = MakeObject<ParamDependency>();
    EXPECT_EQ(ErrorOf([&] { ring->get_idx(); }), 9);
    ring->MoveFirst();
    ring->MoveNext();
    EXPECT_EQ(ErrorOf([&] { ring->get_desc(); }), 9) << "an empty ring has no first row";
    const auto row = MakeObject<Collection>();
    ring->Add(10, u"P(\"1\") = 1", true, row.get());
    ring->Add(11, u"", false, nullptr);
    ring->MoveNext();
    EXPECT_EQ(ring->get_idx(), 10) << "the first move goes to the first row";
    EXPECT_EQ(ring->get_dep(), u"P(\"1\") = 1");
    EXPECT_EQ(ring->get_removeOnDep(), u"True");
    EXPECT_TRUE(SameObject(ring->get_desc().get(), row.get()));
    ring->MoveNext();
    EXPECT_EQ(ring->get_idx(), 11);
    EXPECT_EQ(ring->get_removeOnDep(), u"False");
    ring->MoveNext();
    EXPECT_EQ(ring->get_idx(), 10);
    EXPECT_EQ(ErrorOf([&] { ring->Add(12, u"", false, nullptr); }), 9) << "closed by the first move";
    ring->MoveNext();
    ring->MoveNext();
    EXPECT_EQ(ring->get_idx(), 10) << "and the refused row is not in it";
}

TEST(ParamDependencyTest, DropsTheTwentyFirstRow) {
    const auto ring = MakeObject<ParamDependency>();
    for (std::int32_t i = 1; i <= 21; ++i) {
        ring->Add(i, u"", false, nullptr);
    }
    for (std::int32_t i = 1; i <= 20; ++i, ring->MoveNext()) {
        EXPECT_EQ(ring->get_idx(), i);
    }
    EXPECT_EQ(ring->get_idx(), 1);
    EXPECT_EQ(ErrorOf([&] { ring->Add(22, u"", false, nullptr); }), 0) << "silent on a full ring, closed or not";
}

}  // namespace
}  // namespace ov
