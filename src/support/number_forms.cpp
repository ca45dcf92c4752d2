#include "support/number_forms.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>

#include "platform/automation/characters.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/automation/number_digits.h"
#include "platform/format/format_number.h"
#include "platform/format/round_to_places.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

struct Prefix {
    double below;  // the row holds for absolute values below this
    std::u16string_view letter;
    int exponent;  // the number is written times ten to this power
};

// The first row that holds is taken.
constexpr std::array<Prefix, 9> kPrefixes = {{
    {1e-12, u"f", 15},
    {1e-9, u"p", 12},
    {1e-6, u"n", 9},
    {1e-3, u"u", 6},
    {1, u"m", 3},
    {1e3, u"", 0},
    {1e6, u"k", -3},
    {1e9, u"M", -6},
    {1e12, u"G", -9},
}};
constexpr Prefix kHighestPrefix{0, u"T", -12};

const Prefix& PrefixFor(double magnitude) {
    const auto row = std::ranges::find_if(kPrefixes, [&](const Prefix& prefix) { return magnitude < prefix.below; });
    return row != kPrefixes.end() ? *row : kHighestPrefix;
}

double WithPlaces(double value, double places) {
    constexpr double kMostPlaces = 400;  // more than any Double has
    return RoundToPlaces(value, static_cast<int>(std::clamp(places, 0.0, kMostPlaces)));
}

std::u16string_view WithoutTrailingBlanks(std::u16string_view text) {
    return text.substr(0, text.find_last_not_of(u' ') + 1);
}

std::u16string_view WithoutUnit(std::u16string_view text, std::u16string_view unit) {
    text = WithoutTrailingBlanks(text);
    if (!unit.empty() && text.ends_with(unit)) text.remove_suffix(unit.size());
    return WithoutTrailingBlanks(text);
}

// The number that stands before `letter`, or nullopt for a letter that is not read; "T" is such a one.
std::optional<double> Scaled(double number, char16_t letter) {
    switch (letter) {
        case u'f':
            return number / 1e15;
        case u'p':
            return number / 1e12;
        case u'n':
            return number / 1e9;
        case u'u':
            return number / 1e6;
        case u'm':
            return number / 1e3;
        case u'k':
            return number * 1e3;
        case u'M':
            return number * 1e6;
        case u'G':
            return number * 1e9;
        default:
            return std::nullopt;
    }
}

// The source under which the exponent forms log.
constexpr std::u16string_view kLogSource = u"Module1";

// @p convert's number. @throws RuntimeError of the conversion, 6 for what is beyond a Double
template <class Convert>
double ConvertOrLog(const char16_t* function, Convert convert) {
    try {
        const double number = convert();
        if (!std::isfinite(number)) Raise(ErrorNumber::Overflow);
        return number;
    } catch (const RuntimeError& error) {
        LogEntry(kLogSource, function + (u"(): ONERROR: " + error.description()));
        throw;
    }
}

// Nothing knows the number of a line here.
void LogVersionError(std::u16string_view function, const RuntimeError& error) {
    LogEntry(function, u"Error:" + error.description() + u",Line:0");
}

}  // namespace

Text Number2TechExponent(double value, int digits) {
    if (value == 0) return u"0";
    if (!std::isfinite(value)) return ToText(value);
    const double magnitude = std::abs(value);
    const double wholeDigits = std::floor(std::log10(magnitude)) + 1;
    // The signed value is meant: a negative number always goes by the table.
    if (value >= 1 && value < std::pow(10.0, digits)) return ToText(WithPlaces(value, digits - wholeDigits));
    const Prefix& prefix = PrefixFor(magnitude);
    const double scaled = value * std::pow(10.0, prefix.exponent);
    return ToText(WithPlaces(scaled, digits - (wholeDigits + prefix.exponent))) + prefix.letter;
}

double TechExponent2Number(const Text& text, const Text& unit) {
    constexpr const char16_t* kFunction = u"TechExponent2Number";
    const std::u16string_view number = WithoutUnit(text, unit);
    if (number.empty() || IsDigit(number.back())) return ConvertOrLog(kFunction, [&] { return ToDouble(number); });
    const std::u16string_view letter = number.substr(number.size() - 1);
    const double mantissa = ConvertOrLog(kFunction, [&] { return ToDouble(number.substr(0, number.size() - 1)); });
    if (const std::optional<double> scaled = Scaled(mantissa, letter[0])) {
        return ConvertOrLog(kFunction, [&] { return *scaled; });  // the letter may carry it too far
    }
    const Text complaint = u"unsupported exponent '" + Text(letter) + u"'";
    LogEntry(kLogSource, u"TechExponent2Number(): ERROR: " + complaint + u"!");
    throw RuntimeError(static_cast<std::int32_t>(ErrorNumber::TypeMismatch), kFunction, complaint);
}

Text Number2Scientific(double value) {
    return value == 0 ? Text(u"0") : FormatScientific(value);
}

double Scientific2Number(const Text& text, const Text& unit) {
    try {
        return ConvertOrLog(u"Scientific2Number", [&] { return ToDouble(WithoutUnit(text, unit)); });
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), u"Scientific2Number", error.description());
    }
}

double Version2Number(const Text& text) {
    try {
        if (text.empty()) return 0;
        std::u16string_view rest = text;
        for (double result = 0;;) {
            const std::size_t end = rest.find(u'.');
            result = result * 256 + ToInteger(rest.substr(0, end));
            if (end == std::u16string_view::npos) return result;
            rest.remove_prefix(end + 1);
        }
    } catch (const RuntimeError& error) {
        LogVersionError(u"Version2Number()", error);
        throw;
    }
}

Text Number2Version(double value, int parts) {
    try {
        Text text;
        for (int i = 0; i < parts; ++i) {
            const double part = value - 256 * std::trunc(value / 256);
            text = i == 0 ? ToText(part) : ToText(part) + u"." + text;
            value = (value - part) / 256;
        }
        return text;
    } catch (const RuntimeError& error) {
        LogVersionError(u"Number2Version()", error);
        throw;
    }
}

}  // namespace ov
