#include "platform/format/number_picture.h"

#include <algorithm>
#include <optional>

#include "platform/automation/conversions.h"
#include "platform/automation/number_digits.h"

namespace ov {

namespace {

enum : std::size_t { kNegativeSection = 1, kZeroSection = 2, kNullSection = 3, kMostSections = 4 };

bool IsPlaceholder(char16_t c) noexcept {
    return c == u'0' || c == u'#';
}

}  // namespace

NumberSection::NumberSection(std::u16string_view picture, std::size_t& at) {
    while (at < picture.size() && picture[at] != u';') {
        if (const auto literal = ReadLiteral(picture, at)) {
            AddLiterals(*literal);
            continue;
        }
        const char16_t c = picture[at];
        if (c == u',') {
            AddCommas(picture, at);
            continue;
        }
        if ((c == u'E' || c == u'e') && AddExponent(picture, at)) continue;
        if (IsPlaceholder(c)) {
            AddDigit(c == u'0');
        } else if (c == u'.' && !mHasPoint) {
            FinishScaling();
            mHasPoint = true;
            mItems.push_back({Kind::Point, c});
        } else if (c == u':') {
            mItems.push_back({Kind::TimeSeparator, c});
        } else if (c == u'/') {
            mItems.push_back({Kind::DateSeparator, c});
        } else {
            if (c == u'%') AddPower(2);
            mItems.push_back({Kind::Literal, c});
        }
        ++at;
    }
    FinishScaling();
}

void NumberSection::AddLiterals(std::u16string_view characters) {
    for (const char16_t c : characters) {
        mItems.push_back({Kind::Literal, c});
    }
}

void NumberSection::AddDigit(bool isForced) {
    mItems.push_back({Kind::Digit, u'0'});
    if (mHasPoint) {
        ++mFractionPlaces;
        if (isForced) mForcedFraction = mFractionPlaces;
        return;
    }
    ++mWholePlaces;
    if (isForced || mForcedWhole > 0) ++mForcedWhole;  // "#" behind a "0" is a "0", too
    if (mOpenCommas > 0) mIsGrouped = true;
    mOpenCommas = 0;
}

// Commas between placeholders group digits; at the end of the whole part each divides by a thousand. Before the first
// placeholder they divide as well, which nobody would expect and pictures such as ",0.0" rely on. Behind the point they
// do nothing.
void NumberSection::AddCommas(std::u16string_view picture, std::size_t& at) {
    for (; at < picture.size() && picture[at] == u','; ++at) {
        if (mHasPoint) continue;
        if (mWholePlaces == 0) {
            AddPower(-3);
        } else {
            ++mOpenCommas;
        }
    }
}

// "E" is an exponent only with a sign and a placeholder behind it, and once in a section.
bool NumberSection::AddExponent(std::u16string_view picture, std::size_t& at) {
    const std::u16string_view rest = picture.substr(at);
    const bool isExponent = rest.size() > 2 && (rest[1] == u'+' || rest[1] == u'-') && IsPlaceholder(rest[2]);
    if (!isExponent || mHasExponent || mWholePlaces + mFractionPlaces == 0) return false;
    mHasExponent = true;
    mHasPlus = rest[1] == u'+';
    mItems.push_back({Kind::Exponent, rest[0]});
    for (at += 2; at < picture.size() && IsPlaceholder(picture[at]); ++at) {
        if (picture[at] == u'0') ++mExponentDigits;
    }
    return true;
}

// Kept far beyond any number, so that a picture of endless commas cannot overflow.
void NumberSection::AddPower(int power) noexcept {
    constexpr int kMost = 100'000;
    mPower = std::clamp(mPower + power, -kMost, kMost);
}

void NumberSection::FinishScaling() noexcept {
    for (; mOpenCommas > 0; --mOpenCommas) {
        AddPower(-3);
    }
}

void NumberSection::Write(std::u16string& out, DecimalNumber number, const Locale& locale) const {
    number.MultiplyByPower(mPower);
    int exponent = 0;
    if (mHasExponent) {
        exponent = TakeExponent(number);
    } else {
        number.RoundToPlaces(mFractionPlaces);
    }
    const int whole = std::max(number.WholeDigits(), mForcedWhole);
    const int fraction = std::max(number.FractionDigits(), mForcedFraction);
    // Digits beyond the placeholders are written with the first one, or at the point if there is none before it.
    int above = std::max(whole, mWholePlaces);
    int placeholder = mWholePlaces;
    const auto writeWholeDownTo = [&](int place) {
        while (above > place) {
            if (--above >= whole) continue;
            if (mIsGrouped) {
                AppendGroupedDigit(out, number, above, locale);
            } else {
                out += number.DigitAt(above);
            }
        }
    };
    for (const Item& item : mItems) {
        switch (item.kind) {
            case Kind::Literal:
                out += item.character;
                break;
            case Kind::Digit:
                if (--placeholder >= 0) {
                    writeWholeDownTo(placeholder);
                } else if (-placeholder <= fraction) {
                    out += number.DigitAt(placeholder);
                }
                break;
            case Kind::Point:
                writeWholeDownTo(0);
                out += locale.decimal;
                break;
            case Kind::DateSeparator:
                out += locale.dateSeparator;
                break;
            case Kind::TimeSeparator:
                out += locale.timeSeparator;
                break;
            case Kind::Exponent:
                WriteExponent(out, item.character, exponent);
                break;
        }
    }
}

// Brings the first digit to the first placeholder and gives the power of ten that this took away.
int NumberSection::TakeExponent(DecimalNumber& number) const noexcept {
    number.RoundToSignificant(mWholePlaces + mFractionPlaces);
    if (number.IsZero()) return 0;
    const int exponent = number.Exponent() - (mWholePlaces - 1);
    number.MultiplyByPower(-exponent);
    return exponent;
}

void NumberSection::WriteExponent(std::u16string& out, char16_t letter, int exponent) const {
    out += letter;
    if (exponent < 0) {
        out += u'-';
    } else if (mHasPlus) {
        out += u'+';
    }
    const DecimalNumber digits{std::int64_t{exponent}};
    for (int place = std::max({digits.WholeDigits(), mExponentDigits, 1}); place-- > 0;) {
        out += digits.DigitAt(place);
    }
}

NumberPicture::NumberPicture(std::u16string_view picture) {
    for (std::size_t at = 0; mSections.size() < kMostSections; ++at) {
        mSections.emplace_back(picture, at);
        if (at >= picture.size()) break;
    }
}

// None also for an empty one: the first section stands in for it.
const NumberSection* NumberPicture::SectionAt(std::size_t index) const noexcept {
    return index < mSections.size() && !mSections[index].IsEmpty() ? &mSections[index] : nullptr;
}

Text NumberPicture::Apply(const Variant& value) const {
    const Locale& locale = CurrentLocale();
    std::u16string out;
    if (value.IsNull() || value.IsEmpty()) {
        if (const NumberSection* section = SectionAt(kNullSection)) section->Write(out, {}, locale);
        return out;
    }
    std::optional<DecimalNumber> number;
    if (value.IsString()) {
        const std::optional<double> read = ReadNumber(value.AsText());
        if (!read) return value.AsText();
        number = DecimalNumber(*read, kDoubleDigits);
    } else {
        number = DecimalNumber::Of(value);
        if (!number) return ToText(value);
    }

    const NumberSection* section = nullptr;
    if (number->IsZero()) {
        section = SectionAt(kZeroSection);
    } else if (number->IsNegative()) {
        section = SectionAt(kNegativeSection);
        if (!section) out += u'-';
    }
    if (!section) section = &mSections.front();
    section->Write(out, *number, locale);
    return out;
}

}  // namespace ov
