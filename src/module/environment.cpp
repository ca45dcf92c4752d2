#include "module/environment.h"

#include "platform/automation/operators.h"
#include "record/recording.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

// Variant inequality, read as a condition: beside Null nothing differs, and what cannot be compared does.
bool Differ(const Variant& a, const Variant& b) {
    try {
        const std::optional<std::weak_ordering> order = Compare(a, b);
        return order && *order != 0;
    } catch (const RuntimeError&) {
        return true;
    }
}

}  // namespace

Environment::Environment() {
    let_Variable(u"DEBUG", GlobalDiagnostics().debugToOutput ? Variant(u"1") : Variant(u"0"));
}

Variant Environment::get_Variable(const Text& key) {
    const Variant* value = mValues->Find(key);
    if (Recording::IsUnderWay()) {
        if (const std::shared_ptr<RuleRecord> record = mRecord.lock()) {
            Recording::NoteRead(*record, record->VariableInput(key));
        }
        if (value && value->IsObject()) Traces::Leave(Unrepeatable::Object);
    }
    return value ? *value : Variant();
}

void Environment::let_Variable(const Text& key, const Variant& value) {
    if (!Store(key, value)) return;
    mSinks.RaiseEvent([&](CBase_EnvironmentEvents& sink) { sink.Changed(key, value); });
}

void Environment::let_VariableNoEvent(const Text& key, const Variant& value) {
    Store(key, value);
}

// Answers whether the variable is new or has another value now.
bool Environment::Store(const Text& key, const Variant& value) {
    Traces::Leave(Unrepeatable::Change);
    if (const std::shared_ptr<RuleRecord> record = mRecord.lock()) record->RaiseVariable(key);
    if (mValues->TryAdd(key, value)) {
        mKeys.push_back(key);
        return true;
    }
    const Variant old = *mValues->Find(key);
    if (!Differ(old, value)) return false;
    // The variable goes to the end of the values, while the order of its first use stays.
    mValues->RemoveKey(key);
    mValues->TryAdd(key, value);
    return true;
}

void Environment::CopyContentsTo(CBase_Environment* env) {
    if (!env) Raise(ErrorNumber::ObjectVariableNotSet);
    const std::vector<Text> keys = mKeys;
    if (auto* own = dynamic_cast<Environment*>(env)) {
        if (own == this) return;
        own->Empty();
    }
    for (const Text& key : keys) {
        env->let_Variable(key, get_Variable(key));
    }
}

void Environment::Empty() {
    mKeys.clear();
    mValues->Clear();
    if (const std::shared_ptr<RuleRecord> record = mRecord.lock()) record->ForgetAll();
}

}  // namespace ov
