#include "descriptor/translation_table.h"

#include "descriptor/row_collection.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"

namespace ov {

namespace {

std::size_t ColumnOfLanguage(Recordset& table, std::int32_t language) {
    const Text name = u"Text_" + Text::FromInteger(language);
    const std::optional<std::size_t> column = table.Columns()->Find(name);
    if (column) return *column;
    if (language == TranslationTable::kBaseLanguage) Raise(ErrorNumber::ItemNotFound);
    return ColumnOfLanguage(table, TranslationTable::kBaseLanguage);
}

}  // namespace

void TranslationTable::Read(Recordset& table, const Text& keyColumn, std::int32_t language) {
    if (table.RecordCount() == 0) return;
    const std::optional<std::size_t> key = table.Columns()->Find(keyColumn);
    if (!key) Raise(ErrorNumber::ItemNotFound);
    const std::size_t column = ColumnOfLanguage(table, language);
    std::optional<std::size_t> base;  // looked up at the first gap: a table without gaps does without it
    for (table.MoveFirst(); !table.Eof(); table.MoveNext()) {
        Variant text = table.ValueAt(column);
        if (text.IsNull()) {
            if (!base) base = ColumnOfLanguage(table, kBaseLanguage);
            text = table.ValueAt(*base);
        }
        Add(table.ValueAt(*key), text);
    }
}

void TranslationTable::Add(const Variant& key, const Variant& text) {
    Text words = text.IsNull() ? Text() : text.IsString() ? text.AsText() : ToText(text);
    bool added = false;
    if (key.Type() == VarType::Long) {
        added = mTexts.try_emplace(key.AsLong(), std::move(words)).second;
    } else {
        // Look-ups go by the decimal text of a number, so a key counts as that number only if it is spelled so.
        const Text spelled = ToText(key);
        const double number = ValPrefix(spelled);
        const bool isLong = number >= INT32_MIN && number <= INT32_MAX &&
                            Text::FromInteger(static_cast<std::int64_t>(number)) == spelled;
        added = isLong ? mTexts.try_emplace(static_cast<std::int32_t>(number), std::move(words)).second
                       : mOtherKeys.insert(std::u16string(spelled.view())).second;
    }
    if (!added) Raise(ErrorNumber::KeyAlreadyAssociated);
}

const Text* TranslationTable::Find(std::int32_t index) const {
    const auto at = mTexts.find(index);
    return at == mTexts.end() ? nullptr : &at->second;
}

void TranslationTable::Replace(std::int32_t index, Text text) {
    mTexts[index] = std::move(text);
}

}  // namespace ov
