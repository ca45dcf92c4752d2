#include "platform/store/sqlite/query_forms.h"

#include <algorithm>
#include <charconv>

#include "platform/automation/errors.h"

namespace ov::sqlite {

namespace {

struct Parts {
    std::string form;
    std::int32_t number;
};

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

// What stands around the number behind the last "= ", and the number.
std::optional<Parts> SplitAtNumber(std::string_view sql) {
    constexpr std::string_view kMark = "= ";
    constexpr std::size_t kMostDigits = 9;
    const std::size_t mark = sql.rfind(kMark);
    if (mark == std::string_view::npos) return std::nullopt;
    const std::string_view rest = sql.substr(mark + kMark.size());
    const auto digits = static_cast<std::size_t>(std::ranges::find_if_not(rest, IsDigit) - rest.begin());
    const bool ends = digits == rest.size() || rest[digits] == ' ';
    if (digits == 0 || digits > kMostDigits || !ends) return std::nullopt;
    Parts parts{std::string(sql.substr(0, mark + kMark.size())), 0};
    parts.form += '?';
    parts.form += rest.substr(digits);
    std::from_chars(rest.data(), rest.data() + digits, parts.number);
    return parts;
}

bool HasOneValue(const SqliteQuery& query, std::int32_t number) {
    return query.values.size() == 1 && query.values[0].Type() == VarType::Long && query.values[0].AsLong() == number;
}

}  // namespace

std::optional<SqliteQuery> QueryForms::Find(std::string_view sql) const {
    if (mTexts.empty()) return std::nullopt;
    const std::optional<Parts> parts = SplitAtNumber(sql);
    const auto known = parts ? mTexts.find(parts->form) : mTexts.end();
    if (known == mTexts.end()) return std::nullopt;
    return SqliteQuery{known->second, {Variant(parts->number)}};
}

void QueryForms::Learn(const std::string& sql, const SqliteQuery& translated, SqlSchema& schema) {
    std::optional<Parts> parts = SplitAtNumber(sql);
    if (!parts || mTexts.size() >= kMost || !HasOneValue(translated, parts->number)) return;
    // The number could stand for something else, and the value be that of another place: one more number tells.
    const std::int32_t other = parts->number + 1;
    std::string text = parts->form;
    text.replace(text.rfind("= ?") + 2, 1, std::to_string(other));
    const SqliteQuery twin = SqlText(text).Rewrite(schema);
    if (twin.text == translated.text && HasOneValue(twin, other)) {
        mTexts.emplace(std::move(parts->form), translated.text);
    }
}

}  // namespace ov::sqlite
