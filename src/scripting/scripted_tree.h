/// @file
/// What scripts do to the tree besides what its public facets offer. The tree implements these facets.
#pragma once

#include "platform/automation/collection.h"
#include "platform/automation/interface_info.h"

namespace ov {

/// A group as its scripts need it. Stays inside the library: nothing of it can be called by name.
class ScriptedGroup : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A02}");
    static constexpr const char* kName = "ScriptedGroup";
    static const InterfaceInfo& Members() {
        static const InterfaceInfo info(kIid, kName, {});
        return info;
    }

    /// The descriptor row, for reading. `desc` gives it to hosts, who may change it.
    virtual Collection* Row() = 0;
    /// Marks the group as reached by a script of another group or channel; the mark is never cleared.
    virtual void MarkScriptAccess() = 0;
    /// Sweeps the rules after a change of a value. @throws RuntimeError of a rule's side effects
    virtual void UpdateDependencies() = 0;
    /// Script texts of the group by id, read at the first call.
    virtual Ref<Collection> GroupScripts() = 0;
    /// Results of group scripts by id; dropped at the start and the end of every pass.
    virtual Ref<Collection> ScriptResultCache() = 0;
    /// The value of a text that may be a script, by the generation of the descriptor.
    virtual Variant EvaluateByModelVersion(const Text& text) = 0;
    /// A text that a script picked from a list: from generation 1 on it may be a prefixed script itself.
    virtual Variant EvaluatePickedText(const Text& text) = 0;
};

/// A channel as scripts need it.
class ScriptedChannel : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A03}");
    static constexpr const char* kName = "ScriptedChannel";
    static const InterfaceInfo& Members() {
        static const InterfaceInfo info(kIid, kName, {});
        return info;
    }

    /// The descriptor row, for reading.
    virtual Collection* Row() = 0;
    /// Marks the channel as reached by a script of another channel; the mark is never cleared.
    virtual void MarkScriptAccess() = 0;
};

}  // namespace ov
