/// @file
/// What Me is outside classes.
#pragma once

#include "platform/automation/object.h"
#include "platform/script/vbscript/namespace.h"

namespace ov::vbscript {

/// The global names of an engine as the members of an object: procedures and variables of its scripts, and what the
/// host published. An engine has one at a time.
class GlobalObject final : public IDispatch, private LivingObjects {
public:
    explicit GlobalObject(Namespace& space) noexcept : mSpace(&space) {}
    GlobalObject(const GlobalObject&) = delete;
    GlobalObject& operator=(const GlobalObject&) = delete;

    void* QueryInterface(const Guid& iid) noexcept override;
    std::uint32_t AddRef() noexcept override { return ++mReferences; }
    std::uint32_t Release() noexcept override;
    std::uint32_t GetTypeInfoCount() const noexcept override { return 0; }
    const InterfaceInfo* GetTypeInfo() const noexcept override { return nullptr; }
    DispId GetIDsOfNames(std::u16string_view name) override;
    Variant Invoke(DispId id, CallKind kind, Arguments& arguments) override;
    Text ClassName() const override { return u"Object"; }

private:
    ~GlobalObject();

    std::uint32_t mReferences = 1;
    Ref<Namespace> mSpace;
};

}  // namespace ov::vbscript
