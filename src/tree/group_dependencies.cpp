// The rules by which parameters change shape: one pass over the group, and how far a change carries.
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/dependency_update.h"
#include "tree/group.h"

namespace ov {

namespace {

const Text kNoId(u"?");  // stands for the parameter's id in messages about its alternatives

Variant RowOf(CBase_ParamDependency& dependency) {
    return Variant(dependency.get_desc());
}

}  // namespace

void Group::UpdateDependencies() {
    const Ref<Group> alive = this;
    if (SettleAlone(*this, &Group::ReconfigurationPass)) return;
    if (const Ref<Channel> channel = mChannel) channel->UpdateDependencies();
}

bool Group::CheckConsistencyAll() {
    bool all = true;
    if (const Ref<TypedList<IBase_SpecParameter>> parameters = mParameters) {
        parameters->ForEachAs<IBase_Internal>([&](IBase_Internal& parameter) {
            all = parameter.CheckConsistency() && all;
            return true;
        });
    }
    return all;
}

bool Group::ReconfigurationPass() {
    bool any = false;
    mScriptResults = nullptr;
    const Ref<TypedList<IBase_SpecParameter>> parameters = mParameters;
    if (!parameters) return false;  // a group that was never opened takes no part
    parameters->ForEachAs<IBase_Internal>([&](IBase_Internal& parameter) {
        if (parameter.get_configState() == eParameterConfigState::eParameterValid) {
            if (SettleValid(parameter)) {
                if (ToBoolean(parameter.CheckNeedForReConfig())) Reconfigure(parameter, any);
            } else {
                SettleInvalid(parameter, any);
            }
        } else if (FindActiveDependency(*parameter.dependencies(), true)) {
            if (parameter.DBindex() != parameter.dependencies()->get_idx()) Reconfigure(parameter, any);
            NoteChange(parameter);
            parameter.let_configState(eParameterConfigState::eParameterValid);
        }
        return true;
    });
    mScriptResults = nullptr;
    return any;
}

// True if the row in force stays in force.
bool Group::SettleValid(IBase_Internal& parameter) {
    const Text rule = parameter.dependencies()->get_dep();
    return rule.empty() || GetBoolFromScript(rule, parameter.id());
}

// The row in force is out: the next one that holds takes its place, or the parameter goes.
void Group::SettleInvalid(IBase_Internal& parameter, bool& any) {
    const Ref<CBase_ParamDependency> dependency = parameter.dependencies();
    if (parameter.get_scriptAccess()) any = true;
    NoteChange(parameter);
    if (FindActiveDependency(*dependency, false)) {
        parameter.Config(static_cast<IBase_GuiGroup*>(this), RowOf(*dependency));
        parameter.CheckConsistency();
        return;
    }
    const bool remove = dependency->get_removeOnDep() == u"True";
    parameter.let_configState(remove ? eParameterConfigState::eParameterInvalid
                                     : eParameterConfigState::eParameterDisabled);
}

void Group::Reconfigure(IBase_Internal& parameter, bool& any) {
    if (parameter.get_scriptAccess()) any = true;
    NoteChange(parameter);
    parameter.Config(static_cast<IBase_GuiGroup*>(this), RowOf(*parameter.dependencies()));
    parameter.CheckConsistency();
}

void Group::NoteChange(IBase_Internal& parameter) {
    DependencyUpdate::NoteChange([&] {
        const Ref<Channel> channel = mChannel;
        return (channel ? TextForLog(channel->Id()) : Text()) + u"/" + TextForLog(mId) + u"/" +
               TextForLog(parameter.id());
    });
}

// Leaves the cursor on the row in force. Rows are tried in ring order from behind the current one; where none holds,
// the cursor is back where it began.
bool Group::FindActiveDependency(CBase_ParamDependency& dependency, bool checkCurrent) {
    if (checkCurrent && GetBoolFromScript(dependency.get_dep(), kNoId)) return true;
    const std::int32_t start = dependency.get_idx();
    for (dependency.MoveNext(); dependency.get_idx() != start; dependency.MoveNext()) {
        const Text rule = dependency.get_dep();
        if (rule.empty() || GetBoolFromScript(rule, kNoId)) return true;
    }
    return false;
}

}  // namespace ov
