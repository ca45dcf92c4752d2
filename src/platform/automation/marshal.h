/// @file
/// Arguments and results of operations between their C++ types and Variants.
///
/// | C++ type of a parameter                  | by name                                                        |
/// |------------------------------------------|----------------------------------------------------------------|
/// | number, bool, Text, enumeration, Variant | converted; Missing only to a Variant                           |
/// | const T&                                 | the same                                                       |
/// | T&                                       | the same, and written back if the operation changed it         |
/// | std::optional<T>                         | no value if left out                                           |
/// | T* (of a value type)                     | by reference and optional: nullptr if left out                 |
/// | I* (of an interface)                     | that facet of the object, nullptr for Nothing                  |
/// | ByteArray                                | an array of numbers                                            |
/// | std::span<const Variant>                 | all further arguments                                          |
/// | record                                   | the record of that type in the Variant                         |
#pragma once

#include <concepts>
#include <optional>
#include <span>
#include <type_traits>
#include <vector>

#include "platform/automation/conversions.h"
#include "platform/automation/dispatch.h"
#include "platform/automation/errors.h"
#include "platform/automation/listener.h"
#include "platform/automation/record.h"

namespace ov {

/// Conversion of one value type; specialised below.
template <class T>
struct Marshal;

template <>
struct Marshal<Variant> {
    static Variant From(const Variant& value) { return value; }
    static Variant To(Variant value) { return value; }
    // Every write is passed on: whether the content differs is the caller's affair.
    static bool Changed(const Variant&, const Variant&) { return true; }
};

/// A type that a Variant holds as @p kType: taken as it is, converted from any other.
template <class T, VarType kType, auto kAccessor, T (*kConvert)(const Variant&)>
struct MarshalAsHeld {
    static T From(const Variant& value) { return value.Type() == kType ? (value.*kAccessor)() : kConvert(value); }
    static Variant To(T value) { return Variant(std::move(value)); }
    static bool Changed(const T& before, const T& after) { return !(before == after); }
};

template <>
struct Marshal<std::uint8_t> : MarshalAsHeld<std::uint8_t, VarType::Byte, &Variant::AsByte, ToByte> {};
template <>
struct Marshal<std::int16_t> : MarshalAsHeld<std::int16_t, VarType::Integer, &Variant::AsInteger, ToInteger> {};
template <>
struct Marshal<std::int32_t> : MarshalAsHeld<std::int32_t, VarType::Long, &Variant::AsLong, ToLong> {};
template <>
struct Marshal<float> : MarshalAsHeld<float, VarType::Single, &Variant::AsSingle, ToSingle> {};
template <>
struct Marshal<double> : MarshalAsHeld<double, VarType::Double, &Variant::AsDouble, ToDouble> {};
template <>
struct Marshal<bool> : MarshalAsHeld<bool, VarType::Boolean, &Variant::AsBoolean, ToBoolean> {};
template <>
struct Marshal<Text> {
    static Text From(const Variant& value) { return value.IsString() ? value.AsText() : ToText(value); }
    static Variant To(Text value) { return Variant(std::move(value)); }
    static bool Changed(const Text& before, const Text& after) { return !(before == after); }
};

template <>
struct Marshal<Array> {
    static Array From(const Variant& value) {
        if (!value.IsArray()) Raise(ErrorNumber::TypeMismatch);
        return value.AsArray();
    }
    static Variant To(Array value) { return Variant(std::move(value)); }
    static bool Changed(const Array&, const Array&) { return true; }
};

template <class T>
requires std::is_enum_v<T>
struct Marshal<T> {
    static T From(const Variant& value) { return static_cast<T>(ToLong(value)); }
    static Variant To(T value) { return Variant(static_cast<std::int32_t>(value)); }
    static bool Changed(T before, T after) { return before != after; }
};

template <>
struct Marshal<ByteArray> {
    /// An array of any numbers, in its own bounds; never allocated is empty, and one of more dimensions no row.
    /// @throws RuntimeError 13 for no array.
    static ByteArray From(const Variant& value);
    static Variant To(ByteArray value);
    /// The bytes in the kind of array that @p target is: one of Variants stays one of Variants, a fixed one fixed; one
    /// that was never allocated stays so if there are no bytes, one of more dimensions stays as it is.
    static void WriteBack(Variant& target, ByteArray value);
};

template <class T>
requires RecordType<T>
struct Marshal<T> {
    static T From(const Variant& value) {
        const T* record = RecordOf<T>(value);
        if (!record) Raise(ErrorNumber::TypeMismatch);
        return *record;
    }
    static Variant To(const T& record) { return BoxRecord(record); }
    static bool Changed(const T&, const T&) { return true; }
};

/// A list in a record: by name an array from 1 on, Empty if it was never allocated.
template <class T>
struct Marshal<std::vector<T>> {
    static Variant To(const std::vector<T>& list) {
        if (list.empty()) return Variant();
        std::vector<Variant> elements;
        elements.reserve(list.size());
        for (const T& element : list) {
            elements.push_back(Marshal<T>::To(element));
        }
        const VarType type = elements.front().Type();
        return Variant(Array::Of(type, std::move(elements), 1));
    }
};

template <class I>
requires std::derived_from<I, IUnknown>
struct Marshal<Ref<I>> {
    static Ref<I> From(const Variant& value) {
        if (!value.IsObject()) Raise(value.IsEmpty() ? ErrorNumber::ObjectRequired : ErrorNumber::TypeMismatch);
        if (value.IsNothing()) return nullptr;
        Ref<I> found = CastListener<I>(value.AsObject());
        if (!found) Raise(ErrorNumber::TypeMismatch);
        return found;
    }
    static Variant To(const Ref<I>& object) { return Variant(static_cast<IDispatch*>(object.get())); }
};

/// One argument of a call while the call lasts: converted before, written back after it.
template <class T>
class ArgumentSlot {  // by value, or by reference without being written
public:
    using Value = std::remove_cvref_t<T>;
    static constexpr bool kOptional = false;

