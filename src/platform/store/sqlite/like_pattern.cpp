#include "platform/store/sqlite/like_pattern.h"

#include <algorithm>

#include "platform/automation/text.h"

namespace ov::sqlite {

namespace {

// What stands between the brackets of a class: "[!a-c]" is "!a-c".
bool IsInClass(std::u16string_view members, char16_t c) noexcept {
    const bool isNegated = members.size() > 1 && members.front() == u'!';
    if (isNegated) members.remove_prefix(1);
    const char16_t folded = FoldCase(c);
    bool found = false;
    for (std::size_t i = 0; i < members.size() && !found; ++i) {
        const bool isRange = i + 2 < members.size() && members[i + 1] == u'-';
        if (isRange) {
            const char16_t low = members[i];
            const char16_t high = members[i + 2];
            found = (low <= c && c <= high) || (FoldCase(low) <= folded && folded <= FoldCase(high));
            i += 2;
        } else {
            found = FoldCase(members[i]) == folded;
        }
    }
    return found != isNegated;
}

// A place in a pattern.
class PatternCursor {
public:
    PatternCursor(std::u16string_view pattern, LikeForm form, char16_t escape)
        : mPattern(pattern), mForm(form), mEscape(escape) {}

    bool AtEnd() const noexcept { return mAt == mPattern.size(); }
    bool AtAny() const noexcept {
        return !AtEnd() && (mPattern[mAt] == u'%' || (mForm == LikeForm::Both && mPattern[mAt] == u'*'));
    }
    void SkipAny() noexcept { ++mAt; }
    // True, and moves on, if the element here stands for `c`. @pre neither AtEnd nor AtAny
    bool Take(char16_t c) noexcept {
        const char16_t element = mPattern[mAt];
        if (mEscape != 0 && element == mEscape && mAt + 1 < mPattern.size()) {
            return TakeIf(FoldCase(mPattern[mAt + 1]) == FoldCase(c), 2);
        }
        if (element == u'[') {
            const std::size_t end = mPattern.find(u']', mAt + 1);
            const std::size_t count = end == std::u16string_view::npos ? 0 : end - mAt - 1;
            if (count > 0) return TakeIf(IsInClass(mPattern.substr(mAt + 1, count), c), count + 2);
        }
        return TakeIf(Stands(element, c), 1);
    }

private:
    bool TakeIf(bool stands, std::size_t length) noexcept {
        mAt += stands ? length : 0;
        return stands;
    }
    bool Stands(char16_t element, char16_t c) const noexcept {
        const bool hasAll = mForm == LikeForm::Both;
        if (element == u'_' || (hasAll && element == u'?')) return true;
        if (hasAll && element == u'#') return c >= u'0' && c <= u'9';
        return FoldCase(element) == FoldCase(c);
    }

    std::u16string_view mPattern;
    LikeForm mForm;
    char16_t mEscape;
    std::size_t mAt = 0;
};

}  // namespace

// Only the last "any" is tried again with more characters: a longer match of an earlier one cannot help.
bool MatchesLike(std::u16string_view text, std::u16string_view pattern, LikeForm form, char16_t escape,
                 const std::function<void()>& step) {
    PatternCursor cursor(pattern, form, escape);
    PatternCursor behindAny = cursor;
    bool hasAny = false;
    std::size_t retryAt = 0;
    for (std::size_t at = 0; at < text.size();) {
        step();
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
