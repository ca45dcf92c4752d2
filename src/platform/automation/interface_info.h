/// @file
/// What an interface knows of its members: one table in slot order, from which every call by name is answered.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "platform/automation/dispatch.h"

namespace ov {

/// One operation of an interface. Made by member.h from a pointer to the virtual function.
struct Member {
    /// Converts the arguments, calls the function on @p self (a pointer of exactly the interface's type), converts the
    /// result and writes by-reference arguments back.
    using Thunk = Variant (*)(void* self, Arguments& arguments);

    const char* name;       ///< ASCII
    CallKind kind;          ///< Method, Get, Let or Set
    std::uint8_t required;  ///< leading arguments that may not be left out, the new value of a Let or Set included
    std::uint8_t total;     ///< all arguments; kAnyNumber if the last one collects the rest
    bool isDefault;
    Thunk call;

    static constexpr std::uint8_t kAnyNumber = 255;

    /// True if so many arguments go to the operation as they are.
    constexpr bool Takes(std::size_t count) const noexcept {
        return count >= required && (count <= total || total == kAnyNumber);
    }
    /// The same operation as the interface's default member.
    constexpr Member AsDefault() const {
        Member copy = *this;
        copy.isDefault = true;
        return copy;
    }
};

/// The members of one interface, with their numbers. Get, Let and Set of one name have one number.
class InterfaceInfo {
public:
    /// @param members in slot order; must outlive this object
    InterfaceInfo(const Guid& iid, const char* name, std::span<const Member> members);

    const Guid& Iid() const noexcept { return mIid; }
    /// Such as "_IBase_GuiModule".
    const char* Name() const noexcept { return mName; }
    std::span<const Member> Members() const noexcept { return mMembers; }

    /// The number of @p name, without regard to case, or kDispIdUnknown.
    DispId Find(std::u16string_view name) const noexcept;
    /// The default member as it is called; nullptr if there is none.
    const Member* DefaultMember() const noexcept { return mDefault.call; }
    /// True if @p object is itself the facet of this interface: its members can be called with it as their `self`
    /// then, as its Invoke would do.
    bool IsFacet(IDispatch& object) const noexcept;
    /// @see IDispatch::Invoke. Arguments behind a member that takes none go to the default member of its result, or
    /// index the array that it gives.
    Variant Invoke(void* self, DispId id, CallKind kind, Arguments& arguments) const;

private:
    struct Operations {
        const Member* call = nullptr;
        const Member* let = nullptr;
        const Member* set = nullptr;
    };

    void Enter(std::uint32_t hash, DispId id);
    const Operations* OperationsOf(DispId id) const noexcept;

    Guid mIid;
    const char* mName;
    std::span<const Member> mMembers;
    std::vector<Operations> mOperations;   // by number, less 1
    std::vector<std::uint16_t> mSlots;     // hash table of numbers; 0 is free
    std::vector<std::string_view> mNames;  // by number, less 1
    Operations mDefault;
    Operations mNewEnum;
};

/// The element of an array value that @p indexes name; chained like a default member.
Variant IndexArray(const Variant& array, std::span<const Variant> indexes);

}  // namespace ov
