#include "ovmodel/descriptor/descriptor_tables.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <sstream>

#include "ovmodel/command.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"

namespace ovmodel {

using ov::Text;
using ov::Variant;

namespace {

// What tells rows apart where a table has no primary key.
struct Identity {
    std::u16string_view table;
    std::array<std::u16string_view, 2> columns;
};
constexpr std::array kIdentities = {
    Identity{u"ModuleTypes", {u"IDX"}},
    Identity{u"BusCategories", {u"module", u"busCategory"}},
    Identity{u"Channels", {u"ModuleType", u"ChannelId"}},
    Identity{u"Groups", {u"ChannelType", u"groupId"}},
    Identity{u"GroupScripts", {u"GroupType", u"ScriptId"}},
    Identity{u"Parameters", {u"idx"}},
    Identity{u"Texts", {u"TEXT_IDX"}},
    Identity{u"Files", {u"FILE_IDX"}},
    Identity{u"Enums", {u"enumSubType", u"value"}},
    Identity{u"EnumsStr", {u"enumSubType", u"value"}},
    Identity{u"Actions", {u"ActionID", u"value"}},
};

}  // namespace

const Variant& Row::operator[](std::u16string_view column) const {
    static const Variant null = Variant::Null();
    const std::optional<std::size_t> at = table->Find(column);
    return at ? values[*at] : null;
}

Text Row::TextOf(std::u16string_view column) const {
    const Variant& value = (*this)[column];
    return value.IsNull() || value.IsArray() ? Text() : ov::ToText(value);
}

std::optional<std::int32_t> Row::LongOf(std::u16string_view column) const {
    const Variant& value = (*this)[column];
    if (value.IsNull() || value.IsArray()) return std::nullopt;
    try {
        return ov::ToLong(value);
    } catch (const ov::RuntimeError&) {
        return std::nullopt;
    }
}

Table::Table(ov::Database& database, const ov::TableFacts& facts) : mName(facts.name.ToUtf8()) {
    std::vector<std::pair<std::size_t, std::size_t>> key;  // place, column
    for (std::size_t i = 0; i < facts.columns.size(); ++i) {
        mColumns.push_back(facts.columns[i].name);
        mTypes.push_back(facts.columns[i].type);
        if (facts.columns[i].keyPlace > 0) key.emplace_back(facts.columns[i].keyPlace, i);
    }
    std::ranges::sort(key);
    for (const auto& [place, column] : key) {
        mIdentity.push_back(column);
    }
    mHasKey = !key.empty();
    const auto known = std::ranges::find_if(
        kIdentities, [&](const Identity& identity) { return ov::EqualNoCase(identity.table, facts.name); });
    if (!mHasKey && known != kIdentities.end()) {
        for (const std::u16string_view column : known->columns) {
            if (const auto at = Find(column)) mIdentity.push_back(*at);
        }
    }
    const ov::Ref<ov::Recordset> rows = database.OpenRecordset(facts.name, ov::RecordsetType::dbOpenTable);
    for (; !rows->Eof(); rows->MoveNext()) {
        mRows.push_back({this, mRows.size() + 1, std::vector<Variant>(mColumns.size())});
        rows->ReadRow(mRows.back().values.data());
    }
    rows->Close();
}

std::optional<std::size_t> Table::Find(std::u16string_view column) const {
    for (std::size_t i = 0; i < mColumns.size(); ++i) {
        if (ov::EqualNoCase(mColumns[i], column)) return i;
    }
    return std::nullopt;
}

std::string Table::KeyOf(const Row& row) const {
    if (mIdentity.empty()) return "row " + std::to_string(row.number);
    std::string key;
    for (const std::size_t column : mIdentity) {
        key += (key.empty() ? "" : ", ") + Shown(row.values[column]);
    }
    return key;
}

Descriptor::Descriptor(const std::string& path) : mPath(std::filesystem::absolute(path).string()) {
    const Text name = Text::FromUtf8(mPath);
    const Text reason = ov::ReasonOfFailedOpen(name);
    if (!reason.empty()) throw Failure(reason.ToUtf8());
    mDatabase = ov::OpenedDatabase(name);
    try {
        for (const ov::TableFacts& facts : ov::FactsOf(name, std::nullopt).tables) {
            mTables.push_back(std::make_unique<Table>(*mDatabase, facts));
        }
    } catch (const ov::RuntimeError& error) {
        throw Failure("'" + path + "': " + error.what());
    }
    for (const Row& row : Rows(u"DatabaseProperties")) {
        // The key is named by its index alone: the first column will be it.
        const Variant& property = row.values.front();
        if (property.IsString() && ov::EqualNoCase(property.AsText(), u"ModelVersionIndex")) {
            mGeneration = row.LongOf(u"Value").value_or(0);
        }
    }
    if (const Table* texts = Find(u"Texts")) {
        for (const Text& column : texts->columns()) {
            if (ov::EqualNoCase(column.view().substr(0, 5), u"Text_") && !ov::EqualNoCase(column, u"TEXT_IDX")) {
                mTextColumns.push_back(column);
            }
        }
        for (const Row& row : texts->rows()) {
            if (const auto number = row.LongOf(u"TEXT_IDX")) mTexts.emplace(*number, &row);
        }
    }
}

const Table* Descriptor::Find(std::u16string_view name) const {
    const auto at = std::ranges::find_if(
        mTables, [&](const auto& table) { return ov::EqualNoCase(Text::FromUtf8(table->name()), name); });
    return at == mTables.end() ? nullptr : at->get();
}

const std::vector<Row>& Descriptor::Rows(std::u16string_view table) const {
    static const std::vector<Row> none;
    const Table* found = Find(table);
    return found ? found->rows() : none;
}

std::optional<Text> Descriptor::TextOf(std::int32_t number, std::u16string_view column) const {
    const auto at = mTexts.find(number);
    if (at == mTexts.end()) return std::nullopt;
    const Row& row = *at->second;
    return row.TextOf(row[column].IsNull() ? u"Text_7" : column);
}

std::u16string Folded(std::u16string_view text) {
    std::u16string folded(text);
    std::ranges::transform(folded, folded.begin(), ov::FoldCase);
    return folded;
}

bool IsTextSource(const Row& property) {
    return ov::EqualNoCase(property.TextOf(u"PropertyName"), u"RowSource") &&
           Folded(property.TextOf(u"PropertyValue")).find(Folded(u"FROM TEXTS")) != std::u16string::npos;
}

std::string Shown(const Variant& value) {
    if (value.IsNull()) return "Null";
    if (value.IsArray()) {
        static constexpr char kDigits[] = "0123456789ABCDEF";
        std::string shown = "X'";
        for (const std::uint8_t byte : value.AsArray().Bytes()) {
            shown += {kDigits[byte >> 4], kDigits[byte & 15]};
        }
        return shown + "'";
    }
    return ov::ToText(value).ToUtf8();
}

}  // namespace ovmodel
