/// @file
/// The words of one language: tables that give a number a text in each language, read once into memory.
#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "platform/automation/text.h"
#include "platform/store/store.h"

namespace ov {

/// Texts by number, in one language. Where the language has no column, or the column no text, the base language's
/// stand.
class TranslationTable {
public:
    /// Language whose column every database has.
    static constexpr std::int32_t kBaseLanguage = 7;

    /// Adds all rows of @p table from the first on; the number of a row is its column @p keyColumn.
    /// @throws RuntimeError 457 for a number that comes twice, 3265 if the columns of the key or of the base language
    /// are missing, 94 for a Null number; the rows before stay.
    void Read(Recordset& table, const Text& keyColumn, std::int32_t language);

    /// The text under @p index, or nullptr.
    const Text* Find(std::int32_t index) const;
    std::size_t size() const noexcept { return mCount; }

private:
    void Add(const Variant& key, const Variant& text);
    bool Enter(std::int32_t index, Text text);
    void MakeRoom(std::size_t texts);
    std::size_t PlaceOf(std::int32_t index) const noexcept;

    struct Entry {
        std::int32_t index = 0;
        bool isTaken = false;
        Text text;
    };
    std::vector<Entry> mTexts;  // a hash table by index, at most half full
    std::size_t mCount = 0;
    std::unordered_set<std::u16string> mOtherKeys;  // keys that no number asks for; they only collide
};

}  // namespace ov
