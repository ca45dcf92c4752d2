#include "parameters/value_list.h"

#include "platform/automation/errors.h"

namespace ov {

bool ValueList::Add(const Text& key, const Variant& value, const Text& text) {
    return mStrs->TryAdd(key, text) && mNums->TryAdd(text, value);
}

void ValueList::AddUnguarded(const Text& key, const Variant& value, const Text& text) {
    if (!mNums->TryAdd(text, value) || !mStrs->TryAdd(key, text)) Raise(ErrorNumber::KeyAlreadyAssociated);
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
