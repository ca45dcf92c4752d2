#include "parameters/param_dependency.h"

#include "platform/automation/errors.h"

namespace ov {

const ParamDependency::Entry& ParamDependency::Current() {
    if (mCursor == 0) Step();
    if (mCursor == 0) Raise(ErrorNumber::SubscriptOutOfRange);
    return mEntries[mCursor - 1];
}

Ref<ICollection> ParamDependency::get_desc() {
    if (mTrace) mTrace->NoteOpenRow();
    return Current().desc;
}

void ParamDependency::MoveFirst() {
    if (mTrace) mTrace->NoteToDo();
    if (!mEntries.empty()) mCursor = 1;
}

void ParamDependency::MoveNext() {
    if (mTrace) mTrace->NoteToDo();
    Step();
}

void ParamDependency::Step() noexcept {
    if (!mEntries.empty()) mCursor = mCursor % mEntries.size() + 1;
}

void ParamDependency::Add(std::int32_t idxx, const Text& depp, bool removeOnDepp, ICollection* descc) {
    if (mEntries.size() >= kCapacity) return;  // without a word, as descriptors with more rows have always loaded
    if (mCursor > 0) Raise(ErrorNumber::SubscriptOutOfRange);
    if (mTrace) mTrace->NoteToDo();
    mEntries.push_back({descc, depp, idxx, removeOnDepp});
}

}  // namespace ov
