/// @file
/// Makes the entries of a record's field table: `field<&tBaseBusCategory::busCategory>("busCategory")`.
#pragma once

#include "platform/automation/interface_info.h"
#include "platform/automation/marshal.h"

namespace ov {

namespace field_detail {

template <class Pointer>
struct FieldOf;
template <class R, class T>
struct FieldOf<T R::*> {
    using Record = R;
    using Type = T;
};

template <auto Pointer>
Variant Read(void* self, Arguments&) {
    using F = FieldOf<decltype(Pointer)>;
    return Marshal<typename F::Type>::To(static_cast<typename F::Record*>(self)->*Pointer);
}

}  // namespace field_detail

/// The read-only member that a field of a record is.
template <auto Pointer>
constexpr Member field(const char* name) {
    return {name, CallKind::Get, 0, 0, false, &field_detail::Read<Pointer>};
}

}  // namespace ov
