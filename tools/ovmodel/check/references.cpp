// Numbers and names that point to rows of other tables.
#include <array>
#include <map>
#include <set>

#include "ovmodel/check/inspection.h"

namespace ovmodel {

namespace {

using ov::Text;

/// A column whose values are found in a column of another table. Null points to nothing.
struct Reference {
    std::u16string_view table, column;
    std::u16string_view target, targetColumn;  ///< "" is the key
    Severity severity;
    bool isIndex;  ///< 0 means none
    const char* consequence;
};
constexpr auto kError = Severity::Error;
constexpr auto kWarning = Severity::Warning;
constexpr const char* kNoText = "no such text: it shows as nothing";
constexpr const char* kNoFile = "no such file: none is shown";
constexpr const char* kNoBlock = "no such block: the channel cannot be read";
constexpr std::array kReferences = {
    Reference{u"ModuleTypes", u"defaultName", u"Texts", u"TEXT_IDX", kError, true, kNoText},
    Reference{u"ModuleTypes", u"description", u"Texts", u"TEXT_IDX", kError, true, kNoText},
    Reference{u"ModuleTypes", u"deviceHelpFile", u"Files", u"FILE_IDX", kError, true, kNoFile},
    Reference{u"ModuleTypes", u"FDTversion", u"Versions", u"", kError, false, "no such version: the type cannot load"},
    Reference{u"ModuleTypes", u"IDX", u"Channels", u"ModuleType", kWarning, false, "the type has no channels"},
    Reference{u"BusCategories", u"module", u"ModuleTypes", u"IDX", kError, false, "no such module type"},
    Reference{u"BusCategories", u"busCategory", u"BusCategoryTypes", u"", kError, false, "no such bus category"},
    Reference{u"Channels", u"ModuleType", u"ModuleTypes", u"IDX", kError, false, "no such module type"},
    Reference{u"Channels", u"name", u"Texts", u"TEXT_IDX", kError, true, kNoText},
    Reference{u"Channels", u"ChannelType", u"ChannelTypes", u"", kWarning, false,
              "no such channel type: the channel has no main value"},
    Reference{u"Channels", u"ChannelType", u"Groups", u"ChannelType", kWarning, false, "the channel has no groups"},
    Reference{u"Groups", u"ChannelType", u"Channels", u"ChannelType", kWarning, false,
              "no channel is of this type: the group is never met"},
    Reference{u"Groups", u"GroupType", u"Parameters", u"GroupType", kWarning, false, "the group has no parameters"},
    Reference{u"Groups", u"name", u"Texts", u"TEXT_IDX", kError, true, kNoText},
    Reference{u"Groups", u"block1", u"Blocks", u"", kError, false, kNoBlock},
    Reference{u"Groups", u"block2", u"Blocks", u"", kError, false, kNoBlock},
    Reference{u"Groups", u"block3", u"Blocks", u"", kError, false, kNoBlock},
    Reference{u"Blocks", u"name", u"Texts", u"TEXT_IDX", kError, true, kNoText},
    Reference{u"GroupScripts", u"GroupType", u"Groups", u"GroupType", kWarning, false,
              "no group is of this type: the script is never used"},
    Reference{u"Parameters", u"GroupType", u"Groups", u"GroupType", kError, false,
              "no group is of this type: the parameter is never met"},
    Reference{u"Parameters", u"name", u"Texts", u"TEXT_IDX", kError, true, kNoText},
    Reference{u"Parameters", u"description", u"Texts", u"TEXT_IDX", kError, true, kNoText},
    Reference{u"Parameters", u"unit", u"Texts", u"TEXT_IDX", kError, true, kNoText},
    Reference{u"Parameters", u"html", u"Files", u"FILE_IDX", kError, true, kNoFile},
    Reference{u"Parameters", u"kind", u"Kinds", u"", kWarning, false, "the table Kinds has no name for the kind"},
    Reference{u"Parameters", u"actionOnChange", u"Actions", u"ActionID", kError, false,
              "no such action: nothing runs after a write"},
    Reference{u"Actions", u"ActionID", u"Parameters", u"actionOnChange", kWarning, false,
              "no parameter has this action"},
    Reference{u"Enums", u"valueText", u"Texts", u"TEXT_IDX", kError, true, kNoText},
    Reference{u"EnumsStr", u"valueText", u"Texts", u"TEXT_IDX", kError, true, kNoText},
};

/// The values that columns have, read once.
class TargetValues {
public:
    explicit TargetValues(const Descriptor& descriptor) : mDescriptor(descriptor) {}

