// What shows only when a type is loaded: rules that fail, values that are not consistent at the start.
#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "contract/internal.h"
#include "ovmodel/check/inspection.h"
#include "ovmodel/parameter_path.h"
#include "platform/automation/errors.h"

namespace ovmodel {

namespace {

using ov::Ref;
using ov::Text;

/// A script as it ran, less what the descriptor's text has besides.
Text Bare(std::u16string_view text) {
    if (text.starts_with(u"#:") || text.starts_with(u"!:")) text.remove_prefix(2);
    return ReplaceAll(Text(text), u"^^", u"");
}

// True if @p script is @p rule with something in the place of each "P()".
bool IsRuleWithValue(std::u16string_view rule, std::u16string_view script) {
    constexpr std::u16string_view kValue = u"P()";
    std::size_t mark = rule.find(kValue);
    if (mark == std::u16string_view::npos) return rule == script;
    if (!script.starts_with(rule.substr(0, mark))) return false;
    script.remove_prefix(mark);
    for (;;) {
        rule.remove_prefix(mark + kValue.size());
        mark = rule.find(kValue);
        const std::u16string_view piece = rule.substr(0, std::min(mark, rule.size()));
        if (mark == std::u16string_view::npos) return script.ends_with(piece);
        const std::size_t at = script.find(piece);
        if (at == std::u16string_view::npos) return false;
        script.remove_prefix(at + piece.size());
        mark = piece.size();
        if (!rule.substr(mark).starts_with(kValue)) return false;
    }
}

class Life {
public:
    Life(Inspection& inspection, const std::string& type) : mInspection(inspection), mType(type) {
        const Descriptor& descriptor = inspection.descriptor;
        for (const Row& row : descriptor.Rows(u"ModuleTypes")) {
            if (row.TextOf(u"moduletype").ToUtf8() == type && !mTypeRow) mTypeRow = &row;
        }
        for (const Row& row : descriptor.Rows(u"Parameters")) {
            if (const auto idx = row.LongOf(u"idx")) mRows.emplace(*idx, &row);
        }
        ov::ListenToRuleFailures([this](const ov::RuleFailure& failure) { NoteFailure(failure); });
    }
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;
    ~Life() { ov::ListenToRuleFailures({}); }

    void Run() {
        try {
            LoadAndRead();
        } catch (const ov::RuntimeError& error) {
            NoteAt(mTypeRow, u"moduletype", "reading all of the type fails: " + std::string(error.what()));
        }
    }

private:
    void LoadAndRead() {
        const Ref<ov::Module> module = OpenDescriptor(mInspection.descriptor.path());
        if (!module->Load(Text::FromUtf8(mType), {}, {})) {
            mInspection.Add(Severity::Error, *mTypeRow, u"moduletype",
                            "the type cannot be loaded: " + module->LoadFailure().ToUtf8());
            return;
        }
        OpenAll(*module);
        for (const std::int32_t language : module->TextLanguages()) {
            if (module->SetLanguage(language)) ReadAll(*module);
        }
        module->Unload();
    }

    void OpenAll(ov::Module& module) {
        for (const auto& channel : Elements(module.Spec()->channels())) {
            const auto groups = channel->groups();
            if (!groups) {
                mInspection.Add(Severity::Error, *mTypeRow, u"moduletype",
                                "the groups of channel " + Utf8(channel->id()) + " cannot be read");
            }
            for (const auto& group : Elements(groups)) {
                mGroupType = Utf8(ov::facet<ov::ICollection>(group->desc())->Item(Text(u"GroupType")));
                if (!group->parameters()) {
                    mInspection.Add(
                        Severity::Error, *mTypeRow, u"moduletype",
                        "the parameters of group " + Utf8(channel->id()) + "/" + Utf8(group->id()) + " cannot be read");
                }
            }
        }
        ForEachParameter(module, [this](ov::IBase_GuiParameter& parameter) { CheckStart(parameter); });
    }

