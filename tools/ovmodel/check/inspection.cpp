#include "ovmodel/check/inspection.h"

#include <algorithm>

namespace ovmodel {

void Inspection::Add(Severity severity, const Row& row, std::u16string_view column, std::string text) {
    findings.push_back(
        {row.table->name(), row.number, row.table->KeyOf(row), ov::Text(column).ToUtf8(), severity, std::move(text)});
}

void Inspection::Add(Severity severity, const std::string& table, const std::string& column, std::string text) {
    findings.push_back({table, 0, "", column, severity, std::move(text)});
}

bool Inspection::HasFindingAt(const Row& row, std::u16string_view column) const {
    const std::string name = ov::Text(column).ToUtf8();
    return std::ranges::any_of(findings, [&](const Finding& finding) {
        return finding.row == row.number && finding.table == row.table->name() && finding.column == name;
    });
}

std::string Quoted(const ov::Text& text) {
    constexpr std::size_t kMost = 60;
    if (text.size() <= kMost) return "'" + text.ToUtf8() + "'";
    return "'" + ov::Text(text.view().substr(0, kMost)).ToUtf8() + "...'";
}

}  // namespace ovmodel
