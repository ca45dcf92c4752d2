// The tables, columns and keys that the model reads, rows that collide, and languages.
#include <algorithm>
#include <array>
#include <map>

#include "ovmodel/check/inspection.h"
#include "ovmodel/command.h"

namespace ovmodel {

namespace {

using ov::Text;

enum class Need { Always, Usually, Never };

struct Shape {
    std::u16string_view table;
    Need need;
    bool needsKey;  ///< rows are sought by the primary key
    std::u16string_view columns;
};
constexpr std::array kShapes = {
    Shape{u"DatabaseProperties", Need::Usually, true, u"Value"},
    Shape{u"ModuleTypes", Need::Always, false,
          u"moduletype IDX defaultName mainValue ModuleImage description deviceHelpFile authentification "
          u"FDTmanufacturerId FDTdeviceTypeId FDTsubDeviceType FDTclassificationId FDTdeviceIcon "
          u"fdtDeviceTypeInformation FDTversion"},
    Shape{u"Versions", Need::Always, true, u"date descriptor name vendor version"},
    Shape{u"BusCategories", Need::Always, false, u"module busCategory CommunicationTypeEntry"},
    Shape{u"BusCategoryTypes", Need::Always, true, u"Category CategoryName"},
    Shape{u"SupportedLanguages", Need::Always, true, u"LangId"},
    Shape{u"Kinds", Need::Usually, true, u"KindId"},
    Shape{u"Texts", Need::Always, false, u"TEXT_IDX Text_7"},
    Shape{u"Files", Need::Usually, false, u"FILE_IDX Text_7"},
    Shape{u"Channels", Need::Always, false, u"ModuleType ChannelId name ChannelType order"},
    Shape{u"ChannelTypes", Need::Usually, true, u"mainValue"},
    Shape{u"Groups", Need::Always, false,
          u"ChannelType GroupType groupId name block1 block1order block2 block2order block3 block3order"},
    Shape{u"Blocks", Need::Usually, true, u"BlockId idx name"},
    Shape{u"GroupScripts", Need::Never, false, u"GroupType ScriptId script"},
    Shape{u"Parameters", Need::Always, false,
          u"GroupType order ParameterId idx Type subtype name description kind direction unit Min Max DefaultValue "
          u"realGain realOffset displayFormat dependency removeOnDependency editable expertOnly authentification html "
          u"trendvariable"},
    Shape{u"Enums", Need::Usually, false, u"enumSubType value valueText"},
    Shape{u"EnumsStr", Need::Never, false, u"enumSubType value valueText"},
    Shape{u"Actions", Need::Never, false, u"ActionID value actionScript"},
};

template <class Visit>
void ForEachWord(std::u16string_view words, Visit visit) {
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(u' '), words.size());
        visit(words.substr(0, end));
        words.remove_prefix(std::min(end + 1, words.size()));
    }
}

void CheckShape(Inspection& inspection, const Shape& shape) {
    const std::string name = Text(shape.table).ToUtf8();
    const Table* table = inspection.descriptor.Find(shape.table);
    if (!table) {
        if (shape.need == Need::Always) inspection.Add(Severity::Error, name, "", "the table is missing");
        if (shape.need == Need::Usually) {
            inspection.Add(Severity::Warning, name, "", "the table is missing; what asks for its rows gets none");
        }
        return;
    }
    ForEachWord(shape.columns, [&](std::u16string_view column) {
        if (table->Find(column)) return;
        std::vector<std::string> names;
        for (const Text& each : table->columns()) {
            names.push_back(each.ToUtf8());
        }
        const std::string wanted = Text(column).ToUtf8();
        const std::string closest = ClosestName(wanted, names);
        inspection.Add(
            Severity::Error, name, wanted,
            "the column is missing" + (closest.empty() ? "" : "; did you mean to name '" + closest + "' so?"));
    });
    if (shape.needsKey && !table->hasKey()) {
        inspection.Add(Severity::Error, name, "", "the table has no primary key, by which its rows are sought");
    }
}

