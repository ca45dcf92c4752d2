#include "scripting/prelude.h"

#include <array>

namespace ov {

namespace {

// A blank before each line end belongs to the texts.
constexpr const char16_t* kMax =
    u"Function Max(a, b) \r\n  If a > b Then \r\n    Max = a \r\n  Else \r\n    Max = b \r\n  End If \r\n"
    u"End Function \r\n";
constexpr const char16_t* kMin =
    u"Function Min(a, b) \r\n  If a < b Then \r\n    Min = a \r\n  Else \r\n    Min = b \r\n  End If \r\n"
    u"End Function \r\n";
constexpr const char16_t* kIif =
    u"Function Iif(sw, a, b) \r\n  If sw Then \r\n    Iif = a \r\n  Else \r\n    Iif = b \r\n  End If \r\n"
    u"End Function \r\n";

// Choose8 and Choose16.
Text Choose(int count) {
    const Text name = u"Choose" + Text::FromInteger(count);
    Text code = u"Function " + name + u"(idx,";
    for (int i = 0; i < count; ++i) {
        code += u"a" + Text::FromInteger(i) + u",";
    }
    code += u"e) \r\nselect case idx \r\n";
    for (int i = 0; i < count; ++i) {
        const Text index = Text::FromInteger(i);
        code += u"case " + index + u": " + name + u"=a" + index + u" \r\n";
    }
    code += u"case else: " + name + u"=e \r\nEnd select \r\nEnd Function";
    return code;
}

}  // namespace

std::span<const Text> Prelude() {
    static const std::array<Text, 5> texts = {Text(kMax), Text(kMin), Text(kIif), Choose(8), Choose(16)};
    return texts;
}

}  // namespace ov
