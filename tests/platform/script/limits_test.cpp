// A script can fail in any way and the process goes on: time, memory, depth.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <tuple>

#include "platform/automation/memory_account.h"
#include "platform/script/script_control.h"
#include "platform/script/script_host.h"

namespace ov {
namespace {

using Clock = std::chrono::steady_clock;

class ScriptLimits : public ::testing::Test {
protected:
    ScriptLimits() {
        mControl.AddObject(u"Host", mHost->Dispatch(), true);
        mControl.AddObject(u"Probe", mProbe->Dispatch(), false);
    }
    // The number of the error that statements end with; 0 for none.
    int Run(const Text& statements) {
        try {
            mControl.ExecuteStatement(statements);
        } catch (const RuntimeError& error) {
            return error.number();
        }
        return 0;
    }
    // The same by Err, for statements that go on after an error.
    int Trap(const Text& statements) {
        Run(u"caught = -1: On Error Resume Next\n" + statements + u"\ncaught = Err.Number");
        return ToLong(mControl.Eval(u"caught"));
    }
    void ExpectTimeout(const Text& statements) {
        mControl.SetTimeout(100);
        const Clock::time_point begin = Clock::now();
        EXPECT_EQ(Run(statements), 18) << statements.ToUtf8();
        EXPECT_LT(Clock::now() - begin, std::chrono::seconds(3));
        EXPECT_TRUE(mHost->lines.empty());
        EXPECT_EQ(ToLong(mControl.Eval(u"1 + 2")), 3);
    }

