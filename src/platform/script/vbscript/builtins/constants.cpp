#include <array>

#include "platform/functions/name_index.h"
#include "platform/script/vbscript/builtins.h"

namespace ov::vbscript {

namespace {

struct Number {
    std::u16string_view name;
    std::int32_t value;
};

// A number is an Integer where that holds it, as a literal would be.
constexpr std::array kNumbers = {
    // Colours
    Number{u"vbBlack", 0x000000},
    Number{u"vbRed", 0x0000FF},
    Number{u"vbGreen", 0x00FF00},
    Number{u"vbYellow", 0x00FFFF},
    Number{u"vbBlue", 0xFF0000},
    Number{u"vbMagenta", 0xFF00FF},
    Number{u"vbCyan", 0xFFFF00},
    Number{u"vbWhite", 0xFFFFFF},
    // Comparison
    Number{u"vbBinaryCompare", 0},
    Number{u"vbTextCompare", 1},
    Number{u"vbDatabaseCompare", 2},
    // Dates
    Number{u"vbSunday", 1},
    Number{u"vbMonday", 2},
    Number{u"vbTuesday", 3},
    Number{u"vbWednesday", 4},
    Number{u"vbThursday", 5},
    Number{u"vbFriday", 6},
    Number{u"vbSaturday", 7},
    Number{u"vbUseSystemDayOfWeek", 0},
    Number{u"vbUseSystem", 0},
    Number{u"vbFirstJan1", 1},
    Number{u"vbFirstFourDays", 2},
    Number{u"vbFirstFullWeek", 3},
    Number{u"vbGeneralDate", 0},
    Number{u"vbLongDate", 1},
    Number{u"vbShortDate", 2},
    Number{u"vbLongTime", 3},
    Number{u"vbShortTime", 4},
    // Choices of three
    Number{u"vbUseDefault", -2},
    Number{u"vbTrue", -1},
    Number{u"vbFalse", 0},
    // Types of values
    Number{u"vbEmpty", 0},
    Number{u"vbNull", 1},
    Number{u"vbInteger", 2},
    Number{u"vbLong", 3},
    Number{u"vbSingle", 4},
    Number{u"vbDouble", 5},
    Number{u"vbCurrency", 6},
    Number{u"vbDate", 7},
    Number{u"vbString", 8},
    Number{u"vbObject", 9},
    Number{u"vbError", 10},
    Number{u"vbBoolean", 11},
    Number{u"vbVariant", 12},
    Number{u"vbDataObject", 13},
    Number{u"vbDecimal", 14},
    Number{u"vbByte", 17},
    Number{u"vbArray", 8192},
    // Message boxes: buttons, icons, other options, answers
    Number{u"vbOKOnly", 0},
    Number{u"vbOKCancel", 1},
    Number{u"vbAbortRetryIgnore", 2},
    Number{u"vbYesNoCancel", 3},
    Number{u"vbYesNo", 4},
    Number{u"vbRetryCancel", 5},
    Number{u"vbCritical", 16},
    Number{u"vbQuestion", 32},
    Number{u"vbExclamation", 48},
    Number{u"vbInformation", 64},
    Number{u"vbDefaultButton1", 0},
    Number{u"vbDefaultButton2", 256},
    Number{u"vbDefaultButton3", 512},
    Number{u"vbDefaultButton4", 768},
    Number{u"vbApplicationModal", 0},
    Number{u"vbSystemModal", 4096},
    Number{u"vbMsgBoxHelpButton", 16384},
    Number{u"vbMsgBoxSetForeground", 65536},
    Number{u"vbMsgBoxRight", 524288},
    Number{u"vbMsgBoxRtlReading", 1048576},
    Number{u"vbOK", 1},
    Number{u"vbCancel", 2},
    Number{u"vbAbort", 3},
    Number{u"vbRetry", 4},
    Number{u"vbIgnore", 5},
    Number{u"vbYes", 6},
    Number{u"vbNo", 7},
    // Errors
    Number{u"vbObjectError", -2147221504},
};

struct Characters {
    std::u16string_view name;
    std::u16string_view value;
};

constexpr std::array kCharacters = {
    Characters{u"vbCr", u"\r"},          Characters{u"vbCrLf", u"\r\n"},
    Characters{u"vbFormFeed", u"\f"},    Characters{u"vbLf", u"\n"},
    Characters{u"vbNewLine", u"\r\n"},   Characters{u"vbNullChar", std::u16string_view(u"\0", 1)},
    Characters{u"vbNullString", u""},    Characters{u"vbTab", u"\t"},
    Characters{u"vbVerticalTab", u"\v"},
};

struct Constant {
    std::u16string_view name;
    Variant value;
};

class Constants {
public:
    Constants() : mIndex(kCount) {
        std::size_t count = 0;
        for (const Number& number : kNumbers) {
            const auto asInteger = static_cast<std::int16_t>(number.value);
            mConstants[count++] = {number.name, asInteger == number.value ? Variant(asInteger) : Variant(number.value)};
        }
        for (const Characters& characters : kCharacters) {
            mConstants[count++] = {characters.name, characters.value};
        }
        for (const Constant& constant : mConstants) {
            mIndex.Enter(constant);
        }
    }
    Constants(const Constants&) = delete;
    Constants& operator=(const Constants&) = delete;

    const Constant* Find(std::u16string_view name) const noexcept { return mIndex.Find(name); }

private:
    static constexpr std::size_t kCount = kNumbers.size() + kCharacters.size();

    std::array<Constant, kCount> mConstants;
    NameIndex<Constant> mIndex;
};

}  // namespace

const Variant* FindConstant(std::u16string_view name) noexcept {
    static const Constants constants;
    const Constant* found = constants.Find(name);
    return found ? &found->value : nullptr;
}

}  // namespace ov::vbscript