// Languages are offered by the low ten bits of their ids; each wants a column of texts.
void CheckLanguages(Inspection& inspection) {
    const Table* texts = inspection.descriptor.Find(u"Texts");
    for (const Row& row : inspection.descriptor.Rows(u"SupportedLanguages")) {
        const std::string id = row.TextOf(u"LangId").ToUtf8();
        std::size_t read = 0;
        unsigned long number = 0;
        try {
            number = std::stoul(id, &read, 16);
        } catch (const std::exception&) {
            read = 0;
        }
        if (read == 0 || read != id.size()) {
            inspection.Add(Severity::Error, row, u"LangId", "'" + id + "' is no hexadecimal number of a language");
            continue;
        }
        const Text column = u"Text_" + Text::FromInteger(static_cast<std::int64_t>(number & 0x3FF));
        if (texts && !texts->Find(column)) {
            inspection.Add(Severity::Warning, row, u"LangId",
                           "the table Texts has no column '" + column.ToUtf8() + "': all texts show in language 7");
        }
    }
}

struct Unique {
    std::u16string_view table;
    std::array<std::u16string_view, 2> columns;
    Severity severity;
    const char* consequence;
    bool countsNull = false;  ///< rows with Null collide too
};
constexpr std::array kUnique = {
    Unique{u"ModuleTypes", {u"moduletype"}, Severity::Error, "the first row of the name hides this one"},
    Unique{u"ModuleTypes", {u"IDX"}, Severity::Warning, "the types share their channels and buses"},
    Unique{u"Texts", {u"TEXT_IDX"}, Severity::Error, "reading the texts ends at this row"},
    Unique{u"Files", {u"FILE_IDX"}, Severity::Error, "reading the files fails at this row"},
    Unique{u"Channels", {u"ModuleType", u"ChannelId"}, Severity::Error, "the channel takes the place of the earlier"},
    Unique{u"Groups", {u"ChannelType", u"groupId"}, Severity::Error, "the group takes the place of the earlier one"},
    Unique{
        u"GroupScripts", {u"GroupType", u"ScriptId"}, Severity::Error, "reading the group's scripts ends here", true},
    Unique{u"Parameters", {u"idx"}, Severity::Error, "rows with one number are not told apart"},
    Unique{u"Enums", {u"enumSubType", u"value"}, Severity::Error, "the row is left out of the list"},
    Unique{u"EnumsStr", {u"enumSubType", u"value"}, Severity::Error, "the row is left out of the list"},
    Unique{u"Actions", {u"ActionID", u"value"}, Severity::Error, "the row is left out", true},
};

void CheckUnique(Inspection& inspection, const Unique& unique) {
    std::map<std::u16string, const Row*> seen;
    for (const Row& row : inspection.descriptor.Rows(unique.table)) {
        std::u16string key;
        std::string shown;
        bool hasNull = false;
        for (const std::u16string_view column : unique.columns) {
            if (column.empty()) continue;
            hasNull = hasNull || row[column].IsNull();
            key += Folded(row.TextOf(column)) + (row[column].IsNull() ? u"\1" : u"\2");
            shown += (shown.empty() ? "" : ", ") + Shown(row[column]);
        }
        const auto [known, isNew] = seen.emplace(std::move(key), &row);
        if (isNew) continue;
        inspection.Add(
            unique.severity, row, unique.columns.back().empty() ? unique.columns[0] : unique.columns[1],
            "'" + shown + "' is in row " + std::to_string(known->second->number) + " already: " + unique.consequence);
    }
}

// A script of all groups and one of a group may not share an id.
void CheckCommonScripts(Inspection& inspection) {
    std::map<std::u16string, const Row*> common;
    for (const Row& row : inspection.descriptor.Rows(u"GroupScripts")) {
        if (row[u"GroupType"].IsNull()) common.emplace(Folded(row.TextOf(u"ScriptId")), &row);
    }
    for (const Row& row : inspection.descriptor.Rows(u"GroupScripts")) {
        if (row[u"GroupType"].IsNull() || !common.contains(Folded(row.TextOf(u"ScriptId")))) continue;
        inspection.Add(Severity::Error, row, u"ScriptId",
                       "a script of all groups has the id '" + row.TextOf(u"ScriptId").ToUtf8() +
                           "' too: the second of both ends the reading of the group's scripts");
    }
}

}  // namespace

void CheckTables(Inspection& inspection) {
    for (const Shape& shape : kShapes) {
        CheckShape(inspection, shape);
    }
    CheckLanguages(inspection);
    for (const Text& line : inspection.descriptor.database().LeftOut()) {
        inspection.Add(Severity::Warning, "Database", "", "left out: " + line.ToUtf8());
    }
}

void CheckDoubles(Inspection& inspection) {
    for (const Unique& unique : kUnique) {
        CheckUnique(inspection, unique);
    }
    CheckCommonScripts(inspection);
}

}  // namespace ovmodel