    Ref<testing::Host> mHost = MakeObject<testing::Host>();
    Ref<testing::Probe> mProbe = MakeObject<testing::Probe>();
    ScriptControl mControl{ScriptPolicy::Host};
};

TEST_F(ScriptLimits, TimeEndsLoops) {
    ExpectTimeout(u"Do: Loop");
    ExpectTimeout(u"On Error Resume Next\nDo: x = 1 / 0: Loop\nEcho \"never\"");
    ExpectTimeout(u"For i = 1 To 2 Step 0: Next");
    ExpectTimeout(u"While True: Wend");
    ExpectTimeout(u"Sub S: On Error Resume Next: Do: Loop: End Sub\nOn Error Resume Next: S: Echo \"never\"");
    ExpectTimeout(u"On Error Resume Next: Execute \"Do: Loop\": Echo \"never\"");
    ExpectTimeout(u"On Error Resume Next: Do: x = Eval(\"1 +\"): Loop");
    ExpectTimeout(
        u"Class T: Private Sub Class_Terminate: Set x = New T: Set x = Nothing: Set y = New T: End Sub: "
        u"End Class\nSet t1 = New T: Set t1 = Nothing: Do: Loop");
}

// The end of an object that makes another one, outside any call.
TEST_F(ScriptLimits, TimeEndsEndlessEnds) {
    const Clock::time_point begin = Clock::now();
    {
        ScriptControl control;
        control.SetTimeout(50);
        control.AddCode(
            u"Class T: Private Sub Class_Terminate: Set y = New T: End Sub: End Class\n"
            u"Function Make: Set Make = New T: End Function\nSet a = New T: Set b = New T");
        Arguments none;
        control.CallProcedure(u"Make", none);
    }
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(5));
}

TEST_F(ScriptLimits, TimeEndsWorkOnBigValues) {
    ExpectTimeout(u"s = String(5000000, \"a\"): Do: t = s & \"b\": Loop");
    ExpectTimeout(u"s = String(5000000, \"a\"): t = s & \"b\": u = s & \"b\": Do: x = (t = u): Loop");
    ExpectTimeout(u"ReDim a(1000000): Do: b = a: b(0) = 1: Loop");
    ExpectTimeout(u"Do: ReDim a(1000000): Loop");
    ExpectTimeout(u"s = String(5000000, \"a\"): Do: t = StrReverse(s): Loop");
    ExpectTimeout(u"t = s & \"b\": Do: x = StrComp(s, t, 1): Loop");
    ExpectTimeout(u"Do: x = Filter(a, \"x\"): Loop");
    ExpectTimeout(u"s = \"x=1:\": For i = 1 To 22: s = s & s: Next: Execute s");
}

TEST_F(ScriptLimits, TimeCountsThroughNestedCalls) {
    ScriptControl inner;
    inner.SetTimeout(60'000);
    mProbe->action = [&](const Variant&) {
        inner.ExecuteStatement(u"Do: Loop");
        return Variant();
    };
    // The outer engine's bound holds for the inner one, and its script ends too although it goes on after errors.
    ExpectTimeout(u"On Error Resume Next: Do: Probe.Run 1: Loop");
    EXPECT_EQ(ToLong(inner.Eval(u"1 + 1")), 2);
    // Time spent in the host counts.
    mProbe->action = [](const Variant&) {
        const Clock::time_point until = Clock::now() + std::chrono::milliseconds(30);
        while (Clock::now() < until) {
        }
        return Variant();
    };
    ExpectTimeout(u"On Error Resume Next: Do: Probe.Run 1: Loop");
    // A bound of 0 is none, and the bound of one call does not shorten the next one.
    mControl.SetTimeout(0);
    EXPECT_EQ(Run(u"For i = 1 To 100000: Next"), 0);
}

TEST_F(ScriptLimits, DepthOfCallsIsAnError) {
    mControl.AddCode(
        u"Sub Down(n): Down n + 1: End Sub\n"
        u"Function Again: Again = Eval(\"Again()\"): End Function\n"
        u"Sub Text: Execute \"Text\": End Sub\n"
        u"Class Own: Public Default Property Get V: V = Me + 1: End Property\n"
        u"  Public Sub M: M: End Sub\n"
        u"  Private Sub Class_Initialize: count = count + 1: If count > 5 Then Set o = New Own\n"
        u"  End Sub\n"
        u"End Class\n"
        u"Class Endless: Private Sub Class_Initialize: Set x = New Endless: End Sub: End Class\n"
        u"count = 0: Set single = New Own");
    EXPECT_EQ(Run(u"Down 1"), 28);
    EXPECT_EQ(Trap(u"Down 1"), 28);
    EXPECT_EQ(Trap(u"x = Again()"), 28);
    EXPECT_EQ(Trap(u"Text"), 28);
    EXPECT_EQ(Trap(u"x = single + 1"), 28);
    EXPECT_EQ(Trap(u"single.M"), 28);
    EXPECT_EQ(Trap(u"Set x = New Endless"), 28);
    mProbe->action = [&](const Variant&) { return mControl.Eval(u"Probe.Run(1)"); };
    EXPECT_EQ(Trap(u"Probe.Run 1"), 28);
    // Depth that a script may well have.
    mControl.AddCode(u"Function Sum(n): If n = 0 Then Sum = 0 Else Sum = n + Sum(n - 1)\nEnd Function");
    EXPECT_EQ(ToLong(mControl.Eval(u"Sum(5000)")), 12'502'500);
}

TEST_F(ScriptLimits, ErrorsOfLimitsHaveTheirPlace) {
    struct Case {
        const char16_t* code;
        int number;
        int line;
        int column;
    };
    mControl.AddCode(u"Sub Down(n)\n  Down n + 1\nEnd Sub");
    mControl.SetTimeout(50);
    for (const Case& c : {Case{u"x = 1\nDo\n  x = 2\nLoop", 18, 4, 1}, Case{u"x = 1\n\n Do: Loop", 18, 3, 6},
                          Case{u"x = 1\nFor i = 1 To 2 Step 0\nNext", 18, 3, 1},
                          Case{u"x = 1\n  t = Replace(String(50000000, \"a\"), \"a\", \"bb\")", 18, 2, 3},
                          Case{u"\nDown 1", 28, 2, 3}, Case{u"\n ReDim a(100000000)", 7, 2, 8}}) {
        try {
            mControl.ExecuteStatement(c.code);
            ADD_FAILURE() << Text(c.code).ToUtf8();
        } catch (const ScriptError& error) {
            EXPECT_EQ(std::tuple(error.number(), error.line(), error.column()), std::tuple(c.number, c.line, c.column))
                << Text(c.code).ToUtf8();
        }
    }
}

TEST_F(ScriptLimits, DepthOfTextsIsAnError) {
    const auto nested = [&](const char16_t* open, const char16_t* middle, const char16_t* close) {
        std::u16string text;
        for (int i = 0; i < 20'000; ++i) {
            text += open;
        }
        text += middle;
        for (int i = 0; i < 20'000; ++i) {
            text += close;
        }
        return Text(text);
    };
    EXPECT_EQ(Run(u"x = " + nested(u"(", u"1", u")")), 1001);
    EXPECT_EQ(Run(u"x = " + nested(u"f(", u"1", u")")), 1001);
    EXPECT_EQ(Run(u"x = " + nested(u"-", u"1", u"")), 1001);
    EXPECT_EQ(Run(u"x = " + nested(u"Not ", u"1", u"")), 1001);
    EXPECT_EQ(Run(u"x = " + nested(u"a.", u"b", u"")), 1001);
    EXPECT_EQ(Run(u"a" + nested(u"(1)", u"", u"") + u" = 1"), 1001);
    EXPECT_EQ(Run(nested(u"If x Then ", u"y = 1", u"")), 1001);
    EXPECT_EQ(Run(nested(u"Do\n", u"y = 1\n", u"Loop\n")), 1001);
    EXPECT_EQ(Run(Text::Repeat((16u << 20) + 1, u' ')), 1001);
    const auto listOf = [&](std::size_t count) {
        std::u16string text = u"x = Array(0";
        for (std::size_t i = 1; i < count; ++i) {
            text += u",0";
        }
        return Text(text + u")");
    };
    EXPECT_EQ(Run(listOf(16'385)), 1001);
    std::u16string fields = u"Class Wide: Public a0";
    for (int i = 1; i < 65'535; ++i) {
        fields += u",a" + std::u16string(Text::FromInteger(i).view());
    }
    EXPECT_EQ(Run(Text(fields + u": End Class")), 1001);
    // Length alone is none, but what a text is compiled by has to fit.
    EXPECT_EQ(Run(u"long = \"" + Text::Repeat(2'000'000, u'a') + u"\": x = Len(long)"), 0);
    EXPECT_EQ(ToLong(mControl.Eval(u"x")), 2'000'000);
    std::u16string words;
    words.reserve(16u << 20);
    while (words.size() + 4 < (16u << 20)) {
        words += u"x=1\n";
    }
    EXPECT_EQ(Run(Text(words)), 7);
    EXPECT_EQ(Run(listOf(16'384)), 0);
    EXPECT_EQ(ToLong(mControl.Eval(u"UBound(x)")), 16'383);
    EXPECT_EQ(Run(u"x = 1" + nested(u"+1", u"", u"")), 0);
    EXPECT_EQ(Run(u"x = 1" + nested(u"&1", u"", u"")), 0);
    EXPECT_EQ(Run(u"x = 1\n" + nested(u"If x = 1 Then\nEnd If\n", u"", u"")), 0);
}

TEST_F(ScriptLimits, MemoryIsBounded) {
    EXPECT_EQ(Run(u"s = \"0123456789\": Do: s = s & s: Loop"), 7);
    EXPECT_EQ(Run(u"s = Empty: ReDim a(100000000)"), 7);
    EXPECT_EQ(Run(u"ReDim a(2147483647)"), 7);
    EXPECT_EQ(Run(u"ReDim a(60000, 60000, 60000)"), 7);
    EXPECT_EQ(Trap(u"s = String(100000000, \"a\"): t = s & s"), 7);
    EXPECT_EQ(Run(u"s = \"fine\""), 0);
}

// Everything that a script can make without end counts. A bound of the host holds as well, and is sooner reached.
TEST_F(ScriptLimits, AllKindsOfMemoryCount) {
    mControl.AddCode(u"Class Node: Public Link: End Class: Function F: End Function");
    for (const char16_t* endless : {u"Set p = Nothing: Do: Set q = New Node: Set q.Link = p: Set p = q: Loop",
                                    u"ReDim p(500000): For i = 0 To 500000: Set p(i) = GetRef(\"F\"): Next",
                                    u"Set p = CreateObject(\"Scripting.Dictionary\"): Do: p.Add p.Count, 0: Loop",
                                    u"p = 0: Do: p = Array(p, p, p, p): Loop"}) {
        {
            const MemoryAccount::Limit bound(std::size_t{16} << 20);
            EXPECT_EQ(Run(endless), 7) << Text(endless).ToUtf8();
        }
        // What was there before a call does not count in it, so it is let go first.
        EXPECT_EQ(Run(u"p = Empty: q = Empty"), 0);
    }
}

TEST_F(ScriptLimits, ChainsOfAnyLengthEnd) {
    mControl.AddCode(
        u"Class Node: Public Link: End Class\n"
        u"Class Noisy: Public Link: Private Sub Class_Terminate: ended = ended + 1: End Sub: End Class\n"
        u"Dim ended: ended = 0");
    EXPECT_EQ(Run(u"Set h = Nothing\nFor i = 1 To 1000000: Set n = New Node: Set n.Link = h: Set h = n: Next\n"
                  u"Set n = Nothing: Set h = Nothing"),
              0);
    EXPECT_EQ(Run(u"Set h = Nothing\nFor i = 1 To 100000: Set n = New Noisy: Set n.Link = h: Set h = n: Next\n"
                  u"Set n = Nothing: Set h = Nothing"),
              0);
    EXPECT_EQ(ToLong(mControl.Eval(u"ended")), 100'000);
    EXPECT_EQ(Run(u"a = 0: For i = 1 To 1000000: a = Array(a): Next: a = 0"), 0);
    EXPECT_EQ(Run(u"Set h = Nothing\nFor i = 1 To 100000: Set n = CreateObject(\"Scripting.Dictionary\")\n"
                  u"Set n(1) = h: Set h = n: Next: Set n = Nothing: Set h = Nothing"),
              0);
    EXPECT_EQ(LivingObjects::Count(), 2u);  // the host's two objects
}

}  // namespace
}  // namespace ov
