#include "module/c_values.h"

#include <cstring>
#include <memory>
#include <unordered_set>
#include <vector>

#include "platform/automation/errors.h"

/// A handle: one reference to an object, shared by the handle's owners.
struct ov_object {
    ov::Ref<ov::IDispatch> target;
    std::uint32_t owners = 1;
};

namespace ov {

namespace {

constexpr int kDeepestArray = 64;

// All handles that live, so that a wrong one is known without looking at what it points to. Never destroyed: hosts may
// release handles while the process ends.
std::unordered_set<const ov_object*>& Handles() {
    static auto* const handles = new std::unordered_set<const ov_object*>;
    return *handles;
}

Text TextOf(const ov_text& text) {
    if (!text.bytes && text.length > 0) Raise(ErrorNumber::InvalidProcedureCall);
    return Text::FromUtf8({text.bytes ? text.bytes : "", text.length});
}

Decimal DecimalOf(const ov_decimal& decimal) {
    if (decimal.scale > Decimal::kMaxScale) Raise(ErrorNumber::InvalidProcedureCall);
    return {decimal.negative != 0, decimal.high, decimal.low, decimal.scale};
}

// The number of elements by the bounds. @throws RuntimeError 5 if the array says another one or has bad bounds
std::size_t CheckedCount(const ov_array& array) {
    std::size_t count = 1;
    for (std::size_t i = 0; i < array.rank; ++i) {
        const ov_bound& bound = array.bounds[i];
        if (bound.count < 0 || std::int64_t{bound.lower} + bound.count > INT32_MAX ||
            __builtin_mul_overflow(count, static_cast<std::size_t>(bound.count), &count)) {
            Raise(ErrorNumber::InvalidProcedureCall);
        }
    }
    const bool bytes = array.element == OV_BYTE;
    if (count != array.count || (count > 0 && !(bytes ? static_cast<const void*>(array.bytes) : array.elements))) {
        Raise(ErrorNumber::InvalidProcedureCall);
    }
    return count;
}

// Goes to the next element in storage order.
void Advance(std::vector<std::int32_t>& indexes, const std::vector<ArrayBound>& bounds) {
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        if (++indexes[i] < bounds[i].lower + bounds[i].count) return;
        indexes[i] = bounds[i].lower;
    }
}

Variant FromC(const ov_value& value, int depth);

Array ArrayOf(const ov_array* array, int depth) {
    if (!array || (array->rank > 0 && !array->bounds)) Raise(ErrorNumber::InvalidProcedureCall);
    if (depth > kDeepestArray) Raise(ErrorNumber::VariableUsesUnsupportedType);
    if (array->rank == 0) return {};
    const std::size_t count = CheckedCount(*array);
    if (array->rank == 1 && array->element == OV_BYTE) {
        return Array::OfBytes({array->bytes, array->bytes + count}, array->bounds[0].lower);
    }
    std::vector<ArrayBound> bounds;
    std::vector<std::int32_t> indexes;
    for (std::size_t i = 0; i < array->rank; ++i) {
        bounds.push_back({array->bounds[i].lower, array->bounds[i].count});
        indexes.push_back(array->bounds[i].lower);
    }
    Array made(static_cast<VarType>(array->element), bounds);
    for (std::size_t i = 0; i < count; ++i, Advance(indexes, bounds)) {
        made.Set(indexes, array->element == OV_BYTE ? Variant(array->bytes[i]) : FromC(array->elements[i], depth + 1));
    }
    return made;
}

Variant FromC(const ov_value& value, int depth) {
    switch (value.type) {
        case OV_EMPTY:
            return {};
        case OV_NULL:
            return Variant::Null();
        case OV_INTEGER:
            return value.integer;
        case OV_LONG:
            return value.long_integer;
        case OV_SINGLE:
            return value.single_real;
        case OV_DOUBLE:
            return value.double_real;
        case OV_CURRENCY:
            return Currency{value.currency};
        case OV_DATE:
            return Date{value.double_real};
        case OV_STRING:
            return TextOf(value.text);
        case OV_OBJECT:
            return ObjectOf(value.object);
        case OV_ERROR:
            return ErrorCode{value.long_integer};
        case OV_BOOLEAN:
            return value.long_integer != 0;
        case OV_DECIMAL:
            return DecimalOf(value.decimal);
        case OV_BYTE:
            return value.byte;
        case OV_MISSING:
            return Variant::Missing();
        case OV_ARRAY:
            return ArrayOf(value.array, depth);
        default:
            Raise(ErrorNumber::InvalidProcedureCall);
    }
}

ov_text CopyOf(const Text& text) {
    const std::string bytes = text.ToUtf8();
    char* copy = new char[bytes.size() + 1];
    std::memcpy(copy, bytes.c_str(), bytes.size() + 1);
    return {copy, bytes.size()};
}

void Fill(const Variant& value, ov_value& target, int depth);

// Fills an array that @p target owns already, so that a failure on the way can be cleared.
void FillArray(const Array& array, ov_array& target, int depth) {
    if (depth > kDeepestArray) Raise(ErrorNumber::VariableUsesUnsupportedType);
    target.element = static_cast<std::uint16_t>(array.ElementType());
    target.rank = static_cast<std::uint16_t>(array.Rank());
    auto* bounds = new ov_bound[array.Rank()];
    target.bounds = bounds;
    for (std::size_t i = 0; i < array.Rank(); ++i) {
        const std::int32_t lower = array.LowerBound(i + 1);
        bounds[i] = {lower, array.UpperBound(i + 1) - lower + 1};
    }
    if (array.ElementType() == VarType::Byte) {
        target.bytes = new std::uint8_t[array.size()];
        target.count = array.size();
        std::ranges::copy(array.Bytes(), target.bytes);
        return;
    }
    target.elements = new ov_value[array.size()]();
    target.count = array.size();
    for (std::size_t i = 0; i < target.count; ++i) {
        Fill(array.Elements()[i], target.elements[i], depth + 1);
    }
}

// Writes into a value of zeros.
void Fill(const Variant& value, ov_value& target, int depth) {
    const auto tag = [&target](ov_type type) { target.type = static_cast<std::uint16_t>(type); };
    const auto own = [&target, &tag](ov_type type) {
        tag(type);
        target.owned = 1;
    };
    switch (value.Type()) {
        case VarType::Integer:
            target.integer = value.AsInteger();
            break;
        case VarType::Long:
            target.long_integer = value.AsLong();
            break;
        case VarType::Single:
            target.single_real = value.AsSingle();
            break;
        case VarType::Double:
            target.double_real = value.AsDouble();
            break;
        case VarType::Currency:
            target.currency = value.AsCurrency().scaled;
            break;
        case VarType::Date:
            target.double_real = value.AsDate().days;
            break;
        case VarType::Error:
            target.long_integer = value.AsError().code;
            break;
        case VarType::Boolean:
            target.long_integer = value.AsBoolean() ? 1 : 0;
            break;
        case VarType::Byte:
            target.byte = value.AsByte();
            break;
        case VarType::Decimal: {
            const Decimal decimal = value.AsDecimal();
            target.decimal = {decimal.Low(), decimal.High(), decimal.Scale(),
                              decimal.IsNegative() ? std::uint8_t{1} : std::uint8_t{0}};
            break;
        }
        case VarType::String:
            target.text = CopyOf(value.AsText());
            return own(OV_STRING);
        case VarType::Object:
            target.object = MakeHandle(value.AsObject());
            return own(OV_OBJECT);
        case VarType::Array:
            target.array = new ov_array{};
            own(OV_ARRAY);
            return FillArray(value.AsArray(), *target.array, depth);
        case VarType::Empty:
        case VarType::Null:
        case VarType::Missing:
            break;
    }
    target.type = static_cast<std::uint16_t>(value.Type());
}

}  // namespace

