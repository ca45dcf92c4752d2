/// @file
/// The objects through which the descriptor's rules reach the tree: `P` the parameters of a group, `G` the groups of a
/// channel, `CH` the channels of a module, `GETTEXT` the texts. Each path is written with default members:
/// `P("12")`, `G("3")("12")`, `CH("1")("3")("12")`.
///
/// A rule that stops half way is worse than one that sees Empty, so a failure here is logged and answered by Empty,
/// "", False or Nothing. Reading leaves marks (`scriptAccess`) that say how far a later change must be followed. An
/// `id` counts by its text form. What holds for all interfaces stands in forward.h.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "contract/forward.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// `P`. All its reads mark the parameter as read by a script.
class CBase_ScriptingParameters : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{30ADEE7D-25D9-4F95-8C04-BDE2FAAADF15}");
    static constexpr const char* kName = "_CBase_ScriptingParameters";
    static const InterfaceInfo& Members();

    /// The default member: the parameter's IBase_SpecParameter value; Empty for an unknown id.
    virtual Variant value(const Variant& id) = 0;
    virtual Variant val(const Variant& id) = 0;  ///< the same as `value`
    virtual Text sVal(const Variant& id) = 0;    ///< the text that a user sees
    /// Picks by the value: @p arguments are pairs of a value and a result, and at the end perhaps a single default. A
    /// picked text may be a marked script of its own, which is then evaluated. Empty if nothing fits.
    virtual Variant sel(const Variant& id, std::span<const Variant> arguments) = 0;
    /// The device view in @p chars hexadecimal digits; "" for 0 or none.
    virtual Text hVal(const Variant& id, std::optional<std::int16_t> chars = {},
                      std::optional<eByteOrder> byteOrder = {}) = 0;
    /// The result of the group's named script @p id, which runs at most once in each pass over the dependency rules.
    virtual Variant script(const Variant& id) = 0;
    /// Writes the parameter as IBase_SpecParameter::let_value does, then runs the dependency rules. Marks nothing.
    virtual bool SetValue(const Variant& id, const Variant& value) = 0;
    virtual Variant Gui(const Variant& id) = 0;  ///< the same as sVal
    /// True if the text of the value equals that of one of @p arguments, case included.
    virtual bool isIn(const Variant& id, std::span<const Variant> arguments) = 0;
};

/// `G`.
class CBase_ScriptingGroups : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{A88F685C-33B8-4363-92A2-C92C036BB559}");
    static constexpr const char* kName = "_CBase_ScriptingGroups";
    static const InterfaceInfo& Members();

    /// The default member: `P` of the group @p id, which is marked and loaded. Nothing for an unknown one.
    virtual Ref<CBase_ScriptingParameters> parameters(const Variant& id) = 0;
};

/// `CH`.
class CBase_ScriptingChannels : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{7EB67628-4550-4422-AEF9-63449123871D}");
    static constexpr const char* kName = "_CBase_ScriptingChannels";
    static const InterfaceInfo& Members();

    /// The default member: `G` of the channel @p id, which is marked and loaded. Nothing for an unknown one.
    virtual Ref<CBase_ScriptingGroups> groups(const Variant& id) = 0;
};

/// `GETTEXT`.
class CBase_ScriptingTexts : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{B4ACC4C2-9269-40BA-837F-6CF8E8F2FC17}");
    static constexpr const char* kName = "_CBase_ScriptingTexts";
    static const InterfaceInfo& Members();

    /// The default member: text number @p idx of the descriptor in the module's language.
    virtual Text text(std::int32_t idx) = 0;
};

}  // namespace ov
