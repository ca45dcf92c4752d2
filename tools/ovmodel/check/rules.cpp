// Texts of the descriptor that are scripts, or should be: whether they compile, and what they name.
#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "ovmodel/check/inspection.h"
#include "ovmodel/check/rule_names.h"
#include "ovmodel/descriptor/rule_texts.h"
#include "platform/automation/conversions.h"
#include "platform/script/script_control.h"

namespace ovmodel {

namespace {

using ov::ScriptForm;
using ov::Text;

// A text that only makes sense as a script: it compiles, and calls something that is published.
bool LooksLikeRule(const Text& text) {
    static constexpr std::array<std::u16string_view, 8> kPublished = {u"P",      u"G",     u"CH",    u"ENV",
                                                                      u"CONFCH", u"CONFG", u"CONFM", u"GETTEXT"};
    try {
        const std::vector<ov::ScriptChain> chains = ov::OutlineOf(text, ScriptForm::Expression);
        return std::ranges::any_of(chains, [](const ov::ScriptChain& chain) {
            return !chain.steps.empty() && std::ranges::any_of(kPublished, [&](std::u16string_view name) {
                return ov::EqualNoCase(chain.name, name);
            });
        });
    } catch (const ov::RuntimeError&) {
        return false;
    }
}

/// A script less its marks "^^", which are taken out before it runs, with the places in the text as it stands.
class Unmarked {
public:
    Unmarked(const Text& text, std::size_t prefix) : mPrefix(prefix) {
        std::u16string_view rest = text.view().substr(prefix);
        std::int32_t line = 1;
        for (std::size_t at = 0; at < rest.size(); ++at) {
            if (rest.substr(at, 2) == u"^^") {
                mMarks.emplace_back(line, static_cast<std::int32_t>(mScript.size() - mLineStart + 1));
                ++at;
                continue;
            }
            mScript += rest[at];
            if (rest[at] == u'\n') {
                ++line;
                mLineStart = mScript.size();
            }
        }
    }

    Text script() const { return Text(mScript); }

    std::string PlaceOf(std::int32_t line, std::int32_t column) const {
        std::int32_t shift = line == 1 ? static_cast<std::int32_t>(mPrefix) : 0;
        for (const auto& [markLine, markColumn] : mMarks) {
            if (markLine == line && markColumn <= column) shift += 2;
        }
        return "line " + std::to_string(line) + ", column " + std::to_string(column + shift) + ": ";
    }

private:
    std::size_t mPrefix;
    std::size_t mLineStart = 0;
    std::u16string mScript;
    std::vector<std::pair<std::int32_t, std::int32_t>> mMarks;
};

class RuleCheck {
public:
    explicit RuleCheck(Inspection& inspection)
        : mInspection(inspection), mDescriptor(inspection.descriptor), mStructure(inspection.descriptor) {}

    void Run() {
        CheckRowsOfParameters();
        CheckTextsInUse();
        CheckGroupScripts();
        CheckActions();
        CheckModuleRules();
        CheckMainValues();
    }

private:
    using GroupTypes = std::set<std::u16string>;

    Scope ScopeOfAll(const GroupTypes& groupTypes) {
        Scope scope;
        for (const std::u16string& type : groupTypes) {
            scope.Join(mStructure.ScopeOf(type));
        }
        return scope;
    }

    /// A column that is read in one way.
    void CheckText(const Row& row, std::u16string_view column, Reader reader, const Scope& scope) {
        const Text text = row.TextOf(column);
        if (text.empty() || !row[column].IsString()) return;
        const bool isPrefixed = HoldsPrefix(text);
        if (reader == Reader::Statement) {
            CheckScript(row, column, text, 0, ScriptForm::Statements, scope);
        } else if (mInspection.hasPrefixes()) {
            if (isPrefixed) {
                CheckScript(row, column, text, 2, ScriptForm::Expression, scope);
            } else {
                CheckLiteral(row, column, reader, text);
            }
        } else if (isPrefixed) {
            mInspection.Add(Severity::Error, row, column,
                            Quoted(text) +
                                " has a prefix of generation 1, and the descriptor is of generation 0: it "
                                "has no row 'ModelVersionIndex' of 1 or more in DatabaseProperties");
        } else if (IsScript(reader, text, false)) {
            CheckScript(row, column, text, 0, ScriptForm::Expression, scope);
        }
    }

