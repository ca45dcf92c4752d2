#include "platform/script/vbscript/builtins/regexp_replacement.h"

#include <utility>

#include "platform/automation/characters.h"
#include "platform/automation/conversions.h"
#include "platform/automation/dispatch.h"
#include "platform/automation/errors.h"

namespace ov::vbscript {

namespace {

/// True for an object of a script's own; what GetRef gives is one.
bool IsScriptObject(const Variant& value) noexcept {
    return value.IsObject() && !value.IsNothing() && !value.AsObject()->GetTypeInfo();
}

/// The group that digits name, and how many digits that takes; 0 and 0 if there is no such group.
std::pair<std::size_t, std::size_t> GroupNamed(std::u16string_view digits, std::size_t groups) noexcept {
    std::size_t number = 0;
    std::pair<std::size_t, std::size_t> named{0, 0};
    for (std::size_t i = 0; i < 2 && i < digits.size() && IsDigit(digits[i]); ++i) {
        number = number * 10 + (digits[i] - u'0');
        if (number >= 1 && number <= groups) named = {number, i + 1};
    }
    return named;
}

}  // namespace

Replacement::Replacement(const Variant& replacement, BuiltinContext::Link link) : mLink(std::move(link)) {
    if (IsScriptObject(replacement)) {
        mProcedure = replacement;
    } else {
        mText = ToText(replacement);
    }
}

void Replacement::AppendTo(Text& out, const RegexSearch& search) const {
    if (mProcedure.IsObject()) return AppendResult(out, search);
    const std::u16string_view text = mText.view();
    std::size_t done = 0;
    for (std::size_t at = text.find(u'$'); at != std::u16string_view::npos; at = text.find(u'$', done)) {
        out += text.substr(done, at - done);
        done = at + 1 + AppendSign(out, search, text.substr(at + 1));
    }
    out += text.substr(done);
}

/// Appends what "$" and the characters behind it stand for. @returns how many of these that takes
std::size_t Replacement::AppendSign(Text& out, const RegexSearch& search, std::u16string_view behindDollar) const {
    const std::u16string_view subject = search.Subject();
    const TextRange match = search.Ranges().front();
    switch (behindDollar.empty() ? u'\0' : behindDollar.front()) {
        case u'$':
            out += u'$';
            return 1;
        case u'&':
            out += match.Of(subject);
            return 1;
        case u'`':
            out += subject.substr(0, match.begin);
            return 1;
        case u'\'':
            out += subject.substr(match.end);
            return 1;
        default:
            break;
    }
    const auto [group, digits] = GroupNamed(behindDollar, search.Ranges().size() - 1);
    if (digits == 0) {
        out += u'$';
    } else if (const TextRange& range = search.Ranges()[group]; range.IsSet()) {
        out += range.Of(subject);
    }
    return digits;
}

void Replacement::AppendResult(Text& out, const RegexSearch& search) const {
    if (!mLink || !*mLink) Raise(ErrorNumber::ObjectVariableNotSet);  // the engine of the procedure is gone
    std::vector<Variant> arguments;
    for (const TextRange& range : search.Ranges()) {
        arguments.push_back(range.IsSet() ? Variant(range.Of(search.Subject())) : Variant());
    }
    arguments.emplace_back(static_cast<std::int32_t>(search.Ranges().front().begin));
    arguments.emplace_back(search.Subject());
    out += ToText((*mLink)->CallFunction(mProcedure, arguments));
}

}  // namespace ov::vbscript
