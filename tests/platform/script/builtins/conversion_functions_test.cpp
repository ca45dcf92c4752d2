#include "platform/script/builtins/builtin_call.h"
#include "support/scoped_settings.h"

namespace ov::vbscript {
namespace {

using namespace testing;

TEST(ConversionBuiltins, ConvertByTheRulesOfValues) {
    const ov::testing::ScopedLocale english("en-US");
    CheckCalls({
        {u"CInt", {2.5}, "Integer 2"},
        {u"CInt", {3.5}, "Integer 4"},
        {u"CInt", {u"&HFFFF"}, "Integer -1"},
        {u"CInt", {32767.5}, "error 6"},
        {u"CInt", {kNull}, "error 94"},
        {u"CInt", {u""}, "error 13"},
        {u"CInt", {Held(u"12")}, "Integer 12"},
        {u"CInt", {Array::OfVariants({1})}, "error 13"},
        {u"CLng", {u"&HFFFF"}, "Long 65535"},
        {u"CLng", {u"(5)"}, "Long -5"},
        {u"CByte", {255.5}, "error 6"},
        {u"CByte", {-1}, "error 6"},
        {u"CByte", {true}, "Byte 255"},
        {u"CBool", {u"false"}, "Boolean False"},
        {u"CBool", {u"2"}, "Boolean True"},
        {u"CBool", {Variant()}, "Boolean False"},
        {u"CCur", {u"1.23456"}, "Currency 1.2346"},
        {u"CCur", {1e18}, "error 6"},
        {u"CDbl", {u" 1,234.5 "}, "Double 1234.5"},
        {u"CSng", {0.1}, "Single 0.1"},
        {u"CSng", {1e39}, "error 6"},
        {u"CDate", {-1.5}, "Date 1899-12-29 12:00:00"},
        {u"CDate", {u"2024-02-29 13:14:15"}, "Date 2024-02-29 13:14:15"},
        {u"CDate", {u"nothing like it"}, "error 13"},
        {u"CStr", {1e15}, "String 1E+15"},
        {u"CStr", {0.1f}, "String 0.1"},
        {u"CStr", {true}, "String True"},
        {u"CStr", {Variant()}, "String "},
        {u"CStr", {kNull}, "error 94"},
        {u"CStr", {Variant::Nothing()}, "error 91"},
    });
}

TEST(ConversionBuiltins, HexAndOctGoByTheType) {
    CheckCalls({
        {u"Hex", {Int(-1)}, "String FFFF"},
        {u"Hex", {-1}, "String FFFFFFFF"},
        {u"Hex", {-1.0}, "String FFFFFFFF"},
        {u"Hex", {true}, "String FFFF"},
        {u"Hex", {Byte(255)}, "String FF"},
        {u"Hex", {255}, "String FF"},
        {u"Hex", {2.5}, "String 2"},
        {u"Hex", {u"459"}, "String 1CB"},
        {u"Hex", {Variant()}, "String 0"},
        {u"Hex", {kNull}, "Null"},
        {u"Hex", {Held(kNull)}, "Null"},
        {u"Hex", {2147483648.0}, "error 6"},
        {u"Oct", {Int(-1)}, "String 177777"},
        {u"Oct", {-1}, "String 37777777777"},
        {u"Oct", {8}, "String 10"},
        {u"Oct", {0}, "String 0"},
    });
}

TEST(CharacterBuiltins, KnowTheCodePageAndTheWideCodes) {
    CheckCalls({
        {u"Asc", {u"Apple"}, "Integer 65"},
        {u"Asc", {u"€"}, "Integer 128"},
        {u"Asc", {u"ü"}, "Integer 252"},
        {u"Asc", {u"Ω"}, "Integer 63"},
        {u"Asc", {5}, "Integer 53"},
        {u"Asc", {u""}, "error 5"},
        {u"Asc", {kNull}, "error 94"},
        {u"AscW", {u"Ω"}, "Integer 937"},
        {u"AscW", {u"\uFFFD"}, "Integer -3"},
        {u"AscB", {u"Ω"}, "Integer 169"},
        {u"Chr", {65}, "String A"},
        {u"Chr", {128}, "String €"},
        {u"Chr", {0xFC}, "String ü"},
        {u"Chr", {256}, "error 5"},
        {u"Chr", {-1}, "error 5"},
        {u"ChrW", {937}, "String Ω"},
        {u"ChrW", {-3}, "String \uFFFD"},
        {u"ChrW", {65536}, "error 5"},
        {u"ChrW", {-32769}, "error 5"},
        {u"ChrB", {65}, "String "},
        {u"ChrB", {256}, "error 6"},
        {u"Space", {3}, "String    "},
        {u"Space", {0}, "String "},
        {u"Space", {-1}, "error 5"},
        {u"String", {3, 65}, "String AAA"},
        {u"String", {3, u"xy"}, "String xxx"},
        {u"String", {2, 65 + 256}, "String AA"},
        {u"String", {2, u"65"}, "String 66"},
        {u"String", {2, u""}, "error 5"},
        {u"String", {-1, u"a"}, "error 5"},
        {u"String", {kNull, u"a"}, "Null"},
        {u"String", {3, kNull}, "Null"},
    });
    EXPECT_EQ(Call(u"Chr", {0}), std::string("String \0", 8));
}

TEST(EscapeBuiltins, GoThereAndBack) {
    CheckCalls({
        {u"Escape", {u"a b/c@1*_+-."}, "String a%20b/c@1*_+-."},
        {u"Escape", {u"ä€%"}, "String %E4%u20AC%25"},
        {u"Escape", {kNull}, "Null"},
        {u"Unescape", {u"%E4%u20ac%25%41"}, "String ä€%A"},
        {u"Unescape", {u"%"}, "String %"},
        {u"Unescape", {u"%u12"}, "String %u12"},
        {u"Unescape", {u"%4"}, "String %4"},
        {u"Unescape", {u"%zz%u00zz"}, "String %zz%u00zz"},
        {u"Unescape", {u"100%25"}, "String 100%"},
    });
    EXPECT_EQ(Call(u"Escape", {Text::Repeat(1, u'\0')}), "String %00");
}

}  // namespace
}  // namespace ov::vbscript
