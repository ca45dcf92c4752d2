#include "platform/script/script_control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/automation/conversions.h"
#include "platform/automation/listener.h"
#include "platform/script/script_host.h"

namespace ov {
namespace {

using ::testing::ElementsAre;

int ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

class ScriptControlTest : public ::testing::Test {
protected:
    ScriptControlTest() {
        mControl.SetTimeout(10'000);
        mControl.AddObject(u"Host", mHost->Dispatch(), true);
        mControl.AddObject(u"Probe", mProbe->Dispatch(), false);
    }
    Variant Call(std::u16string_view procedure, std::vector<Variant> values = {}) {
        Arguments arguments{values};
        return mControl.CallProcedure(procedure, arguments);
    }

    Ref<testing::Host> mHost = MakeObject<testing::Host>();
    Ref<testing::Probe> mProbe = MakeObject<testing::Probe>();
    ScriptControl mControl;
};

TEST_F(ScriptControlTest, SpeaksOneLanguage) {
    mControl.SetLanguage(u"vbscript");
    EXPECT_EQ(mControl.GetLanguage(), u"VBScript");
    EXPECT_EQ(ErrorOf([&] { mControl.SetLanguage(u"JScript"); }), 380);
}

TEST_F(ScriptControlTest, EvaluatesExpressions) {
    EXPECT_EQ(mControl.Eval(u"1 + 2").AsInteger(), 3);
    EXPECT_EQ(mControl.Eval(u" \"a\" & 1 ' comment").AsText(), u"a1");
    EXPECT_FALSE(mControl.Eval(u"1 = 2").AsBoolean());
    EXPECT_TRUE(mControl.Eval(u"Null").IsNull());
    EXPECT_TRUE(mControl.Eval(u"Empty").IsEmpty());
    EXPECT_TRUE(mControl.Eval(u"Nothing").IsNothing());
    EXPECT_TRUE(mControl.Eval(u"undeclared").IsEmpty());
    EXPECT_EQ(mControl.Eval(u"Probe").AsObject(), mProbe->Dispatch());
}

TEST_F(ScriptControlTest, KeepsWhatStatementsAssign) {
    mControl.ExecuteStatement(u"x = 5");
    EXPECT_EQ(mControl.Eval(u"x").AsInteger(), 5);
    mControl.ExecuteStatement(u"Dim x");
    EXPECT_EQ(mControl.Eval(u"X + 1").AsInteger(), 6);
    ScriptControl other;
    EXPECT_TRUE(other.Eval(u"x").IsEmpty());
    mControl.ExecuteStatement(u"Dim a(2): a(1) = 7");
    mControl.ExecuteStatement(u"Sub Inc(v): v = v + 1: End Sub");
    mControl.ExecuteStatement(u"Inc a(1): Inc x");
    EXPECT_EQ(mControl.Eval(u"a(1)").AsInteger(), 8);
    EXPECT_EQ(mControl.Eval(u"x").AsInteger(), 6);
}

TEST_F(ScriptControlTest, RunsTheHelpersOfRules) {
    mControl.AddCode(
        u"Function Max(a, b) \r\n  If a > b Then \r\n    Max = a \r\n  Else \r\n    Max = b \r\n  End If \r\n"
        u"End Function \r\n");
    mControl.AddCode(
        u"Function Iif(sw, a, b) \r\n  If sw Then \r\n    Iif = a \r\n  Else \r\n    Iif = b \r\n"
        u"  End If \r\nEnd Function \r\n");
    mControl.AddCode(
        u"Function Choose2(idx,a0,a1,e) \r\nselect case idx \r\ncase 0: Choose2=a0 \r\n"
        u"case 1: Choose2=a1 \r\ncase else: Choose2=e \r\nEnd select \r\nEnd Function");
    EXPECT_EQ(mControl.Eval(u"Max(2, 5)").AsInteger(), 5);
    EXPECT_EQ(mControl.Eval(u"Iif(1 > 2, 3, 4)").AsInteger(), 4);
    EXPECT_EQ(mControl.Eval(u"Choose2(1, 10, 20, 99)").AsInteger(), 20);
    EXPECT_EQ(mControl.Eval(u"Choose2(9, 10, 20, 99)").AsInteger(), 99);
    EXPECT_TRUE(mControl.HasProcedure(u"iif"));
    EXPECT_FALSE(mControl.HasProcedure(u"Min"));
    // A later text replaces a procedure, for texts that have used the old one too.
    mControl.AddCode(u"Function Max(a, b): Max = \"new\": End Function");
    EXPECT_EQ(mControl.Eval(u"Max(2, 5)").AsText(), u"new");
}

TEST_F(ScriptControlTest, CallsProcedures) {
    mControl.AddCode(u"Function Add(a, b): Add = a + b: a = 99: End Function\nSub Fails: x = 1 / 0: End Sub");
    std::vector<Variant> values{Variant(std::int32_t{2}), Variant(std::int32_t{3})};
    Arguments arguments{values};
    EXPECT_EQ(mControl.CallProcedure(u"add", arguments).AsLong(), 5);
    EXPECT_EQ(ToLong(values[0]), 99);
    EXPECT_EQ(arguments.written, 1u);
    EXPECT_EQ(ErrorOf([&] { Call(u"Nothing1"); }), 438);
    EXPECT_EQ(ErrorOf([&] { Call(u"Add"); }), 450);
    EXPECT_EQ(ErrorOf([&] { Call(u"Fails"); }), 11);
}

TEST_F(ScriptControlTest, TellsWhereAnErrorWas) {
    mControl.AddCode(u"Sub A\n  B\nEnd Sub\nSub B\n  x = 1\n  If x Then y = 1 / 0\nEnd Sub");
    try {
        mControl.ExecuteStatement(u"\n\n  A");
        FAIL();
    } catch (const ScriptError& error) {
        EXPECT_FALSE(error.IsCompileError());
        EXPECT_EQ(error.number(), 11);
        EXPECT_EQ(error.description(), u"Division by zero");
        EXPECT_EQ(error.line(), 6);
        EXPECT_EQ(error.column(), 13);
    }
}

// What people read has the name; what scripts and the log have is the standard text.
TEST_F(ScriptControlTest, NamesWhatAnErrorIsAbout) {
    struct Case {
        const char16_t* code;
        const char* message;
    };
    mControl.AddCode(
        u"Function One(a): One = Err.Description: End Function\n"
        u"Sub Uses(list): x = list(9): End Sub\n"
        u"Class Box: Private inner: Public Sub Go: inner(1) = 2: End Sub: End Class");
    for (const Case& c : {
             Case{u"Option Explicit\nx = 1", "Variable is undefined: 'x'"},
             Case{u"Option Explicit\nDim a: a = 1 + width", "Variable is undefined: 'width'"},
             Case{u"Option Explicit\nProbe.Run height", "Variable is undefined: 'height'"},
             Case{u"Option Explicit\nIf 1 < depth Then Echo 1", "Variable is undefined: 'depth'"},
             Case{u"Probe.Runn 1", "Object doesn't support this property or method: 'Runn'"},
             Case{u"Probe.Nam = 1", "Object doesn't support this property or method: 'Nam'"},
             Case{u"Set b = New Box: b.inner = 1", "Object doesn't support this property or method: 'inner'"},
             Case{u"z = One(1, 2)", "Wrong number of arguments or invalid property assignment: 'One'"},
             Case{u"z = Choose9(1, 2)", "Type mismatch: 'Choose9'"},
             Case{u"z = CLng(\"a\")", "Type mismatch: 'CLng'"},
             Case{u"Set b = New Box: b.Go", "Type mismatch: 'inner'"},
             Case{u"Uses Array(1)", "Subscript out of range: 'list'"},
             Case{u"z = New Bax", "Class not defined: 'Bax'"},
             Case{u"q.Go", "Object required: 'q'"},
             Case{u"Set z = GetObject(\"A.B\")", "ActiveX component can't create object: 'A.B'"},
             Case{u"Execute \"Probe.Runn 1\"", "Object doesn't support this property or method: 'Runn'"},
             Case{u"z = 1 + \"a\"", "Type mismatch: '\"a\"'"},
             // No name that would mislead.
             Case{u"Err.Raise 438", "Object doesn't support this property or method"},
             Case{u"Probe.Fail 438, \"\", \"mine\"", "mine"},
         }) {
        try {
            mControl.ExecuteStatement(c.code);
            ADD_FAILURE() << Text(c.code).ToUtf8();
        } catch (const RuntimeError& error) {
            EXPECT_STREQ(error.what(), c.message) << Text(c.code).ToUtf8();
            EXPECT_TRUE(std::string_view(c.message).starts_with(error.description().ToUtf8()));
        }
    }
    mControl.ExecuteStatement(u"On Error Resume Next: Probe.Runn 1: said = Err.Description");
    EXPECT_EQ(mControl.Eval(u"said").AsText(), u"Object doesn't support this property or method");
}

TEST_F(ScriptControlTest, HasConstantsAndReadOnlyNames) {
    mControl.AddConstant(u"kLimit", Variant(std::int32_t{7}));
    EXPECT_EQ(mControl.Eval(u"KLIMIT + 1").AsLong(), 8);
    EXPECT_EQ(ErrorOf([&] { mControl.ExecuteStatement(u"kLimit = 8"); }), 501);
    EXPECT_EQ(ErrorOf([&] { mControl.ExecuteStatement(u"Set Probe = Nothing"); }), 501);
    EXPECT_EQ(mControl.Eval(u"kLimit").AsLong(), 7);
    // Objects that come later, and members that become visible later.
    EXPECT_TRUE(mControl.Eval(u"late").IsEmpty());
    mControl.AddObject(u"late", mProbe->Dispatch(), false);
    EXPECT_EQ(mControl.Eval(u"late.Name").AsText(), u"probe");
    EXPECT_TRUE(mControl.Eval(u"IsEmpty(Describe)").AsBoolean());
    mControl.AddObject(u"open", mProbe->Dispatch(), true);
    EXPECT_EQ(mControl.Eval(u"Describe(1)").AsText(), u"1-none-none");
}

TEST_F(ScriptControlTest, ReachesNothingElse) {
    for (const char16_t* text : {u"CreateObject(\"Scripting.Dictionary\")", u"GetObject(\"x\")"}) {
        ScriptControl rules;
        EXPECT_EQ(ErrorOf([&] { rules.Eval(text); }), 429);
    }
    ScriptControl rules;
    EXPECT_EQ(ErrorOf([&] { rules.ExecuteStatement(u"MsgBox \"x\""); }), 70);
    EXPECT_EQ(ErrorOf([&] { rules.Eval(u"InputBox(\"x\")"); }), 70);
    rules.AddCode(u"Function MsgBox(x): MsgBox = \"own \" & x: End Function");
    EXPECT_EQ(rules.Eval(u"MsgBox(1)").AsText(), u"own 1");
    ScriptControl host(ScriptPolicy::Host);
    EXPECT_EQ(ErrorOf([&] { host.ExecuteStatement(u"MsgBox \"x\""); }), 13);
}

TEST_F(ScriptControlTest, IsUsableAfterErrors) {
    mControl.ExecuteStatement(u"x = 1");
    EXPECT_EQ(ErrorOf([&] { mControl.ExecuteStatement(u"x = 2: y = 1 / 0: x = 3"); }), 11);
    EXPECT_EQ(ErrorOf([&] { mControl.Eval(u"1 +"); }), 1023);
    EXPECT_EQ(ErrorOf([&] { mControl.AddCode(u"Sub S"); }), 1014);
    EXPECT_FALSE(mControl.HasProcedure(u"S"));
    EXPECT_EQ(mControl.Eval(u"x").AsInteger(), 2);
}

TEST_F(ScriptControlTest, NestsCalls) {
    mProbe->action = [&](const Variant& depth) {
        if (ToLong(depth) == 0) return Variant(u"bottom");
        mControl.ExecuteStatement(u"level = " + Text::FromInteger(ToLong(depth)));
        return mControl.Eval(u"Probe.Run(level - 1) & level");
    };
    EXPECT_EQ(mControl.Eval(u"Probe.Run(3)").AsText(), u"bottom111");
    // An error of an inner call is one of the outer script.
    mProbe->action = [&](const Variant&) { return mControl.Eval(u"1 / 0"); };
    mControl.ExecuteStatement(u"On Error Resume Next: Probe.Run 1: n = Err.Number");
    EXPECT_EQ(mControl.Eval(u"n").AsLong(), 11);
}

TEST_F(ScriptControlTest, GivesObjectsThatHostsCall) {
    mControl.AddCode(
        u"Class Thing\n"
        u"  Private mValue\n"
        u"  Public Field\n"
        u"  Public Default Property Get Value(k): Value = mValue + k: End Property\n"
        u"  Public Property Let Value(k, v): mValue = v + k: End Property\n"
        u"  Public Function Twice(n): Twice = n * 2: n = n + 1: End Function\n"
        u"  Private Sub Hidden: End Sub\n"
        u"End Class\n"
        u"Function Make: Set Make = New Thing: End Function\n"
        u"Function Square(x): Square = x * x: End Function");
    const Variant thing = Call(u"Make");
    IDispatch* const object = thing.AsObject();
    EXPECT_EQ(object->ClassName(), u"Thing");
    EXPECT_EQ(object->GetTypeInfo(), nullptr);
    EXPECT_EQ(object->GetIDsOfNames(u"HIDDEN"), kDispIdUnknown);
    EXPECT_EQ(object->GetIDsOfNames(u"mValue"), kDispIdUnknown);
    std::vector<Variant> put{Variant(std::int32_t{1}), Variant(std::int32_t{10})};
    CallByName(object, u"value", CallKind::Let, put);
    std::vector<Variant> key{Variant(std::int32_t{5})};
    EXPECT_EQ(CallByName(object, u"VALUE", CallKind::Get, key).AsLong(), 16);
    std::vector<Variant> field{Variant(u"content")};
    CallByName(object, u"Field", CallKind::Let, field);
    EXPECT_EQ(CallByName(object, u"field", CallKind::Get).AsText(), u"content");
    std::vector<Variant> number{Variant(std::int32_t{4})};
    Arguments arguments{number};
    EXPECT_EQ(object->Invoke(object->GetIDsOfNames(u"Twice"), CallKind::Method, arguments).AsLong(), 8);
    EXPECT_EQ(ToLong(number[0]), 5);
    EXPECT_EQ(arguments.written, 1u);
    EXPECT_EQ(ErrorOf([&] { CallByName(object, u"Value", CallKind::Set, put); }), 438);
    EXPECT_EQ(ErrorOf([&] { CallByName(object, u"Twice", CallKind::Method); }), 450);

    const Variant square = mControl.Eval(u"GetRef(\"Square\")");
    std::vector<Variant> three{Variant(std::int32_t{3})};
    Arguments call{three};
    EXPECT_EQ(square.AsObject()->Invoke(kDispIdValue, CallKind::Call, call).AsLong(), 9);
}

TEST_F(ScriptControlTest, GivesFieldsOfObjectsToHosts) {
    mControl.AddCode(
        u"Class Bag: Public List, Dict, Other\n"
        u"Private Sub Class_Initialize: List = Array(1, 2, 3): Set Dict = D: End Sub: End Class");
    mControl.AddObject(u"D", MakeObject<Dictionary>()->Dispatch(), false);
    const Variant bag = mControl.Eval(u"New Bag");
    const auto use = [&](std::u16string_view name, CallKind kind, std::vector<Variant> values) {
        return CallByName(bag.AsObject(), name, kind, values);
    };
    use(u"List", CallKind::Let, {Variant(std::int32_t{1}), Variant(u"one")});
    EXPECT_EQ(use(u"List", CallKind::Get, {Variant(std::int32_t{1})}).AsText(), u"one");
    use(u"Dict", CallKind::Let, {Variant(u"key"), Variant(u"item")});
    EXPECT_EQ(use(u"Dict", CallKind::Get, {Variant(u"key")}).AsText(), u"item");
    EXPECT_EQ(ErrorOf([&] { use(u"Other", CallKind::Get, {Variant(std::int32_t{1})}); }), 13);
    EXPECT_EQ(ErrorOf([&] { use(u"List", CallKind::Let, {}); }), 450);
    EXPECT_EQ(ErrorOf([&] { use(u"List", CallKind::Get, {Variant(std::int32_t{9})}); }), 9);
}

TEST_F(ScriptControlTest, WritesArraysOfBytes) {
    mControl.AddConstant(u"kBytes", Variant(Array::OfBytes({1, 2, 3})));
    mControl.ExecuteStatement(u"b = kBytes: b(0) = 200: b(1) = b(0) + 5");
    EXPECT_EQ(mControl.Eval(u"TypeName(b(1)) & b(1) & TypeName(b(0) + 100) & kBytes(0)").AsText(), u"Byte205Integer1");
    EXPECT_EQ(ErrorOf([&] { mControl.ExecuteStatement(u"b(0) = 256"); }), 6);
    mControl.ExecuteStatement(u"Sub Inc(x): x = x + 1: End Sub: Inc b(2): c = Array(b, 0): c(0)(1) = 7");
    EXPECT_EQ(mControl.Eval(u"b(2) & c(0)(1)").AsText(), u"47");
}

// A name that one text takes for a variable is a procedure, or an object, of another.
TEST_F(ScriptControlTest, KnowsWhatANameIsOnlyWhenItIsUsed) {
    mControl.AddCode(u"Function F: F = 5: End Function: Sub Show(x): Echo x: End Sub");
    mControl.ExecuteStatement(
        u"If False Then F = 1: Set Probe = Nothing: Err = 1: Now = 1\n"
        u"Echo F + 1, F & \"x\", F > 4, Probe.Name, Now > 0\nShow F: Show Err + 0: a = F: Echo a");
    EXPECT_THAT(mHost->lines, ElementsAre("6 5x True probe True", "5", "0", "5"));
    EXPECT_EQ(ErrorOf([&] { mControl.ExecuteStatement(u"F = 1"); }), 501);
    EXPECT_EQ(ErrorOf([&] { mControl.ExecuteStatement(u"Len = 1"); }), 501);
}

TEST_F(ScriptControlTest, RemembersManyTexts) {
    ScriptControl control;
    Variant last;
    for (int i = 0; i < 70'000; ++i) {
        last = control.Eval(Text::FromInteger(i) + u" + 1");
    }
    EXPECT_EQ(ToLong(last), 70'000);
    EXPECT_EQ(ToLong(control.Eval(u"0 + 1")), 1);
}

TEST_F(ScriptControlTest, ForgetsEverythingAtReset) {
    const std::size_t before = LivingObjects::Count();
    mControl.AddCode(
        u"Class Node: Public Other: Private Sub Class_Terminate: Echo \"end\": End Sub: End Class\n"
        u"Set a = New Node: Set b = New Node: Set a.Other = b: Set b.Other = a\n"
        u"Set single = New Node: Set f = GetRef(\"Later\"): x = 5\n"
        u"Function Later: Later = 1: End Function");
    const Variant kept = mControl.Eval(u"a");
    const Variant function = mControl.Eval(u"f");
    mControl.Reset();
    EXPECT_THAT(mHost->lines, ElementsAre("end"));  // the two that hold each other do not end, they are let go
    EXPECT_TRUE(mControl.Eval(u"x").IsEmpty());
    EXPECT_FALSE(mControl.HasProcedure(u"Later"));
    EXPECT_EQ(ErrorOf([&] { mControl.Eval(u"Probe.Name"); }), 424);
    // What a host still holds answers, with nothing in it.
    EXPECT_TRUE(CallByName(kept.AsObject(), u"Other", CallKind::Get).IsEmpty());
    Arguments none;
    EXPECT_EQ(ToLong(function.AsObject()->Invoke(kDispIdValue, CallKind::Call, none)), 1);
    EXPECT_EQ(LivingObjects::Count(), before + 2);
}

TEST_F(ScriptControlTest, LetsGoOfPublishedObjects) {
    const std::size_t before = LivingObjects::Count();
    {
        ScriptControl control;
        control.AddObject(u"D", MakeObject<Dictionary>()->Dispatch(), false);
        control.ExecuteStatement(u"Set copy = D: Set D(\"self\") = Nothing");
        EXPECT_EQ(LivingObjects::Count(), before + 1);
    }
    EXPECT_EQ(LivingObjects::Count(), before);
}

TEST_F(ScriptControlTest, MayBeResetOrEndedWhileAScriptRuns) {
    auto control = std::make_unique<ScriptControl>();
    control->AddObject(u"Probe", mProbe->Dispatch(), false);
    mProbe->action = [&](const Variant&) {
        control.reset();
        return Variant(u"gone");
    };
    control->AddCode(
        u"Class C: Public V: End Class\nFunction F: Dim l: Set l = New C: l.V = 1: "
        u"x = Probe.Run(1): F = x & l.V: End Function");
    Arguments none;
    EXPECT_EQ(control->CallProcedure(u"F", none).AsText(), u"gone");
}

TEST_F(ScriptControlTest, EndsQuietlyWhereTheHostSaysSo) {
    mProbe->action = [](const Variant&) -> Variant { throw EndScript(); };
    mControl.AddCode(u"Class C: Private Sub Class_Terminate: Echo \"end\": End Sub: End Class");
    const auto run = [&] {
        mControl.ExecuteStatement(
            u"On Error Resume Next: Set c1 = New C: Execute \"Probe.Run 1\": Echo \"never\": x = 1");
    };
    EXPECT_THROW(run(), EndScript);
    EXPECT_TRUE(mHost->lines.empty());
    EXPECT_TRUE(mControl.Eval(u"x").IsEmpty());
    mControl.ExecuteStatement(u"Set c1 = Nothing");
    EXPECT_THAT(mHost->lines, ElementsAre("end"));
}

/// A listener interface and its adapter for late-bound objects.
class ITick : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{E3A7C9B2-6E6B-4B39-8C59-8E2C5D10A003}");
    static constexpr const char* kName = "ITick";
    static const InterfaceInfo& Members() {
        static constexpr std::array kMembers = {member<&ITick::OnTick>("OnTick")};
        static const InterfaceInfo info(kIid, kName, kMembers);
        return info;
    }
    virtual void OnTick(std::int32_t count) = 0;
};

class LateTick final : public LateListener<ITick> {
public:
    using LateListener::LateListener;
    void OnTick(std::int32_t count) override { Send(0, count); }
};

}  // namespace

template <>
struct LateListenerOf<ITick> {
    static Ref<ITick> Adapt(IDispatch* object) { return Ref<ITick>::Adopt(new LateTick(object)); }
};

namespace {

TEST_F(ScriptControlTest, GivesListeners) {
    mControl.AddCode(
        u"Class Listener: Public Sub OnTick(n): Echo \"tick\", n: End Sub: End Class\n"
        u"Class Other: Public Sub Different: End Sub: End Class");
    const Variant listener = mControl.Eval(u"Eval(\"New Listener\")");
    const Ref<ITick> tick = CastListener<ITick>(listener.AsObject());
    ASSERT_TRUE(tick);
    tick->OnTick(5);
    EXPECT_THAT(mHost->lines, ElementsAre("tick 5"));
    EXPECT_TRUE(SameObject(tick.get(), listener.AsObject()));
    const Variant other = mControl.Eval(u"New Other");
    EXPECT_FALSE(CastListener<ITick>(other.AsObject()));
}

}  // namespace
}  // namespace ov
