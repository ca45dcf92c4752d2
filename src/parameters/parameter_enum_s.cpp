#include "parameters/parameter_enum_s.h"

#include <algorithm>

#include "parameters/image_bytes.h"
#include "parameters/memory_map.h"
#include "parameters/string_image.h"
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"

namespace ov {

void ParameterEnumS::ReadType() {
    TextParameter::ReadType();
    mIsStatement = CellText(u"Type") == u"SELECTSTR";
}

void ParameterEnumS::ReadDisplayFormat() {
    EnumerationParameter::ReadDisplayFormat();
    mHasDisplayFormat = !CellOr(RowCell::DisplayFormat, Variant::Null()).IsNull();
}

Text ParameterEnumS::DisplayedValue() {
    if (mHasDisplayFormat && !mIsIcon && !mIsStatement && DebugOutput()) {
        LogWithId(u"Get IBase_GuiParameter_value(): displayFormat is set (" + CellText(RowCell::DisplayFormat) +
                  u") but will be ignored!");
    }
    return EnumerationParameter::DisplayedValue();
}

// In the order of the table, not of the values.
Text ParameterEnumS::EnumerationQuery() const {
    return u"SELECT * FROM [EnumsStr] WHERE enumSubType = '" + mSubtype + u"'";
}

Text ParameterEnumS::UnlistedText(const Text& value) const {
    return FormatUnlistedValue(mDisplayFormat, value, std::nullopt);
}

Text ParameterEnumS::WrongDefault(const Variant& value, const RuntimeError&) const {
    return u"SetMyValueToDefault(): DefaultValue (" + TextForLog(value) + u") has wrong format!";
}

bool ParameterEnumS::MoveValue(const DeviceImage& image, const ImagePlace& place) {
    const FieldPlace field = PlaceField(place, kBitsOfByte, false);
    if (field.width % kBitsOfByte != 0) {
        if (DebugOutput()) Log(ListWidthFault(image, field.width));
        if (IsImport(image)) TakeImportFault();
        return false;
    }
    const auto size = static_cast<std::size_t>(std::max(field.width, 0) / kBitsOfByte);
    if (IsImport(image)) {
        let_realvalue(BytesToCharacters(ReadBytes(image, field.index, size)));
    } else {
        WriteField(image, field.index, size, [this](std::size_t bytes) { return CharacterBytes(mValue, bytes, 0); });
    }
    return true;
}

}  // namespace ov
