#include <algorithm>
#include <array>
#include <limits>

#include "platform/automation/conversions.h"
#include "platform/script/vbscript/machine.h"

namespace ov::vbscript {

namespace {

constexpr std::size_t kMaxDimensions = 60;

/// The indexes of an element as numbers.
class Indexes {
public:
    Indexes(const Slot* slots, std::size_t count) : mCount(count) {
        if (count > kMaxDimensions) Raise(ErrorNumber::SubscriptOutOfRange);
        for (std::size_t i = 0; i < count; ++i) {
            mValues[i] = ToLong(slots[i].value);
        }
    }
    operator std::span<const std::int32_t>() const noexcept { return {mValues.data(), mCount}; }

private:
    std::array<std::int32_t, kMaxDimensions> mValues;
    std::size_t mCount;
};

std::int32_t IndexOf(const Variant& value) {
    if (value.Type() == VarType::Integer) return value.AsInteger();
    return value.Type() == VarType::Long ? value.AsLong() : ToLong(value);
}

}  // namespace

void Machine::GetElement(const Instruction& i) {
    const Variant& variable = Read(At(i.b));
    Slot& index = At(i.c);
    Slot& to = At(i.a);
    if (variable.IsArray()) {
        const std::int32_t position = IndexOf(Read(index));
        Variant element = variable.AsArray().Get({&position, 1});
        if (i.flags & kFreeC) index.Clear();
        return to.Take(std::move(element));
    }
    Variant argument = Read(index);
    if (i.flags & kFreeC) index.Clear();
    const Variant callee = variable;
    if (!callee.IsObject()) Raise(ErrorNumber::TypeMismatch);
    if (callee.IsNothing()) Raise(ErrorNumber::ObjectVariableNotSet);
    Arguments arguments{{&argument, 1}};
    to.Take(callee.AsObject()->Invoke(kDispIdValue, CallKind::Call, arguments));
}

// Lets a slot that stands for a global name stand for its variable, if it is one by now.
void Machine::Settle(Slot& slot) {
    if (!slot.IsName()) return;
    Global& global = *slot.link.global;
    if (global.kind == Global::Kind::Variable || IsWritten(global)) slot.PutAlias(global.value);
}

void Machine::RefElement(const Instruction& i) {
    Slot* const window = mTop->slots + i.c;
    const std::size_t count = i.n;
    Slot& to = mTop->slots[i.a];
    Slot& from = At(i.b);
    Settle(from);
    const bool inPlace = from.IsValue() || from.IsAlias();
    Variant& variable = from.IsAlias() ? *from.link.variable : from.value;
    if (inPlace && variable.IsArray() && variable.AsArray().ElementType() != VarType::Byte) {
        Variant& element = variable.AsArray().Element(Indexes(window, count));
        ClearSlots(window, count);
        to.Clear();
        return to.PutAlias(element);
    }
    const Variant callee = Read(from);
    if (callee.IsArray()) {
        Variant element = callee.AsArray().Get(Indexes(window, count));
        ClearSlots(window, count);
        return to.Take(std::move(element));
    }
    if (!callee.IsObject()) Raise(ErrorNumber::TypeMismatch);
    if (callee.IsNothing()) Raise(ErrorNumber::ObjectVariableNotSet);
    Variant value = InvokeObject(callee.AsObject(), kDispIdValue, CallKind::Call, window, count);
    to.Take(std::move(value));
}

void Machine::PutElement(const Instruction& i) {
    Slot& from = At(i.c);
    const bool isSet = (i.flags & kIsSet) != 0;
    // The value comes first: it may be the array itself, which is another one as soon as it is written to.
    Variant value = (i.flags & kFreeValue) && from.IsValue() ? std::move(from.value) : Variant(Read(from));
    if (isSet && !value.IsObject()) Raise(ErrorNumber::ObjectRequired);
    if (!isSet && value.IsObject()) value = DefaultValue(value);
    Slot& index = At(i.b);
    Slot& place = At(i.a);
    Settle(place);
    Variant& variable = place.IsAlias() ? *place.link.variable : place.value;
    if (!place.IsName() && variable.IsArray()) {
        const std::int32_t position = IndexOf(Read(index));
        if (i.flags & kFreeIndex) index.Clear();
        if (variable.AsArray().ElementType() == VarType::Byte) {
            return variable.AsArray().Set({&position, 1}, value);
        }
        return Store(variable.AsArray().Element({&position, 1}), std::move(value));
    }
    std::array<Variant, 2> values{Read(index), std::move(value)};
    if (i.flags & kFreeIndex) index.Clear();
    const Variant object = Read(place);
    if (!object.IsObject()) Raise(ErrorNumber::TypeMismatch);
    if (object.IsNothing()) Raise(ErrorNumber::ObjectVariableNotSet);
    Arguments arguments{values};
    object.AsObject()->Invoke(kDispIdValue, isSet ? CallKind::Set : CallKind::Let, arguments);
}

void Machine::PutIndexed(const Instruction& i) {
    PutInto(At(i.a), mTop->slots + i.b, i.c, (i.flags & kIsSet) != 0);
}

// Writes an element of what is at `place`, or its default member. The window holds the indexes and the value.
void Machine::PutInto(Slot& place, Slot* window, std::size_t count, bool isSet) {
    Slot& value = window[count];
    if (isSet && !value.value.IsObject()) Raise(ErrorNumber::ObjectRequired);
    if (!isSet && value.value.IsObject()) value.Take(DefaultValue(value.value));
    Settle(place);
    if (!place.IsName()) {
        Variant& variable = place.IsAlias() ? *place.link.variable : place.value;
        if (variable.IsArray()) return PutArrayElement(variable.AsArray(), window, count);
    }
    const Variant object = Read(place);
    if (!object.IsObject()) Raise(ErrorNumber::TypeMismatch);
    if (object.IsNothing()) Raise(ErrorNumber::ObjectVariableNotSet);
    InvokeObject(object.AsObject(), kDispIdValue, isSet ? CallKind::Set : CallKind::Let, window, count + 1);
}

void Machine::PutArrayElement(Array& array, Slot* window, std::size_t count) {
    const Indexes indexes(window, count);
    if (array.ElementType() == VarType::Byte) {
        array.Set(indexes, window[count].value);
    } else {
        Store(array.Element(indexes), std::move(window[count].value));
    }
    ClearSlots(window, count + 1);
}

// After a call: an element that was an argument by reference gets what the call wrote.
void Machine::PutBack(const Instruction& i) {
    const PutBackNumbers numbers = PutBackNumbers::Unpack(i.n);
    Slot* const indexes = mTop->slots + i.c;
    Slot& value = mTop->slots[i.a];
    if ((mWritten >> numbers.argument) & 1) {
        Slot& place = At(i.b);
        Settle(place);
        Variant* const variable = place.IsName() ? nullptr : place.IsAlias() ? place.link.variable : &place.value;
        if (variable && variable->IsArray()) {
            Array& array = variable->AsArray();
            const Indexes at(indexes, numbers.indexes);
            if (array.ElementType() == VarType::Byte) {
                array.Set(at, value.value);
            } else {
                Store(array.Element(at), Variant(value.value));
            }
        }
    }
    value.Clear();
    ClearSlots(indexes, numbers.indexes);
}

void Machine::ReDim(const Instruction& i) {
    Slot* const window = mTop->slots + i.b;
    std::array<ArrayBound, kMaxDimensions> bounds;
    if (i.c > bounds.size()) Raise(ErrorNumber::SubscriptOutOfRange);
    for (std::size_t k = 0; k < i.c; ++k) {
        const std::int32_t upper = ToLong(window[k].value);
        if (upper == std::numeric_limits<std::int32_t>::max()) Raise(ErrorNumber::OutOfMemory);
        bounds[k] = {0, upper + 1};
    }
    ClearSlots(window, i.c);
    const std::span<const ArrayBound> all(bounds.data(), i.c);
    std::size_t elements = 1;
    for (const ArrayBound& bound : all) {
        elements *= static_cast<std::size_t>(std::max(bound.count, 1));
    }
    Charge(elements * sizeof(Variant));
    Slot& place = At(i.a);
    if (place.IsName() && place.link.global->kind == Global::Kind::Undefined && !IsWritten(*place.link.global)) {
        mTop->space->MakeVariable(*place.link.global);  // a declaration, under Option Explicit too
        NoteNewVariable(*place.link.global);
    }
    Variant& variable = VariableOf(place);
    Array array;
    if (i.flags & kFixed) {
        if (i.c > 0) array = Array(VarType::Empty, all);
        array.MarkFixed();
    } else if (!variable.IsArray() || !variable.AsArray().IsAllocated()) {
        array = Array(VarType::Empty, all);
    } else {
        // The variable's own elements move if nobody else has them.
        array = (i.flags & kPreserve) ? variable.AsArray() : Array();
        if (variable.AsArray().IsFixed()) Raise(ErrorNumber::ArrayFixedOrLocked);
        if (i.flags & kPreserve) {
            array.Redimension(all, true);
        } else {
            array = Array(variable.AsArray().ElementType(), all);
        }
    }
    Store(variable, Variant(std::move(array)));
}

void Machine::Erase(const Instruction& i) {
    Variant& variable = VariableOf(At(i.a));
    if (!variable.IsArray()) Raise(ErrorNumber::TypeMismatch);
    Array array = variable.AsArray();
    array.Erase();
    Store(variable, Variant(std::move(array)));
}

}  // namespace ov::vbscript
