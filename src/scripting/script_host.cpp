#include "scripting/script_host.h"

#include "scripting/prelude.h"
#include "scripting/rule_failures.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr std::int32_t kTimeout = 1000;  // milliseconds

}  // namespace

ScriptHost::ScriptHost() {
    mScriptControl.SetLanguage(u"VBScript");
    mScriptControl.Reset();
    mScriptControl.SetTimeout(kTimeout);
}

ScriptHost::~ScriptHost() {
    mScriptControl.Reset();
}

void ScriptHost::Publish(const char16_t* name, IDispatch* object) {
    mScriptControl.AddObject(name, object, false);
}

void ScriptHost::AddPrelude() {
    for (const Text& code : Prelude()) {
        mScriptControl.AddCode(code);
    }
}

void ScriptHost::BindModule(IBase_SpecModule* module) {
    mScriptChannels->Bind(module->channels());
    mScriptEnvironment->Bind(module->Environment());
    mConfM->Bind(module);
    mScriptTexts->Bind(facet<ModuleServices>(module));
}

Variant ScriptHost::Evaluate(const Text& script, bool silent) {
    ++GlobalDiagnostics().debugCountEval;
    try {
        return mScriptControl.Eval(script);
    } catch (const RuntimeError& error) {
        if (!silent) LogFailure(u"Evaluate(", script, error);
        return Variant();
    }
}

void ScriptHost::ExecuteScript(const Text& statement) {
    try {
        mScriptControl.ExecuteStatement(statement);
    } catch (const RuntimeError& error) {
        LogFailure(u"ExecuteScript(", statement, error);
    }
}

void ScriptHost::LogFailure(std::u16string_view call, const Text& script, const RuntimeError& error) {
    TellRuleFailure({script, Text::FromUtf8(error.what()), error.subject()});
    if (DebugOutput()) LogEntry(Source(), Text(call) + script + u"): ERROR: ", error.description());
}

ChannelScripting::ChannelScripting() {
    Publish(u"ENV", mScriptEnvironment->Dispatch());
    Publish(u"G", mScriptGroups->Dispatch());
    Publish(u"CH", mScriptChannels->Dispatch());
    Publish(u"CONFCH", mConfCh->Dispatch());
    Publish(u"CONFM", mConfM->Dispatch());
    Publish(u"GETTEXT", mScriptTexts->Dispatch());
    AddPrelude();
}

void ChannelScripting::BindChannel(IBase_SpecChannel* channel) {
    mScriptGroups->Bind(channel->groups());
    mConfCh->Bind(channel);
}

GroupScripting::GroupScripting() {
    Publish(u"ENV", mScriptEnvironment->Dispatch());
    Publish(u"P", mScriptParameters->Dispatch());
    Publish(u"G", mScriptGroups->Dispatch());
    Publish(u"CH", mScriptChannels->Dispatch());
    Publish(u"CONFCH", mConfCh->Dispatch());
    Publish(u"CONFG", mConfG->Dispatch());
    Publish(u"CONFM", mConfM->Dispatch());
    Publish(u"GETTEXT", mScriptTexts->Dispatch());
    AddPrelude();
}

void GroupScripting::BindGroup(IBase_SpecGroup* group) {
    const Ref<IBase_SpecChannel> channel = group->channel();
    mScriptParameters->Bind(group->parameters());
    mScriptGroups->Bind(channel->groups());
    mConfCh->Bind(channel);
    mConfG->Bind(group);
}

}  // namespace ov
