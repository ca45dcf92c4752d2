#include "scripting/rule_failures.h"

#include "record/recording.h"

namespace ov {

namespace {

RuleFailureListener& Listener() {
    static RuleFailureListener listener;
    return listener;
}

}  // namespace

void ListenToRuleFailures(RuleFailureListener listener) {
    Listener() = std::move(listener);
}

void TellRuleFailure(const RuleFailure& failure) {
    Recording::NoteFailure();
    if (Listener()) Listener()(failure);
}

}  // namespace ov
