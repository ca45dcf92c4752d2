// The rules by which parameters change shape: one pass over the group, and how far a change carries.
#include "parameters/parameter.h"
#include "platform/automation/conversions.h"
#include "record/step_run.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/dependency_update.h"
#include "tree/group.h"

namespace ov {

namespace {

const Text kNoId(u"?");  // stands for the parameter's id in messages about its alternatives

}  // namespace

/// A parameter as the sweep sees it: its ring, which the sweep moves in silence, and its place in the record. What a
/// host has put into the list has none, and is visited by every sweep.
class Group::RuledParameter {
public:
    explicit RuledParameter(IBase_Internal& parameter) : self(parameter), mOwn(ov::Parameter::Of(parameter)) {}

    RuleTrace& Trace() noexcept { return mOwn ? mOwn->Trace() : mNoTrace; }
    std::uint8_t Alternative() noexcept { return mOwn ? mOwn->Alternative() : 0; }
    /// The parameter has the current row, and its rule holds.
    void NoteInForce() {
        RuleRecord* const record = Trace().Record();
        if (record && record->Counts()) record->Counts()->NoteInForce(Index());
    }
    std::int32_t Index() { return IsAlone() ? mOwn->CurrentRow().index : Ring().get_idx(); }
    Text Rule() { return IsAlone() ? mOwn->CurrentRow().rule : Ring().get_dep(); }
    bool GoesAway() { return IsAlone() ? mOwn->CurrentRow().goesAway : Ring().get_removeOnDep() == u"True"; }
    void NextRow() {
        if (IsAlone()) {
            static_cast<void>(mOwn->CurrentRow());
        } else {
            const ParamDependency::Unwatched unwatched(Ring());
            Ring().MoveNext();
        }
        Trace().NoteTurn();
    }
    /// Gives the parameter the current row of its ring.
    void TakeRow(IBase_GuiGroup* group) {
        const Variant row = [&] {
            if (IsAlone() && mOwn->CurrentRow().row) return Variant(mOwn->CurrentRow().row);
            const ParamDependency::Unwatched unwatched(Ring());
            return Variant(Ring().get_desc());
        }();
        self.Config(group, row);
        self.CheckConsistency();
    }

    IBase_Internal& self;

private:
    // Rules may make the ring that there was not.
    bool IsAlone() const noexcept { return mOwn && mOwn->IsAlone(); }
    CBase_ParamDependency& Ring() {
        if (!mRing) mRing = self.dependencies();
        return *mRing;
    }

    ov::Parameter* mOwn;
    RuleTrace mNoTrace;
    Ref<CBase_ParamDependency> mRing;
};

void Group::UpdateDependencies() {
    const Ref<Group> alive = this;
    if (SettleAlone(*this, &Group::ReconfigurationPass)) return;
    if (const Ref<Channel> channel = mChannel) channel->UpdateDependencies();
}

void Group::CheckConsistencyAll() {
    if (!mParameters) return;
    const auto swept = mSwept;  // a visit may have the parameters read anew
    swept->Sweep(mParameters->Underlying(), &Workload::check,
                 [](IBase_Internal& parameter, std::size_t) { parameter.CheckConsistency(); });
}

bool Group::ReconfigurationPass() {
    bool any = false;
    mScriptResults = nullptr;
    if (!mParameters) return false;  // a group that was never opened takes no part
    const auto swept = mSwept;       // as above
    swept->Sweep(mParameters->Underlying(), &Workload::pass, [&](IBase_Internal& parameter, std::size_t) {
        RuledParameter ruled(parameter);
        StepRun step(ruled.Trace(), &Workload::pass);
        RunRules(ruled, any);
        step.End();
    });
    mScriptResults = nullptr;
    return any;
}

void Group::RunRules(RuledParameter& parameter, bool& any) {
    IBase_Internal& self = parameter.self;
    if (self.get_configState() == eParameterConfigState::eParameterValid) {
        const Text rule = parameter.Rule();
        if (!rule.empty() && !Holds(parameter, rule, self.id())) return GiveWay(parameter, any);
        parameter.NoteInForce();
        if (ToBoolean(self.CheckNeedForReConfig())) Reconfigure(parameter, any);
    } else if (FindActiveDependency(parameter, true)) {
        if (self.DBindex() != parameter.Index()) Reconfigure(parameter, any);
        NoteChange(self);
        parameter.NoteInForce();
        self.let_configState(eParameterConfigState::eParameterValid);
    }
}

bool Group::Holds(RuledParameter& parameter, const Text& rule, const Variant& id) {
    Recording recording(parameter.Trace(), parameter.Alternative(), parameter.Index());
    return recording.Keep(GetBoolFromScript(rule, id));
}

// The row in force is out: the next one that holds takes its place, or the parameter goes.
void Group::GiveWay(RuledParameter& parameter, bool& any) {
    IBase_Internal& self = parameter.self;
    if (self.get_scriptAccess()) any = true;
    NoteChange(self);
    if (FindActiveDependency(parameter, false)) {
        parameter.NoteInForce();
        return parameter.TakeRow(this);
    }
    self.let_configState(parameter.GoesAway() ? eParameterConfigState::eParameterInvalid
                                              : eParameterConfigState::eParameterDisabled);
}

void Group::Reconfigure(RuledParameter& parameter, bool& any) {
    if (parameter.self.get_scriptAccess()) any = true;
    NoteChange(parameter.self);
    parameter.TakeRow(this);
}

void Group::NoteChange(IBase_Internal& parameter) {
    Traces::Leave(Unrepeatable::Change);
    DependencyUpdate::NoteChange([&] {
        const Ref<Channel> channel = mChannel;
        return (channel ? TextForLog(channel->Id()) : Text()) + u"/" + TextForLog(mId) + u"/" +
               TextForLog(parameter.id());
    });
}

// Leaves the cursor on the row in force. Rows are tried in ring order from behind the current one; where none holds,
// the cursor is back where it began. A rule that writes may turn the ring each time it is asked: then one round ends
// it.
bool Group::FindActiveDependency(RuledParameter& parameter, bool checkCurrent) {
    if (checkCurrent && Holds(parameter, parameter.Rule(), kNoId)) return true;
    const std::int32_t start = parameter.Index();
    std::size_t left = ParamDependency::kCapacity;
    for (parameter.NextRow(); parameter.Index() != start && left != 0; parameter.NextRow(), --left) {
        const Text rule = parameter.Rule();
        if (rule.empty() || Holds(parameter, rule, kNoId)) return true;
    }
    return false;
}

void Group::StandBelow(Workload& channel, std::size_t position) noexcept {
    if (channel.record != mRecord.get()) return;  // a group of another tree
    mChannelWork = &channel;
    mChannelPosition = position;
    if (mSwept) mSwept->Work().StandBelow(mChannelWork, mChannelPosition);
}

}  // namespace ov
