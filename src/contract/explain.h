/// @file
/// Answers to "why": what the rules of a parameter say, what they have read, and whose rules read it. These interfaces
/// stand beside the ones that descriptors and hosts were written for; they may grow at their end.
///
/// They tell of the last evaluation of each rule, and evaluate nothing: asking changes no device. What holds for all
/// interfaces stands in forward.h.
#pragma once

#include "contract/forward.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// Something that a rule has read: the value and state of a parameter, or a variable of the environment.
class IExplain_Read : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A10}");
    static constexpr const char* kName = "_IExplain_Read";
    static const InterfaceInfo& Members();

    /// The parameter's path "CHANNEL/GROUP/PARAMETER", or `ENV.Variable("KEY")`.
    virtual Text path() = 0;
    virtual Text name() = 0;                          ///< the parameter's name; "" for a variable
    virtual Variant value() = 0;                      ///< the value of now, as the rule sees it
    virtual Text shown() = 0;                         ///< the same as a user sees it
    virtual Ref<IBase_GuiParameter> parameter() = 0;  ///< Nothing for a variable
};

/// One rule: a text in a column of a row.
class IExplain_Rule : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A11}");
    static constexpr const char* kName = "_IExplain_Rule";
    static const InterfaceInfo& Members();

    virtual Text path() = 0;         ///< of the parameter whose rule it is
    virtual Text column() = 0;       ///< "dependency", "realGain", "realOffset", "Min", "Max", "consistency", ...
    virtual std::int32_t row() = 0;  ///< the key `idx` of the row in the table Parameters
    virtual Text text() = 0;         ///< as it stands in the row, with its prefix
    virtual bool isInForce() = 0;    ///< whether the parameter has this row now
    virtual bool hasRun() = 0;       ///< whether it has ever been evaluated
    /// What it came to last; Empty if it failed or has not run.
    virtual Variant result() = 0;
    /// Why a sweep evaluates it anew each time though nothing that it read has changed, in a few words; "" if it does
    /// not.
    virtual Text volatility() = 0;
    /// What the last evaluation read, in its order: IExplain_Read.
    virtual Ref<ICollection> reads() = 0;
};

/// A facet of every parameter.
class IExplain_Parameter : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A12}");
    static constexpr const char* kName = "_IExplain_Parameter";
    static const InterfaceInfo& Members();

    virtual Text path() = 0;  ///< "CHANNEL/GROUP/PARAMETER"; "" once the parameter has left its tree
    /// Who wrote the value last: "default", "user", "engine" or "rule".
    virtual Text writtenBy() = 0;
    /// The rules of all rows that the parameter may take, by `dependency`, then the other rules of the row in force:
    /// IExplain_Rule.
    virtual Ref<ICollection> rules() = 0;
    /// The rules of other parameters, and its own, whose last evaluation read this parameter: IExplain_Rule.
    virtual Ref<ICollection> readers() = 0;
    /// Why the last edit of a user was refused, if it was one of this parameter; else "".
    virtual Text refusal() = 0;
    /// The column whose rule or limit refused it: "Min", "Max", "consistency"; "" for a text that is no value, and
    /// where nothing was refused.
    virtual Text refusedBy() = 0;
    /// What would put the parameter in force: the listed values of the parameters that its rules read, each tried alone
    /// in a copy of the device: IExplain_Read with the value that helps. Empty where none does, and for a parameter in
    /// force.
    virtual Ref<ICollection> remedies() = 0;
};

}  // namespace ov