    ArgumentSlot(Arguments& arguments, std::size_t index) : mValue(Marshal<Value>::From(Given(arguments, index))) {}
    const Value& Pass() const { return mValue; }
    void WriteBack(Arguments&, std::size_t) {}

    static const Variant& Given(Arguments& arguments, std::size_t index) {
        const Variant& value = arguments.values[index];
        if constexpr (!std::same_as<Value, Variant>) {
            if (value.IsMissing()) Raise(ErrorNumber::ArgumentNotOptional);
        }
        return value;
    }

private:
    Value mValue;
};

// A Variant that is read only stays where it is.
template <>
class ArgumentSlot<const Variant&> {
public:
    static constexpr bool kOptional = false;

    ArgumentSlot(Arguments& arguments, std::size_t index) : mValue(arguments.values[index]) {}
    const Variant& Pass() const { return mValue; }
    void WriteBack(Arguments&, std::size_t) {}

private:
    const Variant& mValue;
};

template <class T>
requires(!std::is_const_v<T>) class ArgumentSlot<T&> {
public:
    static constexpr bool kOptional = false;

    ArgumentSlot(Arguments& arguments, std::size_t index)
        : mBefore(Marshal<T>::From(ArgumentSlot<T>::Given(arguments, index))), mValue(mBefore) {}
    T& Pass() { return mValue; }
    void WriteBack(Arguments& arguments, std::size_t index) {
        if constexpr (requires { Marshal<T>::WriteBack(arguments.values[index], mValue); }) {
            Marshal<T>::WriteBack(arguments.values[index], std::move(mValue));
        } else {
            if (!Marshal<T>::Changed(mBefore, mValue)) return;
            arguments.values[index] = Marshal<T>::To(std::move(mValue));
        }
        arguments.MarkWritten(index);
    }

private:
    T mBefore;
    T mValue;
};

template <class T>
class ArgumentSlot<std::optional<T>> {
public:
    static constexpr bool kOptional = true;

    ArgumentSlot(Arguments& arguments, std::size_t index) {
        if (index < arguments.values.size() && !arguments.values[index].IsMissing()) {
            mValue = Marshal<T>::From(arguments.values[index]);
        }
    }
    const std::optional<T>& Pass() const { return mValue; }
    void WriteBack(Arguments&, std::size_t) {}

private:
    std::optional<T> mValue;
};

template <class T>
requires(!std::derived_from<T, IUnknown>) class ArgumentSlot<T*> {
public:
    static constexpr bool kOptional = true;

    ArgumentSlot(Arguments& arguments, std::size_t index) {
        if (index < arguments.values.size() && !arguments.values[index].IsMissing()) mSlot.emplace(arguments, index);
    }
    T* Pass() { return mSlot ? &mSlot->Pass() : nullptr; }
    void WriteBack(Arguments& arguments, std::size_t index) {
        if (mSlot) mSlot->WriteBack(arguments, index);
    }

private:
    std::optional<ArgumentSlot<T&>> mSlot;
};

template <std::derived_from<IUnknown> I>
class ArgumentSlot<I*> {
public:
    static constexpr bool kOptional = false;

    ArgumentSlot(Arguments& arguments, std::size_t index)
        : mObject(Marshal<Ref<I>>::From(ArgumentSlot<int>::Given(arguments, index))) {}
    I* Pass() const { return mObject.get(); }
    void WriteBack(Arguments&, std::size_t) {}

private:
    Ref<I> mObject;
};

template <>
class ArgumentSlot<std::span<const Variant>> {
public:
    static constexpr bool kOptional = true;

    ArgumentSlot(Arguments& arguments, std::size_t index)
        : mRest(arguments.values.subspan(std::min(index, arguments.values.size()))) {}
    std::span<const Variant> Pass() const { return mRest; }
    void WriteBack(Arguments&, std::size_t) {}

private:
    std::span<const Variant> mRest;
};

}  // namespace ov
