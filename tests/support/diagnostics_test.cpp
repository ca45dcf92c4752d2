#include "support/diagnostics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/automation/errors.h"
#include "platform/system/file_system.h"
#include "support/scoped_settings.h"
#include "support/temporary_folder.h"

namespace ov {
namespace {

using ::ov::testing::ScopedLocale;
using ::ov::testing::ScopedVariable;
using ::ov::testing::TemporaryFolder;
using ::testing::MatchesRegex;

// An object on the stack that only has a name, or fails to tell it.
class NamedObject final : public IDispatch {
public:
    explicit NamedObject(bool fails = false) : mFails(fails) {}

    void* QueryInterface(const Guid&) noexcept override { return nullptr; }
    std::uint32_t AddRef() noexcept override { return 1; }
    std::uint32_t Release() noexcept override { return 1; }
    std::uint32_t GetTypeInfoCount() const noexcept override { return 0; }
    const InterfaceInfo* GetTypeInfo() const noexcept override { return nullptr; }
    DispId GetIDsOfNames(std::u16string_view) override { return kDispIdUnknown; }
    Variant Invoke(DispId, CallKind, Arguments&) override { Raise(ErrorNumber::NoSuchMember); }
    Text ClassName() const override {
        if (mFails) Raise(ErrorNumber::InternalError);
        return u"CBase_Channel";
    }

private:
    bool mFails;
};

class DiagnosticsTest : public ::testing::Test {
protected:
    DiagnosticsTest() { GlobalDiagnostics() = {}; }
    ~DiagnosticsTest() override { GlobalDiagnostics() = mFormer; }

    void FillRegistry(const std::string& bytes) { file_system::WriteFile(mFolder.Of("registry.ini"), bytes, false); }
    std::string LogFile() {
        return file_system::FileExists(mFolder.Of("dtm.log")) ? file_system::ReadFile(mFolder.Of("dtm.log")) : "";
    }
    // What goes to the debugger's output while `action` runs.
    template <class Action>
    std::string Output(Action action) {
        ::testing::internal::CaptureStderr();
        action();
        return ::testing::internal::GetCapturedStderr();
    }

