#include "platform/automation/dictionary.h"
#include "platform/script/builtins/builtin_call.h"
#include "support/scoped_settings.h"

namespace ov::vbscript {
namespace {

using namespace testing;
using ov::testing::ScopedLocale;

TEST(InspectionBuiltins, NameTypes) {
    const Variant dictionary = MakeObject<Dictionary>();
    const std::array oneByte = {ArrayBound{0, 1}};
    const struct {
        Variant value;
        const char* name;
        const char* number;
    } cases[] = {
        {Variant(), "Empty", "0"},
        {kNull, "Null", "1"},
        {Int(1), "Integer", "2"},
        {1, "Long", "3"},
        {1.0f, "Single", "4"},
        {1.0, "Double", "5"},
        {Currency{1}, "Currency", "6"},
        {Date{1}, "Date", "7"},
        {u"", "String", "8"},
        {Variant::Nothing(), "Nothing", "9"},
        {dictionary, "Dictionary", "9"},
        {Held(u"x"), "Holder", "8"},
        {Held(Variant::Nothing()), "Holder", "9"},
        {ErrorCode{3}, "Error", "10"},
        {kMissing, "Error", "10"},
        {true, "Boolean", "11"},
        {Decimal(1), "Decimal", "14"},
        {Byte(1), "Byte", "17"},
        {Array::OfVariants({}), "Variant()", "8204"},
        {Array(), "Variant()", "8204"},
        {Array(VarType::Byte, oneByte), "Byte()", "8209"},
        {Array(VarType::String, oneByte), "String()", "8200"},
        {Held(Array::OfBytes({})), "Holder", "8209"},
    };
    for (const auto& [value, name, number] : cases) {
        EXPECT_EQ(Call(u"TypeName", {value}), std::string("String ") + name);
        EXPECT_EQ(Call(u"VarType", {value}), std::string("Integer ") + number) << name;
    }
}

TEST(InspectionBuiltins, AskOfValuesAndDefaultValues) {
    const ScopedLocale english("en-US");
    const char* const yes = "Boolean True";
    const char* const no = "Boolean False";
    CheckCalls({
        {u"IsArray", {Array()}, yes},
        {u"IsArray", {Held(Array())}, no},
        {u"IsArray", {u"a"}, no},
        {u"IsObject", {Variant::Nothing()}, yes},
        {u"IsObject", {Held(1)}, yes},
        {u"IsObject", {Variant()}, no},
        {u"IsEmpty", {Variant()}, yes},
        {u"IsEmpty", {u""}, no},
        {u"IsEmpty", {Held(Variant())}, yes},
        {u"IsEmpty", {Variant::Nothing()}, no},
        {u"IsNull", {kNull}, yes},
        {u"IsNull", {Held(kNull)}, yes},
        {u"IsNull", {MakeObject<Dictionary>()}, no},
        {u"IsNull", {kMissing}, no},
        {u"IsNumeric", {u"&H1F"}, yes},
        {u"IsNumeric", {u"$12"}, yes},
        {u"IsNumeric", {Variant()}, yes},
        {u"IsNumeric", {u""}, no},
        {u"IsNumeric", {kNull}, no},
        {u"IsNumeric", {Date{1}}, no},
        {u"IsNumeric", {Held(u"12")}, yes},
        {u"IsDate", {Date{1}}, yes},
        {u"IsDate", {u"2/29/2024"}, yes},
        {u"IsDate", {u"2/29/2023 x"}, no},
        {u"IsDate", {45000}, no},
        {u"IsDate", {kNull}, no},
        {u"IsDate", {Held(Date{1})}, yes},
    });
}

TEST(EnvironmentBuiltins, TellTheLanguageAndColours) {
    CheckCalls({
        {u"ScriptEngine", {}, "String VBScript"},
        {u"ScriptEngineMajorVersion", {}, "Long 5"},
        {u"ScriptEngineMinorVersion", {}, "Long 8"},
        {u"RGB", {255, 0, 0}, "Long 255"},
        {u"RGB", {1, 2, 3}, "Long 197121"},
        {u"RGB", {0, 0, 999}, "Long 16711680"},
        {u"RGB", {-1, 0, 0}, "error 5"},
        {u"RGB", {kNull, 0, 0}, "error 94"},
        {u"LoadPicture", {u"a.bmp"}, "error 481"},
    });
}

TEST(EnvironmentBuiltins, SetTheLocale) {
    const ScopedLocale english("en-US");
    TestContext context;
    EXPECT_EQ(Call(context, u"GetLocale", {}), "Long 1033");
    EXPECT_EQ(Call(context, u"SetLocale", {1031}), "Long 1033");
    EXPECT_EQ(Call(context, u"CStr", {1.5}), "String 1,5");
    EXPECT_EQ(Call(context, u"SetLocale", {u"en-gb"}), "Long 1031");
    EXPECT_EQ(Call(context, u"SetLocale", {u"1031"}), "Long 2057");
    EXPECT_EQ(Call(context, u"SetLocale", {u"no such locale"}), "error 5");
    EXPECT_EQ(Call(context, u"SetLocale", {u""}), "error 5");
    EXPECT_EQ(Call(context, u"SetLocale", {987654}), "error 5");
    EXPECT_EQ(Call(context, u"SetLocale", {kNull}), "error 94");
    EXPECT_EQ(Call(context, u"GetLocale", {}), "Long 1031");
    EXPECT_EQ(Call(context, u"SetLocale", {0}), "Long 1031");
}

TEST(BuiltinTables, AreFoundWithoutRegardToCase) {
    for (const std::u16string_view name : {u"mid", u"MID", u"InStrRev", u"randomize", u"uBound", u"weekdayname"}) {
        ASSERT_NE(FindBuiltin(name), nullptr);
        EXPECT_TRUE(EqualNoCase(FindBuiltin(name)->name, name));
    }
    for (const std::u16string_view name : {u"", u"Val", u"IIf", u"Format", u"MsgBox", u"Eval", u"Mi", u"Midd"}) {
        EXPECT_EQ(FindBuiltin(name), nullptr);
    }
    EXPECT_EQ(Call(u"Mid", {u"abc"}), "wrong number of arguments");
    EXPECT_EQ(Call(u"Date", {1}), "wrong number of arguments");
}

TEST(BuiltinTables, HoldTheConstants) {
    const struct {
        const char16_t* name;
        const char* value;
    } cases[] = {
        {u"vbCrLf", "String \r\n"},
        {u"VBNEWLINE", "String \r\n"},
        {u"vbNullString", "String "},
        {u"vbTab", "String \t"},
        {u"vbTrue", "Integer -1"},
        {u"vbUseDefault", "Integer -2"},
        {u"vbObjectError", "Long -2147221504"},
        {u"vbYellow", "Long 65535"},
        {u"vbWhite", "Long 16777215"},
        {u"vbFriday", "Integer 6"},
        {u"vbFirstFullWeek", "Integer 3"},
        {u"vbShortTime", "Integer 4"},
        {u"vbArray", "Integer 8192"},
        {u"vbDefaultButton4", "Integer 768"},
        {u"vbMsgBoxRtlReading", "Long 1048576"},
        {u"vbNo", "Integer 7"},
        {u"vbTextCompare", "Integer 1"},
    };
    for (const auto& [name, value] : cases) {
        ASSERT_NE(FindConstant(name), nullptr) << Text(name).ToUtf8();
        EXPECT_EQ(Describe(*FindConstant(name)), value) << Text(name).ToUtf8();
    }
    EXPECT_EQ(FindConstant(u"vbNullChar")->AsText().size(), 1u);
    EXPECT_EQ(FindConstant(u"vbNothing"), nullptr);
}

}  // namespace
}  // namespace ov::vbscript
