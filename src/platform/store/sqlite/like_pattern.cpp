#include "platform/store/sqlite/like_pattern.h"

#include "platform/automation/text.h"

namespace ov::sqlite {

namespace {

// A place in a pattern.
class PatternCursor {
public:
    PatternCursor(std::u16string_view pattern, char16_t escape) : mPattern(pattern), mEscape(escape) {}

    bool AtEnd() const noexcept { return mAt == mPattern.size(); }
    bool AtAny() const noexcept { return !AtEnd() && (mPattern[mAt] == u'*' || mPattern[mAt] == u'%'); }
    void SkipAny() noexcept { ++mAt; }
    // True, and moves on, if the element here stands for `c`. @pre neither AtEnd nor AtAny
    bool Take(char16_t c) noexcept {
        const char16_t element = mPattern[mAt];
        const bool escaped = mEscape != 0 && element == mEscape && mAt + 1 < mPattern.size();
        if (!Stands(escaped ? mPattern[mAt + 1] : element, escaped, c)) return false;
        mAt += escaped ? 2 : 1;
        return true;
    }

private:
    static bool Stands(char16_t element, bool literal, char16_t c) noexcept {
        if (!literal && (element == u'?' || element == u'_')) return true;
        if (!literal && element == u'#') return c >= u'0' && c <= u'9';
        return FoldCase(element) == FoldCase(c);
    }

    std::u16string_view mPattern;
    char16_t mEscape;
    std::size_t mAt = 0;
};

}  // namespace

// Only the last "any" is tried again with more characters: a longer match of an earlier one cannot help.
bool MatchesLike(std::u16string_view text, std::u16string_view pattern, char16_t escape) noexcept {
    PatternCursor cursor(pattern, escape);
    PatternCursor behindAny = cursor;
    bool hasAny = false;
    std::size_t retryAt = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (cursor.AtAny()) {
            cursor.SkipAny();
            behindAny = cursor;
            hasAny = true;
            retryAt = at;
        } else if (!cursor.AtEnd() && cursor.Take(text[at])) {
            ++at;
        } else if (hasAny) {
            cursor = behindAny;
            at = ++retryAt;
        } else {
            return false;
        }
    }
    while (cursor.AtAny()) {
        cursor.SkipAny();
    }
    return cursor.AtEnd();
}

}  // namespace ov::sqlite
