#include <array>
#include <limits>

#include "platform/functions/pace.h"
#include "platform/functions/text_finder.h"
#include "platform/script/vbscript/builtins/accounted_list.h"
#include "platform/script/vbscript/builtins/themes.h"

namespace ov::vbscript {

namespace {

/// The array that an argument is. @throws RuntimeError 13 for what is none
const Array& ArrayAt(std::span<Variant> arguments, std::size_t index) {
    const Variant& value = ValueAt(arguments, index);
    if (!value.IsArray()) Raise(ErrorNumber::TypeMismatch);
    return value.AsArray();
}

/// The same, of one dimension. @throws RuntimeError 13 for one of several or of none
const Array& ListAt(std::span<Variant> arguments, std::size_t index) {
    const Array& array = ArrayAt(arguments, index);
    if (array.Rank() != 1) Raise(ErrorNumber::TypeMismatch);
    return array;
}

/// An element as text. Unlike elsewhere, Null does not convert at all.
Text ElementText(const Array& list, std::size_t position) {
    const Variant element = list.At(position);
    if (element.IsNull()) Raise(ErrorNumber::TypeMismatch);
    return ToText(element);
}

Variant MakeArray(BuiltinContext&, std::span<Variant> arguments) {
    return Array::OfVariants({arguments.begin(), arguments.end()});
}

template <std::int32_t (Array::*Bound)(std::size_t) const>
Variant BoundOf(BuiltinContext&, std::span<Variant> arguments) {
    const std::int32_t dimension = LongOr(arguments, 1, 1);
    const Array& array = ArrayAt(arguments, 0);
    return (array.*Bound)(dimension < 1 ? 0 : static_cast<std::size_t>(dimension));
}

Variant Join(BuiltinContext& context, std::span<Variant> arguments) {
    const Array& list = ListAt(arguments, 0);
    const Text delimiter = IsGiven(arguments, 1) ? TextAt(arguments, 1) : Text(u" ");
    constexpr std::size_t kStepsPerElement = 16;
    Pace pace(context);
    Text result;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (i > 0) result += delimiter;
        result += ElementText(list, i);
        pace.Step(kStepsPerElement);
    }
    return result;
}

Variant Split(BuiltinContext& context, std::span<Variant> arguments) {
    constexpr std::int32_t kAll = -1;
    const Text text = TextAt(arguments, 0);
    const Text delimiter = IsGiven(arguments, 1) ? TextAt(arguments, 1) : Text(u" ");
    std::int32_t left = LongOr(arguments, 2, kAll);
    const TextMode mode = TextModeAt(arguments, 3);
    if (left < kAll) Raise(ErrorNumber::InvalidProcedureCall);
    if (left == kAll) left = std::numeric_limits<std::int32_t>::max();
    if (text.empty() || left == 0) return Array::OfVariants({});

    const std::u16string_view view = text.view();
    TextFinder finder(context, delimiter, mode);
    AccountedList<Variant> parts;
    std::size_t done = 0;
    for (; left > 1 && !delimiter.empty(); --left) {
        const std::size_t found = finder.Find(view, done);
        if (found == TextFinder::kNone) break;
        parts.Append(view.substr(done, found - done));
        done = found + delimiter.size();
    }
    parts.Append(done == 0 ? Variant(text) : Variant(view.substr(done)));
    return Array::OfVariants(parts.TakeItems());
}

/// The elements that contain a text, or with False as the third argument those that do not.
Variant Filter(BuiltinContext& context, std::span<Variant> arguments) {
    const Array& list = ListAt(arguments, 0);
    const Text wanted = TextAt(arguments, 1);
    const bool contains = BooleanOr(arguments, 2, true);
    TextFinder finder(context, wanted, TextModeAt(arguments, 3));
    AccountedList<Variant> found;
    Pace pace(context);
    for (std::size_t i = 0; i < list.size(); ++i) {
        pace.Step(8);
        Text element = ElementText(list, i);
        if ((finder.Find(element, 0) != TextFinder::kNone) == contains) found.Append(std::move(element));
    }
    return Array::OfVariants(found.TakeItems());
}

constexpr std::array kBuiltins = {
    Builtin{u"Array", 0, Builtin::kAnyNumber, &MakeArray},
    Builtin{u"Filter", 2, 4, &Filter},
    Builtin{u"Join", 1, 2, &Join},
    Builtin{u"LBound", 1, 2, &BoundOf<&Array::LowerBound>},
    Builtin{u"Split", 1, 4, &Split},
    Builtin{u"UBound", 1, 2, &BoundOf<&Array::UpperBound>},
};

}  // namespace

std::span<const Builtin> ListBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
