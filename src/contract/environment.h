/// @file
/// The environment: a module's store of values that belong to no device parameter, such as what the host knows of its
/// user. Rules reach it as `ENV`. What holds for all interfaces stands in forward.h.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "contract/forward.h"
#include "platform/automation/dispatch.h"
#include "platform/automation/listener.h"

namespace ov {

/// The store. Names compare without regard to case; nothing is saved with the module. A new one holds "DEBUG" alone,
/// "1" or "0" by the process's debug switch.
class CBase_Environment : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{0395343D-28E0-4AA9-B8DD-C7DCC15FC65B}");
    static constexpr const char* kName = "_CBase_Environment";
    static const InterfaceInfo& Members();

    /// Writes a variable; raises `Changed` if it is new or its value differs.
    virtual void let_Variable(const Text& key, const Variant& value) = 0;
    /// Empty for a missing variable.
    virtual Variant get_Variable(const Text& key) = 0;
    /// Empties @p env without events, then writes each variable to it in the order of first use, with events.
    virtual void CopyContentsTo(CBase_Environment* env) = 0;
    virtual void let_VariableNoEvent(const Text& key, const Variant& value) = 0;  ///< let_Variable without the event
};

/// The event of an environment; the source interface of CBase_Environment.
class CBase_EnvironmentEvents : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{6C6B9C1E-8A34-4E43-9F0A-3B5D1C7E2A90}");
    static constexpr const char* kName = "__CBase_Environment";
    static const InterfaceInfo& Members();

    /// A variable got a value that differs from its old one, or its first. Raised before the write returns.
    virtual void Changed(const Text& key, const Variant& value) = 0;
};

template <>
struct LateListenerOf<CBase_EnvironmentEvents> {
    static Ref<CBase_EnvironmentEvents> Adapt(IDispatch* target);
};

}  // namespace ov
