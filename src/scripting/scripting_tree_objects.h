/// @file
/// `G`, `CH` and `GETTEXT`: the groups of a channel, the channels of a module and the module's texts, as scripts see
/// them.
#pragma once

#include "contract/collections.h"
#include "contract/scripting.h"
#include "descriptor/module_services.h"
#include "platform/automation/object.h"

namespace ov {

/// CBase_ScriptingGroups. Reaching a group marks it, since a change in it may matter elsewhere from then on.
class ScriptingGroups final : public Object<ScriptingGroups, Facet<CBase_ScriptingGroups>> {
public:
    static constexpr const char* kClassName = "CBase_ScriptingGroups";

    void Bind(Ref<CBase_SpecGroupCollection> groups) { mData = std::move(groups); }
    /// The parameters of a group, which are loaded; Nothing, which is logged, if there is no such group.
    Ref<CBase_ScriptingParameters> parameters(const Variant& id) override;

private:
    Ref<CBase_SpecGroupCollection> mData;
};

/// CBase_ScriptingChannels. Reaching a channel marks it.
class ScriptingChannels final : public Object<ScriptingChannels, Facet<CBase_ScriptingChannels>> {
public:
    static constexpr const char* kClassName = "CBase_ScriptingChannels";

    void Bind(Ref<CBase_SpecChannelCollection> channels) { mData = std::move(channels); }
    /// The groups of a channel, which are loaded; Nothing, which is logged, if there is no such channel.
    Ref<CBase_ScriptingGroups> groups(const Variant& id) override;

private:
    Ref<CBase_SpecChannelCollection> mData;
};

/// CBase_ScriptingTexts.
class ScriptingTexts final : public Object<ScriptingTexts, Facet<CBase_ScriptingTexts>> {
public:
    static constexpr const char* kClassName = "CBase_ScriptingTexts";

    void Bind(Ref<ModuleServices> module) { mModule = std::move(module); }
    Text text(std::int32_t idx) override { return mModule ? mModule->GetTranslatedText(idx) : Text(); }

private:
    Ref<ModuleServices> mModule;
};

}  // namespace ov
