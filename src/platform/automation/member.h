/// @file
/// Makes the entries of a member table from pointers to the interface's functions:
///
///     static constexpr std::array kMembers = {
///         member<&IBase_GuiModule::name>("name"),
///         get_member<&IBase_GuiParameter::get_value>("value"),
///         let_member<&IBase_GuiParameter::let_value>("value"),
///     };
///
/// Conversion of arguments and result is deduced from the function's type; see marshal.h.
#pragma once

#include <algorithm>
#include <tuple>
#include <utility>

#include "platform/automation/interface_info.h"
#include "platform/automation/marshal.h"

namespace ov {

namespace member_detail {

// A parameter that is read only is held as a value, however it is passed.
template <class T>
struct SlotOf {
    using Type = ArgumentSlot<T>;
};
template <class T>
struct SlotOf<const T&> {
    using Type = ArgumentSlot<T>;
};
template <>
struct SlotOf<const Variant&> {
    using Type = ArgumentSlot<const Variant&>;
};
template <class T>
using Slot = typename SlotOf<T>::Type;

template <class Function>
struct Signature;

template <class R, class C, class... A>
struct Signature<R (C::*)(A...)> {
    static constexpr std::uint8_t Required() {
        return static_cast<std::uint8_t>((std::size_t{!Slot<A>::kOptional} + ... + 0));
    }
    static constexpr std::uint8_t Total() {
        const bool rest = (std::same_as<A, std::span<const Variant>> || ... || false);
        return rest ? Member::kAnyNumber : static_cast<std::uint8_t>(sizeof...(A));
    }

    template <auto Function, std::size_t... Index>
    static Variant Call(void* self, Arguments& arguments, std::index_sequence<Index...>) {
        [[maybe_unused]] std::tuple<Slot<A>...> slots{Slot<A>(arguments, Index)...};
        C* object = static_cast<C*>(self);
        if constexpr (std::is_void_v<R>) {
            (object->*Function)(std::get<Index>(slots).Pass()...);
            (std::get<Index>(slots).WriteBack(arguments, Index), ...);
            return Variant();
        } else {
            decltype(auto) result = (object->*Function)(std::get<Index>(slots).Pass()...);
            (std::get<Index>(slots).WriteBack(arguments, Index), ...);
            return Marshal<std::remove_cvref_t<R>>::To(std::move(result));
        }
    }

    template <auto Function>
    static Variant Thunk(void* self, Arguments& arguments) {
        return Call<Function>(self, arguments, std::index_sequence_for<A...>());
    }
};

template <auto Function>
constexpr Member Make(const char* name, CallKind kind) {
    using S = Signature<decltype(Function)>;
    return {name, kind, S::Required(), S::Total(), false, &S::template Thunk<Function>};
}

}  // namespace member_detail

/// An operation with one form, called or read.
template <auto Function>
constexpr Member member(const char* name) {
    return member_detail::Make<Function>(name, CallKind::Method);
}
/// The read form of a property.
template <auto Function>
constexpr Member get_member(const char* name) {
    return member_detail::Make<Function>(name, CallKind::Get);
}
/// The write form of a property; the new value is the last argument.
template <auto Function>
constexpr Member let_member(const char* name) {
    return member_detail::Make<Function>(name, CallKind::Let);
}
/// The write form of a property that takes an object.
template <auto Function>
constexpr Member set_member(const char* name) {
    return member_detail::Make<Function>(name, CallKind::Set);
}

}  // namespace ov