    void CheckLiteral(const Row& row, std::u16string_view column, Reader reader, const Text& text) {
        if (LooksLikeRule(text)) {
            const bool isError = !IsLiteral(reader, text);
            mInspection.Add(isError ? Severity::Error : Severity::Warning, row, column,
                            Quoted(text) +
                                " looks like a rule of generation 0; from generation 1 on a rule begins "
                                "with '#:' (once) or '!:' (at each use)");
        } else if (!IsLiteral(reader, text)) {
            mInspection.Add(Severity::Error, row, column,
                            Quoted(text) + (reader == Reader::Number ? " is no number"
                                                                     : " is neither a rule nor True "
                                                                       "or False"));
        }
    }

    void CheckScript(const Row& row, std::u16string_view column, const Text& text, std::size_t prefix, ScriptForm form,
                     const Scope& scope) {
        const Unmarked script(text, prefix);
        try {
            for (const ov::ScriptChain& chain : ov::OutlineOf(script.script(), form)) {
                const std::string fault = mStructure.FaultOf(chain, scope);
                if (fault.empty()) continue;
                mInspection.Add(Severity::Error, row, column, script.PlaceOf(chain.line, chain.column) + fault);
            }
        } catch (const ov::ScriptError& error) {
            mInspection.Add(Severity::Error, row, column, script.PlaceOf(error.line(), error.column()) + error.what());
        }
    }

    void CheckRowsOfParameters() {
        const Table* parameters = mDescriptor.Find(u"Parameters");
        if (!parameters) return;
        const std::u16string_view filter = parameters->Find(u"enable") ? u"enable" : u"staticDependency";
        for (const Row& row : parameters->rows()) {
            const Scope& scope = mStructure.ScopeOf(row.TextOf(u"GroupType"));
            const ParameterWord* word = FindParameterWord(row.TextOf(u"Type"));
            if (!word) continue;
            CheckText(row, filter, Reader::Truth, scope);
            for (const RuleCell& cell : RuleCellsOf(*word)) {
                CheckText(row, ov::ColumnName(cell.column), cell.reader, scope);
            }
        }
    }

    // Texts are scripts where they are units or words of a list; the groups that use them are where they run.
    void CheckTextsInUse() {
        std::map<std::int32_t, GroupTypes> uses;
        std::map<std::u16string, GroupTypes> lists;
        for (const Row& row : mDescriptor.Rows(u"Parameters")) {
            const std::u16string group = Folded(row.TextOf(u"GroupType"));
            if (const auto unit = row.LongOf(u"unit")) uses[*unit].insert(group);
            lists[Folded(row.TextOf(u"subtype"))].insert(group);
        }
        for (const char16_t* table : {u"Enums", u"EnumsStr"}) {
            for (const Row& row : mDescriptor.Rows(table)) {
                const auto text = row.LongOf(u"valueText");
                if (text) uses[*text].merge(GroupTypes(lists[Folded(row.TextOf(u"enumSubType"))]));
            }
        }
        for (const Row& row : mDescriptor.Rows(u"Texts")) {
            const auto groups = uses.find(row.LongOf(u"TEXT_IDX").value_or(0));
            if (groups == uses.end()) continue;
            const Scope scope = ScopeOfAll(groups->second);
            for (const Text& column : mDescriptor.textColumns()) {
                CheckText(row, column, Reader::String, scope);
            }
        }
    }

