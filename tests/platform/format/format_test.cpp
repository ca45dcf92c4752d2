#include "platform/format/format.h"

#include <limits>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/format/picture_testing.h"
#include "support/scoped_settings.h"

namespace ov {
namespace {

using ::ov::testing::ScopedLocale;

TEST(TextPicture, FillsPlaceholders) {
    ExpectFormats(
        "$12|@@@ ->  12; $12|!@@@ -> 12 ; $12|&&& -> 12; $12|[@@&&] -> [  12]; $12|![@@&@] -> [12 ]; "
        "$0123456|@@@-@@-@@ -> 012-34-56; $56|@@@-@@-@@ ->    -  -56; $56|&&&-&&-&& -> --56; $|@@@ ->    ; $|&&& -> ");
    // Too long: the rest goes to the end, or with "!" the beginning is lost.
    ExpectFormats("$Microsoft|@-@ -> M-icrosoft; $123|ab@c -> ab1c23; $123|!ab@c -> ab3c; $123|! -> 123");
    ExpectFormats(
        "$HELLO|< -> hello; $This is it|> -> THIS IS IT; $Größe|>@@@@@@ ->  GRÖßE; $aBc|>@<@ -> abc; "
        "$abc|@@@\"<x>\"\\@0#d -> abc<x>@0#d; L-5|@@@@ ->   -5; B1|> -> TRUE");
    ExpectFormats(
        "$abc|@;none -> abc; $|@;none -> none; N|@;none -> none; E|@;none -> none; N|@@@ -> ; E|@@@ ->    ; "
        "$abc|@;x;y -> abc");
    EXPECT_EQ(Format(u"", u"@;"), u"");
}

TEST(Format, TellsTheKindByTheFirstCharacterThatOnlyOneHas) {
    const ScopedLocale english("en-US");
    ExpectFormats(FromCalendar(2024, 2, 3),
                  "0 d -> 45325 d; d 0 -> 3 0; d @ -> 3 @; @ d -> 2 d/3/2024; ., % d -> ., % 3");
    ExpectFormats(5.0, "\\d0 -> d5; \"day\" 0 -> day 5; xyz -> x4z; Ab0 -> Ab5; µ 0 -> µ 5; V -> V; \\ -> ");
    ExpectFormats("$text|V -> text");
}

TEST(Format, WithoutAPictureIsThePlainText) {
    const ScopedLocale german("de-DE");
    ExpectFormats(
        "D1234.5| -> 1234,5; $  as it is | ->   as it is ; B1| -> True; T45325| -> 03.02.2024; E| -> ; N| -> ");
    EXPECT_EQ(Picture().Apply(0.5).ToUtf8(), "0,5");
}

TEST(Format, RaisesForWhatHasNoText) {
    const struct {
        Variant value;
        const char16_t* picture;
        std::int32_t number;
    } cases[] = {{Array::OfVariants({}), u"0", 13}, {Array::OfVariants({}), u"@", 13},
                 {Array::OfVariants({}), u"", 13},  {ErrorCode{7}, u"0", 13},
                 {ErrorCode{7}, u"d", 13},          {ErrorCode{7}, u"General Number", 13},
                 {Variant::Missing(), u"0", 448},   {Variant::Missing(), u"", 448},
                 {Variant::Nothing(), u"0", 91},    {1e10, u"yyyy", 6},
                 {-1e10, u"Short Date", 6},         {std::numeric_limits<double>::quiet_NaN(), u"yyyy", 6}};
    for (const auto& [value, picture, number] : cases) {
        try {
            Format(value, picture);
            ADD_FAILURE() << Text(picture).ToUtf8() << " " << number;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), number) << Text(picture).ToUtf8();
        }
    }
}

TEST(Picture, IsReadOnceForEveryLocaleAndValue) {
    const Picture picture(u"#,##0.0");
    const Picture amount(u"Currency");
    const Picture copy = picture;
    {
        const ScopedLocale english("en-US");
        EXPECT_EQ(picture.Apply(1234.56).ToUtf8(), "1,234.6");
        EXPECT_EQ(amount.Apply(1.0).ToUtf8(), "$1.00");
    }
    const ScopedLocale german("de-DE");
    EXPECT_EQ(copy.Apply(1234.56).ToUtf8(), "1.234,6");
    EXPECT_EQ(copy.Apply(std::int32_t{-7}).ToUtf8(), "-7,0");
    EXPECT_EQ(amount.Apply(1.0).ToUtf8(), "1,00 €");
}

TEST(Picture, TakesAnyCharacters) {
    const std::u16string marks = u"0#.,%E+-e;:/\"\\@&<>!dmyhnswqtc AMPM$()\u20AC\xD800";
    // Every text of three marks, on values of each kind; what matters is that none of them fails.
    const Variant values[] = {1234.5, u"abc", Date{1.5}};
    for (const char16_t a : marks) {
        for (const char16_t b : marks) {
            for (const char16_t c : marks) {
                const Picture picture(std::u16string{a, b, c});
                for (const Variant& value : values) {
                    EXPECT_NO_THROW(picture.Apply(value)) << Text(std::u16string{a, b, c}).ToUtf8();
                }
            }
        }
    }
    EXPECT_EQ(Format(1.0, Text::Repeat(100'000, u',') + u"0"), u"0");
    EXPECT_EQ(Format(1.0, Text::Repeat(3000, u'0')).size(), 3000u);
    EXPECT_EQ(Format(1.0, Text::Repeat(60, u'%') + u"0").size(), 60u + 121);
}

}  // namespace
}  // namespace ov
