/// @file
/// What the modules on one open database share of what it says: rows and translated texts.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "descriptor/translation_table.h"
#include "platform/automation/collection.h"
#include "platform/store/store.h"

namespace ov {

/// The rows that a query gave, in their order.
struct RowSet {
    std::shared_ptr<const ColumnNames> columns;
    std::vector<Ref<const Row>> rows;
};

/// Each query is run, and each table of texts read, by the first module that asks: the next one has the same rows, and
/// all that was worked out of them. Kept for as long as the database is open and its file is as it was; whoever holds
/// rows of a former content goes on holding them.
class SharedDescriptor final : public DatabaseAnnex {
public:
    /// The one of @p db. Good until the next call.
    /// @throws RuntimeError of a file that cannot be read now
    static SharedDescriptor& Of(Database& db);

    /// Lets go of what is kept beside @p db.
    static void Forget(Database& db) noexcept { db.Annex() = nullptr; }

    /// The rows of @p query. @throws RuntimeError as OpenRecordset
    std::shared_ptr<const RowSet> Rows(const Text& query);
    /// That of the database when this was made.
    std::int64_t Revision() const noexcept { return mRevision; }
    /// The texts of @p table in @p language; Nothing until somebody has read them and put them here.
    std::shared_ptr<const TranslationTable>& Texts(const Text& table, std::int32_t language) {
        return mTexts[{table, language}];
    }

private:
    struct HashOfText {
        std::size_t operator()(const Text& text) const noexcept {
            return std::hash<std::u16string_view>()(text.view());
        }
    };

    explicit SharedDescriptor(Database& db) noexcept : mDatabase(db) {}

    Database& mDatabase;  // which owns this
    std::int64_t mRevision = 0;
    std::unordered_map<Text, std::shared_ptr<const RowSet>, HashOfText> mRows;
    std::map<std::pair<Text, std::int32_t>, std::shared_ptr<const TranslationTable>> mTexts;
};

}  // namespace ov