    void ReadAll(ov::Module& module) {
        module.deviceHelpFile();
        ForEachParameter(module, [](ov::IBase_GuiParameter& parameter) {
            parameter.get_value();
            parameter.unit();
            parameter.html();
        });
    }

    template <class Visit>
    void ForEachParameter(ov::Module& module, Visit visit) {
        for (const auto& channel : Elements(module.Spec()->channels())) {
            for (const auto& group : Elements(channel->groups())) {
                mGroupType = Utf8(ov::facet<ov::ICollection>(group->desc())->Item(Text(u"GroupType")));
                for (const auto& parameter : Elements(group->parameters())) {
                    try {
                        visit(*parameter->Gui());
                    } catch (const ov::RuntimeError& error) {
                        NoteAt(RowOf(*parameter->Gui()), u"ParameterId",
                               "cannot be read: " + std::string(error.what()));
                    }
                }
            }
        }
    }

    const Row* RowOf(ov::IBase_GuiParameter& parameter) const {
        const auto internal = ov::facet<ov::IBase_Internal>(&parameter);
        const auto row = mRows.find(internal ? internal->DBindex() : 0);
        return row == mRows.end() ? mTypeRow : row->second;
    }

    void CheckStart(ov::IBase_GuiParameter& parameter) {
        if (parameter.configState() != ov::eParameterConfigState::eParameterValid || parameter.consistent()) return;
        const Row* row = RowOf(parameter);
        for (const std::u16string_view column : {u"DefaultValue", u"subtype", u"consistency", u"Min", u"Max"}) {
            if (mInspection.HasFindingAt(*row, column)) return;  // which is the reason
        }
        mInspection.Add(Severity::Warning, *row, u"DefaultValue",
                        "in '" + mType + "' " + PathOf(parameter) + " is not consistent at the start: value '" +
                            parameter.get_value().ToUtf8() + "', limits " + Utf8(parameter.Min()) + " .. " +
                            Utf8(parameter.Max()));
    }

    void NoteAt(const Row* row, std::u16string_view column, const std::string& words) {
        if (!mInspection.HasFindingAt(*row, column)) {
            mInspection.Add(Severity::Error, *row, column, "in '" + mType + "' " + words);
        }
    }

    // A failure names the text alone: its row is one that has this text, best of the group that is being opened.
    void NoteFailure(const ov::RuleFailure& failure) {
        const Text& script = failure.script;
        if (script.empty()) return NoteAt(mTypeRow, u"moduletype", failure.reason.ToUtf8());
        if (!mFailures.emplace(script, mGroupType).second) return;
        const Text bare = Bare(script);
        const std::string words = "the rule " + Quoted(script) + " fails: " + failure.reason.ToUtf8();
        const Row* found = nullptr;
        std::u16string_view foundColumn;
        static constexpr std::array<std::u16string_view, 6> kTables = {u"Parameters", u"GroupScripts", u"Actions",
                                                                       u"Texts",      u"Files",        u"ModuleTypes"};
        for (const std::u16string_view table : kTables) {
            for (const Row& row : mInspection.descriptor.Rows(table)) {
                for (std::size_t i = 0; i < row.values.size(); ++i) {
                    if (!row.values[i].IsString() || !IsRuleWithValue(Bare(row.values[i].AsText()), bare)) continue;
                    const std::u16string_view column = row.table->columns()[i];
                    if (row.TextOf(u"GroupType").ToUtf8() == mGroupType) return NoteAt(&row, column, words);
                    if (!found) {
                        found = &row;
                        foundColumn = column;
                    }
                }
            }
            if (found) return NoteAt(found, foundColumn, words);
        }
        NoteAt(mTypeRow, u"moduletype", words);
    }

    Inspection& mInspection;
    std::string mType;
    const Row* mTypeRow = nullptr;
    std::map<std::int32_t, const Row*> mRows;
    std::set<std::pair<Text, std::string>> mFailures;  // that are known, by script and group
    std::string mGroupType;                            // of the group that is being opened or read
};

}  // namespace

void CheckLife(Inspection& inspection, const std::string& type) {
    Life(inspection, type).Run();
}

}  // namespace ovmodel
