/// @file
/// The parameter that is a choice by text.
#pragma once

#include "contract/default_interfaces.h"
#include "parameters/enumeration_parameter.h"
#include "parameters/image_transfers.h"

namespace ov {

/// CBase_ParameterEnumS: a text chosen from an enumeration or from the rows of a statement, which show another text.
/// Limits are those of the text's length and leave the list alone.
class ParameterEnumS final : public Object<ParameterEnumS, Facet<CBase_ParameterEnumS>,
                                           ImageTransfers<ParameterEnumS, EnumerationParameter<Text, TextParameter>>> {
public:
    static constexpr const char* kClassName = "CBase_ParameterEnumS";

    bool MoveValue(const DeviceImage& image, const ImagePlace& place);

private:
    void ReadType() override;
    void ReadDisplayFormat() override;
    Text DisplayedValue() override;

    bool IsStatement() const override { return mIsStatement; }
    Text EnumerationQuery() const override;
    Text UnlistedText(const Text& value) const override;
    Text WrongDefault(const Variant& value, const RuntimeError& failure) const override;

    bool mIsStatement = false;
    bool mHasDisplayFormat = false;
};

}  // namespace ov
