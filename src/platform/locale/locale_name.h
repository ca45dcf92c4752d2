/// @file
/// Locale names as people and systems write them, resolved to the name that ICU's data goes by.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ov {

/// ICU's name, such as "de_DE", of @p name: BCP 47 or with "_", and with an encoding and a modifier behind "." and "@",
/// which do not count. "", "C" and "POSIX" are "en_US". @returns nullopt if the language or the country is unknown.
std::optional<std::string> ResolveLocaleName(std::string_view name);
/// The same for a language identifier. Its sorting order does not count.
std::optional<std::string> ResolveLocaleId(std::uint32_t lcid);
/// The locale that the environment asks for.
std::string EnvironmentLocaleName();

}  // namespace ov
