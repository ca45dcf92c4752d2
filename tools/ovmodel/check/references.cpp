// Numbers and names that point to rows of other tables.
#include <array>
#include <map>
#include <set>

#include "ovmodel/check/inspection.h"
#include "ovmodel/descriptor/index_columns.h"

namespace ovmodel {

namespace {

using ov::Text;

/// A column whose values are found in a column of another table. Null points to nothing.
struct Reference {
    std::u16string_view table, column;
    std::u16string_view target, targetColumn;  ///< "" is the key
    Severity severity;
    const char* consequence;
};
constexpr auto kError = Severity::Error;
constexpr auto kWarning = Severity::Warning;
constexpr const char* kNoText = "no such text: it shows as nothing";
constexpr const char* kNoBlock = "no such block: the channel cannot be read";
constexpr std::array kReferences = {
    Reference{u"ModuleTypes", u"FDTversion", u"Versions", u"", kError, "no such version: the type cannot load"},
    Reference{u"ModuleTypes", u"IDX", u"Channels", u"ModuleType", kWarning, "the type has no channels"},
    Reference{u"BusCategories", u"module", u"ModuleTypes", u"IDX", kError, "no such module type"},
    Reference{u"BusCategories", u"busCategory", u"BusCategoryTypes", u"", kError, "no such bus category"},
    Reference{u"Channels", u"ModuleType", u"ModuleTypes", u"IDX", kError, "no such module type"},
    Reference{u"Channels", u"ChannelType", u"ChannelTypes", u"", kWarning,
              "no such channel type: the channel has no main value"},
    Reference{u"Channels", u"ChannelType", u"Groups", u"ChannelType", kWarning, "the channel has no groups"},
    Reference{u"Groups", u"ChannelType", u"Channels", u"ChannelType", kWarning,
              "no channel is of this type: the group is never met"},
    Reference{u"Groups", u"GroupType", u"Parameters", u"GroupType", kWarning, "the group has no parameters"},
    Reference{u"Groups", u"block1", u"Blocks", u"", kError, kNoBlock},
    Reference{u"Groups", u"block2", u"Blocks", u"", kError, kNoBlock},
    Reference{u"Groups", u"block3", u"Blocks", u"", kError, kNoBlock},
    Reference{u"GroupScripts", u"GroupType", u"Groups", u"GroupType", kWarning,
              "no group is of this type: the script is never used"},
    Reference{u"Parameters", u"GroupType", u"Groups", u"GroupType", kError,
              "no group is of this type: the parameter is never met"},
    Reference{u"Parameters", u"kind", u"Kinds", u"", kWarning, "the table Kinds has no name for the kind"},
    Reference{u"Parameters", u"actionOnChange", u"Actions", u"ActionID", kError,
              "no such action: nothing runs after a write"},
    Reference{u"Actions", u"ActionID", u"Parameters", u"actionOnChange", kWarning, "no parameter has this action"},
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
        if (value.empty()) continue;
        if (targets.Has(reference, value)) continue;
        inspection.Add(reference.severity, row, reference.column, Quoted(value) + ": " + reference.consequence);
    }
}

// Numbers of texts and files; 0 is none.
void CheckIndexColumn(Inspection& inspection, std::u16string_view table, std::u16string_view column,
                      const std::set<std::int32_t>& numbers, const char* consequence) {
    for (const Row& row : inspection.descriptor.Rows(table)) {
        const auto number = row.LongOf(column);
        if (row[column].IsNull() || number == 0 || (number && numbers.contains(*number))) continue;
        inspection.Add(kError, row, column, Quoted(row.TextOf(column)) + ": " + consequence);
    }
}

std::set<std::int32_t> NumbersOf(const Descriptor& descriptor, std::u16string_view table, std::u16string_view key) {
    std::set<std::int32_t> numbers;
    for (const Row& row : descriptor.Rows(table)) {
        if (const auto number = row.LongOf(key)) numbers.insert(*number);
    }
    return numbers;
}

void CheckIndexColumns(Inspection& inspection) {
    const Descriptor& descriptor = inspection.descriptor;
    const std::set<std::int32_t> texts = NumbersOf(descriptor, u"Texts", u"TEXT_IDX");
    const std::set<std::int32_t> files = NumbersOf(descriptor, u"Files", u"FILE_IDX");
    std::set<std::pair<std::u16string, std::u16string>> known;
    for (const IndexColumn& index : kIndexColumns) {
        known.emplace(Folded(index.table), Folded(index.column));
        CheckIndexColumn(inspection, index.table, index.column, index.isFile ? files : texts,
                         index.isFile ? "no such file: none is shown" : kNoText);
    }
    // Columns whose row source looks up the table of texts are such too, in the author's own tables.
    for (const Row& property : descriptor.Rows(u"FieldProperties")) {
        if (!IsTextSource(property)) continue;
        const Text table = property.TextOf(u"TableName"), column = property.TextOf(u"FieldName");
        const Table* target = descriptor.Find(table);
        if (!target || !target->Find(column)) {
            inspection.Add(Severity::Error, property, u"FieldName",
                           "there is no column " + table.ToUtf8() + "." + column.ToUtf8());
        } else if (known.emplace(Folded(table), Folded(column)).second) {
            CheckIndexColumn(inspection, table, column, texts, kNoText);
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
    CheckIndexColumns(inspection);
    CheckBlockNumbers(inspection);
}

}  // namespace ovmodel
