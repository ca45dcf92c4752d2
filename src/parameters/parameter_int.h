/// @file
/// The integer of up to 32 bits.
#pragma once

#include "contract/default_interfaces.h"
#include "parameters/image_transfers.h"
#include "parameters/integer_parameter.h"

namespace ov {

/// CBase_ParameterInt: a signed or unsigned integer held in a Long, so unsigned ones of up to 31 bits. Its writes run
/// the actions that the descriptor attaches to values.
class ParameterInt final : public Object<ParameterInt, Facet<CBase_ParameterInt>,
                                         ImageTransfers<ParameterInt, IntegerParameter<std::int32_t>>> {
public:
    static constexpr const char* kClassName = "CBase_ParameterInt";

    template <class Image>
    bool MoveValue(Image* image, const ImagePlace& place);

    // Its ways as a LongField.
    std::optional<std::int32_t> Pattern();
    bool TakePattern(std::int32_t pattern);
    void LogNoConversion(const char16_t* operation, std::int32_t width);

private:
    void AfterEqualUserWrite() override { RunActionOnChange(); }
    void AfterUserWrite(const Content&) override { RunActionOnChange(); }
    void AfterEngineWrite(const Content&) override { RunActionOnChange(); }
};

extern template class ImageTransfers<ParameterInt, IntegerParameter<std::int32_t>>;

}  // namespace ov
