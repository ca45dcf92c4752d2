#include "parameters/param_dependency.h"

#include "platform/automation/errors.h"

namespace ov {

const ParamDependency::Entry& ParamDependency::Current() {
    if (mCursor == 0) MoveFirst();
    if (mCursor == 0) Raise(ErrorNumber::SubscriptOutOfRange);
    return mEntries[mCursor - 1];
}

void ParamDependency::MoveFirst() {
    if (!mEntries.empty()) mCursor = 1;
}

void ParamDependency::MoveNext() {
    if (mCursor == 0 || mCursor == mEntries.size()) {
        MoveFirst();
    } else {
        ++mCursor;
    }
}

void ParamDependency::Add(std::int32_t idxx, const Text& depp, bool removeOnDepp, ICollection* descc) {
    if (mEntries.size() >= kCapacity) return;  // without a word, as descriptors with more rows have always loaded
    if (mCursor > 0) Raise(ErrorNumber::SubscriptOutOfRange);
    mEntries.push_back({descc, depp, idxx, removeOnDepp});
}

}  // namespace ov
