/// @file
/// What the classes of whole numbers differ in, by the type of their value.
#pragma once

#include <limits>

#include "parameters/display_format.h"
#include "parameters/value_type.h"

namespace ov {

/// Subtype, display grammar and hexadecimal form of whole numbers held as @p T.
template <class T>
struct IntegerType;

template <>
struct IntegerType<std::int32_t> {
    static constexpr const char16_t* kDefaultSubtype = u"s32";
    static constexpr DisplayGrammar kDisplay{.mostHexDigits = 8, .hasUnixTime = false};
    static constexpr std::int32_t kWidestPattern = 32;  ///< at this width a Long is its own pattern
    static constexpr const char16_t* kFormatOperation = u"IBase_GuiParameter_FormatValue()";  ///< in a log line

    /// The pattern that hexadecimal digits without prefix are. @throws RuntimeError 6, 13
    static std::int32_t PatternOf(const Text& digits);
    /// Upper-case digits, as few as will do; eight for a negative Long.
    static Text DigitsOf(std::int32_t pattern);
    /// @throws RuntimeError 42 for a pattern or number that the width does not hold
    static std::int32_t ToSigned(std::int32_t pattern, std::int32_t width);
    static std::int32_t ToPattern(std::int32_t number, std::int32_t width);
};

template <>
struct IntegerType<Decimal> {
    static constexpr const char16_t* kDefaultSubtype = u"u32";
    static constexpr DisplayGrammar kDisplay{.mostHexDigits = 16, .hasUnixTime = true};
    static constexpr std::int32_t kWidestPattern = std::numeric_limits<std::int32_t>::max();  ///< no width is too wide
    static constexpr const char16_t* kFormatOperation = u"ID IBase_GuiParameter_FormatValue()";

    /// @throws RuntimeError 42
    static Decimal PatternOf(const Text& digits);
    /// @throws RuntimeError 42 for more than 64 bits
    static Text DigitsOf(const Decimal& pattern);
    static Decimal ToSigned(const Decimal& pattern, std::int32_t width);
    static Decimal ToPattern(const Decimal& number, std::int32_t width);
};

}  // namespace ov
