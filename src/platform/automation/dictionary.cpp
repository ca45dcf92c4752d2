#include "platform/automation/dictionary.h"

#include <array>
#include <bit>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/automation/member.h"

namespace ov {

namespace {

constexpr std::int32_t kElementNotFound = 32811;

bool IsNumber(const Variant& value) noexcept {
    switch (value.Type()) {
        case VarType::Empty:
        case VarType::Null:
        case VarType::Missing:
        case VarType::String:
        case VarType::Object:
        case VarType::Error:
        case VarType::Array:
            return false;
        default:
            return true;
    }
}

std::uint32_t HashBits(std::uint64_t bits) noexcept {
    bits ^= bits >> 32;  // a Double that is a small whole number has nothing in its low bits
    bits *= 0x9E3779B97F4A7C15u;
    return static_cast<std::uint32_t>(bits >> 32);
}

std::uint32_t HashBinary(std::u16string_view text) noexcept {
    std::uint32_t hash = 2166136261u;
    for (char16_t c : text) {
        hash = (hash ^ c) * 16777619u;
    }
    return hash ^ (hash >> 15);
}

// Keys of two kinds never meet, whatever their content: a text "1" is not the number 1.
bool SameKey(const Variant& a, const Variant& b, bool ignoreCase) {
    if (a.IsString() && b.IsString()) {
        return ignoreCase ? EqualNoCase(a.AsText(), b.AsText()) : a.AsText() == b.AsText();
    }
    if (IsNumber(a) && IsNumber(b)) return ToDouble(a) == ToDouble(b);
    if (a.Type() != b.Type()) return false;
    if (a.IsObject()) return SameObject(a.AsObject(), b.AsObject());
    return a.Type() != VarType::Error || a.AsError() == b.AsError();
}

}  // namespace

const InterfaceInfo& IDictionary::Members() {
    static constexpr std::array kMembers = {
        member<&IDictionary::Add>("Add"),
        get_member<&IDictionary::Count>("Count"),
        member<&IDictionary::Exists>("Exists"),
        get_member<&IDictionary::get_Item>("Item").AsDefault(),
        let_member<&IDictionary::let_Item>("Item").AsDefault(),
        set_member<&IDictionary::set_Item>("Item").AsDefault(),
        member<&IDictionary::Items>("Items"),
        member<&IDictionary::Keys>("Keys"),
        let_member<&IDictionary::let_Key>("Key"),
        member<&IDictionary::Remove>("Remove"),
        member<&IDictionary::RemoveAll>("RemoveAll"),
        get_member<&IDictionary::get_CompareMode>("CompareMode"),
        let_member<&IDictionary::let_CompareMode>("CompareMode"),
        member<&IDictionary::NewEnum>("NewEnum"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

std::uint32_t Dictionary::Hash(const Variant& key) const {
    if (key.IsString()) return mIgnoreCase ? HashNoCase(key.AsText()) : HashBinary(key.AsText());
    if (IsNumber(key)) return HashBits(std::bit_cast<std::uint64_t>(ToDouble(key) + 0.0));  // +0.0: -0 is 0
    if (key.IsObject()) {
        const Ref<IUnknown> identity = facet<IUnknown>(key.AsObject());
        return HashBits(std::bit_cast<std::uintptr_t>(identity.get()));
    }
    if (key.IsArray()) Raise(ErrorNumber::TypeMismatch);
    return static_cast<std::uint32_t>(key.Type());
}

Dictionary::Entry* Dictionary::FindEntry(const Variant& key, std::uint32_t hash) {
    return mTable.Find(hash, [&](const Entry& entry) { return SameKey(entry.key, key, mIgnoreCase); });
}

const Variant* Dictionary::Find(const Variant& key) {
    const Entry* entry = FindEntry(key, Hash(key));
    return entry ? &entry->item : nullptr;
}

Dictionary::Entry& Dictionary::Existing(const Variant& key) {
    Entry* entry = FindEntry(key, Hash(key));
    if (!entry) throw RuntimeError(kElementNotFound);
    return *entry;
}

void Dictionary::Add(const Variant& key, const Variant& item) {
    const std::uint32_t hash = Hash(key);
    if (FindEntry(key, hash)) Raise(ErrorNumber::KeyAlreadyAssociated);
    mTable.Append({key, item, hash});
}

std::int32_t Dictionary::Count() {
    return static_cast<std::int32_t>(mTable.size());
}

bool Dictionary::Exists(const Variant& key) {
    return Find(key) != nullptr;
}

Variant Dictionary::get_Item(const Variant& key) {
    const std::uint32_t hash = Hash(key);
    const Entry* entry = FindEntry(key, hash);
    if (entry) return entry->item;
    mTable.Append({key, Variant(), hash});  // asking for a key makes it, as the language's authors know it
    return Variant();
}

void Dictionary::let_Item(const Variant& key, const Variant& item) {
    set_Item(key, item.IsObject() ? DefaultValue(item) : item);
}

void Dictionary::set_Item(const Variant& key, const Variant& item) {
    const std::uint32_t hash = Hash(key);
    if (Entry* entry = FindEntry(key, hash)) {
        const Variant ended = std::exchange(entry->item, item);
    } else {
        mTable.Append({key, item, hash});
    }
}

Array Dictionary::Items() {
    std::vector<Variant> items;
    std::size_t cursor = 0;
    while (const Entry* entry = mTable.Next(cursor)) {
        items.push_back(entry->item);
    }
    return Array::OfVariants(std::move(items));
}

Array Dictionary::Keys() {
    std::vector<Variant> keys;
    std::size_t cursor = 0;
    while (const Entry* entry = mTable.Next(cursor)) {
        keys.push_back(entry->key);
    }
    return Array::OfVariants(std::move(keys));
}

void Dictionary::let_Key(const Variant& key, const Variant& renamed) {
    Entry& entry = Existing(key);
    const std::uint32_t hash = Hash(renamed);
    if (FindEntry(renamed, hash)) Raise(ErrorNumber::KeyAlreadyAssociated);
    mTable.InsertBefore(&entry, {renamed, entry.item, hash});
    const Entry ended = mTable.Remove(&Existing(key));
}

void Dictionary::Remove(const Variant& key) {
    const Entry ended = mTable.Remove(&Existing(key));
}

void Dictionary::RemoveAll() {
    const auto ended = mTable.TakeAll();
}

std::int32_t Dictionary::get_CompareMode() {
    return mIgnoreCase ? 1 : 0;
}

void Dictionary::let_CompareMode(std::int32_t mode) {
    if (mTable.size() > 0 || mode < 0 || mode > 1) Raise(ErrorNumber::InvalidProcedureCall);
    mIgnoreCase = mode == 1;
}

Ref<IEnumVariant> Dictionary::NewEnum() {
    const Array keys = Keys();
    return EnumerateItems({keys.Elements().begin(), keys.Elements().end()});
}

}  // namespace ov
