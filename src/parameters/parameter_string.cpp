#include "parameters/parameter_string.h"

#include <algorithm>
#include <limits>
#include <string>

#include "parameters/dcp_name.h"
#include "parameters/icon.h"
#include "parameters/image_bytes.h"
#include "parameters/string_image.h"
#include "platform/automation/conversions.h"
#include "platform/locale/locale.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

Text WithoutColons(const Text& text) {
    return ReplaceAll(text, u":", u"");
}

Text WithColons(const Text& digits) {
    std::u16string text;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        if (at > 0) text += u':';
        text += digits.view().substr(at, 2);
    }
    return text;
}

}  // namespace

eEditType ParameterString::editType() {
    return mIsIcon ? eEditType::Icon : mMultiline ? eEditType::MultiLine : eEditType::standard;
}

Variant ParameterString::DcpNameCheck(const Text& dcpName) {
    return IsDcpName(dcpName);
}

void ParameterString::ReadType() {
    TextParameter::ReadType();
    const Text subtype = CellText(RowCell::Subtype);
    // A row without either word leaves what an earlier row said.
    mSubtypeKind = StringKindOf(subtype).value_or(mSubtypeKind);
    mMultiline = mMultiline || subtype.view().find(u"multiline") != std::u16string_view::npos;
}

void ParameterString::ReadDisplayFormat() {
    const Variant column = CellOr(RowCell::DisplayFormat, Variant::Null());
    const Text format = column.IsNull() ? Text() : ToText(column);
    mIsIcon = IsIconFormat(format);
    mIsMac = IsStream() && EqualNoCase(format, u"MAC");
    mPicture = column.IsNull() ? std::nullopt : std::optional<Picture>(format);
}

Text ParameterString::DefaultFromLimits() {
    switch (mSubtypeKind) {
        case StringKind::Version8_8_32:
            return u"0.0.0.0";
        case StringKind::Version4_4:
        case StringKind::Version8_8:
            return u"0.0";
        default:
            return TextParameter::DefaultFromLimits();
    }
}

bool ParameterString::HasForeignLineBreak(const Text& value) const noexcept {
    return !mMultiline && value.view().find(u"\r\n") != std::u16string_view::npos;
}

const char16_t* ParameterString::FaultOf(const Text& value) const {
    switch (mSubtypeKind) {
        case StringKind::PackedAscii:
            return IsPackedAscii(value) ? nullptr : u") contains characters not allowed with packedAscii";
        case StringKind::HartDate:
            return ReadDate(value) ? nullptr : u") is not a valid date";
        case StringKind::Version4_4:
        case StringKind::Version8_8:
        case StringKind::Version8_8_32:
            return ReadVersion(mSubtypeKind, value).valid ? nullptr : u") is not a valid version number";
        case StringKind::HexStream:
        case StringKind::HexWordStream:
            return IsHexStream(mPicture ? WithoutColons(value) : value) ? nullptr : u") is not a valid hex stream";
        case StringKind::DcpName:
            return IsDcpName(value) ? nullptr : u") is not a valid DCP name";
        default:
            return nullptr;
    }
}

void ParameterString::CheckFurther(bool& passes, const Terms& /*former*/) {
    if (HasForeignLineBreak(mValue)) {
        Refuse(passes, u"Value (" + mValue + u") contains linefeed but parameter isn't 'multiline'!");
    }
    if (!passes) return;
    if (const char16_t* fault = FaultOf(mValue)) Refuse(passes, u"Value (" + mValue + fault);
}

Text ParameterString::ParseText(const Text& text, Purpose) {
    return mIsMac ? WithoutColons(text) : Accepted(text);
}

Text ParameterString::Accepted(const Text& value) {
    return mSubtypeKind == StringKind::PackedAscii ? Text(ToUpperCase(value)) : value;
}

bool ParameterString::IsSameValue(const Text& a, const Text& b) {
    if (a == b) return true;
    if (mSubtypeKind != StringKind::HartDate) return false;
    const auto first = ReadDate(a), second = ReadDate(b);
    return first && second && first->days == second->days;
}

Text ParameterString::DisplayText(const Text& value, Purpose purpose) {
    if (mIsIcon) return value.empty() ? Text() : IconPath(Module().get(), value);
    if (IsStream()) return mIsMac && purpose == Purpose::Show ? WithColons(value) : value;
    if (mPicture) return mPicture->Apply(value);
    if (mSubtypeKind == StringKind::HartDate) {
        if (const auto date = ReadDate(value)) return Format(*date, u"Short Date");
    }
    return value;
}

bool ParameterString::MoveValue(const DeviceImage& image, const ImagePlace& place) {
    const FieldPlace field = PlaceField(place, 0, false);
    return IsImport(image) ? Import(image, place, field) : Export(image, field);
}

bool ParameterString::Export(const DeviceImage& image, const FieldPlace& place) {
    const std::int32_t width = place.width != 0 ? place.width : StringImageWidth(mSubtypeKind, mValue);
    const bool wholeBytes = width % kBitsOfByte == 0;
    if (!wholeBytes || !IsStringImageWidth(mSubtypeKind, width)) {
        LogWidth(image, width, wholeBytes ? WidthComplaint(mSubtypeKind) : nullptr);
        return false;
    }
    const auto size = static_cast<std::size_t>(std::max(width, 0) / kBitsOfByte);
    WriteField(image, place.index, StringImageSize(mSubtypeKind, size),
               [this](std::size_t bytes) { return StringToImage(mSubtypeKind, mValue, bytes); });
    return true;
}

bool ParameterString::Import(const DeviceImage& image, const ImagePlace& asked, const FieldPlace& place) {
    std::int32_t width = place.width;
    if (width == 0) {
        // The rest of the image, less its last byte, as hosts know it.
        const std::int64_t rest = (LastByte(image) - asked.startByte) * kBitsOfByte - asked.startBit;
        if (rest < 1) {
            let_realvalue(Text());
            return true;
        }
        width = static_cast<std::int32_t>(std::min<std::int64_t>(rest, std::numeric_limits<std::int32_t>::max()));
    }
    const bool wholeBytes = width % kBitsOfByte == 0;
    if (!wholeBytes || !IsStringImageWidth(mSubtypeKind, width)) {
        const bool isDate = mSubtypeKind == StringKind::HartDate;
        LogWidth(image, width, !wholeBytes ? nullptr : isDate ? u"HartDate" : u"version4_4");
        TakeImportFault();
        return false;
    }
    const auto size = static_cast<std::size_t>(std::max(width, 0) / kBitsOfByte);
    const auto bytes = ReadBytes(image, place.index, StringImageSize(mSubtypeKind, size));
    let_realvalue(StringFromImage(mSubtypeKind, bytes));
    return true;
}

void ParameterString::LogWidth(const DeviceImage& image, std::int32_t width, const char16_t* subtype) {
    if (!DebugOutput()) return;
    Text line = OperationName(image) + Text(IsImport(image) ? u"(): WARNING: " : u"(): ");
    line += u"nicht unterstützte Bitlänge (" + Text::FromInteger(width) + u")";
    if (subtype) line += u" für subtype '" + Text(subtype) + u"'";
    LogWithId(line + u"!");
}

}  // namespace ov
