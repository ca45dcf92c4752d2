#include "parameters/value_list.h"

#include <utility>
#include <vector>

#include "platform/automation/errors.h"

namespace ov {

bool ValueList::Add(const Text& key, const Variant& value, const Text& text) {
    return mStrs->TryAdd(key, text) && mNums->TryAdd(text, value);
}

void ValueList::AddUnguarded(const Text& key, const Variant& value, const Text& text) {
    if (!mNums->TryAdd(text, value) || !mStrs->TryAdd(key, text)) Raise(ErrorNumber::KeyAlreadyAssociated);
}

namespace {

// The object stays where somebody else holds it.
void ShowIn(Ref<Collection>& list, const Ref<const Row>& row) {
    list->AddRef();
    const bool isOwn = list->Release() == 1;
    if (isOwn) {
        list = MakeObject<Collection>(row);
        return;
    }
    for (std::size_t at = 0; at < row->size(); ++at) {
        list->TryAdd((*row->Columns())[at], (*row)[at]);
    }
}

}  // namespace

void ValueList::Show(const Ref<const Row>& texts, const Ref<const Row>& values) {
    ShowIn(mStrs, texts);
    ShowIn(mNums, values);
}

Ref<const Row> ValueList::AsRow(Collection& list) {
    std::vector<Text> keys;
    for (std::size_t at = 0; at < list.size(); ++at) {
        keys.push_back(list.At(at).first);
    }
    const Ref<Row> row = Row::Make(std::make_shared<const ColumnNames>(std::move(keys)));
    for (std::size_t at = 0; at < list.size(); ++at) {
        row->Values()[at] = *list.At(at).second;
    }
    return row;
}

void ValueList::Clear() {
    mStrs->Clear();
    mNums->Clear();
}

Text ValueList::Spelling(std::u16string_view key) const {
    for (std::size_t at = 0; at < mStrs->size(); ++at) {
        Text spelled = mStrs->At(at).first;
        if (EqualNoCase(spelled, key)) return spelled;
    }
    return key;
}

}  // namespace ov