    Diagnostics mFormer = GlobalDiagnostics();
    TemporaryFolder mFolder;
    ScopedLocale mEnglish{"en-US"};
    ScopedVariable mRegistry{"OV_MODEL_REGISTRY", mFolder / "registry.ini"};
    ScopedVariable mLogFolder{"OV_MODEL_LOG_FOLDER", mFolder.path()};
};

TEST_F(DiagnosticsTest, SwitchesAreOnForOneOnly) {
    const struct {
        const char* value;
        bool on;
    } cases[] = {{"1", true}, {"\"1\"", true}, {"01", true},   {"0", false},          {"2", false},
                 {"", false}, {"-1", false},   {"1.0", false}, {"4294967297", false}, {"true", false}};
    for (const auto& [value, on] : cases) {
        SCOPED_TRACE(value);
        const std::string v = value;
        FillRegistry("[SOFTWARE\\Orvane\\Controls]\nDebug=" + v + "\nDebugFile=" + v + "\nTiming=" + v +
                     "\n[SOFTWARE\\Halvorn\\DTM]\nTypeAndAddressNotInTag=" + v + "\n");
        GlobalDiagnostics() = {};
        EXPECT_EQ(DebugOutput(), on) << "reads the switches by itself";
        const Diagnostics& diagnostics = GlobalDiagnostics();
        EXPECT_TRUE(diagnostics.initialised);
        EXPECT_EQ(diagnostics.debugToOutput, on);
        EXPECT_EQ(diagnostics.debugToFile, on);
        EXPECT_EQ(diagnostics.timing, on);
        EXPECT_EQ(diagnostics.typeAndAddressNotInTag, on);
    }
}

TEST_F(DiagnosticsTest, ModesChooseTheOutputs) {
    FillRegistry("[SOFTWARE\\Orvane\\Controls]\nDebugFile=1\nTiming=1\n");
    const struct {
        DebugMode mode;
        bool output, file;
    } cases[] = {{DebugMode::FromRegistry, false, true},
                 {DebugMode::OutputOnly, true, false},
                 {DebugMode::OutputAndFile, true, true},
                 {DebugMode::Off, false, false},
                 {static_cast<DebugMode>(-7), false, false}};
    for (const auto& [mode, output, file] : cases) {
        GlobalDiagnostics().initialised = false;
        InitDebug(mode);
        EXPECT_EQ(GlobalDiagnostics().debugToOutput, output);
        EXPECT_EQ(GlobalDiagnostics().debugToFile, file);
        EXPECT_TRUE(GlobalDiagnostics().timing) << "is the registry's in every mode";
    }
}

TEST_F(DiagnosticsTest, RegistryIsReadOncePerProcess) {
    InitDebug(DebugMode::FromRegistry);
    FillRegistry("[SOFTWARE\\Orvane\\Controls]\nDebug=1\n");
    InitDebug(DebugMode::FromRegistry);
    EXPECT_FALSE(DebugOutput()) << "a missing registry is one without switches";
    InitDebug(DebugMode::OutputOnly);
    InitDebug(DebugMode::FromRegistry);
    EXPECT_TRUE(DebugOutput()) << "a module that is made later does not undo the host's choice";
}

TEST_F(DiagnosticsTest, WritesNothingWhenOff) {
    EXPECT_EQ(Output([] { LogEntry(u"Source", u"text"); }), "");
    EXPECT_EQ(LogFile(), "");
}

TEST_F(DiagnosticsTest, LinesOfTheOutput) {
    GlobalDiagnostics() = {.debugToOutput = true, .initialised = true};
    const struct {
        const char16_t *message, *suffix;
        const char* lines;
    } cases[] = {
        {u"text", u"", "OV_Model::Source: text\n"},
        {u"größe ", u"Ω", "OV_Model::Source: größe Ω\n"},
        {u"one\r\ntwo", u"\r\nthree", "OV_Model::Source: one\nOV_Model::Source: two\nOV_Model::Source: three\n"},
        {u"one\r\n\r\nthree\r\n", u"", "OV_Model::Source: one\nOV_Model::Source: \nOV_Model::Source: three\n"},
        {u"one\ntwo\rthree", u"", "OV_Model::Source: one\ntwo\rthree\n"},
        {u"\r\n", u"", "OV_Model::Source: \n"},
        {u"", u"", ""},
    };
    for (const auto& [message, suffix, lines] : cases) {
        EXPECT_EQ(Output([&] { LogEntry(u"Source", message, suffix); }), lines);
    }
    EXPECT_EQ(LogFile(), "");
}

TEST_F(DiagnosticsTest, LinesOfTheFile) {
    GlobalDiagnostics() = {.debugToFile = true, .initialised = true};
    EXPECT_EQ(Output([] {
                  LogEntry(u"Source", u"one\r\ntwo", u"!");
                  LogEntry(u"Other", u"äΩ");
              }),
              "");
    // The regular expressions of the test library have no groups and no counts.
    const std::string stamp = "[0-9]+/[0-9]+/[0-9][0-9][0-9][0-9], [0-9]+:[0-9][0-9] [AP]M: OV_Model::";
    EXPECT_THAT(LogFile(), MatchesRegex(stamp + "Source: one\r\ntwo!\n" + stamp + "Other: äΩ\n"));
    file_system::WriteFile(mFolder.Of("dtm.log"), "", false);
    const ScopedLocale german("de-DE");
    LogEntry(u"Source", u"text");
    EXPECT_THAT(LogFile(), MatchesRegex("[0-9][0-9]\\.[0-9][0-9]\\.[0-9][0-9][0-9][0-9], [0-9][0-9]:[0-9][0-9]: "
                                        "OV_Model::Source: text\n"));
}

TEST_F(DiagnosticsTest, ObjectsAreNamedByAddressAndClass) {
    GlobalDiagnostics() = {.debugToOutput = true, .initialised = true};
    NamedObject object;
    const std::string address = std::to_string(reinterpret_cast<std::uintptr_t>(static_cast<IDispatch*>(&object)));
    EXPECT_EQ(Output([&] { LogEntry(&object, u"text"); }), "OV_Model::(" + address + ")CBase_Channel: text\n");
    EXPECT_EQ(Output([] { LogEntry(static_cast<IDispatch*>(nullptr), u"text"); }), "OV_Model::(0)Nothing: text\n");
}

TEST_F(DiagnosticsTest, FailuresInsideAreSwallowed) {
    const ScopedVariable nowhere("OV_MODEL_LOG_FOLDER", mFolder / "missing/folder");
    GlobalDiagnostics() = {.debugToOutput = true, .debugToFile = true, .initialised = true};
    EXPECT_EQ(Output([] { LogEntry(u"Source", u"text"); }), "OV_Model::Source: text\n");
    NamedObject failing(true);
    EXPECT_EQ(Output([&] { LogEntry(&failing, u"text"); }), "");
    EXPECT_NO_THROW(AppendToFile(Text::FromUtf8(mFolder.path()), u"a folder is no file", true));
}

TEST_F(DiagnosticsTest, SomeLinesAlwaysShow) {
    EXPECT_EQ(Output([] { LogAlways(u"Source", u"one\r\ntwo"); }), "OV_Model::Source: one\nOV_Model::Source: two\n");
    EXPECT_EQ(LogFile(), "");
    GlobalDiagnostics().debugToFile = true;
    Output([] { LogAlways(u"Source", u"text"); });
    EXPECT_THAT(LogFile(), MatchesRegex(".*OV_Model::Source: text\n"));
}

TEST_F(DiagnosticsTest, AppendsToFiles) {
    const Text path = mFolder.Of("own.txt");
    AppendToFile(path, u"ö", true);
    AppendToFile(path, u"two", true);
    EXPECT_EQ(file_system::ReadFile(path), "ö\ntwo\n");
    AppendToFile(path, u"anew", false);
    EXPECT_EQ(file_system::ReadFile(path), "anew\n");
}

}  // namespace
}  // namespace ov
