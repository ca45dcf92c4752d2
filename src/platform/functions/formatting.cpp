#include <array>

#include "platform/format/format_date.h"
#include "platform/format/format_number.h"
#include "platform/format/format_unit.h"
#include "platform/functions/arguments.h"
#include "platform/functions/themes.h"

namespace ov::vbscript {

namespace {

/// The value to be formatted. Unlike elsewhere, Null does not convert at all.
const Variant& FormattedAt(std::span<Variant> arguments) {
    const Variant& value = ValueAt(arguments, 0);
    if (value.IsNull()) Raise(ErrorNumber::TypeMismatch);
    return value;
}

/// A choice of three: vbTrue, vbFalse or vbUseDefault, which is @p byDefault.
bool TristateAt(std::span<Variant> arguments, std::size_t index, bool byDefault) {
    constexpr std::int32_t kUseDefault = -2;
    const std::int32_t choice = LongOr(arguments, index, kUseDefault);
    if (choice < kUseDefault || choice > 0) Raise(ErrorNumber::InvalidProcedureCall);
    return choice == kUseDefault ? byDefault : choice != 0;
}

/// Arguments 1 to 4: decimals, leading digit, brackets for negative numbers, grouping.
NumberStyle StyleAt(std::span<Variant> arguments, const NumberStyle& byDefault) {
    constexpr std::int32_t kUseDefault = -1;
    const std::int32_t decimals = LongOr(arguments, 1, kUseDefault);
    return {.decimals = decimals == kUseDefault ? byDefault.decimals : decimals,
            .leadingDigit = TristateAt(arguments, 2, byDefault.leadingDigit),
            .brackets = TristateAt(arguments, 3, byDefault.brackets),
            .grouping = TristateAt(arguments, 4, byDefault.grouping)};
}

Variant Number(BuiltinContext&, std::span<Variant> arguments) {
    return FormatNumber(FormattedAt(arguments), StyleAt(arguments, {}));
}

Variant Percent(BuiltinContext&, std::span<Variant> arguments) {
    return FormatPercent(FormattedAt(arguments), StyleAt(arguments, {}));
}

Variant Amount(BuiltinContext&, std::span<Variant> arguments) {
    return FormatCurrency(FormattedAt(arguments), StyleAt(arguments, CurrencyStyle()));
}

Variant DateTime(BuiltinContext&, std::span<Variant> arguments) {
    const std::int32_t form = LongOr(arguments, 1, 0);
    if (form < 0 || form > static_cast<std::int32_t>(DateForm::ShortTime)) Raise(ErrorNumber::InvalidProcedureCall);
    return FormatDate(ToDate(FormattedAt(arguments)), static_cast<DateForm>(form));
}

constexpr std::array kBuiltins = {
    Builtin{u"FormatCurrency", 1, 5, &Amount},
    Builtin{u"FormatDateTime", 1, 2, &DateTime},
    Builtin{u"FormatNumber", 1, 5, &Number},
    Builtin{u"FormatPercent", 1, 5, &Percent},
};

}  // namespace

std::span<const Builtin> FormattingBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
