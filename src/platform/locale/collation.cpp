#include <unicode/ucol.h>

#include "platform/locale/locale.h"

namespace ov {

namespace {

// The second level tells accents apart, the third one case. Null if ICU has no such collator.
UCollator* OpenCollator(const char* locale) {
    UErrorCode status = U_ZERO_ERROR;
    UCollator* collator = ucol_open(locale, &status);
    if (U_FAILURE(status)) return nullptr;
    ucol_setStrength(collator, UCOL_SECONDARY);
    return collator;
}

int CompareBy(const UCollator* collator, std::u16string_view a, std::u16string_view b) {
    if (!collator) {
        const int order = ToLowerCase(a).compare(ToLowerCase(b));
        return order < 0 ? -1 : order > 0 ? 1 : 0;
    }
    return ucol_strcoll(collator, a.data(), static_cast<int32_t>(a.size()), b.data(), static_cast<int32_t>(b.size()));
}

// The collator of the locale that was current at the last comparison; null if ICU has none.
class CachedCollator {
public:
    const UCollator* For(const Locale& locale) {
        if (mLocale != &locale) {
            mLocale = &locale;
            mCollator.adoptInstead(OpenCollator(locale.name.c_str()));
        }
        return mCollator.getAlias();
    }

private:
    const Locale* mLocale = nullptr;
    icu::LocalUCollatorPointer mCollator;
};

}  // namespace

int CompareTexts(std::u16string_view a, std::u16string_view b) {
    static CachedCollator cache;
    return CompareBy(cache.For(CurrentLocale()), a, b);
}

int CompareTextsNeutral(std::u16string_view a, std::u16string_view b) {
    static const icu::LocalUCollatorPointer collator(OpenCollator(""));
    return CompareBy(collator.getAlias(), a, b);
}

}  // namespace ov
