#include "platform/automation/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "platform/automation/characters.h"
#include "platform/automation/conversions.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

/// The value of a hexadecimal digit, or -1.
int HexDigit(char16_t c) noexcept {
    if (IsDigit(c)) return c - u'0';
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    return -1;
}

/// Bits of one digit behind "&" and @p letter, or 0.
int PatternBits(char16_t letter) noexcept {
    if (letter == u'H' || letter == u'h') return 4;
    return letter == u'O' || letter == u'o' ? 3 : 0;
}

class NumberReader {
public:
    NumberReader(std::u16string_view text, NumberText& number) noexcept
        : mText(text), mNumber(number), mLocale(CurrentLocale()) {}

    bool Read() noexcept {
        SkipBlanks();
        if (!AtEnd() && Peek() == u'&') return ReadPattern();
        ReadBefore();
        if (!ReadDigits()) return false;
        ReadExponentPart();
        return ReadBehind();
    }

private:
    bool AtEnd() const noexcept { return mAt >= mText.size(); }
    char16_t Peek() const noexcept { return mText[mAt]; }
    void SkipBlanks() noexcept {
        while (!AtEnd() && IsBlank(Peek())) {
            ++mAt;
        }
    }
    bool Take(std::u16string_view word) noexcept {
        if (word.empty() || !mText.substr(mAt).starts_with(word)) return false;
        mAt += word.size();
        return true;
    }
    bool TakeCurrency() noexcept {
        if (mHasCurrency || !Take(mLocale.currencySymbol)) return false;
        return mHasCurrency = true;
    }
    bool TakeSign() noexcept {
        if (mHasSign || mInBrackets || (Peek() != u'-' && Peek() != u'+')) return false;
        mNumber.negative = Peek() == u'-';
        ++mAt;
        return mHasSign = true;
    }

    void ReadBefore() noexcept {
        for (; !AtEnd(); SkipBlanks()) {
            if (TakeSign() || TakeCurrency()) continue;
            if (mHasSign || mInBrackets || Peek() != u'(') return;
            ++mAt;
            mInBrackets = mNumber.negative = true;
        }
    }

    bool ReadBehind() noexcept {
        bool isOpen = mInBrackets;
        for (SkipBlanks(); !AtEnd(); SkipBlanks()) {
            if (TakeSign() || TakeCurrency()) continue;
            if (!isOpen || Peek() != u')') return false;
            ++mAt;
            isOpen = false;
        }
        return !isOpen;
    }

    /// Group separators count nowhere, so they may stand anywhere between and behind whole digits.
    bool TakeGroupSeparator() noexcept {
        if (mLocale.group.empty()) return false;
        // What the locale writes as a special blank or apostrophe, a keyboard gives as a plain one.
        const char16_t separator = mLocale.group.front();
        const bool isMark = (IsBlank(separator) && IsBlank(Peek())) || (separator == u'\u2019' && Peek() == u'\'');
        if (!isMark) return Take(mLocale.group);
        ++mAt;
        return true;
    }

    bool ReadDigits() noexcept {
        bool any = false;
        while (!AtEnd()) {
            if (IsDigit(Peek())) {
                mNumber.digits.AppendWhole(mText[mAt++]);
                any = true;
            } else if (!any || !TakeGroupSeparator()) {
                break;
            }
        }
        if (AtEnd() || Peek() != mLocale.decimal) return any;
        for (++mAt; !AtEnd() && IsDigit(Peek()); any = true) {
            mNumber.digits.AppendFraction(mText[mAt++]);
        }
        return any;
    }

    void ReadExponentPart() noexcept {
        if (AtEnd() || std::u16string_view(u"EeDd").find(Peek()) == std::u16string_view::npos) return;
        std::size_t behind = mAt + 1;
        if (const std::optional<int> exponent = ReadExponent(mText, behind)) {
            mNumber.digits.MultiplyByPower(*exponent);
            mAt = behind;
        }
    }

    bool ReadPattern() noexcept {
        ++mAt;
        const int bits = AtEnd() ? 0 : PatternBits(Peek());
        if (bits == 0) return false;
        const std::size_t digitsAt = ++mAt;
        for (; !AtEnd(); ++mAt) {
            const int digit = HexDigit(Peek());
            if (digit < 0 || digit >= 1 << bits) break;
            if (mNumber.pattern >> (64 - bits) != 0) return false;
            mNumber.pattern = (mNumber.pattern << bits) | static_cast<std::uint64_t>(digit);
        }
        if (mAt == digitsAt) return false;
        mNumber.isPattern = true;
        mNumber.isLongPattern = Take(u"&");
        SkipBlanks();
        return AtEnd();
    }

    std::u16string_view mText;
    NumberText& mNumber;
    const Locale& mLocale;
    std::size_t mAt = 0;
    bool mHasSign = false;
    bool mInBrackets = false;
    bool mHasCurrency = false;
};

}  // namespace

std::optional<double> NumberText::ToDouble() const noexcept {
    if (isPattern) return static_cast<double>(pattern);
    std::optional<double> number = digits.ToDouble();
    if (number && negative) number = -*number;
    return number;
}

bool ReadNumberText(std::u16string_view text, NumberText& number) noexcept {
    return NumberReader(text, number).Read();
}

std::optional<double> ReadNumber(std::u16string_view text) {
    NumberText number;
    return ReadNumberText(text, number) ? number.ToDouble() : std::nullopt;
}

namespace {

/// Goes through a text as if it had no blanks, tabs and line feeds.
class BlankSkipper {
public:
    explicit BlankSkipper(std::u16string_view text) noexcept : mText(text) { Skip(); }

