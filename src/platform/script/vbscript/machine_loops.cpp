#include "platform/automation/conversions.h"
#include "platform/automation/enumeration.h"
#include "platform/automation/operators.h"
#include "platform/script/vbscript/fast_operators.h"
#include "platform/script/vbscript/machine.h"

namespace ov::vbscript {

namespace {

/// A bound of a For loop as a number.
Variant NumberOf(const Variant& value) {
    if (value.IsObject()) return NumberOf(DefaultValue(value));
    if (value.IsNull()) Raise(ErrorNumber::InvalidUseOfNull);
    return Identity(value);
}

bool IsReached(const Variant& variable, const Variant& limit, const Variant& step) {
    const bool isDown = Compare(step, Variant(std::int16_t{0})) == std::weak_ordering::less;
    const std::optional<std::weak_ordering> order = Compare(variable, limit);
    if (!order) Raise(ErrorNumber::InvalidUseOfNull);
    return isDown ? *order >= 0 : *order <= 0;
}

}  // namespace

// The loop counts in the widest type of start, limit and step, as their sum would have it. False if it does not run.
bool Machine::ForStart(const Instruction& i) {
    Slot* const control = &At(i.b);
    Slot* const values = control + 2;
    Variant start = NumberOf(Read(values[0]));
    Variant limit = NumberOf(Read(values[1]));
    Variant step = NumberOf(Read(values[2]));
    ClearSlots(values, 3);
    const auto isWhole = [](const Variant& value) {
        return value.Type() == VarType::Integer || value.Type() == VarType::Long || value.Type() == VarType::Byte;
    };
    if (isWhole(start) && isWhole(limit) && isWhole(step)) {
        const auto isLong = [](const Variant& value) { return value.Type() == VarType::Long; };
        const VarType type = isLong(start) || isLong(limit) || isLong(step) ? VarType::Long : VarType::Integer;
        start = ConvertTo(type, start);
        limit = ConvertTo(type, limit);
        step = ConvertTo(type, step);
    } else if (start.Type() != VarType::Date && (limit.Type() == VarType::Double || step.Type() == VarType::Double)) {
        start = ToDouble(start);
    }
    const bool runs = IsReached(start, limit, step);
    control[0].Take(std::move(limit));
    control[1].Take(std::move(step));
    Write(At(i.a), std::move(start));
    return runs;
}

// True if the body runs again.
bool Machine::ForNext(const Instruction& i) {
    Slot* const control = &At(i.b);
    if (control[1].value.IsEmpty()) Raise(ErrorNumber::ForLoopNotInitialized);
    Slot& variable = At(i.a);
    const Variant& limit = control[0].value;
    // Short cut: the end of a loop over whole numbers.
    if (fast::IsWhole(variable.Type()) && variable.Type() == limit.Type()) {
        Variant next = Add(variable.value, control[1].value);
        if (fast::IsWhole(next.Type())) {
            const std::int32_t step = fast::Whole(control[1].value);
            variable.value = next;
            return step >= 0 ? fast::Whole(next) <= fast::Whole(limit) : fast::Whole(next) >= fast::Whole(limit);
        }
    }
    Write(variable, Add(Read(variable), control[1].value));
    return IsReached(Read(variable), control[0].value, control[1].value);
}

// The control slots hold an array and the position in it, or an enumerator.
void Machine::ForEachStart(const Instruction& i) {
    Slot* const control = mTop->slots + i.a;
    Slot& from = At(i.b);
    const Variant& collection = Read(from);
    if (collection.IsArray()) {
        control[0].Take(Variant(collection));
        control[1].Take(Variant(std::int32_t{0}));
    } else if (collection.IsObject()) {
        if (collection.IsNothing()) Raise(ErrorNumber::ObjectVariableNotSet);
        control[0].Take(Variant(Enumerate(collection.AsObject())));
    } else {
        Raise(ErrorNumber::NotACollection);
    }
    if (i.flags & kFreeB) from.Clear();
}

// False at the end, where the variable becomes Empty. A loop whose start failed just ends.
bool Machine::ForEachNext(const Instruction& i) {
    Tick();
    Slot* const control = &At(i.b);
    Variant item;
    bool hasItem = false;
    if (control[0].value.IsArray()) {
        const Array& array = control[0].value.AsArray();
        const auto position = static_cast<std::size_t>(control[1].value.AsLong());
        hasItem = position < array.size();
        if (hasItem) item = array.At(position);
        control[1].Put(static_cast<std::int32_t>(position + 1));
    } else if (control[0].value.IsObject()) {
        hasItem = static_cast<IEnumVariant*>(control[0].value.AsObject())->Next(item);
    } else {
        return false;
    }
    Write(At(i.a), hasItem ? std::move(item) : Variant());
    return hasItem;
}

}  // namespace ov::vbscript
