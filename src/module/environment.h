/// @file
/// The environment of a module: a store of values that belong to no device parameter.
#pragma once

#include <memory>

#include "contract/environment.h"
#include "platform/automation/collection.h"
#include "platform/automation/events.h"
#include "record/rule_record.h"

namespace ov {

/// CBase_Environment. Variables keep the order of their first use for copying; a new store holds "DEBUG" alone.
class Environment final : public Object<Environment, Facet<CBase_Environment>, Facet<IEventSource>> {
public:
    static constexpr const char* kClassName = "CBase_Environment";

    Environment();

    void let_Variable(const Text& key, const Variant& value) override;
    Variant get_Variable(const Text& key) override;
    void CopyContentsTo(CBase_Environment* env) override;
    void let_VariableNoEvent(const Text& key, const Variant& value) override;

    const InterfaceInfo& Events() const override { return CBase_EnvironmentEvents::Members(); }
    std::int32_t Advise(IDispatch* sink) override { return mSinks.Advise(sink); }
    void Unadvise(std::int32_t cookie) override { mSinks.Unadvise(cookie); }

    /// Drops all variables, without an event.
    void Empty();
    /// The rules of this record's tree read the variables.
    void KeepRecord(const std::shared_ptr<RuleRecord>& record) { mRecord = record; }

private:
    bool Store(const Text& key, const Variant& value);

    Ref<Collection> mValues = MakeObject<Collection>();
    std::vector<Text> mKeys;
    std::weak_ptr<RuleRecord> mRecord;
    EventSinks<CBase_EnvironmentEvents> mSinks;
};

}  // namespace ov
