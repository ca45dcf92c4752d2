#include "ovmodel/check/subtype_words.h"

#include <array>
#include <cmath>

#include "ovmodel/check/inspection.h"
#include "ovmodel/command.h"

namespace ovmodel {

using ov::Text;

namespace {

constexpr double kMostBits = 64;

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

/// Takes words off a text from the left, without regard to case.
class Words {
public:
    explicit Words(std::u16string_view text) : mText(Folded(text)), mRest(mText) {}

    bool Take(std::u16string_view word) {
        const std::u16string folded = Folded(word);
        if (!mRest.starts_with(folded)) return false;
        mRest.remove_prefix(folded.size());
        return true;
    }
    std::optional<double> TakeNumber() {
        std::size_t length = 0;
        double number = 0;
        while (length < mRest.size() && IsDigit(mRest[length])) {
            number = number * 10 + (mRest[length++] - u'0');
        }
        mRest.remove_prefix(length);
        return length > 0 ? std::optional(number) : std::nullopt;
    }
    void SkipBetween() {
        while (!mRest.empty() && std::u16string_view(u" ,;_-").find(mRest.front()) != std::u16string_view::npos)
            mRest.remove_prefix(1);
    }
    bool IsAtEnd() const { return mRest.empty(); }
    std::string Rest() const { return Text(mRest).ToUtf8(); }

private:
    std::u16string mText;
    std::u16string_view mRest;
};

struct IntegerForm {
    char letter = 's';  // of none: 32 bits with sign
    double bits = 32;
    bool hasLetter = true;
};

std::optional<IntegerForm> ReadIntegerForm(Words& words) {
    IntegerForm form;
    form.letter = words.Take(u"u") ? 'u' : 's';
    form.hasLetter = form.letter == 'u' || words.Take(u"s");
    const std::optional<double> bits = words.TakeNumber();
    if (!bits || *bits < 1 || *bits > kMostBits) return std::nullopt;
    form.bits = *bits;
    return form;
}

IntegerForm IntegerFormOf(std::u16string_view subtype) {
    Words words(subtype);
    return subtype.empty() ? IntegerForm() : ReadIntegerForm(words).value_or(IntegerForm());
}

constexpr const char* kNoWidth = "no width of 1 to 64 bits, such as 'u8' or 's32'";

/// A keyword of a display format.
struct Keyword {
    std::u16string_view word;
    bool hasNumber;
    int most;  // digits
};
constexpr std::array kIntegerKeywords = {
    Keyword{u"hex", true, 8},        Keyword{u"seconds", false, 0},     Keyword{u"minutes", false, 0},
    Keyword{u"techexpo", true, 255}, Keyword{u"scientific", true, 255}, Keyword{u"version", true, 255},
    Keyword{u"unixtime", false, 0},
};
constexpr std::array kFloatKeywords = {Keyword{u"techexpo", true, 255}, Keyword{u"scientific", true, 255}};

// A number picture shows digits; what does not may be a keyword that was misspelt.
std::string FaultOfPicture(std::u16string_view format, std::span<const Keyword> keywords) {
    if (format.find_first_of(u"0#") != std::u16string_view::npos) return "";
    std::vector<std::string> words;
    for (const Keyword& keyword : keywords) {
        words.push_back(Text(keyword.word).ToUtf8());
    }
    const std::string closest = ClosestName(Text(format).ToUtf8(), words);
    return closest.empty() ? "" : "read as a picture; did you mean '" + closest + "'?";
}

std::string FaultOfFormat(std::u16string_view format, std::span<const Keyword> keywords, int mostHexDigits) {
    for (const Keyword& keyword : keywords) {
        Words words(format);
        if (!words.Take(keyword.word) || words.IsAtEnd()) continue;
        const std::string word = "'" + Text(keyword.word).ToUtf8() + "'";
        if (!keyword.hasNumber) return word + " has nothing behind it; this is read as a picture";
        const std::optional<double> digits = words.TakeNumber();
        if (!digits || !words.IsAtEnd()) return "no number behind " + word;
        const int most = keyword.word == u"hex" ? mostHexDigits : keyword.most;
        return *digits > most ? word + " takes a number up to " + std::to_string(most) : "";
    }
    for (const Keyword& keyword : keywords) {
        if (ov::EqualNoCase(format, keyword.word)) return "";
    }
    return FaultOfPicture(format, keywords);
}

}  // namespace

std::string FaultOfIntegerSubtype(std::u16string_view subtype) {
    if (subtype.empty()) return "";
    Words words(subtype);
    if (!ReadIntegerForm(words)) return kNoWidth;
    words.SkipBetween();
    words.Take(u"reverseMapping");
    return words.IsAtEnd() ? "" : "'" + words.Rest() + "' means nothing here; known is 'reverseMapping'";
}

std::string FaultOfFloatSubtype(std::u16string_view subtype) {
    if (subtype.empty()) return "";
    Words words(subtype);
    if (words.Take(u"f")) {
        const double bits = words.TakeNumber().value_or(0);
        if (bits != 32 && bits != 64) return "a float has 32 or 64 bits: 'f32' or 'f64'";
    } else if (!ReadIntegerForm(words)) {
        return kNoWidth;
    }
    while (words.SkipBetween(), !words.IsAtEnd()) {
        if (words.Take(u"reverseMapping")) continue;
        if (words.Take(u"rnd")) {
            words.TakeNumber();
        } else if (!words.Take(u"precision")) {
            return "'" + words.Rest() + "' means nothing here; known are 'rnd', 'precision' and 'reverseMapping'";
        } else if (!words.TakeNumber()) {
            return "no number behind 'precision'";
        }
    }
    return "";
}

std::string FaultOfStringSubtype(std::u16string_view subtype) {
    static constexpr std::array<std::u16string_view, 11> kWords = {
        u"packedascii", u"hartdate", u"version4_4", u"hexstream", u"hexwordstream", u"version8_8_32",
        u"version8_8",  u"dcpname",  u"ascii0",     u"multiline", u"icon"};
    std::u16string_view rest = subtype;
    while (!rest.empty()) {
        if (std::u16string_view(u" ,;_-").find(rest.front()) != std::u16string_view::npos) {
            rest.remove_prefix(1);
            continue;
        }
        std::size_t length = 0;
        std::vector<std::string> words;
        for (const std::u16string_view word : kWords) {
            if (length == 0 && rest.starts_with(word)) length = word.size();
            words.push_back(Text(word).ToUtf8());
        }
        if (length == 0) {
            const std::string closest = ClosestName(Text(rest).ToUtf8(), words);
            return "no word for texts" + (closest.empty() ? "" : "; did you mean '" + closest + "'?");
        }
        rest.remove_prefix(length);
    }
    return "";
}

std::string FaultOfIntegerFormat(std::u16string_view format, bool isWide) {
    if (!isWide && ov::EqualNoCase(format, u"unixtime")) {
        return "times since 1970 are for integers of more than 31 bits; this is read as a picture";
    }
    return FaultOfFormat(format, kIntegerKeywords, isWide ? 16 : 8);
}

std::string FaultOfFloatFormat(std::u16string_view format) {
    for (const Keyword& keyword : kIntegerKeywords) {
        const bool isFloat = keyword.word == u"techexpo" || keyword.word == u"scientific";
        if (!isFloat && ov::EqualNoCase(format, keyword.word))
            return "a float knows no '" + Text(format).ToUtf8() + "'";
    }
    return FaultOfFormat(format, kFloatKeywords, 0);
}

bool IsWideInteger(std::u16string_view subtype) {
    const IntegerForm form = IntegerFormOf(subtype);
    return form.bits > (form.letter == 'u' ? 31 : 32);
}

IntegerRange RangeOfInteger(std::u16string_view subtype) {
    const IntegerForm form = IntegerFormOf(subtype);
    if (!form.hasLetter) return {};
    if (form.letter == 'u') return {0.0, std::exp2(form.bits) - 1};
    return {-std::exp2(form.bits - 1), std::exp2(form.bits - 1) - 1};
}

}  // namespace ovmodel
