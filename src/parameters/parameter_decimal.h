/// @file
/// The integer of more than 32 bits.
#pragma once

#include "contract/default_interfaces.h"
#include "parameters/image_transfers.h"
#include "parameters/integer_parameter.h"
#include "parameters/memory_map.h"

namespace ov {

/// CBase_ParameterDecimal: an integer that a Long has no room for, so from 32 bits without sign on; up to 64 bits in a
/// device image.
class ParameterDecimal final : public Object<ParameterDecimal, Facet<CBase_ParameterDecimal>,
                                             ImageTransfers<ParameterDecimal, IntegerParameter<Decimal>>> {
public:
    static constexpr const char* kClassName = "CBase_ParameterDecimal";

    template <class Image>
    bool MoveValue(Image* image, const ImagePlace& place) {
        return Move(*image, PlaceField(place, mBitLen, mReverseMapping));
    }

private:
    bool Move(ByteArray& target, const FieldPlace& place);
    bool Move(Text& target, const FieldPlace& place);
    bool Move(const ByteArray& source, const FieldPlace& place);
    bool Move(const Text& source, const FieldPlace& place);

    Decimal Pattern();
    bool TakePattern(const Decimal& pattern);
};

extern template class ImageTransfers<ParameterDecimal, IntegerParameter<Decimal>>;

}  // namespace ov
