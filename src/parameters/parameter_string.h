/// @file
/// The parameter that is a text.
#pragma once

#include <optional>

#include "contract/parameter.h"
#include "parameters/image_transfers.h"
#include "parameters/memory_map.h"
#include "parameters/string_kind.h"
#include "parameters/text_parameter.h"
#include "platform/format/format.h"

namespace ov {

/// CBase_ParameterString: a text, whose subtype says what it must be and how it lies in the device image.
class ParameterString final
    : public Object<ParameterString, Facet<CBase_ParameterString>, ImageTransfers<ParameterString, TextParameter>> {
public:
    static constexpr const char* kClassName = "CBase_ParameterString";

    eEditType editType() override;
    Variant DcpNameCheck(const Text& dcpName) override;

    bool MoveValue(const DeviceImage& image, const ImagePlace& place);

private:
    void ReadType() override;
    void ReadDisplayFormat() override;
    Text DefaultFromLimits() override;
    void CheckFurther(bool& passes, const Terms& former) override;
    bool IsWellFormed(const Text& value) override { return !HasForeignLineBreak(value) && !FaultOf(value); }
    Text ParseText(const Text& text, Purpose purpose) override;
    Text Accepted(const Text& value) override;
    bool IsSameValue(const Text& a, const Text& b) override;
    Text DisplayText(const Text& value, Purpose purpose) override;

    bool Export(const DeviceImage& image, const FieldPlace& place);
    bool Import(const DeviceImage& image, const ImagePlace& asked, const FieldPlace& place);
    void LogWidth(const DeviceImage& image, std::int32_t width, const char16_t* subtype);

    bool IsStream() const noexcept { return mSubtypeKind == StringKind::HexStream; }
    bool HasForeignLineBreak(const Text& value) const noexcept;
    const char16_t* FaultOf(const Text& value) const;

    StringKind mSubtypeKind = StringKind::Plain;
    bool mMultiline = false;
    bool mIsIcon = false;
    bool mIsMac = false;              // a hex stream that shows ":" between its bytes
    std::optional<Picture> mPicture;  // of the column `displayFormat`, unless that is Null
};

}  // namespace ov
