// Scripts that the descriptor attaches to values: table Actions.
#include "descriptor/shared_descriptor.h"
#include "parameters/parameter.h"

#include "platform/automation/conversions.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr const char16_t* kElse = u"ELSE";  // key of the action for every value that has none of its own

}  // namespace

void Parameter::RunActionOnChange() {
    const Text key = mData && !Knows(&RowFacts::hasNoAction) ? CellText(RowCell::ActionOnChange) : Text();
    if (key.empty()) return;
    const Text valueText = ValueText();
    const Ref<Collection> actions = LoadActionTable(key);
    const Variant* action = actions->Find(valueText);
    if (!action) action = actions->Find(kElse);
    if (!action || action->IsNull()) return;
    const Text script = ReplaceAll(ToText(*action), u"P()", valueText);
    const Ref<ParameterOwner> owner = mGroup;
    if (owner && !script.empty()) owner->ExecuteScript(script);
}

// Put together anew for every write: actions are rare.
Ref<Collection> Parameter::LoadActionTable(const Text& key) {
    Ref<Collection> actions = MakeObject<Collection>();
    try {
        ReadActions(key, *actions);
    } catch (const RuntimeError& failure) {
        if (DebugOutput()) {
            Log(u"LoadActionTable(): ONERROR: Error " + Text::FromInteger(failure.number()) + u": " +
                ActionFault(failure));
        }
    }
    return actions;
}

Text Parameter::ActionFault(const RuntimeError& failure) const {
    return ErrorText(failure.number()) + u" (" + failure.description() + u")";
}

void Parameter::ReadActions(const Text& key, Collection& actions) {
    const Ref<ModuleServices> module = Module();
    const Ref<Database> db = module ? module->GetDB() : nullptr;
    if (!db) Raise(ErrorNumber::ObjectVariableNotSet);
    const std::shared_ptr<const RowSet> rows = SharedDescriptor::Of(*db).Rows(
        u"SELECT [value],[actionScript] FROM [Actions] WHERE [ActionID] = '" + key + u"'");
    for (const Ref<const ov::Row>& row : rows->rows) {
        const Variant& value = (*row)[0];
        const Variant& script = (*row)[1];
        if (script.IsNull() && !value.IsNull()) continue;
        const Text entry = value.IsNull() ? Text(kElse) : ToText(value);
        if (!actions.TryAdd(entry, script) && DebugOutput()) {
            Log(u"Id '" + TextForLog(mId) + u"': LoadActionTable(): ERROR adding ACTION-item for value '" +
                TextForLog(value) + u"' (actionScript=" + TextForLog(script) + u"): " +
                ErrorText(static_cast<std::int32_t>(ErrorNumber::KeyAlreadyAssociated)));
        }
    }
}

}  // namespace ov
