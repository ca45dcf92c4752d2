#include "platform/store/sqlite/sql_function_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "platform/automation/date_text.h"
#include "platform/automation/operators.h"
#include "platform/format/format.h"
#include "platform/functions/arguments.h"
#include "platform/functions/pace.h"
#include "platform/functions/themes.h"
#include "platform/locale/locale.h"
#include "platform/store/sqlite/iso_date.h"
#include "platform/store/sqlite/like_pattern.h"

namespace ov::sqlite {

namespace {

using vbscript::Builtin;
using vbscript::BuiltinContext;
using vbscript::IsGiven;
using vbscript::LongAt;
using vbscript::TextAt;
using Arguments = std::span<Variant>;
using Call = Variant (*)(BuiltinContext&, Arguments);

constexpr std::uint8_t kMany = 100;  // SQLite takes 127
constexpr std::int32_t kIgnoreCase = 1;

const Builtin& FunctionOf(std::u16string_view name) {
    for (const auto theme :
         {vbscript::MathematicsBuiltins(), vbscript::ConversionBuiltins(), vbscript::CharacterBuiltins(),
          vbscript::TextPartBuiltins(), vbscript::TextSearchBuiltins(), vbscript::DateBuiltins(),
          vbscript::IntervalBuiltins(), vbscript::FormattingBuiltins(), vbscript::InspectionBuiltins()}) {
        const auto found =
            std::ranges::find_if(theme, [&](const Builtin& each) { return EqualNoCase(each.name, name); });
        if (found != theme.end()) return *found;
    }
    throw std::logic_error("no such function");
}

// Queries compare texts without regard to case unless they are told otherwise: the mode is put behind the others.
std::vector<Variant> WithTextMode(Arguments arguments, std::size_t place, std::span<const Variant> defaults) {
    std::vector<Variant> all(arguments.begin(), arguments.end());
    for (std::size_t i = all.size(); i < place; ++i) {
        all.push_back(defaults[i - (place - defaults.size())]);
    }
    if (all.size() == place) all.push_back(kIgnoreCase);
    const bool isDatabase = ToLong(all[place]) == 2;  // the database's own order, which ignores case
    if (isDatabase) all[place] = kIgnoreCase;
    return all;
}

Variant InStr(BuiltinContext& context, Arguments arguments) {
    std::vector<Variant> all(arguments.begin(), arguments.end());
    if (all.size() == 2) all.insert(all.begin(), Variant(1));
    all = WithTextMode(all, 3, {});
    static const Builtin& function = FunctionOf(u"InStr");
    return function.call(context, all);
}

Variant InStrRev(BuiltinContext& context, Arguments arguments) {
    std::vector<Variant> all = WithTextMode(arguments, 3, std::array{Variant(-1)});
    static const Builtin& function = FunctionOf(u"InStrRev");
    return function.call(context, all);
}

Variant StrComp(BuiltinContext& context, Arguments arguments) {
    std::vector<Variant> all = WithTextMode(arguments, 2, {});
    static const Builtin& function = FunctionOf(u"StrComp");
    return function.call(context, all);
}

Variant Replace(BuiltinContext& context, Arguments arguments) {
    std::vector<Variant> all = WithTextMode(arguments, 5, std::array{Variant(1), Variant(-1)});
    static const Builtin& function = FunctionOf(u"Replace");
    return function.call(context, all);
}

// A text of so many characters; far more than a value of a database can have is no use.
void CheckCount(const Variant& count) {
    constexpr std::int32_t kMost = 8 << 20;
    if (ToLong(count) > kMost) Raise(ErrorNumber::OutOfStringSpace);
}

Variant Space(BuiltinContext& context, Arguments arguments) {
    CheckCount(arguments[0]);
    static const Builtin& function = FunctionOf(u"Space");
    return function.call(context, arguments);
}

Variant String(BuiltinContext& context, Arguments arguments) {
    CheckCount(arguments[0]);
    static const Builtin& function = FunctionOf(u"String");
    return function.call(context, arguments);
}

Variant IsNullValue(BuiltinContext&, Arguments arguments) {
    return arguments[0].IsNull();
}

Variant Nz(BuiltinContext&, Arguments arguments) {
    if (!arguments[0].IsNull()) return arguments[0];
    return IsGiven(arguments, 1) ? arguments[1] : Variant(Text());
}

Variant Same(BuiltinContext&, Arguments arguments) {
    return arguments[0];
}

Variant Val(BuiltinContext&, Arguments arguments) {
    return ValPrefix(ToInvariantText(arguments[0]));
}

// A number that is not negative has a blank where the sign would be.
Variant Str(BuiltinContext&, Arguments arguments) {
    const Variant number = Identity(arguments[0]);
    const Text digits = ToInvariantText(number);
    return digits.view().starts_with(u'-') ? digits : u" " + digits;
}

Variant StrConv(BuiltinContext&, Arguments arguments) {
    enum : std::int32_t { kUpper = 1, kLower = 2, kProper = 3 };
    const Text text = TextAt(arguments, 0);
    switch (LongAt(arguments, 1)) {
        case kUpper:
            return Text(ToUpperCase(text));
        case kLower:
            return Text(ToLowerCase(text));
        case kProper: {
            const std::u16string lower = ToLowerCase(text);
            std::u16string proper = ToUpperCase(text);
            for (std::size_t i = 1; i < proper.size(); ++i) {
                const bool beginsWord =
                    std::u16string_view(u" \t\r\n\f\v\0", 7).find(proper[i - 1]) != std::u16string_view::npos;
                if (!beginsWord) proper[i] = lower[i];
            }
            return Text(proper);
        }
        default:
            Raise(ErrorNumber::InvalidProcedureCall);
    }
}

Variant FormatValue(BuiltinContext&, Arguments arguments) {
    return Format(arguments[0], IsGiven(arguments, 1) ? TextAt(arguments, 1) : Text());
}

// Choose(number, first, second, ...): Null for a number that has no value.
Variant Choose(BuiltinContext&, Arguments arguments) {
    const std::int32_t number = LongAt(arguments, 0);
    const bool isThere = number >= 1 && static_cast<std::size_t>(number) < arguments.size();
    return isThere ? arguments[static_cast<std::size_t>(number)] : Variant::Null();
}

// Switch(condition, value, condition, value, ...): the value behind the first condition that holds.
Variant Switch(BuiltinContext&, Arguments arguments) {
    if (arguments.size() % 2 != 0) Raise(ErrorNumber::InvalidProcedureCall);
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        if (!arguments[i].IsNull() && ToBoolean(arguments[i])) return arguments[i + 1];
    }
    return Variant::Null();
}

Text Padded(std::int64_t number, std::size_t width) {
    const Text digits = Text::FromInteger(number);
    return Text::Repeat(width - std::min(width, digits.size()), u' ') + digits;
}

// Partition(number, start, stop, interval): the range that the number lies in, " 0: 9". Ranges begin at the start; what
// lies outside is in "  : -1" or "100:   ". Both ends are as wide as the longest of them.
Variant Partition(BuiltinContext&, Arguments arguments) {
    const std::int64_t number = LongAt(arguments, 0);
    const std::int64_t start = LongAt(arguments, 1);
    const std::int64_t stop = LongAt(arguments, 2);
    const std::int64_t interval = LongAt(arguments, 3);
    if (start < 0 || stop <= start || interval < 1) Raise(ErrorNumber::InvalidProcedureCall);
    const std::size_t width = std::max(Text::FromInteger(stop + 1).size(), Text::FromInteger(start - 1).size());
    const Text none = Text::Repeat(width, u' ');
    if (number < start) return none + u":" + Padded(start - 1, width);
    if (number > stop) return Padded(stop + 1, width) + u":" + none;
    const std::int64_t first = start + (number - start) / interval * interval;
    return Padded(first, width) + u":" + Padded(std::min(first + interval - 1, stop), width);
}

// What the column's type cannot hold stays as it is stored.
Variant AsDate(BuiltinContext&, Arguments arguments) {
    if (!arguments[0].IsString()) {
        const double days = ToDouble(arguments[0]);
        return IsDateNumber(days) ? Variant(Date{days}) : arguments[0];
    }
    const std::optional<Date> iso = ReadIsoDate(arguments[0].AsText().ToUtf8());
    return iso ? Variant(*iso) : arguments[0];
}

Variant AsSingle(BuiltinContext&, Arguments arguments) {
    if (arguments[0].IsString()) return arguments[0];
    const double number = ToDouble(arguments[0]);
    const bool fits = std::abs(number) <= static_cast<double>(std::numeric_limits<float>::max());
    return fits ? Variant(static_cast<float>(number)) : arguments[0];
}

Variant Join(BuiltinContext&, Arguments arguments) {
    if (std::ranges::all_of(arguments, &Variant::IsNull)) return Variant::Null();
    Text joined;
    for (const Variant& each : arguments) {
        if (!each.IsNull()) joined += ToText(each);
    }
    return joined;
}

// From left to right.
template <Variant (*Operator)(const Variant&, const Variant&)>
Variant Operation(BuiltinContext&, Arguments arguments) {
    Variant result = arguments[0];
    for (const Variant& each : arguments.subspan(1)) {
        result = Operator(result, each);
    }
    return result;
}

// "text LIKE pattern" calls like(pattern, text). It is a condition as SQLite has it: 1 or 0.
template <LikeForm Form>
Variant Like(BuiltinContext& context, Arguments arguments) {
    char16_t escape = 0;
    if (arguments.size() > 2) {
        const Text text = TextAt(arguments, 2);
        if (text.size() != 1) Raise(ErrorNumber::InvalidProcedureCall);
        escape = text[0];
    }
    vbscript::Pace pace(context);
    return MatchesLike(TextAt(arguments, 1), TextAt(arguments, 0), Form, escape, [&] { pace.Step(); }) ? 1 : 0;
}

std::string QuotedTable(const Text& name) {
    const std::string given = name.ToUtf8();
    return given.starts_with('[') ? given : "[" + given + "]";
}

// DLookUp(expression, table [, condition]) and its kin.
template <std::size_t N>
Variant OfDomain(BuiltinContext& context, Arguments arguments, const char (&function)[N]) {
    std::string sql = "SELECT " + std::string(function) + "(" + TextAt(arguments, 0).ToUtf8() + ") FROM " +
                      QuotedTable(TextAt(arguments, 1));
    const bool hasCondition = arguments.size() > 2 && !arguments[2].IsNull() && !TextAt(arguments, 2).empty();
    if (hasCondition) sql += " WHERE " + TextAt(arguments, 2).ToUtf8();
    return static_cast<SqlCallContext&>(context).ReadFirst(sql);
}

Variant DLookUp(BuiltinContext& context, Arguments arguments) {
    return OfDomain(context, arguments, "");
}
Variant DCount(BuiltinContext& context, Arguments arguments) {
    return OfDomain(context, arguments, "Count");
}
Variant DSum(BuiltinContext& context, Arguments arguments) {
    return OfDomain(context, arguments, "Sum");
}
Variant DAvg(BuiltinContext& context, Arguments arguments) {
    return OfDomain(context, arguments, "Avg");
}
Variant DMin(BuiltinContext& context, Arguments arguments) {
    return OfDomain(context, arguments, "Min");
}
Variant DMax(BuiltinContext& context, Arguments arguments) {
    return OfDomain(context, arguments, "Max");
}
Variant DFirst(BuiltinContext& context, Arguments arguments) {
    return OfDomain(context, arguments, "First");
}
Variant DLast(BuiltinContext& context, Arguments arguments) {
    return OfDomain(context, arguments, "Last");
}

using Type = ColumnType;
using Role = SqlRole;

// One that the rule language has, too, under the same name.
SqlFunctionEntry Shared(std::string_view name, Type type = Type::AsStored) {
    const Builtin& builtin = FunctionOf(Text::FromAscii(name).view());
    return {{name, Role::Function, type}, true, builtin.fewest, builtin.most, builtin.call};
}

SqlFunctionEntry Own(std::string_view name, std::uint8_t fewest, std::uint8_t most, Call call,
                     Type type = Type::AsStored) {
    return {{name, Role::Function, type}, true, fewest, most, call};
}

// One that looks at Null itself.
SqlFunctionEntry OfNull(std::string_view name, std::uint8_t fewest, std::uint8_t most, Call call,
                        Role role = Role::Function) {
    return {{name, role, Type::AsStored}, false, fewest, most, call};
}

SqlFunctionEntry Over(std::string_view name, Role role = Role::Aggregate) {
    return {{name, role, Type::AsStored}, false, 1, kMany, nullptr};
}

}  // namespace

