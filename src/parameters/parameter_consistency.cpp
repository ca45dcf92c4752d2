// The check of a parameter, and its consistency rule.
#include "parameters/parameter.h"
#include "platform/automation/conversions.h"
#include "record/step_run.h"
#include "support/diagnostics.h"

namespace ov {

bool Parameter::CheckConsistency() {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    StepRun step(mTrace, &Workload::check);
    bool passes = true;
    mErrorText = Text();
    mRefusedBy.reset();
    const Scale formerScale = CurrentScale();
    RefreshScale();
    const Terms former{formerScale, CurrentLimits(), mUnit};
    CheckLimits(passes);
    if (!StateMayPass()) Refuse(passes, u"ValueExt = " + error());
    if (IsRuleDue(passes) && !PassesRule()) {
        Refuse(passes, u"Value (" + ValueText() + u") didn't pass the additional consistency check",
               RuleColumn::Consistency);
    }
    CurrentUnit();
    CheckFurther(passes, former);
    // Any rule above may have checked the parameter as well: what that moved is told by both checks.
    if (HaveMoved(former)) {
        mTrace.NoteChange();  // texts and images follow gain and limits
        Notify(kReconfigured);
    }
    if (mConsistent != passes) {
        mConsistent = passes;
        Notify(kStateChanged);
    }
    step.End();
    return passes;
}

bool Parameter::HaveMoved(const Terms& former) const {
    return mUnit != former.unit || CurrentScale() != former.scale || CurrentLimits() != former.limits;
}

void Parameter::Refuse(bool& passes, const Text& reason, std::optional<RuleColumn> by) {
    passes = false;
    if (!mRefusedBy) mRefusedBy = by;
    mErrorText += reason;
}

Text Parameter::ConsistencyRule() const {
    return mData && !Knows(&RowFacts::hasNoRule) ? CellText(RowCell::Consistency) : Text();
}

bool Parameter::EvaluateRule(const Text& script) {
    try {
        const Ref<ParameterOwner> owner = Owner();
        const Ref<ModuleServices> module = owner->Module();
        if (!module) Raise(ErrorNumber::ObjectVariableNotSet);
        return ToBoolean(module->GetModelVersionIndex() >= 1 ? owner->EvaluateScriptOrLiteral(script, false)
                                                             : owner->EvaluateRawScript(script, false, false));
    } catch (const RuntimeError&) {
        if (DebugOutput()) Log(u"EvaluateConsistency(): ERROR: script " + script + u" could not be processed!");
        return false;
    }
}

}  // namespace ov
