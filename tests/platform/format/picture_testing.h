/// @file
/// What the tests of pictures share.
#pragma once

#include <string>
#include <string_view>

#include "platform/automation/variant_testing.h"
#include "platform/format/format.h"

namespace ov {

/// Cases for ExpectEach whose texts are a value in short form, "|" and a picture: "D1.5|0.00 -> 1.50".
inline void ExpectFormats(std::string_view cases) {
    ExpectEach(cases, [](const Text& text) {
        const std::string form = text.ToUtf8();
        const std::size_t bar = form.find('|');
        return Format(Value(std::string_view(form).substr(0, bar)), Text::FromUtf8(form.substr(bar + 1))).ToUtf8();
    });
}

/// Cases for ExpectEach whose texts are pictures for one value.
inline void ExpectFormats(const Variant& value, std::string_view cases) {
    ExpectEach(cases, [&](const Text& picture) { return Format(value, picture).ToUtf8(); });
}

}  // namespace ov