    void CheckGroupScripts() {
        for (const Row& row : mDescriptor.Rows(u"GroupScripts")) {
            CheckText(row, u"script", mInspection.hasPrefixes() ? Reader::String : Reader::Rule,
                      mStructure.ScopeOf(row.TextOf(u"GroupType")));
        }
    }

    void CheckActions() {
        std::map<std::u16string, GroupTypes> users;
        for (const Row& row : mDescriptor.Rows(u"Parameters")) {
            users[Folded(row.TextOf(u"actionOnChange"))].insert(Folded(row.TextOf(u"GroupType")));
        }
        for (const Row& row : mDescriptor.Rows(u"Actions")) {
            CheckText(row, u"actionScript", Reader::Statement, ScopeOfAll(users[Folded(row.TextOf(u"ActionID"))]));
        }
    }

    // The module's own scripts run on its first channel.
    void CheckModuleRules() {
        for (const Row& row : mDescriptor.Rows(u"ModuleTypes")) {
            if (row.TextOf(u"fdtDeviceTypeInformation").view().starts_with(u"file:\\\\")) continue;
            CheckText(row, u"fdtDeviceTypeInformation", Reader::String,
                      mStructure.FirstChannelsOf(Folded(row.TextOf(u"IDX"))));
        }
        const Table* files = mDescriptor.Find(u"Files");
        if (!files) return;
        for (const Row& row : files->rows()) {
            for (const Text& column : files->columns()) {
                if (ov::EqualNoCase(column, u"FILE_IDX")) continue;
                CheckText(row, column, Reader::String, mStructure.FirstChannelsOf({}));
            }
        }
    }

    // Paths in the notation of scripts, of which only the quoted ids count.
    void CheckMainValues() {
        for (const Row& row : mDescriptor.Rows(u"ModuleTypes")) {
            CheckPath(row, 3, {Folded(row.TextOf(u"IDX"))}, {});
        }
        for (const Row& row : mDescriptor.Rows(u"ChannelTypes")) {
            const Table& table = *row.table;
            const std::size_t key = table.identity().empty() ? 0 : table.identity().front();
            CheckPath(row, 2, {}, {Folded(row.TextOf(table.columns()[key]))});
        }
    }

    void CheckPath(const Row& row, std::size_t count, const std::u16string& module,
                   std::vector<std::u16string> channelTypes) {
        const Text text = row.TextOf(u"mainValue");
        if (text.empty()) return;
        const std::vector<std::u16string> ids = IdsOfPath(text);
        if (ids.size() != count) {
            mInspection.Add(Severity::Error, row, u"mainValue",
                            Quoted(text) + " is no path of " + std::to_string(count) + " quoted ids, such as " +
                                (count == 3 ? "CH(\"1\").G(\"2\").P(\"3\")" : "G(\"2\")(\"3\")"));
            return;
        }
        if (count == 3) channelTypes = mStructure.ChannelTypes(module, ids[0]);
        for (const std::u16string& channelType : channelTypes) {
            for (const std::u16string& groupType : mStructure.GroupTypes(channelType, ids[count - 2])) {
                if (mStructure.HasParameter(groupType, ids[count - 1])) return;
            }
        }
        mInspection.Add(Severity::Error, row, u"mainValue", "there is no parameter " + Quoted(text));
    }

    static std::vector<std::u16string> IdsOfPath(std::u16string_view text) {
        std::vector<std::u16string> ids;
        for (std::size_t at = text.find(u"(\""); at != std::u16string_view::npos; at = text.find(u"(\"")) {
            text.remove_prefix(at + 2);
            ids.emplace_back(text.substr(0, text.find(u"\")")));
        }
        return ids;
    }

    Inspection& mInspection;
    const Descriptor& mDescriptor;
    Structure mStructure;
};

}  // namespace

void CheckRules(Inspection& inspection) {
    RuleCheck(inspection).Run();
}

}  // namespace ovmodel
