#include "platform/locale/locale.h"

#include <gtest/gtest.h>

#include "platform/locale/locale_name.h"
#include "support/scoped_settings.h"

namespace ov {
namespace {

using ::ov::testing::ScopedLocale;
using ::ov::testing::ScopedVariable;

struct Facts {
    const char* name;
    std::uint32_t lcid;
    char16_t decimal;
    std::u16string group;
    std::u16string currencySymbol;
    bool currencyBefore;
    bool currencySpace;
    DateOrder dateOrder;
    std::u16string dateSeparator;
    std::u16string shortDate;
    std::u16string longDate;
    std::u16string longTime;
    std::u16string shortTime;
    int firstDayOfWeek;
};

using enum DateOrder;
const Facts kFacts[] = {
    {"en-US", 0x0409, u'.', u",", u"$", true, false, MonthDayYear, u"/", u"M/d/yyyy", u"dddd, MMMM d, yyyy",
     u"h:mm:ss tt", u"h:mm tt", 1},
    {"de-DE", 0x0407, u',', u".", u"€", false, true, DayMonthYear, u".", u"dd.MM.yyyy", u"dddd, d. MMMM yyyy",
     u"HH:mm:ss", u"HH:mm", 2},
    {"fr-FR", 0x040C, u',', u"\u202F", u"€", false, true, DayMonthYear, u"/", u"dd/MM/yyyy", u"dddd d MMMM yyyy",
     u"HH:mm:ss", u"HH:mm", 2},
    {"de-CH", 0x0807, u'.', u"’", u"CHF", true, true, DayMonthYear, u".", u"dd.MM.yyyy", u"dddd, d. MMMM yyyy",
     u"HH:mm:ss", u"HH:mm", 2},
    {"hi-IN", 0x0439, u'.', u",", u"₹", true, false, DayMonthYear, u"/", u"d/M/yyyy", u"dddd, d MMMM yyyy",
     u"h:mm:ss tt", u"h:mm tt", 1},
    {"sv-SE", 0x041D, u',', u"\u00A0", u"kr", false, true, YearMonthDay, u"-", u"yyyy-MM-dd", u"dddd d MMMM yyyy",
     u"HH:mm:ss", u"HH:mm", 2},
    // Hours with words around them, the mark in front, a second pair of digits and marks of writing direction.
    {"fr-CA", 0x0C0C, u',', u"\u00A0", u"$", false, true, YearMonthDay, u"-", u"yyyy-MM-dd", u"dddd d MMMM yyyy",
     u"HH:mm:ss", u"HH:mm", 1},
    {"ko-KR", 0x0412, u'.', u",", u"₩", true, false, YearMonthDay, u". ", u"yyyy. M. d.", u"yyyy년 M월 d일 dddd",
     u"tt h:mm:ss", u"tt h:mm", 1},
    {"ar-EG", 0x0C01, u'.', u",", u"ج.م.", false, true, DayMonthYear, u"/", u"d/M/yyyy", u"dddd، d MMMM yyyy",
     u"h:mm:ss tt", u"h:mm tt", 7},
    // An era and a calendar that do not apply, and literal words.
    {"th-TH", 0x041E, u'.', u",", u"฿", true, false, DayMonthYear, u"/", u"d/M/yyyy", u"ddddที่ d MMMM yyyy", u"HH:mm:ss",
     u"HH:mm", 1},
    {"es-ES", 0x0C0A, u',', u".", u"€", false, true, DayMonthYear, u"/", u"d/M/yyyy", u"dddd, d' de 'MMMM' de 'yyyy",
     u"H:mm:ss", u"H:mm", 2},
};

TEST(Locale, KnowsWhatRuleAuthorsExpect) {
    for (const Facts& facts : kFacts) {
        SCOPED_TRACE(facts.name);
        const ScopedLocale scoped(facts.name);
        ASSERT_TRUE(scoped.known());
        const Locale& locale = CurrentLocale();
        EXPECT_EQ(locale.name, facts.name);
        EXPECT_EQ(locale.lcid, facts.lcid);
        EXPECT_EQ(locale.decimal, facts.decimal);
        EXPECT_EQ(locale.group, facts.group);
        EXPECT_EQ(locale.groupSize, 3);
        EXPECT_EQ(locale.currencySymbol, facts.currencySymbol);
        EXPECT_EQ(locale.currencyBefore, facts.currencyBefore);
        EXPECT_EQ(locale.currencySpace, facts.currencySpace);
        EXPECT_EQ(locale.dateOrder, facts.dateOrder);
        EXPECT_EQ(locale.dateSeparator, facts.dateSeparator);
        EXPECT_EQ(locale.timeSeparator, u":");
        EXPECT_EQ(locale.shortDate, facts.shortDate);
        EXPECT_EQ(locale.longDate, facts.longDate);
        EXPECT_EQ(locale.longTime, facts.longTime);
        EXPECT_EQ(locale.shortTime, facts.shortTime);
        EXPECT_EQ(locale.hours24, facts.longTime.find(u'H') != std::u16string::npos);
        EXPECT_EQ(locale.hourTwoDigits, facts.longTime.find(u"HH") != std::u16string::npos);
        EXPECT_EQ(locale.firstDayOfWeek, facts.firstDayOfWeek);
        for (const auto& name : locale.monthNames)
            EXPECT_FALSE(name.empty());
        for (const auto& name : locale.dayAbbreviations)
            EXPECT_FALSE(name.empty());
    }
}

TEST(Locale, ShortDatesEndInNoWord) {
    for (const auto& [name, shortDate] : {std::pair{"bg-BG", u"d.MM.yyyy"}, {"hr-HR", u"dd. MM. yyyy."}}) {
        const ScopedLocale scoped(name);
        EXPECT_EQ(CurrentLocale().shortDate, shortDate);
    }
}

TEST(Locale, NamesStandByThemselves) {
    const ScopedLocale english("en-US");
    EXPECT_EQ(CurrentLocale().monthNames[0], u"January");
    EXPECT_EQ(CurrentLocale().monthAbbreviations[11], u"Dec");
    EXPECT_EQ(CurrentLocale().dayNames[0], u"Sunday");
    EXPECT_EQ(CurrentLocale().dayAbbreviations[6], u"Sat");
    EXPECT_EQ(CurrentLocale().am, u"AM");
    EXPECT_EQ(CurrentLocale().pm, u"PM");
    const ScopedLocale german("de-DE");
    EXPECT_EQ(CurrentLocale().monthAbbreviations[2], u"Mär");
    EXPECT_EQ(CurrentLocale().dayAbbreviations[0], u"So");
    const ScopedLocale czech("cs-CZ");
    EXPECT_EQ(CurrentLocale().monthNames[2], u"březen") << "not the genitive, which stands in dates";
    const ScopedLocale spanish("es-ES");
    EXPECT_EQ(CurrentLocale().am, u"a. m.") << "with a plain blank";
}

TEST(Locale, WithoutGroupsHasNoGroupSeparator) {
    const ScopedLocale scoped("en_US_POSIX");
    ASSERT_TRUE(scoped.known());
    EXPECT_EQ(CurrentLocale().group, u"");
    EXPECT_EQ(CurrentLocale().groupSize, 3);
}

TEST(Locale, ReadsNamesInEveryForm) {
    const struct {
        const char* written;
        const char* name;
    } cases[] = {
        {"de-DE", "de-DE"},
        {"de_DE", "de-DE"},
        {"de_DE.UTF-8@euro", "de-DE"},
        {"de_AT@euro", "de-AT"},
        {"DE-de", "de-DE"},
        {"de", "de-DE"},
        {"pt", "pt-BR"},
        {"zh", "zh-CN"},
        {"", "en-US"},
        {"C", "en-US"},
        {"POSIX", "en-US"},
        {"C.UTF-8", "en-US"},
        {"@euro", "en-US"},
        {"sr-Latn-RS", "sr-Latn-RS"},
        {"es-419", "es-419"},
    };
    for (const auto& [written, name] : cases) {
        SCOPED_TRACE(written);
        const ScopedLocale former("fr-FR");
        EXPECT_TRUE(SetCurrentLocale(std::string_view(written)));
        EXPECT_EQ(CurrentLocale().name, name);
    }
}

TEST(Locale, RefusesWhatDoesNotExistAndKeepsTheFormerOne) {
    const ScopedLocale former("de-CH");
    for (const char* name : {"xx", "xx-YY", "de-XX", "en_ZZ", "de--DE", "-", "de-", "root", "und", "x-private", "1",
                             "de DE", "german", "\xFF\xFE", "de-DE\n"}) {
        EXPECT_FALSE(SetCurrentLocale(std::string_view(name))) << name;
        EXPECT_EQ(CurrentLocale().name, "de-CH") << name;
    }
    EXPECT_FALSE(SetCurrentLocale(std::string_view("de\0DE", 5)));
    EXPECT_FALSE(SetCurrentLocale(std::string(1000, 'd')));
    for (const std::uint32_t lcid : {0xFFFFFFFFu, 0x99999u, 0x1000u, 0x400u}) {
        EXPECT_FALSE(SetCurrentLocale(lcid)) << lcid;
        EXPECT_EQ(CurrentLocale().name, "de-CH") << lcid;
    }
}

TEST(Locale, ReadsLanguageIdentifiers) {
    const ScopedLocale former("en-US");
    const struct {
        std::uint32_t lcid;
        const char* name;
    } cases[] = {{0x0407, "de-DE"}, {0x0007, "de-DE"}, {0x10407, "de-DE"}, {0x0C0C, "fr-CA"}, {0x0409, "en-US"}};
    for (const auto& [lcid, name] : cases) {
        EXPECT_TRUE(SetCurrentLocale(lcid)) << lcid;
        EXPECT_EQ(CurrentLocale().name, name);
    }
}

TEST(Locale, TakesTheFirstVariableThatIsSet) {
    const struct {
        std::optional<std::string> all, numeric, lang;
        const char* name;
    } cases[] = {
        {"de_DE.UTF-8", "fr_FR", "sv_SE", "de_DE"}, {std::nullopt, "fr_FR", "sv_SE", "fr_FR"},
        {"", "", "sv_SE.UTF-8", "sv_SE"},           {std::nullopt, std::nullopt, std::nullopt, "en_US"},
        {"C", "fr_FR", "sv_SE", "en_US"},           {"nonsense", "fr_FR", "sv_SE", "en_US"},
    };
    for (const auto& c : cases) {
        const ScopedVariable all("LC_ALL", c.all);
        const ScopedVariable numeric("LC_NUMERIC", c.numeric);
        const ScopedVariable lang("LANG", c.lang);
        EXPECT_EQ(EnvironmentLocaleName(), c.name);
        const ScopedLocale former("it-IT");
        EXPECT_TRUE(SetCurrentLocale(std::uint32_t{0}));
        EXPECT_EQ(CurrentLocale().name.substr(0, 2), std::string_view(c.name).substr(0, 2));
    }
}

TEST(Locale, ReferencesSurviveAChange) {
    const ScopedLocale former("de-DE");
    const Locale& german = CurrentLocale();
    const ScopedLocale other("en-US");
    EXPECT_EQ(german.decimal, u',');
    SetCurrentLocale(std::string_view("de"));
    EXPECT_EQ(&CurrentLocale(), &german);
}

TEST(LetterCase, KeepsOneCharacterOne) {
    EXPECT_EQ(ToUpperCase(u"straße äöü ÿ i ﬁ"), u"STRAßE ÄÖÜ Ÿ I ﬁ");
    EXPECT_EQ(ToLowerCase(u"ÄÖÜ Ÿ I İ ΣΑΣ"), u"äöü ÿ i i σασ") << "no final sigma, no combining dot";
    EXPECT_EQ(ToUpperCase(u"\U00010428"), u"\U00010400");
    EXPECT_EQ(ToLowerCase(u"\U00010400x"), u"\U00010428x");
    const std::u16string halves{0xDC28, u'a', 0xD801};
    EXPECT_EQ(ToUpperCase(halves), (std::u16string{0xDC28, u'A', 0xD801}));
    const ScopedLocale turkish("tr-TR");
    EXPECT_EQ(ToUpperCase(u"i"), u"I") << "no language has a say in it";
}

TEST(LetterCase, FoldsSingleCharacters) {
    EXPECT_EQ(FoldCharacter(u'Ä'), u'ä');
    EXPECT_EQ(FoldCharacter(u'ẞ'), u'ß');
    EXPECT_EQ(FoldCharacter(u'ς'), u'σ');
    EXPECT_EQ(FoldCharacter(0xD801), 0xD801);
    EXPECT_EQ(FoldCharacter(0xFFFF), 0xFFFF);
}

TEST(CompareTexts, OrdersAsAPersonDoes) {
    const struct {
        const char* locale;
        const char16_t *a, *b;
        int order;
    } cases[] = {
        {"en-US", u"abc", u"ABC", 0}, {"en-US", u"a", u"B", -1}, {"en-US", u"résumé", u"resume", 1},
        {"en-US", u"ä", u"z", -1},    {"sv-SE", u"ä", u"z", 1},  {"de-DE", u"Öl", u"Ofen", 1},
        {"en-US", u"", u"", 0},       {"en-US", u"", u"a", -1},  {"en-US", u"9", u"a", -1},
    };
    for (const auto& [locale, a, b, order] : cases) {
        const ScopedLocale scoped(locale);
        EXPECT_EQ(CompareTexts(a, b), order) << locale;
        EXPECT_EQ(CompareTexts(b, a), -order) << locale;
    }
}

TEST(FormatDatePicture, WritesEveryField) {
    const ScopedLocale scoped("en-US");
    const struct {
        const char16_t *picture, *morning, *evening;
    } cases[] = {
        {u"M/d/yyyy", u"3/5/0987", u"11/25/2024"},
        {u"dd.MM.yy", u"05.03.87", u"25.11.24"},
        {u"ddd dddd MMM MMMM", u"Thu Thursday Mar March", u"Mon Monday Nov November"},
        {u"h:mm:ss tt", u"12:04:09 AM", u"11:59:00 PM"},
        {u"HH:m:s t", u"00:4:9 A", u"23:59:0 P"},
        {u"hh H", u"12 0", u"11 23"},
        {u"'d' d \"it's\" x", u"d 5 it's x", u"d 25 it's x"},
        {u"d 'open", u"5 open", u"25 open"},
        {u"", u"", u""},
    };
    for (const auto& [picture, morning, evening] : cases) {
        EXPECT_EQ(FormatDatePicture(CurrentLocale(), picture, 987, 3, 5, 5, 0, 4, 9), morning);
        EXPECT_EQ(FormatDatePicture(CurrentLocale(), picture, 2024, 11, 25, 2, 23, 59, 0), evening);
    }
    EXPECT_EQ(FormatDatePicture(CurrentLocale(), u"dddd|MMMM|d", 2024, 13, -5, 0, 0, 0, 0), u"||-5");
}

}  // namespace
}  // namespace ov
