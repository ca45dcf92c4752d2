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

/// True for the index of an element of an array of one dimension.
bool IsInRange(const Array& array, std::int32_t index) {
    return array.Rank() == 1 && index >= array.LowerBound(1) && index <= array.UpperBound(1);
}

}  // namespace

void Machine::GetElement(const Instruction& i) {
    const Variant& variable = Read(At(i.b));
    Slot& index = At(i.c);
    Slot& to = At(i.a);
    if (variable.IsArray()) {
        const std::int32_t position = IndexOf(Read(index));
        const Array& array = variable.AsArray();
        if (GoesOn() && !IsInRange(array, position)) return Fail(ErrorNumber::SubscriptOutOfRange);
        Variant element = array.Get({&position, 1});
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

// The variable that a slot is or stands for; nullptr for a name that is none.
Variant* Machine::PlaceOf(Slot& slot) {
    if (slot.IsValue()) return &slot.value;
    if (slot.IsAlias()) return slot.link.variable;
    Global& global = GlobalOf(slot);
    if (global.kind != Global::Kind::Variable && !IsWritten(global)) return nullptr;
    Relink(slot, global);
    return &global.value;
}

bool Machine::IsArray(Slot& slot) {
    const Variant* const variable = PlaceOf(slot);
    return variable && variable->IsArray();
}

// The array of a variable, which the default value of an index or of the value may have changed.
Array& Machine::ArrayAt(Slot& slot) {
    Variant* const variable = PlaceOf(slot);
    if (!variable || !variable->IsArray()) Raise(ErrorNumber::TypeMismatch);
    return variable->AsArray();
}

// What becomes of an object that is assigned without Set to an element or the default member of a value.
Machine::Taker Machine::TakerOf(const Variant& target) noexcept {
    const bool isInstance = target.IsObject() && !target.IsNothing() && Instance::From(target.AsObject());
    return isInstance ? Taker::Property : Taker::Value;
}

// Makes the value of an assignment what its target takes: an object with Set; without, an object stands for its default
// value, unless a property of a script's class gets it, which takes it as it is.
void Machine::PrepareValue(Variant& value, bool isSet, Taker taker) {
    if (isSet && !value.IsObject()) Raise(ErrorNumber::ObjectRequired);
    if (!isSet && taker == Taker::Value && value.IsObject()) value = DefaultValue(value);
}

void Machine::RefElement(const Instruction& i) {
    Slot* const window = mTop->slots + i.c;
    const std::size_t count = i.n;
    Slot& to = mTop->slots[i.a];
    Slot& from = At(i.b);
    if (IsArray(from) && PlaceOf(from)->AsArray().ElementType() != VarType::Byte) {
        const Indexes indexes(window, count);
        Variant& element = ArrayAt(from).Element(indexes);
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
    Slot& index = At(i.b);
    Slot& place = At(i.a);
    if (IsArray(place)) {
        PrepareValue(value, isSet, Taker::Value);
        const std::int32_t position = IndexOf(Read(index));
        if (i.flags & kFreeIndex) index.Clear();
        Array& array = ArrayAt(place);
        if (GoesOn() && !IsInRange(array, position)) return Fail(ErrorNumber::SubscriptOutOfRange);
        if (array.ElementType() == VarType::Byte) return array.Set({&position, 1}, value);
        return Store(array.Element({&position, 1}), std::move(value));
    }
    const Variant object = Read(place);
    PrepareValue(value, isSet, TakerOf(object));
    std::array<Variant, 2> values{Read(index), std::move(value)};
    if (i.flags & kFreeIndex) index.Clear();
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
    Variant& value = window[count].value;
    if (IsArray(place)) {
        PrepareValue(value, isSet, Taker::Value);
        const Indexes indexes(window, count);
        Array& array = ArrayAt(place);
        if (array.ElementType() == VarType::Byte) {
            array.Set(indexes, value);
        } else {
            Store(array.Element(indexes), std::move(value));
        }
        return ClearSlots(window, count + 1);
    }
    const Variant object = Read(place);
    PrepareValue(value, isSet, TakerOf(object));
    if (!object.IsObject()) Raise(ErrorNumber::TypeMismatch);
    if (object.IsNothing()) Raise(ErrorNumber::ObjectVariableNotSet);
    InvokeObject(object.AsObject(), kDispIdValue, isSet ? CallKind::Set : CallKind::Let, window, count + 1);
}

// After a call: an element that was an argument by reference gets what the call wrote.
void Machine::PutBack(const Instruction& i) {
    const PutBackNumbers numbers = PutBackNumbers::Unpack(i.n);
    Slot* const indexes = mTop->slots + i.c;
    Slot& value = mTop->slots[i.a];
    if ((mWritten >> numbers.argument) & 1) {
        Slot& place = At(i.b);
        Variant* const variable = PlaceOf(place);
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
    if (place.IsName()) {
        Global& global = GlobalOf(place);
        if (global.kind == Global::Kind::Undefined && !IsWritten(global)) {
            mTop->space->MakeVariable(global);  // a declaration, under Option Explicit too
            NoteNewVariable(global);
        }
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
