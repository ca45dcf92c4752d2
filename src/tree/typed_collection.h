/// @file
/// The one implementation of the typed collections.
#pragma once

#include <memory>

#include "contract/collections.h"
#include "platform/automation/collection.h"
#include "platform/automation/object.h"
#include "record/rule_record.h"

namespace ov {

/// Walks a list of plain objects, each of which it gives as @p Element: whose view of the list is walked decides which
/// members a client that calls by name finds, not who put the object in.
template <class Element>
class ElementEnumerator final : public Object<ElementEnumerator<Element>, Facet<IEnumVariant>> {
public:
    static constexpr const char* kClassName = "ElementEnumerator";

    explicit ElementEnumerator(Ref<IEnumVariant> objects) : mObjects(std::move(objects)) {}
    bool Next(Variant& item) override {
        if (!mObjects->Next(item)) return false;
        if (const Ref<Element> element = facet<Element>(item.AsObject()))
            item = Variant(static_cast<IDispatch*>(element.get()));
        return true;
    }
    void Reset() override { mObjects->Reset(); }

private:
    Ref<IEnumVariant> mObjects;
};

/// A typed collection: a keyed collection of plain objects seen as @p Element. Two of them may show one list.
template <class Element>
class TypedList final : public Object<TypedList<Element>, Facet<TypedCollection<Element>>> {
public:
    // The name of the class is that of its interface less the underscore.
    static constexpr const char* kClassName = CollectionIdentity<Element>::kName + 1;

    TypedList() : mCollection(MakeObject<Collection>()) {}

    Ref<Element> Add(Element* obj, const Text& key) override {
        NoteChange();
        mCollection->RemoveKey(key);
        mCollection->TryAdd(key, Variant(static_cast<IDispatch*>(obj)));
        return obj;
    }
    std::int32_t Count() override { return mCollection->Count(); }
    void Remove(const Text& key) override {
        NoteChange();
        mCollection->RemoveKey(key);
    }
    Ref<Element> get_Item(const Text& key) override { return AsElement(mCollection->Find(key)); }
    void set_Item(const Text& key, Element* value) override { Add(value, key); }
    Ref<IEnumVariant> NewEnum() override { return MakeObject<ElementEnumerator<Element>>(mCollection->NewEnum()); }
    bool Inside(const Text& key) override { return mCollection->Find(key) != nullptr; }
    void Clear() override {
        NoteChange();
        mCollection->Clear();
    }
    Ref<Element> get_first() override {
        std::size_t cursor = 0;
        return AsElement(mCollection->Next(cursor));
    }

    /// Adds an element that is being loaded: only where it takes another one's place is that a change for rules.
    void Enter(Element* obj, const Text& key) {
        if (!mCollection->TryAdd(key, Variant(static_cast<IDispatch*>(obj)))) Add(obj, key);
    }
    /// Rules find elements in this list: the record of their tree is told of its changes.
    void KeepRecord(const std::shared_ptr<RuleRecord>& record) { mRecord = record; }

    /// The list behind this view.
    const Ref<Collection>& Underlying() const noexcept { return mCollection; }
    /// Makes this a view of another collection's list.
    void SetUnderlying(Ref<Collection> collection) { mCollection = std::move(collection); }

    /// Calls @p visit with each element in order, until it answers false. Stands changes of the list meanwhile.
    template <class Visit>
    void ForEach(Visit visit) {
        ForEachAs<Element>(visit);
    }
    /// The same with another facet of the elements; those that lack it are left out.
    template <class View, class Visit>
    void ForEachAs(Visit visit) {
        Collection::Walk walk(mCollection);
        while (const Variant* item = walk.Next()) {
            const Ref<View> element = facet<View>(item->AsObject());
            if (element && !visit(*element)) return;
        }
    }

private:
    static Ref<Element> AsElement(const Variant* item) { return item ? facet<Element>(item->AsObject()) : nullptr; }

    void NoteChange() noexcept {
        if (const std::shared_ptr<RuleRecord> record = mRecord.lock()) record->ForgetAll();
    }

    Ref<Collection> mCollection;
    std::weak_ptr<RuleRecord> mRecord;
};

}  // namespace ov
