/// @file
/// Records as values: a Variant holds a copy of a record as an object whose members are the record's fields.
#pragma once

#include <concepts>

#include "platform/automation/object.h"

namespace ov {

/// A record type of the contract: a plain struct with a table of its fields and a name.
template <class T>
concept RecordType = requires {
    { T::Fields() } -> std::same_as<const InterfaceInfo&>;
    { T::kRecordName } -> std::convertible_to<const char*>;
};

/// The object that a boxed record is.
template <RecordType T>
class RecordObject;

/// The one facet of a boxed record: its fields by name.
template <RecordType T>
class IRecord : public IDispatch {
public:
    // Records have no identifier of their own; they are told apart by their field table.
    static constexpr Guid kIid = IDispatch::kIid;
    static const InterfaceInfo& Members() { return T::Fields(); }
};

template <RecordType T>
class RecordObject final : public Object<RecordObject<T>, Facet<IRecord<T>>> {
public:
    static constexpr const char* kClassName = T::kRecordName;

    explicit RecordObject(T record) : mRecord(std::move(record)) {}
    // The fields' thunks work on the record itself.
    Variant Invoke(DispId id, CallKind kind, Arguments& arguments) override {
        return T::Fields().Invoke(&mRecord, id, kind, arguments);
    }
    const T& Record() const noexcept { return mRecord; }

private:
    T mRecord;
};

/// A Variant that holds a copy of @p record.
template <RecordType T>
Variant BoxRecord(T record) {
    return Variant(MakeObject<RecordObject<T>>(std::move(record))->Dispatch());
}

/// The record in @p value, borrowed, or nullptr if it holds no record of this type.
template <RecordType T>
const T* RecordOf(const Variant& value) noexcept {
    if (!value.IsObject() || value.IsNothing() || value.AsObject()->GetTypeInfo() != &T::Fields()) return nullptr;
    return &static_cast<RecordObject<T>*>(static_cast<Facet<IRecord<T>>*>(static_cast<IRecord<T>*>(value.AsObject())))
                ->Record();
}

}  // namespace ov
