/// @file
/// The texts of lists: the marks in them, and what stands for a value that no row has.
#pragma once

#include <optional>

#include "descriptor/module_services.h"
#include "platform/automation/text.h"

namespace ov {

/// Where the search for the next mark goes on: behind the text that took the place of the last one, or at the start, so
/// that the marks in such texts are found as well.
enum class Search : bool { Onward, FromTheStart };
/// The mark of a text number: "gettext(NUMBER)".
Text GetTextMark(std::int32_t number);
/// @p text with every "gettext(NUMBER)" replaced by the text of that number.
Text ResolveGetText(const Text& text, ModuleServices& module, Search search);

/// Whether a fallback format takes values that the list lacks for legitimate.
bool AcceptsUnlisted(const Text& format) noexcept;
/// A value that the list lacks: @p format with @p shown in it, by the place holders "%1dec", "%1non" and, if there is a
/// @p hexadecimal, "%1hex" with a width of one digit. @p hexadecimal is in upper case and as short as can be.
Text FormatUnlistedValue(const Text& format, const Text& shown, const std::optional<Text>& hexadecimal);

}  // namespace ov
