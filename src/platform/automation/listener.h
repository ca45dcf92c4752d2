/// @file
/// Listeners: an object that has the listener interface, or any late-bound object that has some of its operations.
#pragma once

#include <array>
#include <span>
#include <utility>
#include <vector>

#include "platform/automation/interface_info.h"

namespace ov {

/// Makes a late-bound object answer the listener interface @p I. Listener interfaces specialise it with
/// `static Ref<I> Adapt(IDispatch*)`; other interfaces have no adapter.
template <class I>
struct LateListenerOf;

namespace listener_detail {

/// True if @p object has at least one of the members by name.
bool HasAnyMember(IDispatch* object, const InterfaceInfo& members);

}  // namespace listener_detail

/// @p object as listener @p I: its own facet, or an adapter around it; Nothing if it has no operation of @p I.
template <class I>
Ref<I> CastListener(IUnknown* object) {
    if (Ref<I> own = facet<I>(object)) return own;
    if constexpr (requires(IDispatch * late) { LateListenerOf<I>::Adapt(late); }) {
        Ref<IDispatch> late = facet<IDispatch>(object);
        if (late && listener_detail::HasAnyMember(late.get(), I::Members())) {
            return LateListenerOf<I>::Adapt(late.get());
        }
    }
    return nullptr;
}

/// Base of the adapters: holds the late-bound object, shares its identity and sends each operation to it by name.
/// Operations that the object lacks do nothing.
template <class I>
class LateListener : public I {
public:
    explicit LateListener(IDispatch* target) : mTarget(target) {
        for (const Member& member : I::Members().Members()) {
            mIds.push_back(target->GetIDsOfNames(Text::FromAscii(member.name)));
        }
    }
    virtual ~LateListener() = default;

    void* QueryInterface(const Guid& iid) noexcept override {
        if (iid != I::kIid) return mTarget->QueryInterface(iid);
        ++mReferences;
        return static_cast<I*>(this);
    }
    std::uint32_t AddRef() noexcept override { return ++mReferences; }
    std::uint32_t Release() noexcept override {
        const std::uint32_t left = --mReferences;
        if (left == 0) delete this;
        return left;
    }
    std::uint32_t GetTypeInfoCount() const noexcept override { return mTarget->GetTypeInfoCount(); }
    const InterfaceInfo* GetTypeInfo() const noexcept override { return mTarget->GetTypeInfo(); }
    DispId GetIDsOfNames(std::u16string_view name) override { return mTarget->GetIDsOfNames(name); }
    Variant Invoke(DispId id, CallKind kind, Arguments& arguments) override {
        return mTarget->Invoke(id, kind, arguments);
    }
    Text ClassName() const override { return mTarget->ClassName(); }

protected:
    /// Calls operation number @p index of the interface, in slot order. @throws what the listener raises.
    template <class... Args>
    Variant Send(std::size_t index, const Args&... arguments) {
        std::array<Variant, sizeof...(Args)> values{Variant(arguments)...};
        return SendAll(index, values);
    }
    /// The same with values that the listener may write.
    Variant SendAll(std::size_t index, std::span<Variant> values) {
        if (mIds[index] == kDispIdUnknown) return Variant();
        Arguments call{values};
        return mTarget->Invoke(mIds[index], CallKind::Method, call);
    }

private:
    Ref<IDispatch> mTarget;
    std::vector<DispId> mIds;
    std::uint32_t mReferences = 1;
};

}  // namespace ov
