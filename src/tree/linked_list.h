/// @file
/// A doubly linked list with variant keys, in which a block keeps its groups sorted by position.
#pragma once

#include "platform/automation/variant.h"

namespace ov {

class CLinkedList;

/// A node of a CLinkedList. Owned by its list.
class CLinkedListElement {
public:
    Variant data;  ///< free for the user of the list
    Variant key;

    CLinkedListElement* before() const noexcept { return mBefore; }
    CLinkedListElement* after() const noexcept { return mAfter; }

private:
    friend class CLinkedList;
    CLinkedListElement* mBefore = nullptr;
    CLinkedListElement* mAfter = nullptr;
};

/// The list. Keys compare by variant rules; a comparison that fails raises to the caller. Pointers to elements are
/// valid until the element is deleted, by the list's end or by the caller who took it out.
class CLinkedList {
public:
    /// Which way a finder walks, and which side of an element is meant.
    enum class Direction { Forward, Backward };

    CLinkedList() = default;
    ~CLinkedList();
    CLinkedList(const CLinkedList&) = delete;
    CLinkedList& operator=(const CLinkedList&) = delete;

    /// A new element behind @p element, or behind the last one if that is nullptr.
    CLinkedListElement* InsertKeyAfter(const Variant& key, CLinkedListElement* element = nullptr);
    /// A new element before @p element, or before the first one if that is nullptr.
    CLinkedListElement* InsertKeyBefore(const Variant& key, CLinkedListElement* element = nullptr);
    /// A new element in its place among ascending keys, behind those with an equal key.
    CLinkedListElement* InsertKeyAscending(const Variant& key);
    /// The same among descending keys.
    CLinkedListElement* InsertKeyDescending(const Variant& key);
    /// Moves an element of this list, or puts in one that was taken out; nullptr does nothing.
    void InsertAfter(CLinkedListElement* newElement, CLinkedListElement* element = nullptr);
    void InsertBefore(CLinkedListElement* newElement, CLinkedListElement* element = nullptr);
    /// Takes an element out, which the caller then owns; nullptr does nothing.
    void Remove(CLinkedListElement* element) noexcept;
    /// Takes out the first element with an equal key, which the caller then owns; nullptr if there is none.
    CLinkedListElement* RemoveKey(const Variant& key);

    /// The first element from @p start on (from the end that fits the direction if that is nullptr) with an equal, a
    /// greater or a lower key; nullptr if there is none.
    CLinkedListElement* FindKey(const Variant& key, CLinkedListElement* start = nullptr,
                                Direction direction = Direction::Forward) const;
    CLinkedListElement* FindBiggerKey(const Variant& key, CLinkedListElement* start = nullptr,
                                      Direction direction = Direction::Forward) const;
    CLinkedListElement* FindLowerKey(const Variant& key, CLinkedListElement* start = nullptr,
                                     Direction direction = Direction::Forward) const;

    CLinkedListElement* first() const noexcept { return mFirst; }
    CLinkedListElement* last() const noexcept { return mLast; }

private:
    template <class Fits>
    CLinkedListElement* Find(CLinkedListElement* start, Direction direction, Fits fits) const;
    void LinkBetween(CLinkedListElement* before, CLinkedListElement* element, CLinkedListElement* after) noexcept;

    CLinkedListElement* mFirst = nullptr;
    CLinkedListElement* mLast = nullptr;
};

}  // namespace ov
