#include "ovmodel/coverage/type_rules.h"

#include <map>

#include "contract/internal.h"
#include "ovmodel/descriptor/descriptor_tables.h"
#include "ovmodel/descriptor/rule_texts.h"
#include "ovmodel/parameter_path.h"

namespace ovmodel {

namespace {

using ov::Ref;
using ov::Text;

struct Alternative {
    std::int32_t row;
    bool hasRule;
};

std::vector<Alternative> AlternativesOf(ov::IBase_GuiParameter& parameter) {
    const Ref<ov::CBase_ParamDependency> ring = ov::facet<ov::IBase_Internal>(&parameter)->dependencies();
    std::vector<Alternative> alternatives;
    do {
        alternatives.push_back({ring->get_idx(), !ring->get_dep().empty()});
        ring->MoveNext();
    } while (ring->get_idx() != alternatives.front().row);
    return alternatives;
}

// The rows that the parameters of a fresh device may take. Rows that are not enabled are none.
std::vector<TypeRow> RowsOf(ov::Module& module) {
    std::vector<TypeRow> rows;
    std::map<std::int32_t, std::size_t> places;
    for (const Ref<ov::IBase_GuiParameter>& parameter : AllParameters(module)) {
        const std::vector<Alternative> alternatives = AlternativesOf(*parameter);
        for (const Alternative& alternative : alternatives) {
            const auto [place, isNew] = places.emplace(alternative.row, rows.size());
            if (isNew) rows.push_back({alternative.row, {}, alternatives.size() > 1 || alternative.hasRule});
            rows[place->second].paths.push_back(PathOf(*parameter));
        }
    }
    return rows;
}

void AddRules(const Row& cells, const Descriptor& descriptor, const TypeRow& row, std::vector<TypeRule>& rules) {
    const bool hasPrefixes = descriptor.generation() >= 1;
    const auto add = [&](ov::RuleColumn column, Reader reader, const Text& text) {
        if (IsScript(reader, text, hasPrefixes)) rules.push_back({row.row, column, text.ToUtf8(), row.paths});
    };
    const ParameterWord* word = FindParameterWord(cells.TextOf(u"Type"));
    if (!word) return;
    for (const RuleCell& cell : RuleCellsOf(*word)) {
        const std::u16string_view column = ov::ColumnName(cell.column);
        if (cells[column].IsString()) add(cell.column, cell.reader, cells.TextOf(column));
    }
    if (const auto unit = cells.LongOf(u"unit")) {
        add(ov::RuleColumn::Unit, Reader::String, descriptor.TextOf(*unit).value_or(Text()));
    }
}

}  // namespace

TypeRules RulesOf(const std::string& database, const std::string& type) {
    const Ref<ov::Module> module = OpenDescriptor(database);
    const Ref<ov::CBase_Unload> guard = module->GetUnloadPointer();
    LoadType(*module, database, type);
    TypeRules found{RowsOf(*module), {}};
    // The texts come from the tables: in a living device the result of a static rule has taken its place.
    const Descriptor descriptor(database);
    std::map<std::int32_t, const Row*> cells;
    for (const Row& row : descriptor.Rows(u"Parameters")) {
        if (const auto idx = row.LongOf(u"idx")) cells.emplace(*idx, &row);
    }
    for (const TypeRow& row : found.rows) {
        if (const auto at = cells.find(row.row); at != cells.end()) AddRules(*at->second, descriptor, row, found.rules);
    }
    return found;
}

}  // namespace ovmodel
