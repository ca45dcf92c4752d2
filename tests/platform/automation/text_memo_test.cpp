#include "platform/automation/text_memo.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace ov {
namespace {

TEST(TextMemoTest, KnowsATextByItsPlace) {
    const auto memo = std::make_unique<TextMemo<int>>();
    EXPECT_EQ(memo->Find(Text()), nullptr);
    const Text kept(u"rule");
    memo->Keep(kept, 7);
    memo->Keep(Text(), 8);
    const Text shared = kept;
    ASSERT_NE(memo->Find(shared), nullptr);
    EXPECT_EQ(*memo->Find(shared), 7);
    EXPECT_EQ(memo->Find(Text(u"rule")), nullptr);
    EXPECT_EQ(memo->Find(Text()), nullptr);
    // The characters of a text that was kept stay, so that no other text is taken for it.
    for (int i = 0; i < 100'000; ++i) {
        const Text text = Text::FromInteger(i);
        ASSERT_EQ(memo->Find(text), nullptr) << i;
        memo->Keep(text, i);
        ASSERT_EQ(*memo->Find(text), i);
    }
}

}  // namespace
}  // namespace ov
