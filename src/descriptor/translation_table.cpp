#include "descriptor/translation_table.h"

#include <bit>

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
    MakeRoom(static_cast<std::size_t>(table.RecordCount()));
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
        added = Enter(key.AsLong(), std::move(words));
    } else {
        // Look-ups go by the decimal text of a number, so a key counts as that number only if it is spelled so.
        const Text spelled = ToText(key);
        const double number = ValPrefix(spelled);
        const bool isLong = number >= INT32_MIN && number <= INT32_MAX &&
                            Text::FromInteger(static_cast<std::int64_t>(number)) == spelled;
        added = isLong ? Enter(static_cast<std::int32_t>(number), std::move(words))
                       : mOtherKeys.insert(std::u16string(spelled.view())).second;
    }
    if (!added) Raise(ErrorNumber::KeyAlreadyAssociated);
}

const Text* TranslationTable::Find(std::int32_t index) const {
    if (mTexts.empty()) return nullptr;
    const Entry& entry = mTexts[PlaceOf(index)];
    return entry.isTaken ? &entry.text : nullptr;
}

// Where the index is, or the free place where it belongs. @pre there is a free place
std::size_t TranslationTable::PlaceOf(std::int32_t index) const noexcept {
    const std::size_t mask = mTexts.size() - 1;
    std::size_t at = (static_cast<std::uint32_t>(index) * 0x9E3779B1u) & mask;
    while (mTexts[at].isTaken && mTexts[at].index != index) {
        at = (at + 1) & mask;
    }
    return at;
}

bool TranslationTable::Enter(std::int32_t index, Text text) {
    MakeRoom(mCount + 1);
    Entry& entry = mTexts[PlaceOf(index)];
    if (entry.isTaken) return false;
    entry = {index, true, std::move(text)};
    ++mCount;
    return true;
}

void TranslationTable::MakeRoom(std::size_t texts) {
    if (texts * 2 <= mTexts.size()) return;
    std::vector<Entry> former(std::bit_ceil(texts * 2 + 2));
    former.swap(mTexts);
    for (Entry& entry : former) {
        if (entry.isTaken) mTexts[PlaceOf(entry.index)] = std::move(entry);
    }
}

}  // namespace ov
