#include "platform/script/builtins/builtin_call.h"
#include "support/scoped_settings.h"

namespace ov::vbscript {
namespace {

using namespace testing;

TEST(TextPartBuiltins, TakePartsOfTexts) {
    CheckCalls({
        {u"Left", {u"abc", 2}, "String ab"},
        {u"Left", {u"abc", 9}, "String abc"},
        {u"Left", {u"abc", 0}, "String "},
        {u"Left", {12345, 2}, "String 12"},
        {u"Left", {u"abc", -1}, "error 5"},
        {u"Left", {u"abc", kNull}, "error 94"},
        {u"Left", {kNull, 1}, "Null"},
        {u"Left", {Held(kNull), 1}, "Null"},
        {u"Right", {u"abc", 2}, "String bc"},
        {u"Right", {u"abc", 9}, "String abc"},
        {u"Right", {u"abc", 0}, "String "},
        {u"Right", {u"abc", -1}, "error 5"},
        {u"Mid", {u"abcdef", 3}, "String cdef"},
        {u"Mid", {u"abcdef", 3, 2}, "String cd"},
        {u"Mid", {u"abcdef", 3, kMissing}, "String cdef"},
        {u"Mid", {u"abcdef", 6, 9}, "String f"},
        {u"Mid", {u"abcdef", 7}, "String "},
        {u"Mid", {u"abcdef", 2147483647, 2147483647}, "String "},
        {u"Mid", {u"abc", 0}, "error 5"},
        {u"Mid", {u"abc", 1, -1}, "error 5"},
        {u"Mid", {kNull, 1, 1}, "Null"},
        {u"Len", {u"abc"}, "Long 3"},
        {u"Len", {1234}, "Long 4"},
        {u"Len", {Variant()}, "Long 0"},
        {u"Len", {kNull}, "Null"},
        {u"Len", {Held(u"four")}, "Long 4"},
        {u"LTrim", {u"  a b  "}, "String a b  "},
        {u"RTrim", {u"  a b  "}, "String   a b"},
        {u"Trim", {u"  a b  "}, "String a b"},
        {u"Trim", {u"    "}, "String "},
        {u"Trim", {u"\t a\u00A0"}, "String \t a\u00A0"},
        {u"Trim", {kNull}, "Null"},
        {u"LCase", {u"ÄB1"}, "String äb1"},
        {u"UCase", {u"straße"}, "String STRAßE"},
        {u"UCase", {kNull}, "Null"},
        {u"UCase", {12}, "String 12"},
        {u"StrReverse", {u"abc"}, "String cba"},
        {u"StrReverse", {kNull}, "error 94"},
    });
}

TEST(TextPartBuiltins, MapLongTextsBlockByBlock) {
    // A pair of surrogates lies across the end of the first block.
    std::u16string text(2047, u'a');
    std::u16string upper(2047, u'A');
    text += u"\U00010428ä";   // Deseret small letter
    upper += u"\U00010400Ä";  // and its capital
    text += std::u16string(5000, u'z') + u"\xD801";
    upper += std::u16string(5000, u'Z') + u"\xD801";
    TestContext context;
    std::vector<Variant> arguments{Text(text)};
    EXPECT_EQ(FindBuiltin(u"UCase")->call(context, arguments).AsText(), Text(upper));
}

TEST(TextByteBuiltins, SeeTwoBytesInEachCharacter) {
    CheckCalls({
        {u"LenB", {u"abc"}, "Long 6"},
        {u"LenB", {kNull}, "Null"},
        {u"LeftB", {u"abc", 4}, "String ab"},
        {u"LeftB", {u"abc", 99}, "String abc"},
        {u"LeftB", {u"\u0142b", 1}, "String "},
        {u"LeftB", {u"abc", -1}, "error 5"},
        {u"RightB", {u"abc", 2}, "String c"},
        {u"RightB", {u"a\u4200", 1}, "String "},
        {u"RightB", {kNull, 1}, "Null"},
        {u"MidB", {u"\u4241\u4443", 2, 2}, "String \u4342"},
        {u"MidB", {u"abc", 3}, "String bc"},
        {u"MidB", {u"abc", 7, 2}, "String "},
        {u"MidB", {u"abc", 0}, "error 5"},
        {u"InStrB", {u"abc", u"b"}, "Long 3"},
        {u"InStrB", {2, u"\u4241\u4443", u"\u4342"}, "Long 2"},
        {u"InStrB", {4, u"abc", u"b"}, "Long 0"},
        {u"InStrB", {1, u"abc", u"B", 1}, "Long 3"},
        {u"InStrB", {u"", u"a"}, "Long 0"},
        {u"InStrB", {0, u"a", u"a"}, "error 5"},
        {u"InStrB", {u"abc", kNull}, "Null"},
    });
}

TEST(TextSearchBuiltins, FindPlaces) {
    CheckCalls({
        {u"InStr", {u"abcabc", u"c"}, "Long 3"},
        {u"InStr", {4, u"abcabc", u"c"}, "Long 6"},
        {u"InStr", {u"abc", u"x"}, "Long 0"},
        {u"InStr", {u"abc", u"B"}, "Long 0"},
        {u"InStr", {1, u"abc", u"B", 1}, "Long 2"},
        {u"InStr", {1, u"GRÖSSE", u"ö", 1}, "Long 3"},
        {u"InStr", {u"abc", u""}, "Long 1"},
        {u"InStr", {2, u"abc", u""}, "Long 2"},
        {u"InStr", {4, u"abc", u""}, "Long 0"},
        {u"InStr", {u"", u""}, "Long 0"},
        {u"InStr", {u"", u"a"}, "Long 0"},
        {u"InStr", {9, u"abc", u"a"}, "Long 0"},
        {u"InStr", {u"ab", u"abc"}, "Long 0"},
        {u"InStr", {0, u"abc", u"a"}, "error 5"},
        {u"InStr", {kNull, u"abc", u"a"}, "error 94"},
        {u"InStr", {kNull, u"a"}, "Null"},
        {u"InStr", {u"abc", kNull}, "Null"},
        {u"InStr", {1, u"abc", u"a", 2}, "error 5"},
        {u"InStr", {1, u"abc", u"a", kNull}, "error 94"},
        {u"InStr", {123, 2}, "Long 2"},
        {u"InStrRev", {u"abcabc", u"c"}, "Long 6"},
        {u"InStrRev", {u"abcabc", u"bc", 3}, "Long 2"},
        {u"InStrRev", {u"abcabc", u"bc", 5}, "Long 2"},
        {u"InStrRev", {u"abcabc", u"C", -1, 1}, "Long 6"},
        {u"InStrRev", {u"abcabc", u"c", kMissing, 0}, "Long 6"},
        {u"InStrRev", {u"abc", u""}, "Long 3"},
        {u"InStrRev", {u"abc", u"", 2}, "Long 2"},
        {u"InStrRev", {u"", u""}, "Long 0"},
        {u"InStrRev", {u"abc", u"a", 4}, "Long 0"},
        {u"InStrRev", {u"abc", u"abcd"}, "Long 0"},
        {u"InStrRev", {u"abc", u"a", 0}, "error 5"},
        {u"InStrRev", {u"abc", u"a", -2}, "error 5"},
        {u"InStrRev", {kNull, u"a"}, "Null"},
    });
}

TEST(TextSearchBuiltins, CompareTexts) {
    const ov::testing::ScopedLocale english("en-US");
    CheckCalls({
        {u"StrComp", {u"abc", u"ABC"}, "Integer 1"},
        {u"StrComp", {u"ABC", u"abc"}, "Integer -1"},
        {u"StrComp", {u"abc", u"ABC", 1}, "Integer 0"},
        {u"StrComp", {u"a", u"B", 1}, "Integer -1"},
        {u"StrComp", {u"ä", u"b", 1}, "Integer -1"},
        {u"StrComp", {u"ä", u"b"}, "Integer 1"},
        {u"StrComp", {u"", Variant()}, "Integer 0"},
        {u"StrComp", {12, u"12"}, "Integer 0"},
        {u"StrComp", {u"a", kNull}, "Null"},
        {u"StrComp", {u"a", u"b", 7}, "error 5"},
    });
}

TEST(TextSearchBuiltins, ReplaceTexts) {
    CheckCalls({
        {u"Replace", {u"aXbXc", u"X", u"--"}, "String a--b--c"},
        {u"Replace", {u"XXpXXPXXp", u"p", u"Y"}, "String XXYXXPXXY"},
        {u"Replace", {u"XXpXXPXXp", u"p", u"Y", 3, -1, 1}, "String YXXYXXY"},
        {u"Replace", {u"aaaa", u"a", u"b", 1, 2}, "String bbaa"},
        {u"Replace", {u"aaaa", u"aa", u"a"}, "String aa"},
        {u"Replace", {u"aaaa", u"a", u""}, "String "},
        {u"Replace", {u"abc", u"", u"x"}, "String abc"},
        {u"Replace", {u"abc", u"b", u"x", 2}, "String xc"},
        {u"Replace", {u"abc", u"", u"x", 2}, "String bc"},
        {u"Replace", {u"abc", u"b", u"x", 2, 0}, "String bc"},
        {u"Replace", {u"abc", u"b", u"x", 4}, "String "},
        {u"Replace", {u"abc", u"b", u"x", kMissing, 1}, "String axc"},
        {u"Replace", {u"", u"b", u"x"}, "String "},
        {u"Replace", {121, 1, 3}, "String 323"},
        {u"Replace", {u"abc", u"b", u"x", 0}, "error 5"},
        {u"Replace", {u"abc", u"b", u"x", 1, -2}, "error 5"},
        {u"Replace", {u"abc", u"b", u"x", 1, 1, 2}, "error 5"},
        {u"Replace", {kNull, u"b", u"x"}, "error 94"},
        {u"Replace", {u"abc", u"b", kNull}, "error 94"},
    });
}

}  // namespace
}  // namespace ov::vbscript
