#include "platform/automation/interface_info.h"

#include <bit>
#include <cstring>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"

namespace ov {

namespace {

// FoldCase, with the characters that names have decided in place.
char16_t Fold(char16_t c) noexcept {
    if (c >= 0x80) return FoldCase(c);
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 0x20) : c;
}

// Looks at the length and three characters: a name is looked up at each late-bound call, and the few names of one
// interface that agree in them are told apart by comparing.
template <class Name>
std::uint32_t HashName(const Name& name) noexcept {
    if (name.empty()) return 0;
    const auto folded = [&name](std::size_t at) { return std::uint32_t{Fold(static_cast<char16_t>(name[at]))}; };
    const std::uint32_t sample = folded(0) ^ (folded(name.size() / 2) << 8) ^ (folded(name.size() - 1) << 16);
    return ((sample ^ (static_cast<std::uint32_t>(name.size()) << 3)) * 2654435769u) >> 16;
}

bool SameName(std::u16string_view text, std::string_view name) noexcept {
    if (text.size() != name.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<char16_t>(name[i]);
        if (text[i] != c && Fold(text[i]) != Fold(c)) return false;
    }
    return true;
}

}  // namespace

InterfaceInfo::InterfaceInfo(const Guid& iid, const char* name, std::span<const Member> members)
    : mIid(iid), mName(name), mMembers(members) {
    mSlots.resize(std::bit_ceil(members.size() * 2 + 1));
    for (const Member& member : members) {
        DispId id = 0;
        while (static_cast<std::size_t>(id) < mNames.size() && mNames[static_cast<std::size_t>(id)] != member.name) {
            ++id;
        }
        if (static_cast<std::size_t>(id) == mNames.size()) {
            mNames.emplace_back(member.name);
            mOperations.emplace_back();
            Enter(HashName(mNames.back()), id + 1);
        }
        Operations& operations = mOperations[static_cast<std::size_t>(id)];
        (member.kind == CallKind::Let   ? operations.let
         : member.kind == CallKind::Set ? operations.set
                                        : operations.call) = &member;
        if (member.isDefault) mDefault = operations;
        if (std::strcmp(member.name, "NewEnum") == 0) mNewEnum = operations;
    }
}

void InterfaceInfo::Enter(std::uint32_t hash, DispId id) {
    std::size_t slot = hash & (mSlots.size() - 1);
    while (mSlots[slot] != 0) {
        slot = (slot + 1) & (mSlots.size() - 1);
    }
    mSlots[slot] = static_cast<std::uint16_t>(id);
}

DispId InterfaceInfo::Find(std::u16string_view name) const noexcept {
    for (std::size_t slot = HashName(name) & (mSlots.size() - 1); mSlots[slot] != 0;
         slot = (slot + 1) & (mSlots.size() - 1)) {
        if (SameName(name, mNames[mSlots[slot] - 1u])) return mSlots[slot];
    }
    return kDispIdUnknown;
}

bool InterfaceInfo::IsFacet(IDispatch& object) const noexcept {
    void* const facet = object.QueryInterface(mIid);
    if (facet) object.Release();
    return facet == &object;
}

const InterfaceInfo::Operations* InterfaceInfo::OperationsOf(DispId id) const noexcept {
    if (id > 0 && static_cast<std::size_t>(id) <= mOperations.size()) {
        return &mOperations[static_cast<std::size_t>(id) - 1];
    }
    if (id == kDispIdValue) return &mDefault;
    return id == kDispIdNewEnum ? &mNewEnum : nullptr;
}

Variant InterfaceInfo::Invoke(void* self, DispId id, CallKind kind, Arguments& arguments) const {
    const Operations* operations = OperationsOf(id);
    if (!operations) Raise(ErrorNumber::NoSuchMember);
    const Member* member = nullptr;
    if (Overlap(kind, CallKind::Call)) {
        member = operations->call;
    } else if (kind == CallKind::Set) {
        // A property without a Set of its own takes an object through its Let.
        member = operations->set ? operations->set : operations->let;
    } else {
        member = operations->let;
    }
    if (!member) Raise(ErrorNumber::NoSuchMember);
    const std::size_t count = arguments.values.size();
    if (count > member->total && member->total != Member::kAnyNumber) {
        if (member->total != 0 || kind == CallKind::Let || kind == CallKind::Set) {
            Raise(ErrorNumber::WrongArgumentCount);
        }
        Arguments none;
        const Variant result = member->call(self, none);
        if (result.IsArray()) return IndexArray(result, arguments.values);
        if (!result.IsObject()) Raise(ErrorNumber::WrongArgumentCount);
        if (result.IsNothing()) Raise(ErrorNumber::ObjectVariableNotSet);
        return result.AsObject()->Invoke(kDispIdValue, kind, arguments);
    }
    if (count < member->required) Raise(ErrorNumber::WrongArgumentCount);
    return member->call(self, arguments);
}

Variant IndexArray(const Variant& array, std::span<const Variant> indexes) {
    std::vector<std::int32_t> positions;
    positions.reserve(indexes.size());
    for (const Variant& index : indexes) {
        positions.push_back(ToLong(index));
    }
    return array.AsArray().Get(positions);
}

Variant CallByName(IDispatch* object, std::u16string_view name, CallKind kind, std::span<Variant> arguments) {
    if (!object) Raise(ErrorNumber::ObjectVariableNotSet);
    const DispId id = object->GetIDsOfNames(name);
    if (id == kDispIdUnknown) RaiseAbout(ErrorNumber::NoSuchMember, name);
    Arguments call{arguments};
    return object->Invoke(id, kind, call);
}

}  // namespace ov
