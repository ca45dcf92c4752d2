#include "parameters/listed_number.h"

#include "parameters/image_bytes.h"
#include "parameters/long_transfer.h"
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"

namespace ov {

bool ListedNumber::MoveValue(const DeviceImage& image, const ImagePlace& place) {
    const FieldPlace field = PlaceField(place, kBitsOfByte, IsReversed());
    if (field.width >= kBitsOfByte && (field.width % kBitsOfByte != 0 || field.width > 32)) {
        if (DebugOutput()) Log(ListWidthFault(image, field.width));
        if (IsImport(image)) TakeImportFault();
        return false;
    }
    return std::visit(LongTransfer{*this, field}, image);
}

std::optional<std::int32_t> ListedNumber::Pattern() {
    return ToLong(get_realvalue());
}

bool ListedNumber::TakePattern(std::int32_t pattern) {
    let_realvalue(pattern);
    return true;
}

}  // namespace ov
