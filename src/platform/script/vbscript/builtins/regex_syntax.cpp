#include "platform/script/vbscript/builtins/regex_syntax.h"

#include <array>
#include <optional>
#include <vector>

#include "platform/automation/errors.h"

namespace ov::vbscript {

namespace {

constexpr std::int32_t kSyntaxError = 5017;
constexpr std::int32_t kUnexpectedQuantifier = 5018;
constexpr std::int32_t kBracketExpected = 5019;
constexpr std::int32_t kParenthesisExpected = 5020;
constexpr std::int32_t kInvalidRange = 5021;

[[noreturn]] void RaiseSyntax(std::int32_t number) {
    throw RuntimeError(number);
}

// What the library can compile at all; a longer pattern fails there in any case.
constexpr std::size_t kMaxPattern = 65535;
constexpr int kMaxRepeat = 65535;

/// A set that a letter behind "\" stands for, and its complement, as they stand in a class.
struct CharacterSet {
    char16_t letter;
    std::u16string_view inside;
    std::u16string_view outside;
};

constexpr std::array kSets = {
    CharacterSet{u'd', u"0-9", u"\\x{0}-\\/:-\\x{ffff}"},
    CharacterSet{u's', u"\\x{9}-\\x{d} ", u"\\x{0}-\\x{8}\\x{e}-\\x{1f}!-\\x{ffff}"},
    CharacterSet{u'w', u"0-9A-Z_a-z", u"\\x{0}-\\/:-@\\[-\\^`\\{-\\x{ffff}"},
};

/// The part of a class that "\d", "\D" and the like stand for; empty for any other letter.
std::u16string_view SetOf(char16_t letter) noexcept {
    for (const CharacterSet& set : kSets) {
        if (letter == set.letter) return set.inside;
        if (letter == set.letter - 0x20) return set.outside;
    }
    return {};
}

int DigitOf(char16_t c, int base) noexcept {
    const int digit = c >= u'0' && c <= u'9'   ? c - u'0'
                      : c >= u'a' && c <= u'f' ? c - u'a' + 10
                      : c >= u'A' && c <= u'F' ? c - u'A' + 10
                                               : base;
    return digit < base ? digit : -1;
}

bool IsAsciiLetter(char16_t c) noexcept {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// @p c as itself, wherever it stands.
void AppendLiteral(std::u16string& out, char16_t c) {
    if (IsAsciiLetter(c) || DigitOf(c, 10) >= 0) {
        out += c;
        return;
    }
    out += u"\\x{";
    for (int shift = 12; shift >= 0; shift -= 4) {
        out += u"0123456789abcdef"[(c >> shift) & 0xF];
    }
    out += u'}';
}

void AppendNumber(std::u16string& out, int number) {
    for (const char digit : std::to_string(number)) {
        out += static_cast<char16_t>(digit);
    }
}

class Translator {
public:
    Translator(std::u16string_view pattern, RegexFlags flags) : mIn(pattern), mFlags(flags) {}

    RegexSource Translate() {
        // Whether letter case beyond ASCII counts is known at the end only; it changes how some things are written.
        mUnicodeCase = false;
        TranslateAll();
        if (mFlags.ignoreCase && (mHasWideCharacter || mHasReference)) {
            mUnicodeCase = true;
            TranslateAll();
        }
        return {std::move(mOut), mUnicodeCase};
    }

private:
    static constexpr std::u16string_view kCallout = u"(?C)";

    void TranslateAll() {
        mAt = 0;
        mGroups = 0;
        mOpen = 0;
        mOut = kCallout;
        mAtom.clear();
        mCanRepeat = false;
        while (mAt < mIn.size()) {
            TranslateNext();
        }
        if (mOpen > 0) RaiseSyntax(kParenthesisExpected);
        FlushAtom();
    }

    void TranslateNext() {
        const char16_t c = mIn[mAt++];
        switch (c) {
            case u'\\':
                return TranslateEscape();
            case u'[':
                return TranslateClass();
            case u'(':
                return OpenGroup();
            case u')':
                return CloseGroup();
            case u'|':
                return PutFixed(u"|");
            case u'^':
                return PutFixed(mFlags.multiline ? u"(?<![^\\n\\r])" : u"\\A");
            case u'$':
                return PutFixed(mFlags.multiline ? u"(?![^\\n\\r])" : u"\\z");
            case u'.':
                return PutAtom(u"[^\\n]");
            case u'*':
                return Repeat(u"*");
            case u'+':
                return Repeat(u"+");
            case u'?':
                return Repeat(u"?");
            case u'{':
                if (TranslateBraces()) return;
                [[fallthrough]];
            default:
                PutCharacter(c);
        }
    }

    // An item waits in mAtom until it is known whether it repeats: then a callout stands before it.

    void FlushAtom() {
        mOut += mAtom;
        mAtom.clear();
    }
    void PutAtom(std::u16string_view atom) {
        FlushAtom();
        mAtom = atom;
        mCanRepeat = true;
    }
    void PutCharacter(char16_t c) {
        mHasWideCharacter = mHasWideCharacter || c >= 0x80;
        PutAtom({});
        AppendLiteral(mAtom, c);
    }
    /// What cannot repeat.
    void PutFixed(std::u16string_view text) {
        FlushAtom();
        mOut += text;
        mCanRepeat = false;
    }

    void OpenGroup() {
        std::u16string_view opening = u"(";
        if (mAt < mIn.size() && mIn[mAt] == u'?') {
            const char16_t kind = mAt + 1 < mIn.size() ? mIn[mAt + 1] : u'\0';
            if (kind != u':' && kind != u'=' && kind != u'!') RaiseSyntax(kUnexpectedQuantifier);
            opening = mIn.substr(mAt - 1, 3);
            mAt += 2;
        } else {
            ++mGroups;
        }
        PutFixed(opening);
        mOut += kCallout;
        ++mOpen;
    }

    void CloseGroup() {
        if (mOpen == 0) RaiseSyntax(kSyntaxError);
        --mOpen;
        PutFixed(u")");
        mCanRepeat = true;
    }

    void Repeat(std::u16string_view quantifier) {
        if (!mCanRepeat) RaiseSyntax(kUnexpectedQuantifier);
        if (!mAtom.empty()) mOut += kCallout;
        FlushAtom();
        mOut += quantifier;
        if (mAt < mIn.size() && mIn[mAt] == u'?') {
            mOut += u'?';
            ++mAt;
        }
        mCanRepeat = false;
    }

    /// Digits at @p at, which moves behind them; nullopt if there are none.
    std::optional<int> ReadNumber(std::size_t& at) const {
        std::optional<int> number;
        for (; at < mIn.size() && DigitOf(mIn[at], 10) >= 0; ++at) {
            number = number.value_or(0) * 10 + DigitOf(mIn[at], 10);
            if (*number > kMaxRepeat) Raise(ErrorNumber::OutOfMemory);
        }
        return number;
    }

    /// "{2}", "{2,}", "{2,5}" behind the opening brace; anything else is no quantifier, and nothing is read.
    bool TranslateBraces() {
        std::size_t at = mAt;
        const std::optional<int> least = ReadNumber(at);
        if (!least) return false;
        std::u16string quantifier = u"{";
        AppendNumber(quantifier, *least);
        if (at < mIn.size() && mIn[at] == u',') {
            quantifier += u',';
            const std::optional<int> most = ReadNumber(++at);
            if (most) AppendNumber(quantifier, *most);
            if (most && *most < *least) RaiseSyntax(kSyntaxError);
        }
        if (at >= mIn.size() || mIn[at] != u'}') return false;
        mAt = at + 1;
        Repeat(quantifier + u'}');
        return true;
    }

    void TranslateEscape() {
        if (mAt == mIn.size()) RaiseSyntax(kSyntaxError);
        const char16_t c = mIn[mAt];
        if (c == u'b' || c == u'B') {
            ++mAt;
            return PutWordBoundary(c);
        }
        if (const std::u16string_view set = SetOf(c); !set.empty()) {
            ++mAt;
            // These sets hold ASCII characters or all but some of them; letter case beyond that is not theirs.
            return PutAtom((mUnicodeCase ? u"(?-i:[" : u"[") + std::u16string(set) + (mUnicodeCase ? u"])" : u"]"));
        }
        if (const std::optional<int> reference = ReadReference()) {
            mHasReference = true;
            PutAtom(u"\\g{");
            AppendNumber(mAtom, *reference);
            mAtom += u'}';
            return;
        }
        PutCharacter(ReadCharacterEscape());
    }

    void PutWordBoundary(char16_t letter) {
        if (!mUnicodeCase) return PutFixed(letter == u'b' ? u"\\b" : u"\\B");
        // The library's own would know of letters beyond ASCII.
        const std::u16string word = u"[0-9A-Z_a-z]";
        const std::u16string before = u"(?<=" + word + u")";
        const std::u16string notBefore = u"(?<!" + word + u")";
        const std::u16string after = u"(?=" + word + u")";
        const std::u16string notAfter = u"(?!" + word + u")";
        PutFixed(letter == u'b' ? u"(?-i:" + before + notAfter + u"|" + notBefore + after + u")"
                                : u"(?-i:" + before + after + u"|" + notBefore + notAfter + u")");
    }

    /// The number of a group that was opened before: two digits if there are so many groups, else one.
    std::optional<int> ReadReference() {
        const int first = DigitOf(mIn[mAt], 10);
        if (first <= 0) return std::nullopt;
        const int second = mAt + 1 < mIn.size() ? DigitOf(mIn[mAt + 1], 10) : -1;
        if (second >= 0 && first * 10 + second <= mGroups) {
            mAt += 2;
            return first * 10 + second;
        }
        if (first > mGroups) return std::nullopt;
        ++mAt;
        return first;
    }

    /// The character that the escape at mAt stands for, in a class or not.
    char16_t ReadCharacterEscape() {
        const char16_t c = mIn[mAt++];
        switch (c) {
            case u'f':
                return u'\f';
            case u'n':
                return u'\n';
            case u'r':
                return u'\r';
            case u't':
                return u'\t';
            case u'v':
                return u'\v';
            case u'c':
                if (mAt == mIn.size() || !IsAsciiLetter(mIn[mAt])) return c;
                return mIn[mAt++] & 0x1F;
            case u'x':
                return ReadHex(2).value_or(c);
            case u'u':
                return ReadHex(4).value_or(c);
            default:
                return DigitOf(c, 8) >= 0 ? ReadOctal(DigitOf(c, 8)) : c;
        }
    }

    std::optional<char16_t> ReadHex(std::size_t count) {
        unsigned code = 0;
        if (mAt + count > mIn.size()) return std::nullopt;
        for (const char16_t c : mIn.substr(mAt, count)) {
            const int digit = DigitOf(c, 16);
            if (digit < 0) return std::nullopt;
            code = code * 16 + static_cast<unsigned>(digit);
        }
        mAt += count;
        return static_cast<char16_t>(code);
    }

    /// Up to three digits with a value of at most 255.
    char16_t ReadOctal(int first) {
        int code = first;
        const int most = first <= 3 ? 2 : 1;
        for (int i = 0; i < most && mAt < mIn.size() && DigitOf(mIn[mAt], 8) >= 0; ++i) {
            code = code * 8 + DigitOf(mIn[mAt++], 8);
        }
        return static_cast<char16_t>(code);
    }

    void TranslateClass() {
        const bool isNegated = mAt < mIn.size() && mIn[mAt] == u'^';
        if (isNegated) ++mAt;
        std::u16string inside;
        while (mAt < mIn.size() && mIn[mAt] != u']') {
            AppendClassItem(inside);
        }
        if (mAt == mIn.size()) RaiseSyntax(kBracketExpected);
        ++mAt;
        if (inside.empty()) return PutAtom(isNegated ? u"[\\x{0}-\\x{ffff}]" : u"[^\\x{0}-\\x{ffff}]");
        PutAtom((isNegated ? u"[^" : u"[") + inside + u"]");
    }

    void AppendClassItem(std::u16string& inside) {
        std::u16string_view set;
        const char16_t first = ReadClassCharacter(set);
        if (!set.empty()) {
            inside += set;
            return;
        }
        const bool isRange = mAt + 1 < mIn.size() && mIn[mAt] == u'-' && mIn[mAt + 1] != u']';
        AppendLiteral(inside, first);
        if (!isRange) return;
        ++mAt;
        const char16_t last = ReadClassCharacter(set);
        if (!set.empty()) {  // no range after all: "[a-\d]" has a "-" in it
            AppendLiteral(inside, u'-');
            inside += set;
            return;
        }
        if (last < first) RaiseSyntax(kInvalidRange);
        inside += u'-';
        AppendLiteral(inside, last);
    }

    /// One character of a class, or with @p set the set that stands there.
    char16_t ReadClassCharacter(std::u16string_view& set) {
        char16_t c = mIn[mAt++];
        if (c == u'\\') {
            if (mAt == mIn.size()) RaiseSyntax(kBracketExpected);
            set = SetOf(mIn[mAt]);
            if (!set.empty()) {
                ++mAt;
                return 0;
            }
            const bool isBackspace = mIn[mAt] == u'b';
            c = ReadCharacterEscape();
            if (isBackspace) c = u'\b';
        }
        mHasWideCharacter = mHasWideCharacter || c >= 0x80;
        return c;
    }

    std::u16string_view mIn;
    RegexFlags mFlags;
    std::size_t mAt = 0;
    int mGroups = 0;  // capturing ones that were opened so far
    int mOpen = 0;    // groups of all kinds that wait for their end
    std::u16string mOut;
    std::u16string mAtom;
    bool mCanRepeat = false;  // what stands last may have a quantifier
    bool mUnicodeCase = false;
    bool mHasWideCharacter = false;
    bool mHasReference = false;
};

}  // namespace

RegexSource TranslateRegex(std::u16string_view pattern, RegexFlags flags) {
    if (pattern.size() > kMaxPattern) Raise(ErrorNumber::OutOfMemory);
    return Translator(pattern, flags).Translate();
}

}  // namespace ov::vbscript
