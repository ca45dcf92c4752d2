/// @file
/// The integer of up to 32 bits.
#pragma once

#include "contract/default_interfaces.h"
#include "parameters/integer_parameter.h"
#include "parameters/memory_map.h"

namespace ov {

/// CBase_ParameterInt: a signed or unsigned integer held in a Long, so unsigned ones of up to 31 bits. Its writes run
/// the actions that the descriptor attaches to values.
class ParameterInt final : public Object<ParameterInt, Facet<CBase_ParameterInt>, IntegerParameter<std::int32_t>>,
                           private LongField {
public:
    static constexpr const char* kClassName = "CBase_ParameterInt";

private:
    void AfterEqualUserWrite() override { RunActionOnChange(Text::FromInteger(mValue)); }
    void AfterUserWrite(const Content&) override { RunActionOnChange(Text::FromInteger(mValue)); }
    void AfterEngineWrite(const Content&) override { RunActionOnChange(Text::FromInteger(mValue)); }

    bool MoveValue(const DeviceImage& image, const ImagePlace& place) override;
    std::optional<std::int32_t> Pattern() override;
    bool TakePattern(std::int32_t pattern) override;
    void TakeNumber(const Variant& number) override { let_realvalue(number); }
    void TakeFault() override { WriteState(eParameterValueExt::eParamValueExtErrorSettingValue); }
    void LogNoConversion(const char16_t* operation, std::int32_t width) override;
};

}  // namespace ov
