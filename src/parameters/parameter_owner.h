/// @file
/// What a parameter needs of the group that it belongs to. The tree implements it.
#pragma once

#include <cstdint>

#include "descriptor/module_services.h"
#include "platform/automation/collection.h"
#include "record/rule_record.h"

namespace ov {

/// A group as its parameters need it: the typed readers of descriptor texts, evaluation, and the way up. A facet that
/// stays inside the library: nothing of it can be called by name.
///
/// The readers never raise: a text that fails gives the reader's failure value and one line in the log. With generation
/// 1 or more "#:" marks a static script and "!:" a live one, and any other text is a literal; with 0 the shape of a
/// text tells. @p id is the parameter's, for the log.
class ParameterOwner : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A08}");
    static constexpr const char* kName = "ParameterOwner";
    static const InterfaceInfo& Members() {
        static const InterfaceInfo info(kIid, kName, {});
        return info;
    }

    /// Whether no reader takes @p text for a script or for a number of the locale.
    virtual bool IsLiteral(const Text& text) = 0;
    /// What is known of the rules of the tree; Nothing where nobody keeps it. It lives as long as the group.
    virtual RuleRecord* Record() { return nullptr; }
    /// The module, or Nothing where the chain of group, channel and module is not whole.
    virtual Ref<ModuleServices> Module() = 0;

    /// The cell @p fieldname of a row as @p type (Empty, Long, Single, Double, String or Decimal). A static script is
    /// evaluated once and its result takes the cell's place. Null and what is no text come as they are; a failure gives
    /// the cell's content unevaluated.
    virtual Variant GetParameterDescAsScript(const Text& fieldname, Collection& data, const Variant& id,
                                             VarType type) = 0;
    virtual std::int32_t GetLongFromScript(const Text& text, const Variant& id) = 0;  ///< 0 on failure
    virtual Variant GetDecimalFromScript(const Text& text, const Variant& id) = 0;    ///< Empty on failure
    virtual double GetDoubleFromScript(const Text& text, const Variant& id) = 0;      ///< 0 on failure
    /// Replaces the text by its value; "" on failure.
    virtual void GetStringValueFromScript(Text& text, const Variant& id) = 0;
    /// The text becomes @p replacement unless it is a live script.
    virtual void ForgetStaticScript(Text& text, const Text& replacement) = 0;

    /// The value of a script without prefix. @p silent keeps a failure out of the log; with @p textFallback a text that
    /// gives nothing stands for itself.
    virtual Variant EvaluateRawScript(const Text& text, bool silent, bool textFallback) = 0;
    /// The value of a prefixed script, or the text itself.
    virtual Variant EvaluateScriptOrLiteral(const Text& text, bool silent) = 0;
    /// Runs statements on the group's engine; never raises.
    virtual void ExecuteScript(const Text& statement) = 0;
    /// Sweeps the rules after a change of a value. @throws RuntimeError of a listener
    virtual void UpdateDependencies() = 0;
};

}  // namespace ov
