// Rows that belong together: the alternatives of a parameter, the items of an enumeration.
#include <map>

#include "ovmodel/check/inspection.h"
#include "ovmodel/descriptor/parameter_words.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"

namespace ovmodel {

namespace {

using ov::Text;

constexpr std::size_t kMostAlternatives = 20;

bool IsLeftOut(const Row& row) {
    const std::u16string_view filter = row.table->Find(u"enable") ? u"enable" : u"staticDependency";
    const Text text = row.TextOf(filter);
    return ov::EqualNoCase(text, u"False") || ov::ReadNumber(text) == 0.0;
}

// What class a row would make.
int ClassOf(const Row& row) {
    const ParameterWord* word = FindParameterWord(row.TextOf(u"Type"));
    if (!word) return -1;
    if (word->kind == ParameterWord::Query) return ParameterWord::Enumeration;
    if (word->kind == ParameterWord::TextQuery) return ParameterWord::TextEnumeration;
    return word->kind;
}

/// The rows of one group in the order in which it reads them.
class GroupOrder {
public:
    explicit GroupOrder(Inspection& inspection) : mInspection(inspection) {}

    void Meet(const Row& row) {
        const std::u16string id = Folded(row.TextOf(u"ParameterId"));
        const bool isNeighbour = mLast && mLastId == id;
        const auto [first, isNew] = mFirst.emplace(id, &row);
        if (!isNew && !isNeighbour) {
            mInspection.Add(Severity::Error, row, u"order",
                            "the rows of parameter '" + Text(id).ToUtf8() +
                                "' are not neighbours in the order: this one makes a parameter of its own, which "
                                "takes the place of the earlier one");
            first->second = &row;
        }
        mAlternatives = isNeighbour ? mAlternatives + 1 : 1;
        if (mAlternatives > kMostAlternatives) {
            mInspection.Add(Severity::Error, row, u"ParameterId",
                            "row " + std::to_string(mAlternatives) + " of parameter '" + Text(id).ToUtf8() +
                                "' is dropped: a parameter has at most 20 alternatives");
        } else if (isNeighbour && ClassOf(row) != ClassOf(*first->second)) {
            mInspection.Add(Severity::Error, row, u"Type",
                            "a parameter keeps the class of its first row, " + Quoted(first->second->TextOf(u"Type")));
        }
        mLast = &row;
        mLastId = id;
    }

private:
    Inspection& mInspection;
    std::map<std::u16string, const Row*> mFirst;
    const Row* mLast = nullptr;
    std::u16string mLastId;
    std::size_t mAlternatives = 0;
};

// Texts that a language shows for the items of one enumeration.
void CheckDoubledTexts(Inspection& inspection, const std::vector<const Row*>& items, const Text& language) {
    std::map<std::u16string, const Row*> seen;
    for (const Row* item : items) {
        const auto text = inspection.descriptor.TextOf(item->LongOf(u"valueText").value_or(0), language);
        if (!text || text->view().starts_with(u"#:") || text->view().starts_with(u"!:")) continue;
        const auto [known, isNew] = seen.emplace(Folded(*text), item);
        if (isNew) continue;
        inspection.Add(Severity::Error, *item, u"valueText",
                       Quoted(*text) + " stands in " + language.ToUtf8() + " for the value " +
                           Shown((*known->second)[u"value"]) +
                           " too: by its text only one can be chosen, and reading the list again ends here");
    }
}

}  // namespace

void CheckOrder(Inspection& inspection) {
    std::map<std::int32_t, const Row*> rows;
    std::map<std::int32_t, bool> groupTypes;
    for (const Row& row : inspection.descriptor.Rows(u"Parameters")) {
        if (const auto idx = row.LongOf(u"idx")) rows.emplace(*idx, &row);
        if (const auto type = row.LongOf(u"GroupType")) groupTypes[*type] = true;
    }
    for (const auto& [type, isThere] : groupTypes) {
        try {
            // The group's own query, for its own order.
            const ov::Ref<ov::Recordset> ordered = inspection.descriptor.database().OpenRecordset(
                u"SELECT [idx] FROM [Parameters] WHERE [GroupType] = " + Text::FromInteger(type) +
                u" ORDER BY [order],[ParameterId]");
            GroupOrder order(inspection);
            for (; !ordered->Eof(); ordered->MoveNext()) {
                const ov::Variant idx = ordered->ValueAt(0);
                const auto row = idx.IsNull() ? rows.end() : rows.find(ov::ToLong(idx));
                if (row != rows.end() && !IsLeftOut(*row->second)) order.Meet(*row->second);
            }
        } catch (const ov::RuntimeError&) {
            return;  // columns are missing, which is found elsewhere
        }
    }
}

void CheckEnumerations(Inspection& inspection) {
    for (const char16_t* table : {u"Enums", u"EnumsStr"}) {
        std::map<Text, std::vector<const Row*>> lists;
        for (const Row& row : inspection.descriptor.Rows(table)) {
            if (row[u"enumSubType"].IsNull() || row[u"value"].IsNull()) continue;
            lists[row.TextOf(u"enumSubType")].push_back(&row);
            if (table == std::u16string_view(u"Enums") && !row.LongOf(u"value")) {
                inspection.Add(Severity::Error, row, u"value", Quoted(row.TextOf(u"value")) + " is no whole number");
            }
        }
        for (const auto& [name, items] : lists) {
            for (const Text& language : inspection.descriptor.textColumns()) {
                CheckDoubledTexts(inspection, items, language);
            }
        }
    }
}

}  // namespace ovmodel
