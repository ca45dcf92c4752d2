/// @file
/// The choice by number of the older form.
#pragma once

#include "contract/default_interfaces.h"
#include "parameters/image_transfers.h"
#include "parameters/list_parameter.h"
#include "parameters/list_rows.h"
#include "parameters/list_text.h"

namespace ov {

/// CBase_ParameterSelect: a number chosen from the rows of the statement in column `subtype`, which it runs itself each
/// time; no row of a descriptor makes one. Its value is a number whatever is written, without further state.
class ParameterSelect final
    : public Object<ParameterSelect, Facet<CBase_ParameterSelect>,
                    ImageTransfers<ParameterSelect, ListParameter<std::int32_t, ListedNumber>>> {
public:
    static constexpr const char* kClassName = "CBase_ParameterSelect";

private:
    void ReadList() override;
    void ReadNewList(ModuleServices& module) override;
    void RefreshUnitForLanguage() override;
    bool IsRuleDue(bool /*passes*/) const override { return true; }
    void CheckFurther(bool& passes, const Terms& former) override;
    void SetMyValueToDefault() override;
    void WriteByEngine(const Variant& value) override;
    Text DisplayText(const std::int32_t& value, Purpose purpose) override;
    void TakeImportFault() override {}

    template <class Take>
    void ForEachRow(ModuleServices& module, Take take);
    void ReadFallback(ModuleServices& module);

    std::int32_t mFallbackId = 0;
};

}  // namespace ov
