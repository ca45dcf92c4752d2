/// @file
/// The root of all interfaces, and the smart pointer that holds one.
#pragma once

#include <concepts>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "platform/automation/guid.h"

namespace ov {

/// Root of every interface: reference counting and the question for another facet. Objects live on the host's one
/// thread; counts are not atomic.
class IUnknown {
public:
    static constexpr Guid kIid = Guid::Parse("{00000000-0000-0000-C000-000000000046}");
    static constexpr const char* kName = "IUnknown";

    /// The facet @p iid of this object with one reference added, or nullptr. The pointer is of exactly the facet's
    /// type. Asked for IUnknown, every facet of one object answers the same pointer: the object's identity.
    virtual void* QueryInterface(const Guid& iid) noexcept = 0;
    /// @returns the new count, for diagnostics only.
    virtual std::uint32_t AddRef() noexcept = 0;
    /// Drops one reference; the last one ends the object. @returns the new count, for diagnostics only.
    virtual std::uint32_t Release() noexcept = 0;

protected:
    ~IUnknown() = default;
};

/// Holds one reference to an object seen as @p T, or nothing ("Nothing").
template <class T>
class Ref {
public:
    using element_type = T;

    Ref() noexcept = default;
    Ref(std::nullptr_t) noexcept {}
    /// Adds a reference to @p object.
    Ref(T* object) noexcept : mObject(object) {
        if (mObject) mObject->AddRef();
    }
    Ref(const Ref& other) noexcept : Ref(other.mObject) {}
    Ref(Ref&& other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}
    template <class U>
    requires std::convertible_to<U*, T*> Ref(const Ref<U>& other)
    noexcept : Ref(static_cast<T*>(other.get())) {}
    template <class U>
    requires std::convertible_to<U*, T*> Ref(Ref<U>&& other)
    noexcept : mObject(other.Detach()) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(mObject, other.mObject);
        return *this;
    }
    ~Ref() {
        if (mObject) mObject->Release();
    }

    /// Takes over a reference that the caller owns.
    static Ref Adopt(T* object) noexcept {
        Ref ref;
        ref.mObject = object;
        return ref;
    }
    /// Hands the reference over to the caller.
    [[nodiscard]] T* Detach() noexcept { return std::exchange(mObject, nullptr); }

    T* get() const noexcept { return mObject; }
    T& operator*() const noexcept { return *mObject; }
    T* operator->() const noexcept { return mObject; }
    explicit operator bool() const noexcept { return mObject != nullptr; }

    friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.mObject == b.mObject; }
    friend bool operator==(const Ref& a, const T* b) noexcept { return a.mObject == b; }

private:
    T* mObject = nullptr;
};

/// The facet @p T of @p object, or Nothing if the object lacks it or is Nothing itself.
template <class T, class U>
Ref<T> facet(U* object) noexcept {
    if (!object) return nullptr;
    return Ref<T>::Adopt(static_cast<T*>(object->QueryInterface(T::kIid)));
}
template <class T, class U>
Ref<T> facet(const Ref<U>& object) noexcept {
    return facet<T>(object.get());
}

/// True if both are facets of one object, or both Nothing.
bool SameObject(IUnknown* a, IUnknown* b) noexcept;

}  // namespace ov