    bool Has(const Reference& reference, const Text& value) {
        const auto [known, isNew] = mValues.try_emplace({reference.target, reference.targetColumn});
        if (isNew) Read(reference, known->second);
        return known->second.contains(Folded(value));
    }

private:
    void Read(const Reference& reference, std::set<std::u16string>& values) {
        const Table* table = mDescriptor.Find(reference.target);
        if (!table) return;
        std::u16string_view column = reference.targetColumn;
        if (column.empty()) column = table->columns()[table->identity().empty() ? 0 : table->identity().front()];
        for (const Row& row : table->rows()) {
            if (!row[column].IsNull()) values.insert(Folded(row.TextOf(column)));
        }
    }

    const Descriptor& mDescriptor;
    std::map<std::pair<std::u16string_view, std::u16string_view>, std::set<std::u16string>> mValues;
};

void CheckReference(Inspection& inspection, const Reference& reference, TargetValues& targets) {
    // A table that is missing is one finding; only what breaks for it is told row by row.
    if (reference.severity == kWarning && !inspection.descriptor.Find(reference.target)) return;
    for (const Row& row : inspection.descriptor.Rows(reference.table)) {
        const Text value = row.TextOf(reference.column);
        if (value.empty() || (reference.isIndex && row.LongOf(reference.column) == 0)) continue;
        if (targets.Has(reference, value)) continue;
        inspection.Add(reference.severity, row, reference.column, Quoted(value) + ": " + reference.consequence);
    }
}

// Columns whose row source looks up the table of texts hold numbers of texts, in the author's own tables too.
void CheckTextColumns(Inspection& inspection) {
    for (const Row& property : inspection.descriptor.Rows(u"FieldProperties")) {
        const std::u16string source = Folded(property.TextOf(u"PropertyValue"));
        if (!ov::EqualNoCase(property.TextOf(u"PropertyName"), u"RowSource")) continue;
        if (source.find(Folded(u"FROM TEXTS")) == std::u16string::npos) continue;
        const Text table = property.TextOf(u"TableName"), column = property.TextOf(u"FieldName");
        const Table* target = inspection.descriptor.Find(table);
        if (!target || !target->Find(column)) {
            inspection.Add(Severity::Error, property, u"FieldName",
                           "there is no column " + table.ToUtf8() + "." + column.ToUtf8());
            continue;
        }
        const bool isKnown = ov::EqualNoCase(table, u"Enums") || ov::EqualNoCase(table, u"EnumsStr");
        for (const Row& row : target->rows()) {
            const auto number = row.LongOf(column);
            if (isKnown || row[column].IsNull() || number == 0) continue;
            if (!number || !inspection.descriptor.TextOf(*number)) {
                inspection.Add(kError, row, column, Quoted(row.TextOf(column)) + ": " + kNoText);
            }
        }
    }
}

// Blocks are sought by key and told apart by number, so both must be one.
void CheckBlockNumbers(Inspection& inspection) {
    for (const Row& row : inspection.descriptor.Rows(u"Blocks")) {
        if (row.TextOf(u"idx") == row.TextOf(u"BlockId")) continue;
        inspection.Add(kError, row, u"idx",
                       Quoted(row.TextOf(u"idx")) + " is not the key " + Quoted(row.TextOf(u"BlockId")) +
                           ": groups that name the block do not find each other");
    }
}

}  // namespace

void CheckReferences(Inspection& inspection) {
    TargetValues targets(inspection.descriptor);
    for (const Reference& reference : kReferences) {
        CheckReference(inspection, reference, targets);
    }
    CheckTextColumns(inspection);
    CheckBlockNumbers(inspection);
}

}  // namespace ovmodel
