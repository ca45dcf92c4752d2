#include "platform/automation/text.h"

#include <gtest/gtest.h>

#include "platform/automation/memory_account.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

TEST(TextTest, Utf8BothWays) {
    const std::pair<std::string, const char16_t*> wellFormed[] = {
        {"", u""}, {"abc", u"abc"}, {"K\xC3\xB6ln \xE2\x82\xAC", u"Köln €"}, {"\xF0\x9F\x98\x80", u"\U0001F600"}};
    for (const auto& [bytes, expected] : wellFormed) {
        EXPECT_EQ(Text::FromUtf8(bytes), expected);
        EXPECT_EQ(Text(expected).ToUtf8(), bytes);
    }
    const std::pair<std::string, const char16_t*> malformed[] = {
        {"a\x80z", u"a\uFFFDz"},                            // continuation without a lead
        {"a\xC3z", u"a\uFFFDz"},                            // cut short
        {"\xC0\xAF", u"\uFFFD\uFFFD"},                      // overlong
        {"\xED\xA0\x80", u"\uFFFD"},                        // a surrogate
        {"\xF5\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // no lead at all
        {"\xE2\x82", u"\uFFFD"}};
    for (const auto& [bytes, expected] : malformed) {
        EXPECT_EQ(Text::FromUtf8(bytes), expected) << bytes;
    }
    const char16_t lone[] = {u'a', 0xD800, u'b', 0xDC00};
    EXPECT_EQ(Text(std::u16string_view(lone, 4)).ToUtf8(),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
}

TEST(TextTest, SharesUntilWritten) {
    Text a(u"abc");
    Text b = a;
    EXPECT_EQ(a.data(), b.data());
    b += u"def";
    EXPECT_EQ(a, u"abc");
    EXPECT_EQ(b, u"abcdef");
    b += b;  // part of itself
    EXPECT_EQ(b, u"abcdefabcdef");
    b = std::move(a);
    EXPECT_TRUE(a.empty());
    EXPECT_EQ(b + u"x" + b, u"abcxabc");
    const std::u16string_view withZero(u"a\0b", 3);
    EXPECT_EQ(Text(withZero).size(), 3u);
}

TEST(TextTest, GrowsInPlace) {
    Text text;
    int moves = 0;
    const char16_t* before = nullptr;
    for (int i = 0; i < 100'000; ++i) {
        text += u'x';
        if (text.data() != before) ++moves;
        before = text.data();
    }
    EXPECT_EQ(text, Text::Repeat(100'000, u'x'));
    EXPECT_LT(moves, 40);
}

TEST(TextTest, ComparesWithAndWithoutCase) {
    EXPECT_LT(Text(u"B"), Text(u"a"));
    EXPECT_TRUE(EqualNoCase(u"GRÖSSE", u"größe") == false);  // one character by one
    for (const auto& [a, b] : {std::pair{u"Ärger", u"äRGER"}, {u"id_1", u"ID_1"}, {u"Ω", u"ω"}, {u"", u""}}) {
        EXPECT_TRUE(EqualNoCase(a, b));
        EXPECT_EQ(HashNoCase(a), HashNoCase(b));
    }
    EXPECT_FALSE(EqualNoCase(u"abc", u"abd"));
    // Every pair of characters of one byte and some others, at each place of a text that is compared in pieces.
    const std::u16string around = u"abcdefgh";
    for (std::size_t length = 1; length <= around.size(); ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            std::u16string a = around.substr(0, length);
            std::u16string b = a;
            for (char16_t c = 0; c < 0x100; ++c) {
                a[at] = c;
                for (const char16_t other : {c, static_cast<char16_t>(c ^ 0x20), static_cast<char16_t>(c ^ 0x120)}) {
                    b[at] = other;
                    const bool same = FoldCase(c) == FoldCase(other);
                    ASSERT_EQ(EqualNoCase(a, b), same) << int{c} << ' ' << int{other} << ' ' << at << ' ' << length;
                    ASSERT_TRUE(!same || HashNoCase(a) == HashNoCase(b)) << int{c} << ' ' << int{other};
                }
            }
        }
    }
    EXPECT_EQ(Text::FromInteger(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(TextTest, TooLongIsError14) {
    EXPECT_EQ(ErrorOf([] { Text::Repeat(Text::kMaxLength + 1, u'x'); }), 14);
}

}  // namespace
}  // namespace ov
