#include "tree/linked_list.h"

#include <memory>

#include "platform/automation/operators.h"

namespace ov {

namespace {

std::unique_ptr<CLinkedListElement> NewElement(const Variant& key) {
    auto element = std::make_unique<CLinkedListElement>();
    element->key = key;
    return element;
}

}  // namespace

CLinkedList::~CLinkedList() {
    while (CLinkedListElement* element = mFirst) {
        mFirst = element->mAfter;
        delete element;
    }
}

void CLinkedList::LinkBetween(CLinkedListElement* before, CLinkedListElement* element,
                              CLinkedListElement* after) noexcept {
    element->mBefore = before;
    element->mAfter = after;
    (before ? before->mAfter : mFirst) = element;
    (after ? after->mBefore : mLast) = element;
}

CLinkedListElement* CLinkedList::InsertKeyAfter(const Variant& key, CLinkedListElement* element) {
    CLinkedListElement* created = NewElement(key).release();
    InsertAfter(created, element);
    return created;
}

CLinkedListElement* CLinkedList::InsertKeyBefore(const Variant& key, CLinkedListElement* element) {
    CLinkedListElement* created = NewElement(key).release();
    InsertBefore(created, element);
    return created;
}

CLinkedListElement* CLinkedList::InsertKeyAscending(const Variant& key) {
    CLinkedListElement* next = FindBiggerKey(key);
    return next ? InsertKeyBefore(key, next) : InsertKeyAfter(key);
}

CLinkedListElement* CLinkedList::InsertKeyDescending(const Variant& key) {
    CLinkedListElement* next = FindLowerKey(key);
    return next ? InsertKeyBefore(key, next) : InsertKeyAfter(key);
}

void CLinkedList::InsertAfter(CLinkedListElement* newElement, CLinkedListElement* element) {
    if (!newElement || newElement == element) return;
    Remove(newElement);
    CLinkedListElement* place = element ? element : mLast;
    LinkBetween(place, newElement, place ? place->mAfter : nullptr);
}

void CLinkedList::InsertBefore(CLinkedListElement* newElement, CLinkedListElement* element) {
    if (!newElement || newElement == element) return;
    Remove(newElement);
    CLinkedListElement* place = element ? element : mFirst;
    LinkBetween(place ? place->mBefore : nullptr, newElement, place);
}

void CLinkedList::Remove(CLinkedListElement* element) noexcept {
    if (!element) return;
    if (element->mBefore) {
        element->mBefore->mAfter = element->mAfter;
    } else if (element == mFirst) {
        mFirst = element->mAfter;
    }
    if (element->mAfter) {
        element->mAfter->mBefore = element->mBefore;
    } else if (element == mLast) {
        mLast = element->mBefore;
    }
    element->mBefore = nullptr;
    element->mAfter = nullptr;
}

CLinkedListElement* CLinkedList::RemoveKey(const Variant& key) {
    CLinkedListElement* element = FindKey(key);
    Remove(element);
    return element;
}

template <class Fits>
CLinkedListElement* CLinkedList::Find(CLinkedListElement* start, Direction direction, Fits fits) const {
    const bool backward = direction == Direction::Backward;
    CLinkedListElement* element = start ? start : backward ? mLast : mFirst;
    while (element && !fits(element->key)) {
        element = backward ? element->mBefore : element->mAfter;
    }
    return element;
}

CLinkedListElement* CLinkedList::FindKey(const Variant& key, CLinkedListElement* start, Direction direction) const {
    return Find(start, direction, [&](const Variant& other) { return EqualValues(other, key); });
}

CLinkedListElement* CLinkedList::FindBiggerKey(const Variant& key, CLinkedListElement* start,
                                               Direction direction) const {
    return Find(start, direction, [&](const Variant& other) {
        const auto order = Compare(other, key);
        return order && std::is_gt(*order);
    });
}

CLinkedListElement* CLinkedList::FindLowerKey(const Variant& key, CLinkedListElement* start,
                                              Direction direction) const {
    return Find(start, direction, [&](const Variant& other) {
        const auto order = Compare(other, key);
        return order && std::is_lt(*order);
    });
}

}  // namespace ov
