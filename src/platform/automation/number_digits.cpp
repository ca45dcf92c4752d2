#include "platform/automation/number_digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/automation/characters.h"

namespace ov {

namespace {

// Powers of ten that a Double holds exactly.
constexpr std::array<double, 23> kExactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

}  // namespace

void DecimalDigits::Append(char16_t digit, int exponentStep) noexcept {
    if (mCount < kCapacity) {
        mExponent += exponentStep;
        if (mCount > 0 || digit != u'0') mDigits[mCount++] = static_cast<char>(digit);
        return;
    }
    mExponent += exponentStep + 1;
    if (digit != u'0' && mDigits.back() == '0') mDigits.back() = '1';
}

std::optional<double> DecimalDigits::ToDouble() const noexcept {
    if (mCount == 0) return 0.0;
    // Fast path: whole number and power are exact, so the one operation rounds correctly.
    const auto power = static_cast<std::size_t>(std::abs(mExponent));
    if (mCount <= 15 && power < kExactPowers.size()) {
        std::uint64_t whole = 0;
        for (char digit : Digits()) {
            whole = whole * 10 + static_cast<std::uint64_t>(digit - '0');
        }
        const auto number = static_cast<double>(whole);
        return mExponent < 0 ? number / kExactPowers[power] : number * kExactPowers[power];
    }
    const std::int64_t magnitude = static_cast<std::int64_t>(mCount) + mExponent;
    if (magnitude > 310) return std::nullopt;
    if (magnitude < -330) return 0.0;
    std::array<char, kCapacity + 16> text;
    char* end = std::copy_n(mDigits.data(), mCount, text.data());
    *end++ = 'e';
    end = std::to_chars(end, text.data() + text.size(), mExponent).ptr;
    double number = 0;
    if (std::from_chars(text.data(), end, number).ec == std::errc()) {
        return std::isfinite(number) ? std::optional(number) : std::nullopt;
    }
    return magnitude > 0 ? std::nullopt : std::optional(0.0);
}

std::optional<int> ReadExponent(std::u16string_view text, std::size_t& at) noexcept {
    constexpr int kBeyondAll = 100'000'000;
    std::size_t next = at;
    const bool hasSign = next < text.size() && (text[next] == u'-' || text[next] == u'+');
    const bool negative = hasSign && text[next] == u'-';
    if (hasSign) ++next;
    if (next >= text.size() || !IsDigit(text[next])) return std::nullopt;
    int exponent = 0;
    for (; next < text.size() && IsDigit(text[next]); ++next) {
        if (exponent < kBeyondAll) exponent = exponent * 10 + (text[next] - u'0');
    }
    at = next;
    return negative ? -exponent : exponent;
}

RoundedDigits RoundToDigits(double value, int significant) noexcept {
    std::array<char, 32> text;  // d.dddE+xxx
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::abs(value),
                                   std::chars_format::scientific, significant - 1)
                         .ptr;
    RoundedDigits rounded;
    rounded.negative = value < 0;
    const char* at = text.data();
    for (; *at != 'e'; ++at) {
        if (*at != '.') rounded.digits[rounded.count++] = *at;
    }
    ++at;
    if (*at == '+') ++at;  // from_chars takes a minus only
    std::from_chars(at, end, rounded.exponent);
    while (rounded.count > 1 && rounded.digits[rounded.count - 1] == '0') {
        --rounded.count;
    }
    return rounded;
}

}  // namespace ov