std::span<const SqlFunctionEntry> SqlFunctionTable() {
    static const std::array table = {
        // Numbers.
        Shared("Abs"),
        Shared("Atn"),
        Shared("Cos"),
        Shared("Exp"),
        Shared("Fix"),
        Shared("Int"),
        Shared("Log"),
        Shared("Round"),
        Shared("Sgn"),
        Shared("Sin"),
        Shared("Sqr"),
        Shared("Tan"),
        Own("Partition", 4, 4, &Partition),
        // Conversions.
        Shared("CBool", Type::Boolean),
        Shared("CByte"),
        Shared("CCur"),
        Shared("CDate", Type::Date),
        Shared("CDbl"),
        Shared("CInt"),
        Shared("CLng"),
        Shared("CSng"),
        Shared("CStr", Type::String),
        Shared("Hex", Type::String),
        Shared("Oct", Type::String),
        Own("CVar", 1, 1, &Same),
        Own("CVDate", 1, 1, FunctionOf(u"CDate").call, Type::Date),
        Own("CDec", 1, 1, [](BuiltinContext&, Arguments arguments) -> Variant { return ToDecimal(arguments[0]); }),
        Own("Str", 1, 1, &Str, Type::String),
        Own("Val", 1, 1, &Val),
        // Texts.
        Shared("Asc"),
        Shared("AscW"),
        Shared("Chr", Type::String),
        Shared("ChrW", Type::String),
        Own("Space", 1, 1, &Space, Type::String),
        Own("String", 2, 2, &String, Type::String),
        Shared("LCase", Type::String),
        Shared("UCase", Type::String),
        Shared("Left", Type::String),
        Shared("Right", Type::String),
        Shared("Mid", Type::String),
        Shared("Len"),
        Shared("LTrim", Type::String),
        Shared("RTrim", Type::String),
        Shared("Trim", Type::String),
        Shared("StrReverse", Type::String),
        Own("InStr", 2, 4, &InStr),
        Own("InStrRev", 2, 4, &InStrRev),
        Own("Replace", 3, 6, &Replace, Type::String),
        Own("StrComp", 2, 3, &StrComp),
        Own("StrConv", 2, 3, &StrConv, Type::String),
        OfNull("Format", 1, 4, &FormatValue),
        Shared("FormatCurrency", Type::String),
        Shared("FormatDateTime", Type::String),
        Shared("FormatNumber", Type::String),
        Shared("FormatPercent", Type::String),
        // Dates.
        Shared("Date", Type::Date),
        Shared("DateAdd", Type::Date),
        Shared("DateDiff"),
        Shared("DatePart"),
        Shared("DateSerial", Type::Date),
        Shared("DateValue", Type::Date),
        Shared("Day"),
        Shared("Hour"),
        Shared("Minute"),
        Shared("Month"),
        Shared("MonthName", Type::String),
        Shared("Now", Type::Date),
        Shared("Second"),
        Shared("Time", Type::Date),
        Shared("Timer"),
        Shared("TimeSerial", Type::Date),
        Shared("TimeValue", Type::Date),
        Shared("Weekday"),
        Shared("WeekdayName", Type::String),
        Shared("Year"),
        // Questions and choices.
        OfNull("IsNull", 1, 1, &IsNullValue, Role::Condition),
        OfNull("IsDate", 1, 1, FunctionOf(u"IsDate").call, Role::Condition),
        OfNull("IsNumeric", 1, 1, FunctionOf(u"IsNumeric").call, Role::Condition),
        OfNull("IsEmpty", 1, 1, FunctionOf(u"IsEmpty").call, Role::Condition),
        OfNull("TypeName", 1, 1, FunctionOf(u"TypeName").call),
        OfNull("VarType", 1, 1, FunctionOf(u"VarType").call),
        OfNull("Nz", 1, 2, &Nz),
        OfNull("Choose", 2, kMany, &Choose),
        OfNull("Switch", 2, kMany, &Switch),
        SqlFunctionEntry{{"IIf", Role::Choice, Type::AsStored}, false, 3, 3, nullptr},
        // Over rows.
        Over("Count"),
        Over("Sum"),
        Over("Avg"),
        Over("Min"),
        Over("Max"),
        Over("StDev"),
        Over("StDevP"),
        Over("Var"),
        Over("VarP"),
        Over("First", Role::FirstOrLast),
        Over("Last", Role::FirstOrLast),
        // Over the rows of another table.
        OfNull("DLookUp", 2, 3, &DLookUp),
        OfNull("DCount", 2, 3, &DCount),
        OfNull("DSum", 2, 3, &DSum),
        OfNull("DAvg", 2, 3, &DAvg),
        OfNull("DMin", 2, 3, &DMin),
        OfNull("DMax", 2, 3, &DMax),
        OfNull("DFirst", 2, 3, &DFirst),
        OfNull("DLast", 2, 3, &DLast),
        // Operators, and what the writer of queries alone calls.
        OfNull(kJoinFunction, 2, kMany, &Join),
        Own("+", 2, kMany, &Operation<&Add>),
        Own("-", 2, kMany, &Operation<&Subtract>),
        Own("*", 2, kMany, &Operation<&Multiply>),
        Own("/", 2, kMany, &Operation<&Divide>),
        Own("\\", 2, kMany, &Operation<&IntegerDivide>),
        Own("mod", 2, kMany, &Operation<&Modulo>),
        Own("^", 2, kMany, &Operation<&Power>),
        Own(kAsDateFunction, 1, 1, &AsDate, Type::Date),
        Own(kAsSingleFunction, 1, 1, &AsSingle),
        Own("like", 2, 3, &Like<LikeForm::Both>),
        Own(kOtherLikeFunction, 2, 3, &Like<LikeForm::PercentOnly>),
    };
    return table;
}

}  // namespace ov::sqlite
