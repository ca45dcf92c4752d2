#include "platform/format/named_pictures.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/automation/conversions.h"
#include "platform/automation/text.h"
#include "platform/format/format_unit.h"

namespace ov {

namespace {

struct NamedPicture {
    std::u16string_view name;
    std::u16string_view picture;
};

constexpr std::array<NamedPicture, 14> kNamedPictures = {{
    {u"Fixed", u"0.00"},
    {u"Standard", u"#,##0.00"},
    {u"Percent", u"0.00%"},
    {u"Scientific", u"0.00E+00"},
    {u"Yes/No", uR"("Yes";"Yes";"No")"},
    {u"True/False", uR"("True";"True";"False")"},
    {u"On/Off", uR"("On";"On";"Off")"},
    {u"General Date", u"c"},
    {u"Long Date", u"dddddd"},
    {u"Medium Date", u"dd-mmm-yy"},
    {u"Short Date", u"ddddd"},
    {u"Long Time", u"ttttt"},
    {u"Medium Time", u"hh:mm AMPM"},
    {u"Short Time", u"hh:mm"},
}};

// A number in a form that no picture can tell; texts that are no numbers stay.
class NumberForm final : public PictureForm {
public:
    using Writer = Text (*)(const Variant& number);

    explicit NumberForm(Writer write) noexcept : mWrite(write) {}

    Text Apply(const Variant& value) const override {
        if (value.IsNull() || value.IsEmpty()) return {};
        if (!value.IsString()) return mWrite(value);
        const std::optional<double> number = ReadNumber(value.AsText());
        return number ? mWrite(*number) : value.AsText();
    }

private:
    Writer mWrite;
};

Text PlainNumber(const Variant& number) {
    switch (number.Type()) {
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
        case VarType::Single:
        case VarType::Currency:
        case VarType::Decimal:
            return ToText(number);
        default:
            return ToText(ToDouble(number));
    }
}

Text Amount(const Variant& number) {
    return FormatCurrency(number);
}

}  // namespace

std::u16string_view SpelledOut(std::u16string_view name) noexcept {
    const auto row = std::ranges::find_if(
        kNamedPictures, [&](const NamedPicture& candidate) { return EqualNoCase(candidate.name, name); });
    return row != kNamedPictures.end() ? row->picture : name;
}

std::unique_ptr<PictureForm> MakeNamedForm(std::u16string_view name) {
    if (EqualNoCase(name, u"General Number")) return std::make_unique<NumberForm>(PlainNumber);
    if (EqualNoCase(name, u"Currency")) return std::make_unique<NumberForm>(Amount);
    return nullptr;
}

}  // namespace ov
