#include "ovmodel/host/script_host_objects.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <thread>

#include "contract/library.h"
#include "module/class_factory.h"
#include "module/interface_names.h"
#include "ovmodel/host/event_sink.h"
#include "ovmodel/host/text_stream.h"
#include "platform/automation/conversions.h"
#include "platform/automation/dictionary.h"
#include "platform/automation/member.h"

namespace ovmodel {

using ov::ErrorNumber;
using ov::get_member;
using ov::InterfaceInfo;
using ov::member;
using ov::Raise;
using ov::Ref;
using ov::Text;
using ov::Variant;

const InterfaceInfo& IGlobalFunctions::Members() {
    static constexpr std::array kMembers = {member<&IGlobalFunctions::CreateObject>("CreateObject"),
                                            member<&IGlobalFunctions::Facet>("Facet")};
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IArguments::Members() {
    static constexpr std::array kMembers = {
        get_member<&IArguments::Count>("Count"), member<&IArguments::Count>("length"),
        get_member<&IArguments::Item>("Item").AsDefault(), member<&IArguments::NewEnum>("NewEnum")};
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IScriptShell::Members() {
    static constexpr std::array kMembers = {
        member<&IScriptShell::Echo>("Echo"),
        get_member<&IScriptShell::Arguments>("Arguments"),
        member<&IScriptShell::Quit>("Quit"),
        get_member<&IScriptShell::ScriptName>("ScriptName"),
        get_member<&IScriptShell::ScriptFullName>("ScriptFullName"),
        member<&IScriptShell::Sleep>("Sleep"),
        get_member<&IScriptShell::StdIn>("StdIn"),
        get_member<&IScriptShell::StdOut>("StdOut"),
        get_member<&IScriptShell::StdErr>("StdErr"),
        member<&IScriptShell::CreateObject>("CreateObject"),
        member<&IScriptShell::ConnectObject>("ConnectObject"),
        member<&IScriptShell::DisconnectObject>("DisconnectObject"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

Ref<ov::IDispatch> CreateScriptObject(const Text& progId) {
    constexpr std::u16string_view kLibrary = u"OV_Model.";
    if (ov::EqualNoCase(progId, u"Scripting.Dictionary")) return ov::MakeObject<ov::Dictionary>()->Dispatch();
    const std::u16string_view name = progId;
    if (ov::EqualNoCase(name.substr(0, kLibrary.size()), kLibrary)) {
        const ov::ClassDescription* description = ov::FindClass(name.substr(kLibrary.size()));
        if (Ref<ov::IDispatch> made = description ? ov::MakeObjectOfClass(*description) : nullptr) return made;
    }
    RaiseAbout(ErrorNumber::CannotCreateObject, progId);
}

Ref<ov::IDispatch> GlobalFunctions::Facet(ov::IDispatch* object, const Text& name) {
    const ov::Guid* iid = object ? ov::FindInterface(name) : nullptr;
    return iid ? Ref<ov::IDispatch>::Adopt(static_cast<ov::IDispatch*>(object->QueryInterface(*iid))) : nullptr;
}

namespace {

class ScriptArguments final : public ov::Object<ScriptArguments, ov::Facet<IArguments>> {
public:
    static constexpr const char* kClassName = "WshArguments";

    explicit ScriptArguments(const std::vector<std::string>& arguments) {
        for (const std::string& argument : arguments) {
            mArguments.push_back(Text::FromUtf8(argument));
        }
    }
    std::int32_t Count() override { return static_cast<std::int32_t>(mArguments.size()); }
    Text Item(std::int32_t index) override {
        if (index < 0 || index >= Count()) Raise(ErrorNumber::SubscriptOutOfRange);
        return mArguments[static_cast<std::size_t>(index)];
    }
    Ref<ov::IEnumVariant> NewEnum() override { return ov::EnumerateItems({mArguments.begin(), mArguments.end()}); }

private:
    std::vector<Text> mArguments;
};

}  // namespace

ScriptShell::ScriptShell(ov::ScriptControl& control, std::string path, const std::vector<std::string>& arguments)
    : mControl(control),
      mPath(std::move(path)),
      mArguments(ov::MakeObject<ScriptArguments>(arguments)),
      mStdIn(MakeInputStream(std::cin)),
      mStdOut(MakeOutputStream(std::cout)),
      mStdErr(MakeOutputStream(std::cerr)) {}

void ScriptShell::Echo(std::span<const Variant> arguments) {
    Text line;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i > 0) line += u' ';
        line += ov::ToText(arguments[i]);
    }
    mStdOut->WriteLine(line);
}

Text ScriptShell::ScriptName() {
    return Text::FromUtf8(std::filesystem::path(mPath).filename().string());
}

Text ScriptShell::ScriptFullName() {
    return Text::FromUtf8(std::filesystem::absolute(mPath).string());
}

void ScriptShell::Sleep(std::int32_t milliseconds) {
    if (milliseconds < 0) Raise(ErrorNumber::InvalidProcedureCall);
    std::cout.flush();
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

Ref<ov::IDispatch> ScriptShell::CreateObject(const Text& progId, const std::optional<Text>& prefix) {
    Ref<ov::IDispatch> object = CreateScriptObject(progId);
    if (prefix) ConnectObject(object.get(), *prefix);
    return object;
}

void ScriptShell::ConnectObject(ov::IDispatch* object, const Text& prefix) {
    if (!object) Raise(ErrorNumber::ObjectRequired);
    Ref<ov::IEventSource> source = ov::facet<ov::IEventSource>(object);
    if (!source) Raise(ErrorNumber::ClassDoesNotSupportAutomation);
    const Ref<ov::IDispatch> sink = MakeEventSink(mControl, prefix, source->Events());
    const std::int32_t cookie = source->Advise(sink.get());
    mConnections.push_back({std::move(source), cookie});
}

void ScriptShell::DisconnectObject(ov::IDispatch* object) {
    std::erase_if(mConnections, [object](const Connection& connection) {
        if (!ov::SameObject(connection.source.get(), object)) return false;
        connection.source->Unadvise(connection.cookie);
        return true;
    });
}

void ScriptShell::DisconnectAll() {
    for (const Connection& connection : std::exchange(mConnections, {})) {
        connection.source->Unadvise(connection.cookie);
    }
}

}  // namespace ovmodel