ov_object* MakeHandle(IDispatch* object) {
    if (!object) return nullptr;
    auto handle = std::make_unique<ov_object>(ov_object{Ref<IDispatch>(object)});
    Handles().insert(handle.get());
    return handle.release();
}

IDispatch* ObjectOf(const ov_object* handle) {
    if (!handle) return nullptr;
    if (!Handles().contains(handle)) Raise(ErrorNumber::ObjectRequired);
    return handle->target.get();
}

IDispatch* ObjectNeeded(const ov_object* handle) {
    if (!handle) Raise(ErrorNumber::ObjectVariableNotSet);
    return ObjectOf(handle);
}

void RetainHandle(ov_object* handle) {
    ObjectNeeded(handle);
    ++handle->owners;
}

void ReleaseHandle(ov_object* handle) {
    if (!ObjectOf(handle) || --handle->owners > 0) return;
    Handles().erase(handle);
    delete handle;  // last: the object's end may run any code
}

Variant FromC(const ov_value& value) {
    return FromC(value, 0);
}

void ToC(const Variant& value, ov_value& target) {
    target = {};
    try {
        Fill(value, target, 0);
    } catch (...) {
        ClearC(target);
        throw;
    }
}

void ClearC(ov_value& value) noexcept {
    const ov_value old = std::exchange(value, ov_value{});  // first: an object's end may reach the value again
    if (!old.owned) return;
    if (old.type == OV_STRING) delete[] old.text.bytes;
    if (old.type == OV_OBJECT && old.object) {
        try {
            ReleaseHandle(old.object);
        } catch (const RuntimeError&) {  // the host has released it already
        }
    }
    if (old.type != OV_ARRAY || !old.array) return;
    for (std::size_t i = 0; old.array->elements && i < old.array->count; ++i) {
        ClearC(old.array->elements[i]);
    }
    delete[] old.array->elements;
    delete[] old.array->bytes;
    delete[] old.array->bounds;
    delete old.array;
}

}  // namespace ov
