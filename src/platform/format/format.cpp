#include "platform/format/format.h"

#include <string_view>

#include "platform/automation/conversions.h"
#include "platform/format/date_picture.h"
#include "platform/format/named_pictures.h"
#include "platform/format/number_picture.h"
#include "platform/format/picture_form.h"
#include "platform/format/text_picture.h"

namespace ov {

namespace {

enum class PictureKind { Number, Date, Text };

// By the first character that only one kind knows. Separators, "%" and "." stand in dates, too, so they tell nothing;
// a picture of nothing else is one of numbers.
PictureKind KindOf(std::u16string_view picture) {
    for (std::size_t at = 0; at < picture.size();) {
        if (ReadLiteral(picture, at)) continue;
        switch (picture[at]) {
            case u'0':
            case u'#':
                return PictureKind::Number;
            case u'@':
            case u'&':
            case u'<':
            case u'>':
            case u'!':
                return PictureKind::Text;
            case u':':
            case u'/':
                break;
            default:
                if (DateTokenAt(picture, at)) return PictureKind::Date;
                break;
        }
        ++at;
    }
    return PictureKind::Number;
}

std::shared_ptr<const PictureForm> ReadForm(std::u16string_view picture) {
    if (picture.empty()) return nullptr;
    if (std::shared_ptr<const PictureForm> named = MakeNamedForm(picture)) return named;
    picture = SpelledOut(picture);
    switch (KindOf(picture)) {
        case PictureKind::Date:
            return std::make_shared<DatePicture>(picture);
        case PictureKind::Text:
            return std::make_shared<TextPicture>(picture);
        case PictureKind::Number:
            break;
    }
    return std::make_shared<NumberPicture>(picture);
}

}  // namespace

Picture::Picture(const Text& picture) : mForm(ReadForm(picture)) {}

Text Picture::Apply(const Variant& value) const {
    if (value.IsObject()) return Apply(DefaultValue(value));
    if (mForm) return mForm->Apply(value);
    return value.IsNull() ? Text() : ToText(value);
}

Text Format(const Variant& value, const Text& picture) {
    return Picture(picture).Apply(value);
}

}  // namespace ov
