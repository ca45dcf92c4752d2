// ovmodel run: what scripts see of the host and of the library, and how they end.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "support/temporary_folder.h"
#include "support/tool.h"

namespace ov {
namespace {

using ::testing::ContainsRegex;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using testing::Outcome;
using testing::RunTool;
using ::testing::StartsWith;
using testing::TemporaryFolder;

class AutomationHost : public ::testing::Test {
protected:
    std::string Sample() {
        const std::string target = mFolder / "tt200.db";
        if (!std::filesystem::exists(target)) {
            EXPECT_EQ(RunTool("pack " OV_MODEL_SOURCE_DIR "/examples/tt200/tt200.sql -o " + target).status, 0);
        }
        return target;
    }
    Outcome RunScript(const std::string& code, const std::string& arguments = "", const std::string& options = "") {
        std::ofstream(mFolder / "s.vbs", std::ios::binary | std::ios::trunc) << code;
        return RunTool(options + " run " + (mFolder / "s.vbs") + " " + arguments);
    }
    // What a script prints that loads the sample into `m` first.
    std::string OnSample(const std::string& code) {
        return RunScript(
                   "Set m = CreateObject(\"OV_Model.CBase_Module\")\nm.SetSourcePath WScript.Arguments(0)\n"
                   "If Not m.Load(\"TT200 HART\", \"id\") Then WScript.Quit 9\nm.SetLanguage 9\n" +
                       code + "\nm.Unload",  // a tree is a ring of references that nothing else ends
                   Sample())
            .text;
    }
    TemporaryFolder mFolder;
};

TEST_F(AutomationHost, EndsAsTheScriptSays) {
    EXPECT_EQ(RunScript("").status, 0);
    EXPECT_EQ(RunScript("On Error Resume Next\nWScript.Quit 7\nWScript.Echo 1").status, 7);
    EXPECT_EQ(RunScript("Sub f\nExecute \"WScript.Quit\"\nEnd Sub\nf\nWScript.Echo 1").text, "");
    const Outcome division = RunScript("a = 1\nb = a / 0");
    EXPECT_EQ(division.status, 1);
    EXPECT_THAT(division.text, HasSubstr("s.vbs(2, 1): runtime error 11: Division by zero\n"));
    const Outcome syntax = RunScript("a = 1\nIf a Then\n b = = 2\nEnd If");
    EXPECT_EQ(syntax.status, 1);
    EXPECT_THAT(syntax.text, HasSubstr("s.vbs(3, 6): compile error 1"));
    const Outcome endless = RunScript("Sub f\n Do\n  a = a + 1\n Loop\nEnd Sub\nf", "", "--timeout 50");
    EXPECT_EQ(endless.status, 1);
    EXPECT_THAT(endless.text,
                ContainsRegex("s\\.vbs\\([234], [23]\\): runtime error 18: Script execution timed out\n"));
    EXPECT_EQ(RunTool("run " + (mFolder / "none.vbs")).status, 1);
    EXPECT_EQ(RunTool("run").status, 2);
}

// The line of an error names what it is about; Err.Description does not.
TEST_F(AutomationHost, NamesWhatAnErrorIsAbout) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"Option Explicit\nx = 1", "500: Variable is undefined: 'x'"},
        {"Option Explicit\nx = Len(1)", "500: Variable is undefined: 'x'"},
        {"Option Explicit\nx = 1 + 2", "500: Variable is undefined: 'x'"},
        {"Option Explicit\nDim a\na = 1 + y", "500: Variable is undefined: 'y'"},
        {"Set m = CreateObject(\"OV_Model.CBase_Module\")\nm.SetSourcPath 1",
         "438: Object doesn't support this property or method: 'SetSourcPath'"},
        {"Class C: End Class\nSet o = New C: o.Missing = 1",
         "438: Object doesn't support this property or method: 'Missing'"},
        {"CreateObject \"X.Y\"", "429: ActiveX component can't create object: 'X.Y'"},
        {"a = Choose9(1)", "13: Type mismatch: 'Choose9'"},
        {"a = CInt(\"abc\")", "13: Type mismatch: 'CInt'"},
        {"a = 1 * \"abc\"", "13: Type mismatch: '\"abc\"'"},
        {"Sub S(n): n.Go: End Sub\nS 5", "424: Object required: 'n'"},
        {"x.y.z", "424: Object required: 'x'"},
        {"Const K = 1\nK = 2", "501: Illegal assignment: 'K'"},
        {"a = Array(1): a(5) = 1", "9: Subscript out of range: 'a'"},
        {"Sub S: End Sub\nS 1", "450: Wrong number of arguments or invalid property assignment: 'S'"},
        {"Set a = New Nowhere", "506: Class not defined: 'Nowhere'"},
        {"a = 1 / 0", "11: Division by zero"},
        {"Err.Raise 13", "13: Type mismatch"},
    };
    for (const auto& [code, words] : cases) {
        EXPECT_THAT(RunScript(code).text, EndsWith("runtime error " + words + "\n")) << code;
    }
    EXPECT_EQ(RunScript("On Error Resume Next\nx.y\nWScript.Echo Err.Description").text, "Object required\n");
}

