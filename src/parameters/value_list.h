/// @file
/// The list that a value is chosen from.
#pragma once

#include <cstddef>

#include "platform/automation/collection.h"
#include "platform/automation/text.h"

namespace ov {

/// Pairs of value and text, found from either side without regard to case. A value's key is its text: the decimal one
/// of a number.
class ValueList {
public:
    /// The texts under the values' keys: the object that hosts hold. It stays the same one, whatever happens to the
    /// rows.
    const Ref<Collection>& Texts() const noexcept { return mStrs; }

    /// Adds a row, or answers false if its key or its text is taken; with a text that is taken the row is found by its
    /// key alone.
    bool Add(const Text& key, const Variant& value, const Text& text);
    /// Adds a row. @throws RuntimeError 457 if its text or its key is taken
    void AddUnguarded(const Text& key, const Variant& value, const Text& text);
    /// Adds a row that is found by its key alone, or answers false.
    bool AddText(const Text& key, const Text& text) { return mStrs->TryAdd(key, text); }
    void Clear();
    /// Becomes a list of these rows, the texts under their keys and the values under their texts. @pre it is empty
    void Show(const Ref<const Row>& texts, const Ref<const Row>& values);
    /// The rows for Show.
    Ref<const Row> TextsAsRow() const { return AsRow(*mStrs); }
    Ref<const Row> ValuesAsRow() const { return AsRow(*mNums); }
    void ClearTexts() { mStrs->Clear(); }

    /// The text of a key, or nullptr. Valid until the next change.
    const Variant* TextOf(std::u16string_view key) const noexcept { return mStrs->Find(key); }
    /// The value of a text, or nullptr. Valid until the next change.
    const Variant* ValueOf(std::u16string_view text) const noexcept { return mNums->Find(text); }
    /// A key as the list spells it. @pre TextOf(key)
    Text Spelling(std::u16string_view key) const;
    /// The value of the row at a position. @pre position < ValueCount()
    const Variant& ValueAt(std::size_t position) const { return *mNums->At(position).second; }
    std::size_t ValueCount() const noexcept { return mNums->size(); }
    std::size_t TextCount() const noexcept { return mStrs->size(); }

private:
    static Ref<const Row> AsRow(Collection& list);

    Ref<Collection> mStrs = MakeObject<Collection>();
    Ref<Collection> mNums = MakeObject<Collection>();
};

}  // namespace ov
