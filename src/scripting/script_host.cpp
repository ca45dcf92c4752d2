#include "scripting/script_host.h"

#include "scripting/prelude.h"
#include "scripting/rule_failures.h"
#include "support/diagnostics.h"

namespace ov {

ScriptHost::ScriptHost() {
    mScriptControl.SetLanguage(u"VBScript");
    mScriptControl.Reset();
    mScriptControl.SetTimeout(GlobalDiagnostics().scriptTimeout);
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
    mDefinitions = mScriptControl.Definitions();
}

// From the first definition on, what a script answers may depend on what another one has left in the engine.
void ScriptHost::NoteDefinitions() {
    if (mScriptControl.Definitions() == mDefinitions) return;
    mDefinitions = mScriptControl.Definitions();
    mHoldsState = true;
    if (const std::shared_ptr<RuleRecord> record = mRecord.lock()) record->ForgetAll();
}

void ScriptHost::BindModule(IBase_SpecModule* module) {
    mScriptChannels->Bind(module->channels());
    mScriptEnvironment->Bind(module->Environment());
    mConfM->Bind(module);
    const auto services = facet<ModuleServices>(module);
    mScriptTexts->Bind(services);
    if (services) mRecord = services->Record();
}

Variant ScriptHost::Evaluate(const Text& script, bool silent) {
    ++GlobalDiagnostics().debugCountEval;
    if (mHoldsState) Traces::Leave(Unrepeatable::ScriptState);
    Variant result;
    try {
        result = mScriptControl.Eval(script);
    } catch (const RuntimeError& error) {
        Traces::Leave(Unrepeatable::Line);  // told or not, it may take its time again
        if (!silent) LogFailure(u"Evaluate(", script, error);
    }
    NoteDefinitions();
    return result;
}

void ScriptHost::ExecuteScript(const Text& statement) {
    Traces::Leave(Unrepeatable::Statement);
    try {
        mScriptControl.ExecuteStatement(statement);
    } catch (const RuntimeError& error) {
        LogFailure(u"ExecuteScript(", statement, error);
    }
    NoteDefinitions();
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
