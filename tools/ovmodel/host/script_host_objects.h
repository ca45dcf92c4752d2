/// @file
/// The objects that `ovmodel run` publishes to its script.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/automation/enumeration.h"
#include "platform/automation/events.h"
#include "platform/automation/object.h"
#include "platform/script/script_control.h"

namespace ovmodel {

/// Ends a script from within: no error that a script could catch.
class ScriptQuit : public ov::EndScript {
public:
    explicit ScriptQuit(int status) noexcept : mStatus(status) {}
    int status() const noexcept { return mStatus; }

private:
    int mStatus;
};

/// A new object of a class that scripts may create: "OV_Model.CBase_Module" and its like, "Scripting.Dictionary".
/// @throws RuntimeError 429 for any other name
ov::Ref<ov::IDispatch> CreateScriptObject(const ov::Text& progId);

/// The functions that are visible without a name before them.
class IGlobalFunctions : public ov::IDispatch {
public:
    static constexpr ov::Guid kIid = ov::Guid::Parse("{3C1B5A90-7E54-4E0B-8A0F-5B1D2C3E4F01}");
    static constexpr const char* kName = "_GlobalFunctions";
    static const ov::InterfaceInfo& Members();

    virtual ov::Ref<ov::IDispatch> CreateObject(const ov::Text& progId) = 0;
    /// Another facet of an object by the name of its interface, with or without the leading underscore, or Nothing.
    virtual ov::Ref<ov::IDispatch> Facet(ov::IDispatch* object, const ov::Text& name) = 0;
};
class GlobalFunctions final : public ov::Object<GlobalFunctions, ov::Facet<IGlobalFunctions>> {
public:
    static constexpr const char* kClassName = "GlobalFunctions";
    ov::Ref<ov::IDispatch> CreateObject(const ov::Text& progId) override { return CreateScriptObject(progId); }
    ov::Ref<ov::IDispatch> Facet(ov::IDispatch* object, const ov::Text& name) override;
};

/// WScript.Arguments: what stood behind the script on the command line.
class IArguments : public ov::IDispatch {
public:
    static constexpr ov::Guid kIid = ov::Guid::Parse("{3C1B5A90-7E54-4E0B-8A0F-5B1D2C3E4F02}");
    static constexpr const char* kName = "_Arguments";
    static const ov::InterfaceInfo& Members();

    virtual std::int32_t Count() = 0;
    /// From 0 on; the default member. @throws RuntimeError 9
    virtual ov::Text Item(std::int32_t index) = 0;
    virtual ov::Ref<ov::IEnumVariant> NewEnum() = 0;
};

/// WScript.StdIn, StdOut and StdErr. @throws RuntimeError 54 for the wrong direction, 62 for reading past the end
class ITextStream : public ov::IDispatch {
public:
    static constexpr ov::Guid kIid = ov::Guid::Parse("{3C1B5A90-7E54-4E0B-8A0F-5B1D2C3E4F03}");
    static constexpr const char* kName = "_TextStream";
    static const ov::InterfaceInfo& Members();

    virtual void Write(const ov::Text& text) = 0;
    virtual void WriteLine(const std::optional<ov::Text>& text) = 0;
    virtual ov::Text ReadLine() = 0;
    virtual ov::Text ReadAll() = 0;
    virtual bool AtEndOfStream() = 0;
};

/// WScript.
class IScriptShell : public ov::IDispatch {
public:
    static constexpr ov::Guid kIid = ov::Guid::Parse("{3C1B5A90-7E54-4E0B-8A0F-5B1D2C3E4F04}");
    static constexpr const char* kName = "_WScript";
    static const ov::InterfaceInfo& Members();

    virtual void Echo(std::span<const ov::Variant> arguments) = 0;
    virtual ov::Ref<IArguments> Arguments() = 0;
    virtual void Quit(std::optional<std::int32_t> status) = 0;
    virtual ov::Text ScriptName() = 0;
    virtual ov::Text ScriptFullName() = 0;
    virtual void Sleep(std::int32_t milliseconds) = 0;
    virtual ov::Ref<ITextStream> StdIn() = 0;
    virtual ov::Ref<ITextStream> StdOut() = 0;
    virtual ov::Ref<ITextStream> StdErr() = 0;
    virtual ov::Ref<ov::IDispatch> CreateObject(const ov::Text& progId, const std::optional<ov::Text>& prefix) = 0;
    virtual void ConnectObject(ov::IDispatch* object, const ov::Text& prefix) = 0;
    virtual void DisconnectObject(ov::IDispatch* object) = 0;
};

/// The shell object of one run. Objects that were connected are let go by Disconnect at the latest.
class ScriptShell final : public ov::Object<ScriptShell, ov::Facet<IScriptShell>> {
public:
    static constexpr const char* kClassName = "WScript";

    /// @param control runs the script; must outlive all events
    ScriptShell(ov::ScriptControl& control, std::string path, const std::vector<std::string>& arguments);

    void Echo(std::span<const ov::Variant> arguments) override;
    ov::Ref<IArguments> Arguments() override { return mArguments; }
    void Quit(std::optional<std::int32_t> status) override { throw ScriptQuit(status.value_or(0)); }
    ov::Text ScriptName() override;
    ov::Text ScriptFullName() override;
    void Sleep(std::int32_t milliseconds) override;
    ov::Ref<ITextStream> StdIn() override { return mStdIn; }
    ov::Ref<ITextStream> StdOut() override { return mStdOut; }
    ov::Ref<ITextStream> StdErr() override { return mStdErr; }
    ov::Ref<ov::IDispatch> CreateObject(const ov::Text& progId, const std::optional<ov::Text>& prefix) override;
    void ConnectObject(ov::IDispatch* object, const ov::Text& prefix) override;
    void DisconnectObject(ov::IDispatch* object) override;

    /// Takes all sinks off.
    void DisconnectAll();

private:
    struct Connection {
        ov::Ref<ov::IEventSource> source;
        std::int32_t cookie;
    };

    ov::ScriptControl& mControl;
    std::string mPath;
    ov::Ref<IArguments> mArguments;
    ov::Ref<ITextStream> mStdIn, mStdOut, mStdErr;
    std::vector<Connection> mConnections;
};

}  // namespace ovmodel
