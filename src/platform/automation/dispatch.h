/// @file
/// Access to an object's members by name.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/automation/unknown.h"
#include "platform/automation/variant.h"

namespace ov {

class InterfaceInfo;

/// Number of a member name within one interface.
using DispId = std::int32_t;
/// The default member, whatever its name.
inline constexpr DispId kDispIdValue = 0;
/// What GetIDsOfNames answers for a name that the object does not have.
inline constexpr DispId kDispIdUnknown = -1;
/// The enumerator of a collection.
inline constexpr DispId kDispIdNewEnum = -4;

/// How a member is used. A read from a script is both Method and Get, since the language does not tell them apart.
enum class CallKind : std::uint8_t { Method = 1, Get = 2, Let = 4, Set = 8, Call = Method | Get };

constexpr bool Overlap(CallKind a, CallKind b) noexcept {
    return (static_cast<unsigned>(a) & static_cast<unsigned>(b)) != 0;
}

/// The arguments of one call by name. A Let or Set has the new value as its last argument.
struct Arguments {
    std::span<Variant> values;
    /// Bit n is set by the callee when it wrote values[n], which the caller then writes back to its variable.
    std::uint32_t written = 0;

    void MarkWritten(std::size_t index) noexcept {
        if (index < 32) written |= std::uint32_t{1} << index;
    }
};

/// An object whose members can be called by name.
class IDispatch : public IUnknown {
public:
    static constexpr Guid kIid = Guid::Parse("{00020400-0000-0000-C000-000000000046}");
    static constexpr const char* kName = "IDispatch";

    /// 1 if GetTypeInfo answers, else 0.
    virtual std::uint32_t GetTypeInfoCount() const noexcept = 0;
    /// The members of this facet, or nullptr for an object whose members are its own affair (a script's object).
    /// A call site may keep the number of a name for all objects that answer the same InterfaceInfo.
    virtual const InterfaceInfo* GetTypeInfo() const noexcept = 0;
    /// The number of a member name, without regard to case; kDispIdUnknown if there is none.
    virtual DispId GetIDsOfNames(std::u16string_view name) = 0;
    /// Calls member @p id. The result of a member without one is Empty.
    /// @throws RuntimeError 438 for a number or kind that the member does not have, 450 for a wrong number of
    /// arguments, 449 for a missing one that is not optional, 13 for one of the wrong type, and what the member raises.
    virtual Variant Invoke(DispId id, CallKind kind, Arguments& arguments) = 0;
    /// Name of the object's class, such as "CBase_Module"; what the rule language's TypeName gives.
    virtual Text ClassName() const = 0;

protected:
    ~IDispatch() = default;
};

/// Calls a member by name with arguments that are not written back.
/// @throws RuntimeError 438 if there is no such member, 91 if @p object is nullptr.
Variant CallByName(IDispatch* object, std::u16string_view name, CallKind kind, std::span<Variant> arguments = {});

}  // namespace ov
