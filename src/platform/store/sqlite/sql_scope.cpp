#include "platform/store/sqlite/sql_scope.h"

#include <algorithm>

#include "platform/store/sqlite/sql_tokens.h"

namespace ov::sqlite {

std::string BracketName(std::string_view name) {
    if (name.find(']') == std::string_view::npos) return "[" + std::string(name) + "]";
    // Unlike double quotes, this quote never stands for a text.
    std::string quoted = "`";
    for (const char c : name) {
        quoted += c;
        if (c == '`') quoted += c;
    }
    return quoted + "`";
}

namespace {

const SqlNamedType* FindColumn(const SqlScope::Source& source, const std::string& name) {
    const auto column =
        std::ranges::find_if(*source.columns, [&](const SqlNamedType& each) { return SameName(each.name, name); });
    return column != source.columns->end() ? &*column : nullptr;
}

}  // namespace

// A source whose columns are not known may have any.
const SqlScope::Source* SqlScope::FindSource(const std::vector<std::string>& path) const {
    for (const Source& source : sources) {
        if (path.size() > 1 && !SameName(source.name, path[path.size() - 2])) continue;
        if (!source.columns || FindColumn(source, path.back())) return &source;
    }
    return nullptr;
}

std::optional<SqlScope::Found> SqlScope::FindHere(const std::vector<std::string>& path) const {
    const std::string& name = path.back();
    if (const Source* source = FindSource(path)) {
        return source->columns ? Found{FindColumn(*source, name)->type, nullptr} : Found{};
    }
    if (path.size() > 1) return std::nullopt;
    const auto alias = std::ranges::find_if(aliases, [&](const Alias& each) { return SameName(each.name, name); });
    return alias != aliases.end() ? std::optional(Found{alias->type, &*alias}) : std::nullopt;
}

std::optional<SqlScope::Found> SqlScope::Find(const std::vector<std::string>& path) {
    if (const std::optional<Found> here = FindHere(path)) return here;
    if (!mOuter) return std::nullopt;
    const std::optional<Found> around = mOuter->Find(path);
    usesOuter = usesOuter || around;
    return around;
}

std::vector<std::string> SqlScope::RowOrder() const {
    std::vector<std::string> order;
    for (const Source& source : sources) {
        if (source.rowNumber.empty()) break;
        order.push_back(BracketName(source.name) + "." + source.rowNumber);
    }
    return order;
}

}  // namespace ov::sqlite
