#include "parameters/list_rows.h"

#include <utility>

#include "descriptor/row_collection.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/automation/text_search.h"

namespace ov {

namespace {

constexpr std::u16string_view kGlobalFallback = u"SELECT * FROM [Enums] WHERE enumSubType IS NULL";

bool LooksUpTexts(Recordset& rows, std::int32_t column) {
    try {
        return HoldsNoCase(ToText(rows.Fields(column)->Properties(u"RowSource")), u"FROM TEXTS");
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace

Text FillMarks(const Text& statement, ModuleServices& module, const Text& value) {
    const Text filled = ReplaceAll(statement, u"$module", Text::FromInteger(module.GetModuleTypeIdx()));
    return ReplaceAll(filled, u"$value", value);
}

RowTemplate::RowTemplate(const Text& text, Recordset& rows, TextOfNumber textOf)
    : mTemplate(text), mTextOf(std::move(textOf)) {
    const std::int32_t columns = rows.FieldCount();
    for (std::int32_t column = 0; column < columns; ++column) {
        mIsTextNumber.push_back(LooksUpTexts(rows, column));
    }
}

Text RowTemplate::Apply(Recordset& rows) const {
    Text text = mTemplate;
    for (std::size_t column = 0; column < mIsTextNumber.size(); ++column) {
        Text content;
        try {
            const Variant value = rows.ValueAt(column);
            content = mIsTextNumber[column] ? mTextOf(ToLong(value)) : ToText(value);
        } catch (const RuntimeError&) {
            content = Text();
        }
        text = ReplaceAll(text, u"$" + Text::FromInteger(static_cast<std::int64_t>(column)), content);
    }
    return text;
}

std::int32_t ReadGlobalFallback(Database& db, std::int32_t fallback) {
    const Ref<Recordset> rows =
        db.OpenRecordset(kGlobalFallback, RecordsetType::dbOpenDynaset, RecordsetOptions::dbReadOnly);
    std::int32_t id = fallback;
    for (; !rows->Eof(); rows->MoveNext()) {
        id = ToLong(NullToDefault(FieldValue(*rows, u"valueText"), fallback));
    }
    rows->Close();
    return id;
}

std::int32_t GlobalFallback(ModuleServices& module) {
    constexpr const char16_t* kKey = u"NULL";
    if (const auto known = module.EnumCacheGet(kKey)) return known->NullTextId;
    try {
        const auto item = std::make_shared<CEnumCacheItem>();
        const Ref<Database> db = module.GetDB();
        if (!db) return 0;
        item->NullTextId = ReadGlobalFallback(*db, 0);
        module.EnumCacheSet(kKey, item);
        return item->NullTextId;
    } catch (const RuntimeError&) {
        return 0;
    }
}

Ref<Recordset> TryOpen(ModuleServices& module, const Text& statement) noexcept {
    try {
        const Ref<Database> db = module.GetDB();
        if (!db) return nullptr;
        return db->OpenRecordset(statement, RecordsetType::dbOpenDynaset, RecordsetOptions::dbReadOnly);
    } catch (const RuntimeError&) {
        return nullptr;
    }
}

}  // namespace ov
