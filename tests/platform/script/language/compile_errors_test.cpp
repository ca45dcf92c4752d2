#include <gtest/gtest.h>

#include <vector>

#include "platform/script/script_control.h"

namespace ov {
namespace {

struct Case {
    const char16_t* source;
    int number;
    int line = 1;
    int column = 0;  ///< 0: any
};

// The error that a text gives, as "number (line,column)"; the column is left out where the case does not tell it.
std::string ErrorOf(const Case& expected) {
    ScriptControl control;
    try {
        control.AddCode(expected.source);
    } catch (const ScriptError& error) {
        if (!error.IsCompileError()) return "runtime error " + std::to_string(error.number());
        const int column = expected.column == 0 ? 0 : error.column();
        return std::to_string(error.number()) + " (" + std::to_string(error.line()) + "," + std::to_string(column) +
               ")";
    }
    return "no error";
}

TEST(CompileErrors, HaveTheirNumbersAndPlaces) {
    const std::vector<Case> cases = {
        {u"x = = 1", 1023, 1, 5},
        {u"x = 1 +", 1023, 1, 8},
        {u"x = (1", 1006, 1, 7},
        {u"x = [a", 1007},
        {u"Dim 5", 1010, 1, 5},
        {u"Set x 5", 1011},
        {u"If x\nEnd If", 1017, 1, 5},
        {u"If x Then\ny = 1\n", 1014, 3},
        {u"If x Then\nEnd Sub", 1012, 2},
        {u"For i = 1 5\nNext", 1013},
        {u"For i = 1 To 5\n", 1020, 2},
        {u"For i = 1 To 5\nNext i", 1025, 2, 6},
        {u"For Each x Of y\nNext", 1046},
        {u"For a.b = 1 To 2\nNext", 1040},
        {u"Sub S\n", 1014, 2},
        {u"Sub S\nEnd Function", 1016, 2},
        {u"Function F\nEnd Sub", 1015, 2},
        {u"While x\nLoop", 1018, 2},
        {u"Do\nx = 1", 1019, 2},
        {u"Do Forever\nLoop", 1028},
        {u"Loop", 1038},
        {u"Next", 1055},
        {u"Select x", 1021},
        {u"Select Case x\nEnd If", 1022, 2},
        {u"Select Case x\nCase 1 To 5\nEnd Select", 1025, 2},
        {u"Select Case x\nCase Is > 5\nEnd Select", 1023, 2},
        {u"With x\nEnd If", 1029, 2},
        {u"x = 1 y = 2", 1025, 1, 7},
        {u"Dim a(n)", 1026, 1, 7},
        {u"Dim a(1.5)", 1026},
        {u"x = 1e309", 1031, 1, 5},
        {u"x = 12abc", 1031},
        {u"x = &H123456789", 1031},
        {u"x = 1 ? 2", 1032, 1, 7},
        {u"x = \"abc", 1033},
        {u"x = \"abc\ny\"", 1033},
        {u"Sub S\nMe = x\nEnd Sub", 1037, 2},
        {u"Exit Sub", 1039},
        {u"Sub S\nExit Function\nEnd Sub", 1039, 2},
        {u"Do\nExit For\nLoop", 1039, 2},
        {u"Dim a, A", 1041, 1, 8},
        {u"Sub F\nEnd Sub\nDim f", 1041, 3, 5},
        {u"Class C\nEnd Class\nConst c = 1", 1041, 3, 7},
        {u"Class C\nSub X\nEnd Sub\nDim x\nEnd Class", 1041, 4, 5},
        {u"Sub S\nDim a\nConst A = 1\nEnd Sub", 1041, 3, 7},
        {u"Class C\nSub X\nEnd Sub\nProperty Let X(v)\nEnd Property\nProperty Get X\nEnd Property\nEnd Class", 1041, 6},
        {u"Sub S(a, a)\nEnd Sub", 1041},
        {u"Sub S(a)\nDim a\nEnd Sub", 1041, 2},
        {u"Dim f\nSub F\nEnd Sub", 1041, 2},
        {u"Class C\nEnd Class\nClass c\nEnd Class", 1041, 3},
        {u"Class C\nDim x\nSub X\nEnd Sub\nEnd Class", 1041, 3},
        {u"x = 1\nOption Explicit", 1042, 2},
        {u"Foo(1, 2)", 1044, 1, 1},
        {u"Const c = x", 1045},
        {u"Const c = 1 + \"a\"", 1045, 1, 11},
        {u"Const c =", 1045},
        {u"Sub x)\nEnd Sub", 1005, 1, 6},
        {u"gr\u00FC\u00DFe = 1", 1032, 1, 3},
        {u"If x Then\nLoop\nEnd If", 1038, 2},
        {u"Do\nNext\nLoop", 1055, 2},
        {u"If True Then\nx = 0 End If", 1025, 2, 7},
        {u"If True Then\nx = 0 Else\nEnd If", 1025, 2, 7},
        {u"If False Then :\nEnd If", 1002, 2},
        {u"Class C End Class", 1025, 1, 9},
        {u"Sub S\nSub T\nEnd Sub\nEnd Sub", 1002, 2},
        {u"Property Get X\nEnd Property", 1048},
        {u"Class C\nProperty X\nEnd Property\nEnd Class", 1049, 2},
        {u"Class C\nProperty Get X\nEnd Sub\nEnd Class", 1050, 3},
        {u"Class C\nProperty Get X(a)\nEnd Property\nProperty Let X(v)\nEnd Property\nEnd Class", 1051, 4},
        {u"Class C\nPublic Default Function A\nEnd Function\nPublic Default Function B\nEnd Function\nEnd Class", 1052,
         4},
        {u"Class C\nSub Class_Initialize(a)\nEnd Sub\nEnd Class", 1053, 2},
        {u"Class C\nProperty Let X\nEnd Property\nEnd Class", 1054, 2},
        {u"Class C\nPublic Default x\nEnd Class", 1056, 2},
        {u"Class C\nDefault Function A\nEnd Function\nEnd Class", 1057, 2},
        {u"Class C\nPublic Default Property Let X(v)\nEnd Property\nEnd Class", 1058, 2},
        // What the language does not have.
        {u"Dim x As Integer", 1025, 1, 7},
        {u"GoTo label", 1002},
        {u"On Error GoTo label", 1002},
        {u"x = 1 _ ' no comment\n + 2", 1032},
    };
    for (const Case& expected : cases) {
        const std::string place = " (" + std::to_string(expected.line) + "," + std::to_string(expected.column) + ")";
        EXPECT_EQ(ErrorOf(expected), std::to_string(expected.number) + place) << Text(expected.source).ToUtf8();
    }
}

TEST(CompileErrors, OfAnExpression) {
    ScriptControl control;
    for (const char16_t* source : {u"", u"1 +", u"x = 1 : y", u"If", u"1 2", u")"}) {
        EXPECT_THROW(control.Eval(source), ScriptError) << Text(source).ToUtf8();
    }
    try {
        control.Eval(u"1 +\r\n");
        FAIL();
    } catch (const ScriptError& error) {
        EXPECT_EQ(error.number(), 1023);
        EXPECT_EQ(error.description(), u"Expected expression");
        EXPECT_TRUE(error.IsCompileError());
    }
}

}  // namespace
}  // namespace ov