    /// The present character, 0 at the end.
    char16_t Peek() const noexcept { return mAt < mText.size() ? mText[mAt] : u'\0'; }
    void Next() noexcept {
        ++mAt;
        Skip();
    }

private:
    void Skip() noexcept {
        while (mAt < mText.size() && (mText[mAt] == u' ' || mText[mAt] == u'\t' || mText[mAt] == u'\n')) {
            ++mAt;
        }
    }

    std::u16string_view mText;
    std::size_t mAt = 0;
};

/// The number behind "&": as a literal of the language has it, so up to 16 bits are an Integer unless "&" ends it.
double PatternPrefix(BlankSkipper text) noexcept {
    const int bits = PatternBits(text.Peek());
    if (bits == 0) return 0;
    text.Next();
    std::uint64_t pattern = 0;
    for (;; text.Next()) {
        const int digit = HexDigit(text.Peek());
        if (digit < 0 || digit >= 1 << bits || pattern >> (64 - bits) != 0) break;
        pattern = (pattern << bits) | static_cast<std::uint64_t>(digit);
    }
    if (pattern <= 0xFFFF && text.Peek() != u'&') return static_cast<std::int16_t>(pattern);
    if (pattern <= 0xFFFFFFFF) return static_cast<std::int32_t>(pattern);
    return static_cast<double>(pattern);
}

/// The exponent at @p text, or 0 if there are no digits.
int ExponentPrefix(BlankSkipper text) noexcept {
    std::u16string exponent;
    if (text.Peek() == u'-' || text.Peek() == u'+') {
        exponent += text.Peek();
        text.Next();
    }
    for (; IsDigit(text.Peek()) && exponent.size() < 12; text.Next()) {
        exponent += text.Peek();
    }
    std::size_t at = 0;
    return ReadExponent(exponent, at).value_or(0);
}

}  // namespace

double ValPrefix(std::u16string_view prefix) {
    BlankSkipper text(prefix);
    if (text.Peek() == u'&') {
        text.Next();
        return PatternPrefix(text);
    }
    const bool negative = text.Peek() == u'-';
    if (negative || text.Peek() == u'+') text.Next();
    DecimalDigits digits;
    for (; IsDigit(text.Peek()); text.Next()) {
        digits.AppendWhole(text.Peek());
    }
    if (text.Peek() == u'.') {
        for (text.Next(); IsDigit(text.Peek()); text.Next()) {
            digits.AppendFraction(text.Peek());
        }
    }
    if (std::u16string_view(u"EeDd").find(text.Peek()) != std::u16string_view::npos) {
        text.Next();
        digits.MultiplyByPower(ExponentPrefix(text));
    }
    // It never fails, so a number beyond the range is the greatest one.
    const double number = digits.ToDouble().value_or(std::numeric_limits<double>::max());
    return negative ? -number : number;
}

namespace {

Text NotFiniteText(double value) {
    if (std::isnan(value)) return u"-1.#IND";
    return value < 0 ? u"-1.#INF" : u"1.#INF";
}

/// Appends characters to a text of bounded length.
class ShortWriter {
public:
    void Put(char16_t c) noexcept { mCharacters[mCount++] = c; }
    void Put(std::string_view ascii) noexcept {
        for (char c : ascii) {
            Put(static_cast<char16_t>(c));
        }
    }
    void Zeros(int count) noexcept {
        for (int i = 0; i < count; ++i) {
            Put(u'0');
        }
    }
    std::u16string_view Written() const noexcept { return {mCharacters.data(), mCount}; }

private:
    std::array<char16_t, 48> mCharacters;  // the first mCount are set
    std::size_t mCount = 0;
};

void PutScientific(ShortWriter& out, const RoundedDigits& number, char16_t point) noexcept {
    out.Put(number.Digits().substr(0, 1));
    if (number.count > 1) {
        out.Put(point);
        out.Put(number.Digits().substr(1));
    }
    out.Put(number.exponent < 0 ? "E-" : "E+");
    const int exponent = std::abs(number.exponent);
    if (exponent < 10) out.Put(u'0');
    std::array<char, 8> digits;
    out.Put({digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), exponent).ptr});
}

void PutFixed(ShortWriter& out, const RoundedDigits& number, char16_t point) noexcept {
    if (number.exponent < 0) {
        out.Put(u'0');
        out.Put(point);
        out.Zeros(-number.exponent - 1);
        out.Put(number.Digits());
        return;
    }
    const auto whole = static_cast<std::size_t>(number.exponent) + 1;
    out.Put(number.Digits().substr(0, whole));
    if (number.count > whole) {
        out.Put(point);
        out.Put(number.Digits().substr(whole));
    } else {
        out.Zeros(static_cast<int>(whole - number.count));
    }
}

}  // namespace

Text NumberToText(double value, int significant, char16_t point) {
    if (!std::isfinite(value)) return NotFiniteText(value);
    // Fast path: whole numbers, as most values are.
    const auto limit = static_cast<double>(kPowersOfTen[static_cast<std::size_t>(significant)]);
    if (std::abs(value) < limit && value == std::trunc(value)) {
        return Text::FromInteger(static_cast<std::int64_t>(value));
    }
    const RoundedDigits number = RoundToDigits(value, significant);
    ShortWriter out;
    if (number.negative) out.Put(u'-');
    const int places = static_cast<int>(number.count) - 1 - number.exponent;
    if (number.exponent >= significant || (number.exponent < 0 && places > significant)) {
        PutScientific(out, number, point);
    } else {
        PutFixed(out, number, point);
    }
    return Text(out.Written());
}

}  // namespace ov
