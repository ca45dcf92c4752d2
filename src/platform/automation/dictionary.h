/// @file
/// The ordered dictionary: items under keys of any single-value type, in the order in which the keys came.
#pragma once

#include <optional>

#include "platform/automation/enumeration.h"
#include "platform/automation/object.h"
#include "platform/automation/ordered_table.h"

namespace ov {

/// The dictionary as scripts see it ("Scripting.Dictionary").
class IDictionary : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{9D4E3B70-6A1F-4C0D-8B52-71C4E8A5F236}");
    static constexpr const char* kName = "IDictionary";
    static const InterfaceInfo& Members();

    /// @throws RuntimeError 457 for a key that is there already.
    virtual void Add(const Variant& key, const Variant& item) = 0;
    virtual std::int32_t Count() = 0;
    virtual bool Exists(const Variant& key) = 0;
    /// The item under @p key; a missing key is added with an item of Empty. The default member.
    virtual Variant get_Item(const Variant& key) = 0;
    virtual void let_Item(const Variant& key, const Variant& item) = 0;
    virtual void set_Item(const Variant& key, const Variant& item) = 0;
    /// Array of the items, from index 0, in order; Keys likewise.
    virtual Array Items() = 0;
    virtual Array Keys() = 0;
    /// Gives an item another key, in its place. @throws RuntimeError 32811 for a missing key, 457 for one that is
    /// taken.
    virtual void let_Key(const Variant& key, const Variant& renamed) = 0;
    /// @throws RuntimeError 32811 for a missing key.
    virtual void Remove(const Variant& key) = 0;
    virtual void RemoveAll() = 0;
    /// 0: texts compare by character code; 1: without regard to case.
    virtual std::int32_t get_CompareMode() = 0;
    /// @throws RuntimeError 5 once there are items, or for a mode that is none.
    virtual void let_CompareMode(std::int32_t mode) = 0;
    /// Walks the keys.
    virtual Ref<IEnumVariant> NewEnum() = 0;
};

/// The ordered dictionary. Numbers of different types are one key if they are equal; Empty and each object are keys of
/// their own; arrays are no keys (RuntimeError 13).
class Dictionary final : public Object<Dictionary, Facet<IDictionary>> {
public:
    static constexpr const char* kClassName = "Dictionary";

    void Add(const Variant& key, const Variant& item) override;
    std::int32_t Count() override;
    bool Exists(const Variant& key) override;
    Variant get_Item(const Variant& key) override;
    void let_Item(const Variant& key, const Variant& item) override;
    void set_Item(const Variant& key, const Variant& item) override;
    Array Items() override;
    Array Keys() override;
    void let_Key(const Variant& key, const Variant& renamed) override;
    void Remove(const Variant& key) override;
    void RemoveAll() override;
    std::int32_t get_CompareMode() override;
    void let_CompareMode(std::int32_t mode) override;
    Ref<IEnumVariant> NewEnum() override;

    /// The item under @p key, or nullptr. Valid until the next change.
    const Variant* Find(const Variant& key);

private:
    struct Entry {
        Variant key;
        Variant item;
        std::uint32_t hash = 0;
        bool keyed = true;
    };
    using Table = OrderedTable<Entry>;

    std::uint32_t Hash(const Variant& key) const;
    Entry* FindEntry(const Variant& key, std::uint32_t hash);
    Entry& Existing(const Variant& key);

    Table mTable;
    bool mIgnoreCase = false;
};

}  // namespace ov