TEST_F(AutomationHost, CompilesWithoutRunning) {
    std::ofstream(mFolder / "good.vbs") << "WScript.Echo 1\nSub S(n): Me.x = n & \"a\": End Sub\n"
                                           "Class C\nPublic F\nSub M(ByVal v): F = v: End Sub\nEnd Class";
    std::ofstream(mFolder / "bad.vbs") << "\nx = = 1";
    const std::string good = mFolder / "good.vbs", bad = mFolder / "bad.vbs";
    const Outcome fine = RunTool("run --compile-only " + good + " " + good);
    EXPECT_EQ(fine.text, "");
    EXPECT_EQ(fine.status, 0);
    const Outcome mixed = RunTool("run --compile-only " + bad + " " + good + " " + bad);
    EXPECT_EQ(mixed.status, 1);
    const std::string line = bad + "(2, 5): compile error 1023: Expected expression\n";
    EXPECT_EQ(mixed.text, line + line);
    EXPECT_EQ(RunTool("run --dump " + bad).text, line);
    const Outcome dump = RunTool("run --dump " + good);
    EXPECT_EQ(dump.status, 0);
    for (const char* part :
         {"Statements\n      1,1     0  LoadName", "CallMember             t1.., .Echo, (1)  ; discard", "\nSub S(n)\n",
          "Concatenate            t2, n, \"a\"", "PutMember              t1.., .x",
          "\nClass C\n  Public F\n  Sub M(ByVal v)\n", "Let                    Me.F, v"}) {
        EXPECT_THAT(dump.text, HasSubstr(part));
    }
    EXPECT_EQ(RunTool("run --dump --compile-only " + good).status, 2);
}

TEST_F(AutomationHost, PassesArgumentsStreamsAndEncodings) {
    const std::string echo = "For Each a In WScript.Arguments\nWScript.Echo a\nNext\n";
    EXPECT_EQ(RunScript(echo + "WScript.Echo WScript.Arguments.Count, WScript.Arguments(1), WScript.ScriptName",
                        "--json 'a b' -x run")
                  .text,
              "--json\na b\n-x\nrun\n4 a b s.vbs\n");
    std::ofstream(mFolder / "input") << "first\nsecond";
    EXPECT_EQ(RunScript("WScript.StdOut.Write WScript.StdIn.ReadLine & \";\"\nWScript.Echo WScript.StdIn.ReadAll\n"
                        "WScript.Echo WScript.StdIn.AtEndOfStream\nWScript.StdIn.ReadLine",
                        "< " + (mFolder / "input"))
                  .text.substr(0, 18),
              "first;second\nTrue\n");
    EXPECT_EQ(RunScript("\xEF\xBB\xBFWScript.Echo \"\xC3\xA4\"").text, "\xC3\xA4\n");
    EXPECT_EQ(RunScript("WScript.Echo \"\xE4\"").text, "\xC3\xA4\n");  // the single-byte code page
    EXPECT_EQ(RunScript("WScript.Echo 1.5, #2020-01-02#", "", "--locale de-DE").text, "1,5 02.01.2020\n");
}

TEST_F(AutomationHost, CreatesObjectsAndAsksForFacets) {
    EXPECT_EQ(
        RunScript("Set d = CreateObject(\"Scripting.Dictionary\")\nd(\"a\") = 1\nWScript.Echo d.Count, TypeName(d)")
            .text,
        "1 Dictionary\n");
    EXPECT_EQ(RunScript("On Error Resume Next\nCreateObject \"Shell.Application\"\nWScript.Echo Err.Number\nErr.Clear\n"
                        "WScript.CreateObject \"OV_Model.CBase_Nothing\"\nWScript.Echo Err.Number")
                  .text,
              "429\n429\n");
    EXPECT_EQ(
        OnSample(
            "Set s = Facet(m, \"IBase_SpecModule\")\nWScript.Echo s Is m, TypeName(s), s.id\n"
            "WScript.Echo Facet(m, \"_ibase_guimodule\").name\nWScript.Echo Facet(m, \"CBase_Unload\") Is Nothing\n"
            "WScript.Echo eParamKindDeviceParam, eParamKindAllKinds, fdt_temperature"),
        "True CBase_Module id\nTT200 temperature transmitter HART\nTrue\n2 2047 4\n");
}

