#include "platform/locale/code_page.h"

#include <gtest/gtest.h>

namespace ov {
namespace {

TEST(CodePage, EveryCodeComesBack) {
    for (unsigned code = 0; code < 256; ++code) {
        const auto byte = static_cast<std::uint8_t>(code);
        EXPECT_EQ(ToCodePage(FromCodePage(byte)), byte);
    }
}

TEST(CodePage, HasTheCharactersOfWindows1252) {
    EXPECT_EQ(FromCodePage("\x80\x85\x8A\x9F\xE4\x41"), u"€…ŠŸäA");
    EXPECT_EQ(FromCodePage("\x81\x8D\x8F\x90\x9D"), u"\x81\x8D\x8F\x90\x9D") << "codes without a character";
    EXPECT_EQ(ToCodePage(u"€ÿ™"), "\x80\xFF\x99");
    EXPECT_EQ(ToCodePage(u"\x80Ω中\U0001F600"), "?????") << "each half of a pair is a character";
    EXPECT_EQ(ToCodePage(std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
}

}  // namespace
}  // namespace ov
