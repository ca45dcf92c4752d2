#include "platform/store/jet/column_text.h"

#include <unicode/ucnv.h>

#include <algorithm>

namespace ov::jet {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsAscii(const Bytes& stored) noexcept {
    return std::all_of(stored.data(), stored.data() + stored.size(), [](std::uint8_t c) { return c < 0x80; });
}

UConverter* OpenConverter(std::uint16_t codePage) {
    for (const std::string& name :
         {"windows-" + std::to_string(codePage), "cp" + std::to_string(codePage), std::string("windows-1252")}) {
        UErrorCode error = U_ZERO_ERROR;
        UConverter* converter = ucnv_open(name.c_str(), &error);
        if (U_SUCCESS(error)) return converter;
    }
    Raise(ErrorNumber::InternalError);
}

}  // namespace

ColumnText::ColumnText(Version version, std::uint16_t codePage) : mVersion(version) {
    if (version == Version::Jet3) mConverter = std::shared_ptr<UConverter>(OpenConverter(codePage), &ucnv_close);
}

std::string_view ColumnText::ToUtf8(const Bytes& stored) {
    mText.clear();
    mHighSurrogate = 0;
    if (mVersion == Version::Jet3) {
        if (IsAscii(stored)) return stored.view();
        AppendCodePage(stored);
    } else if (stored.size() >= 2 && stored.U16(0) == 0xFEFF) {
        AppendCompressed(stored.From(2));
    } else {
        AppendUtf16(stored);
    }
    if (mHighSurrogate != 0) AppendCodePoint(kReplacement);
    return mText;
}

void ColumnText::AppendCodePage(const Bytes& stored) {
    // No code page has a byte that is more than one UTF-16 unit.
    mWide.resize(stored.size());
    UErrorCode error = U_ZERO_ERROR;
    const std::int32_t length =
        ucnv_toUChars(mConverter.get(), mWide.data(), static_cast<std::int32_t>(mWide.size()),
                      reinterpret_cast<const char*>(stored.data()), static_cast<std::int32_t>(stored.size()), &error);
    if (U_FAILURE(error)) Raise(ErrorNumber::ObjectDamaged);
    for (const char16_t unit : std::u16string_view(mWide).substr(0, static_cast<std::size_t>(length))) {
        AppendUnit(unit);
    }
}

// An odd byte at the end is no character.
void ColumnText::AppendUtf16(const Bytes& stored) {
    const std::uint8_t* at = stored.data();
    for (std::size_t i = 0; i + 1 < stored.size(); i += 2) {
        AppendUnit(static_cast<char16_t>(at[i] | at[i + 1] << 8));
    }
}

// A zero byte switches between characters of one byte and of two.
void ColumnText::AppendCompressed(const Bytes& stored) {
    const std::uint8_t* at = stored.data();
    const std::uint8_t* const end = at + stored.size();
    bool compressed = true;
    while (at < end) {
        if (*at == 0) {
            compressed = !compressed;
            ++at;
        } else if (compressed) {
            AppendUnit(*at++);
        } else {
            if (end - at < 2) break;
            AppendUnit(static_cast<char16_t>(at[0] | at[1] << 8));
            at += 2;
        }
    }
}

void ColumnText::AppendUnit(char16_t unit) {
    if (unit < 0x80 && mHighSurrogate == 0) {
        mText += static_cast<char>(unit);
        return;
    }
    const bool isLow = unit >= 0xDC00 && unit < 0xE000;
    if (mHighSurrogate != 0) {
        const auto high = static_cast<char32_t>(mHighSurrogate - 0xD800);
        mHighSurrogate = 0;
        if (isLow) return AppendCodePoint(0x10000 + (high << 10) + static_cast<char32_t>(unit - 0xDC00));
        AppendCodePoint(kReplacement);
    }
    if (unit >= 0xD800 && unit < 0xDC00) {
        mHighSurrogate = unit;
    } else {
        AppendCodePoint(isLow ? kReplacement : unit);
    }
}

void ColumnText::AppendCodePoint(char32_t character) {
    const auto tail = [&](int shift) { mText += static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80) {
        mText += static_cast<char>(character);
    } else if (character < 0x800) {
        mText += static_cast<char>(0xC0 | (character >> 6));
        tail(0);
    } else if (character < 0x10000) {
        mText += static_cast<char>(0xE0 | (character >> 12));
        tail(6);
        tail(0);
    } else {
        mText += static_cast<char>(0xF0 | (character >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace ov::jet
