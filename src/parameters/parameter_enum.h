/// @file
/// The parameter that is a choice by number.
#pragma once

#include "contract/default_interfaces.h"
#include "parameters/enumeration_parameter.h"
#include "parameters/image_transfers.h"

namespace ov {

/// CBase_ParameterEnum: a number chosen from an enumeration or from the rows of a statement. Of type "ACTION" it is a
/// push button: a write runs the action of the value, and the value is what it was before.
class ParameterEnum final
    : public Object<ParameterEnum, Facet<CBase_ParameterEnum>,
                    ImageTransfers<ParameterEnum, EnumerationParameter<std::int32_t, ListedNumber>>> {
public:
    static constexpr const char* kClassName = "CBase_ParameterEnum";

private:
    enum class Kind : std::uint8_t { Enumeration, Select, Action };

    void ReadType() override;
    void ReadNewList(ModuleServices& module) override;
    void CheckFurther(bool& passes, const Terms& former) override;
    void AfterRescale() override { TakeListedState(); }
    void AfterUserWrite(const Content& former) override;
    void AfterEngineWrite(const Content& former) override;
    bool IsReversed() const override;

    bool IsStatement() const override { return mEnumKind == Kind::Select; }
    Text EnumerationQuery() const override;
    bool IsOffered(const std::int32_t& value) const override { return value >= mMin && value <= mMax; }
    Text OfferedLimits() const override;
    Text UnlistedText(const std::int32_t& value) const override;
    Text WrongDefault(const Variant& value, const RuntimeError& failure) const override;
    Text ActionFault(const RuntimeError& failure) const override;

    void PutBack(const Content& former);

    Kind mEnumKind = Kind::Enumeration;
};

}  // namespace ov