TEST_F(AutomationHost, CallsTheLibraryByItsRules) {
    EXPECT_EQ(
        OnSample("Set i = m.Spec.fdtDeviceTypeInformation\n"
                 "WScript.Echo i.subDeviceType, i.version.version, LBound(i.supportedLanguages), TypeName(i)\n"
                 "WScript.Echo m.Types.Count, m.Types(1), m.Types.Item(2), m.Spec.desc(\"moduletype\")\n"
                 "s = \"TT200-H{}\"\nWScript.Echo m.GetModuleType(-1, s), s\n"
                 "Set e = m.Spec.Environment\ne.Variable(\"k\") = 5\nWScript.Echo e.Variable(\"K\")\n"
                 "For Each t In m.Types\nn = n + 1\nNext\nWScript.Echo n\n"
                 "Set b = CreateObject(\"OV_Model.CBase_Module\")\nWScript.Echo IsEmpty(b.Spec.fdtDeviceTypeInformation"
                 ".busCategories)"),
        "TT200-H 2.00 1 tBaseFdtDeviceTypeInfo\n3 TT200 HART TT200 PROFINET TT200 HART\n"
        "TT200 HART{}TT200 HART SIL TT200-H\n5\n3\nTrue\n");
    EXPECT_EQ(OnSample("On Error Resume Next\nm.Types.Item 99\nWScript.Echo Err.Number\nErr.Clear\nm.NoSuchMember\n"
                       "WScript.Echo Err.Number\nErr.Clear\nm.SetLanguage\nWScript.Echo Err.Number\nErr.Clear\n"
                       "m.mDB.OpenRecordset \"Missing\"\nWScript.Echo Err.Number, Err.Description"),
              "9\n438\n450\n3078 The database engine cannot find the input table or query 'Missing'.\n");
}

TEST_F(AutomationHost, ListensWithEventsAndScriptClasses) {
    EXPECT_EQ(OnSample("Class L\nPublic Sub OnLanguageChanged(x)\nWScript.Echo \"language\", x.name\nEnd Sub\n"
                       "Public Sub OnUnload(x)\nWScript.Echo \"unload\"\nEnd Sub\nEnd Class\n"
                       "Sub env_Changed(key, value)\nWScript.Echo key, value\nEnd Sub\n"
                       "m.Gui.RegisterCallback New L\nWScript.ConnectObject m.Spec.Environment, \"env_\"\n"
                       "m.Spec.Environment.Variable(\"a\") = 1\nm.SetLanguage 7\n"
                       "WScript.DisconnectObject m.Spec.Environment\nm.Spec.Environment.Variable(\"a\") = 2\nm.Unload"),
              "a 1\nlanguage TT200 Temperaturmessumformer HART\nunload\n");
    EXPECT_THAT(OnSample("WScript.ConnectObject m, \"m_\""), HasSubstr("runtime error 430"));
    EXPECT_EQ(OnSample("Class L\nPublic Sub OnUnload(x)\nWScript.Echo x.id\nx.Base.Unload\nEnd Sub\nEnd Class\n"
                       "m.RegisterModuleCallbackOnly New L"),
              "id\n");
}

TEST_F(AutomationHost, RunsTheExamples) {
    const std::string examples = "run " OV_MODEL_SOURCE_DIR "/examples/automation/";
    EXPECT_THAT(RunTool(examples + "show_type.vbs " + Sample() + " 'TT200 HART' 9").text,
                StartsWith("TT200 temperature transmitter HART: "));
    EXPECT_EQ(RunTool(examples + "show_type.vbs").status, 2);
    EXPECT_THAT(RunTool(examples + "listen_environment.vbs " + Sample() + " 'TT200 HART'").text,
                HasSubstr("event:    RUN = 3\nlistener: RUN = 4"));
    EXPECT_THAT(RunTool(examples + "text_table.vbs " + Sample() + " 2101 2102").text, HasSubstr("Sensor type\n"));
}

}  // namespace
}  // namespace ov
