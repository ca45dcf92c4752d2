#include <unicode/ucol.h>

#include "platform/locale/locale.h"

namespace ov {

namespace {

// The collator of the locale that was current at the last comparison; null if ICU has none.
class CachedCollator {
public:
    const UCollator* For(const Locale& locale) {
        if (mLocale != &locale) {
            mLocale = &locale;
            UErrorCode status = U_ZERO_ERROR;
            mCollator.adoptInstead(ucol_open(locale.name.c_str(), &status));
            if (U_FAILURE(status)) mCollator.adoptInstead(nullptr);
            // The second level tells accents apart, the third one case.
            if (mCollator.isValid()) ucol_setStrength(mCollator.getAlias(), UCOL_SECONDARY);
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
    const UCollator* collator = cache.For(CurrentLocale());
    if (!collator) {
        const int order = ToLowerCase(a).compare(ToLowerCase(b));
        return order < 0 ? -1 : order > 0 ? 1 : 0;
    }
    return ucol_strcoll(collator, a.data(), static_cast<int32_t>(a.size()), b.data(), static_cast<int32_t>(b.size()));
}

}  // namespace ov
