/// @file
/// `ENV`: the environment of the module, as scripts see it.
#pragma once

#include "contract/environment.h"
#include "platform/automation/object.h"

namespace ov {

/// The members of `ENV`.
class IScriptingEnvironment : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A04}");
    static constexpr const char* kName = "_CBase_ScriptingEnvironment";
    static const InterfaceInfo& Members();

    virtual Variant Variable(const Text& key) = 0;
    /// Writes a variable with its event. @returns false, with a line in the log, if a listener failed
    virtual bool SetVariable(const Text& key, const Variant& value) = 0;
    virtual Variant sel(const Text& key, std::span<const Variant> arguments) = 0;
    virtual bool isIn(const Text& key, std::span<const Variant> arguments) = 0;
    /// The trace statement of descriptor authors: logs value and text and gives the value.
    virtual Variant Out(const Variant& value, const Text& text) = 0;
    /// @throws RuntimeError 6 for a piece that is a number beyond 16 bits
    virtual bool IsValidIP(const Text& text) = 0;
    virtual Variant b(const Text& key) = 0;
    virtual Variant s(const Text& key) = 0;
    virtual Variant n(const Text& key) = 0;
};

/// CBase_ScriptingEnvironment.
class ScriptingEnvironment final : public Object<ScriptingEnvironment, Facet<IScriptingEnvironment>> {
public:
    static constexpr const char* kClassName = "CBase_ScriptingEnvironment";

    void Bind(Ref<CBase_Environment> environment) { mEnvironment = std::move(environment); }

    Variant Variable(const Text& key) override;
    bool SetVariable(const Text& key, const Variant& value) override;
    Variant sel(const Text& key, std::span<const Variant> arguments) override;
    bool isIn(const Text& key, std::span<const Variant> arguments) override;
    Variant Out(const Variant& value, const Text& text) override;
    bool IsValidIP(const Text& text) override;
    Variant b(const Text& key) override;
    Variant s(const Text& key) override;
    Variant n(const Text& key) override;

private:
    Ref<CBase_Environment> mEnvironment;
};

}  // namespace ov
