// The machine has short cuts by where operands lie and what they hold. Whichever it takes, the result is the same.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "platform/automation/conversions.h"
#include "platform/script/script_control.h"

namespace ov {

namespace {

constexpr std::array kOperators = {u"+",  u"-", u"*",  u"/", u"\\", u"Mod", u"And",
                                   u"Or", u"=", u"<>", u"<", u"<=", u">",   u">="};
constexpr std::array kLiterals = {
    u"0",          u"1",     u"-1",    u"3",     u"32767", u"-32768",     u"40000",
    u"2147483647", u"0.5",   u"-2.5",  u"1E308", u"\"5\"", u"\"x\"",      u"\"\"",
    u"True",       u"False", u"Empty", u"Null",  u"3E9",   u"#1/2/2000#", u"-2147483647 - 1"};

class OperandForms : public testing::Test {
protected:
    OperandForms() {
        mControl.AddCode(
            u"Function Told(v): If IsNull(v) Then Told = \"Null\" Else Told = TypeName(v) & \" \" & v\n"
            u"End Function");
    }
    /// What a call gives, with its type, or the number of its error.
    std::string Outcome(const std::u16string& call) {
        try {
            return ToText(mControl.Eval(u"Told(" + call + u")")).ToUtf8();
        } catch (const RuntimeError& error) {
            return "error " + std::to_string(error.number());
        }
    }

    ScriptControl mControl;
};

TEST_F(OperandForms, AgreeWithOperandsAnywhere) {
    for (const std::u16string op : kOperators) {
        const std::u16string step = u"a " + op + u" b";
        // Global names, slots of the frame, parameters that stand for variables elsewhere.
        mControl.AddCode(u"Dim a, b\nFunction Globally: Globally = " + step + u": End Function\n" +
                         u"Function InSlots: Dim a, b: Take a, b: InSlots = " + step + u": End Function\n" +
                         u"Sub Take(x, y): x = a: y = b: End Sub\n" +  //
                         u"Function Through(a, b): Through = " + step + u": End Function\n" +
                         u"Function Passing: Dim a, b: Take a, b: On Error Resume Next: Passing = " + step +
                         u": If Err.Number <> 0 Then n = Err.Number: On Error GoTo 0: Err.Raise n\nEnd Function\n" +
                         u"Function Choosing: Dim a, b: Take a, b: Choosing = False: If " + step +
                         u" Then Choosing = True\nEnd Function\n" +
                         u"Function ChoosingGlobally: ChoosingGlobally = False: If " + step +
                         u" Then ChoosingGlobally = True\nEnd Function");
        for (const std::u16string right : kLiterals) {
            const bool isLiteral = right.find(u' ') == right.npos;
            mControl.AddCode(u"Function BesideLiteral: Dim c, d: Take c, d: BesideLiteral = c " + op + u" (" + right +
                             u"): End Function\n" + u"Function GloballyBesideLiteral: GloballyBesideLiteral = a " + op +
                             u" (" + right + u"): End Function");
            for (const std::u16string left : kLiterals) {
                SCOPED_TRACE(Text(left + u" " + op + u" " + right).ToUtf8());
                mControl.ExecuteStatement(u"a = " + left + u": b = " + right);
                const std::string expected = Outcome(u"Globally()");
                EXPECT_EQ(Outcome(u"InSlots()"), expected);
                EXPECT_EQ(Outcome(u"Through(a, b)"), expected);
                EXPECT_EQ(Outcome(u"Passing()"), expected);
                EXPECT_EQ(Outcome(u"Choosing()"), Outcome(u"ChoosingGlobally()"));
                if (isLiteral) {
                    EXPECT_EQ(Outcome(u"BesideLiteral()"), Outcome(u"GloballyBesideLiteral()"));
                }
            }
        }
    }
}

TEST_F(OperandForms, LoopsAndElementsAgreeToo) {
    mControl.AddCode(
        u"Function Counted(first, last, by)\n"
        u"  Dim i, n, a(3): n = 0\n"
        u"  For i = first To last Step by: n = n + 1: a(n Mod 4) = i: If n > 5 Then Exit For\n"
        u"  Next\n"
        u"  Counted = n & \" \" & TypeName(i) & \" \" & i & \" \" & TypeName(a(1)) & \" \" & a(n Mod 4)\n"
        u"End Function\n"
        u"Dim gi, gn, ga(3)\n"
        u"Function CountedGlobally(first, last, by)\n"
        u"  gn = 0: Erase ga\n"
        u"  For gi = first To last Step by: gn = gn + 1: ga(gn Mod 4) = gi: If gn > 5 Then Exit For\n"
        u"  Next\n"
        u"  CountedGlobally = gn & \" \" & TypeName(gi) & \" \" & gi & \" \" & TypeName(ga(1)) & \" \" & "
        u"ga(gn Mod 4)\n"
        u"End Function");
    const std::vector<std::u16string> loops = {u"1, 3, 1",
                                               u"3, 1, -1",
                                               u"1, 0, 1",
                                               u"32766, 32767, 1",
                                               u"-32767, -32768, -1",
                                               u"2147483646, 2147483647, 1",
                                               u"0, 1, 0.25",
                                               u"1, 40000, 20000",
                                               u"1, 3, 0",
                                               u"CByte(254), CByte(255), 1",
                                               u"\"1\", \"2\", 1"};
    for (const std::u16string& loop : loops) {
        SCOPED_TRACE(Text(loop).ToUtf8());
        EXPECT_EQ(Outcome(u"Counted(" + loop + u")"), Outcome(u"CountedGlobally(" + loop + u")"));
    }
    // A value that an assignment to an element shares, and one that is not there.
    mControl.AddCode(
        u"Function Elements\n"
        u"  Dim a(2), b, s, n: s = \"\"\n"
        u"  a(0) = 1: b = a: a(0) = 2: a(1) = a: a(2) = True: s = s & b(0) & a(0) & a(1)(0) & a(2)\n"
        u"  On Error Resume Next\n"
        u"  n = a(3): s = s & \" \" & Err.Number: Err.Clear\n"
        u"  a(-1) = 1: s = s & \" \" & Err.Number: Err.Clear\n"
        u"  n = n.x: s = s & \" \" & Err.Number: Err.Clear\n"
        u"  s = s & (\"x\" - 1) & \"never\": s = s & a(9) & \"never\": n = 1 + 2 * (3 \\ 2) * \"x\"\n"
        u"  s = s & \" \" & Err.Number: Err.Clear\n"
        u"  Err.Raise 7, \"me\": s = s & \" \" & Err.Number & Err.Source & Err.Description\n"
        u"  Elements = s & \" \" & IsEmpty(n)\n"
        u"End Function");
    EXPECT_EQ(Outcome(u"Elements()"), "String 122True 9 9 424 13 7meOut of memory True");
}

}  // namespace

}  // namespace ov
