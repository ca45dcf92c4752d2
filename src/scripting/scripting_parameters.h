/// @file
/// `P`: the parameters of a group, as scripts see them.
#pragma once

#include "contract/collections.h"
#include "contract/parameter.h"
#include "contract/scripting.h"
#include "platform/automation/object.h"

namespace ov {

/// CBase_ScriptingParameters. Every read marks the parameter as read by a script. No failure reaches the script: the
/// answer is Empty, "" or False then, and one line goes to the log.
class ScriptingParameters final : public Object<ScriptingParameters, Facet<CBase_ScriptingParameters>> {
public:
    static constexpr const char* kClassName = "CBase_ScriptingParameters";

    /// @p parameters is the collection of the group, which may still be filling; Nothing unbinds.
    void Bind(Ref<CBase_SpecParameterCollection> parameters) { mData = std::move(parameters); }

    Variant value(const Variant& id) override;
    Variant val(const Variant& id) override { return value(id); }
    Text sVal(const Variant& id) override;
    Variant sel(const Variant& id, std::span<const Variant> arguments) override;
    Text hVal(const Variant& id, std::optional<std::int16_t> chars, std::optional<eByteOrder> byteOrder) override;
    Variant script(const Variant& id) override;
    bool SetValue(const Variant& id, const Variant& value) override;
    Variant Gui(const Variant& id) override;
    bool isIn(const Variant& id, std::span<const Variant> arguments) override;

private:
    Ref<IBase_SpecParameter> Parameter(const Variant& id);
    /// What @p read gives for the parameter @p id; its own fallback, with a line in the log, if that fails.
    template <class Result, class Read>
    Result Guarded(const Variant& id, std::u16string_view message, std::u16string_view property, Read read);

    Ref<CBase_SpecParameterCollection> mData;
};

}  // namespace ov
