#include "support/localization.h"

#include "platform/automation/conversions.h"
#include "platform/format/format_number.h"

namespace ov {

namespace {

// The second character of a text; empty if there is none.
Text SecondCharacter(const Text& text) {
    return text.size() > 1 ? text.view().substr(1, 1) : std::u16string_view();
}

}  // namespace

CLocalization::CLocalization()
    : mDecimalChar(SecondCharacter(ToText(1.5))),
      mThousandGroupDigit(SecondCharacter(FormatNumber(std::int32_t{1000}, {.decimals = 0}))) {
    if (mThousandGroupDigit == u"0") mThousandGroupDigit = Text();  // "1000": nothing is grouped
}

}  // namespace ov
