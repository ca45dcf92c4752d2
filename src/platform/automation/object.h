/// @file
/// The frame of every object: reference count, identity, facets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>
#include <utility>

#include "platform/automation/interface_info.h"

namespace ov {

/// One facet of an object: interface @p I with its members callable by name.
///
/// An object lists its facets as bases. Where two of its interfaces have one member name with different types, no one
/// class can override both; such a facet gets a small class of its own, derived from `Facet<I>`, that overrides the
/// member and forwards it to a function of another name. Like every facet it holds no state.
template <class I>
class Facet : public I {
public:
    using Interface = I;

    std::uint32_t GetTypeInfoCount() const noexcept override { return 1; }
    const InterfaceInfo* GetTypeInfo() const noexcept override { return &I::Members(); }
    DispId GetIDsOfNames(std::u16string_view name) override { return I::Members().Find(name); }
    Variant Invoke(DispId id, CallKind kind, Arguments& arguments) override {
        return I::Members().Invoke(static_cast<I*>(this), id, kind, arguments);
    }

    /// The facet @p iid among those that this base brings, or nullptr.
    void* FindFacet(const Guid& iid) noexcept { return iid == I::kIid ? static_cast<I*>(this) : nullptr; }
};

/// Several facets as one base, for classes that share the implementation of them.
template <class... Facets>
class FacetGroup : public Facets... {
public:
    void* FindFacet(const Guid& iid) noexcept {
        void* found = nullptr;
        static_cast<void>(((found = Facets::FindFacet(iid)) || ...));
        return found;
    }
};

/// Counts the objects of one kind that live in the process.
template <class Kind>
class CountedLives {
public:
    static std::size_t Count() noexcept { return sCount; }

protected:
    CountedLives() noexcept { ++sCount; }
    CountedLives(const CountedLives&) noexcept { ++sCount; }
    CountedLives& operator=(const CountedLives&) noexcept = default;
    ~CountedLives() { --sCount; }

private:
    static inline std::size_t sCount = 0;
};

/// The objects that a host can hold: while one lives, the library is in use.
using LivingObjects = CountedLives<struct HostObjects>;
/// The objects of the database engine, which stay open to the end of the process. Their interfaces have a constant
/// kIsEngineObject.
using LivingEngineObjects = CountedLives<struct EngineObjects>;

template <class Facet>
inline constexpr bool kIsEngineFacet = requires {
    Facet::kIsEngineObject;
};

/// Base of the class @p Self, whose facets are @p Facets; the first one is the default interface and carries the
/// object's identity. @p Self has a constant kClassName. Objects are made by MakeObject and begin with one reference.
///
/// At the last release OnFinalRelease of @p Self runs while the object is still whole, and the object may take part in
/// calls; if somebody kept a reference then, it lives on until that one goes.
template <class Self, class... Facets>
class Object : public Facets...,
               private std::conditional_t<(kIsEngineFacet<Facets> || ...), LivingEngineObjects, LivingObjects> {
public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    void* QueryInterface(const Guid& iid) noexcept final {
        void* found = nullptr;
        static_cast<void>(((found = Facets::FindFacet(iid)) || ...));
        if (!found && (iid == IUnknown::kIid || iid == IDispatch::kIid)) found = Dispatch();
        if (found) ++mReferences;
        return found;
    }
    std::uint32_t AddRef() noexcept final { return ++mReferences; }
    std::uint32_t Release() noexcept final {
        if (mReferences == 1) {
            static_cast<Self*>(this)->OnFinalRelease();
            if (mReferences == 1) {
                mReferences = kDying;  // so that a reference taken and dropped by a destructor ends nothing twice
                delete static_cast<Self*>(this);
                return 0;
            }
        }
        return --mReferences;
    }
    Text ClassName() const final { return Text::FromAscii(Self::kClassName); }

    /// The object as its default interface, borrowed.
    IDispatch* Dispatch() noexcept { return static_cast<First*>(this); }

protected:
    Object() noexcept = default;
    ~Object() = default;

    void OnFinalRelease() noexcept {}

private:
    using First = std::tuple_element_t<0, std::tuple<Facets...>>;
    static constexpr std::uint32_t kDying = 0x40000000;

    std::uint32_t mReferences = 1;
};

/// A new object of class @p T.
template <class T, class... Args>
Ref<T> MakeObject(Args&&... args) {
    return Ref<T>::Adopt(new T(std::forward<Args>(args)...));
}

}  // namespace ov
