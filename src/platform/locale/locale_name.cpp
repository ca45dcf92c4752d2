#include "platform/locale/locale_name.h"

#include <unicode/uloc.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace ov {

namespace {

constexpr const char* kDefaultName = "en_US";

// Calls one of ICU's functions that write a part of a name; "" if it fails.
template <class Function>
std::string NamePart(Function function) {
    std::array<char, ULOC_FULLNAME_CAPACITY> buffer;
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = function(buffer.data(), int32_t{ULOC_FULLNAME_CAPACITY}, &status);
    if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING) return {};
    return {buffer.data(), static_cast<std::size_t>(length)};
}

template <class Function>
std::string NamePart(Function function, const std::string& name) {
    return NamePart(
        [&](char* out, int32_t capacity, UErrorCode* status) { return function(name.c_str(), out, capacity, status); });
}

bool IsKnownLanguage(const std::string& language) {
    for (int32_t i = 0; i < uloc_countAvailable(); ++i) {
        // The list holds a language by itself before the countries where it is spoken.
        if (language == uloc_getAvailable(i)) return true;
    }
    return false;
}

bool IsKnownCountry(const std::string& country) {
    if (country.size() == 3) return std::ranges::all_of(country, [](char c) { return c >= '0' && c <= '9'; });
    for (const char* const* known = uloc_getISOCountries(); *known; ++known) {
        if (country == *known) return true;
    }
    return false;
}

// Adds the main country where none is named, and checks that there are such a language and country.
std::optional<std::string> Complete(const std::string& name) {
    const std::string language = NamePart(uloc_getLanguage, name);
    if (!IsKnownLanguage(language)) return std::nullopt;
    const std::string country = NamePart(uloc_getCountry, name);
    if (!country.empty()) return IsKnownCountry(country) ? std::optional(name) : std::nullopt;
    const std::string mainCountry = NamePart(uloc_getCountry, NamePart(uloc_addLikelySubtags, name));
    return mainCountry.empty() ? name : name + "_" + mainCountry;
}

}  // namespace

std::optional<std::string> ResolveLocaleName(std::string_view name) {
    std::string tag(name.substr(0, name.find_first_of(".@")));
    if (tag.empty() || tag == "C" || tag == "POSIX") return kDefaultName;
    std::ranges::replace(tag, '_', '-');
    int32_t parsed = 0;
    const std::string full = NamePart([&](char* out, int32_t capacity, UErrorCode* status) {
        return uloc_forLanguageTag(tag.c_str(), out, capacity, &parsed, status);
    });
    if (full.empty() || static_cast<std::size_t>(parsed) != tag.size()) return std::nullopt;
    return Complete(NamePart(uloc_getBaseName, full));
}

std::optional<std::string> ResolveLocaleId(std::uint32_t lcid) {
    if (lcid == 0) return EnvironmentLocaleName();
    const std::string full = NamePart([&](char* out, int32_t capacity, UErrorCode* status) {
        return uloc_getLocaleForLCID(lcid, out, capacity, status);
    });
    if (full.empty()) return std::nullopt;
    return Complete(NamePart(uloc_getBaseName, full));
}

std::string EnvironmentLocaleName() {
    for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value && *value) return ResolveLocaleName(value).value_or(kDefaultName);
    }
    return kDefaultName;
}

}  // namespace ov
