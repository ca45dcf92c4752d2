/// @file
/// A list of listeners that may change while it is being told of an event.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/automation/unknown.h"

namespace ov {

/// Listeners in the order in which they were registered; one that is registered twice is told twice.
template <class I>
class CallbackList {
public:
    void Add(Ref<I> listener) { mListeners.push_back(std::move(listener)); }

    /// `RemoveCallback`: takes off every entry that is the same object as @p listener.
    void Remove(IUnknown* listener) {
        for (Ref<I>& entry : mListeners) {
            if (entry && SameObject(entry.get(), listener)) mEnded.push_back(std::exchange(entry, nullptr));
        }
        Tidy();
    }
    /// `ClearCollection`.
    void Clear() {
        for (Ref<I>& entry : mListeners) {
            mEnded.push_back(std::exchange(entry, nullptr));
        }
        Tidy();
    }
    bool IsEmpty() const noexcept { return mListeners.empty(); }

    /// Calls @p tell with each listener in order. Listeners that are taken off meanwhile are passed over, ones that are
    /// added are told too. An exception ends the round and goes on to the caller.
    template <class Function>
    void Tell(Function tell) {
        const Walk walk(*this);
        for (std::size_t i = 0; i < mListeners.size(); ++i) {
            const Ref<I> listener = mListeners[i];
            if (listener) tell(*listener);
        }
    }

private:
    // While a walk is under way entries keep their places.
    class Walk {
    public:
        explicit Walk(CallbackList& list) noexcept : mList(list) { ++mList.mWalks; }
        ~Walk() {
            --mList.mWalks;
            mList.Tidy();
        }
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;

    private:
        CallbackList& mList;
    };

    void Tidy() {
        if (mWalks > 0) return;
        std::erase(mListeners, nullptr);
        // Ending a listener may run any code, so the list is in order before.
        const std::vector<Ref<I>> ended = std::move(mEnded);
        mEnded.clear();
    }

    std::vector<Ref<I>> mListeners;
    std::vector<Ref<I>> mEnded;
    std::size_t mWalks = 0;
};

}  // namespace ov
