/// @file
/// Objects that scripts make: instances of their classes, and procedures as objects.
#pragma once

#include <memory>
#include <typeinfo>

#include "platform/automation/memory_account.h"
#include "platform/automation/object.h"
#include "platform/script/vbscript/namespace.h"

namespace ov::vbscript {

/// An instance of a script's class. Its members are callable by name like those of any object; hosts may keep it.
class Instance final : public IDispatch, private LivingObjects {
public:
    explicit Instance(BoundClass& boundClass);
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    void* QueryInterface(const Guid& iid) noexcept override;
    std::uint32_t AddRef() noexcept override { return ++mReferences; }
    std::uint32_t Release() noexcept override;
    std::uint32_t GetTypeInfoCount() const noexcept override { return 0; }
    const InterfaceInfo* GetTypeInfo() const noexcept override { return nullptr; }
    DispId GetIDsOfNames(std::u16string_view name) override;
    Variant Invoke(DispId id, CallKind kind, Arguments& arguments) override;
    Text ClassName() const override { return mClass->code.name; }

    BoundClass& Class() const noexcept { return *mClass; }
    Slot* Fields() const noexcept { return mFields.get(); }
    /// @p object as an instance of a script's class, borrowed, or nullptr.
    static Instance* From(IDispatch* object) noexcept {
        // Compared by address: both are of this library.
        return &typeid(*object) == &typeid(Instance) ? static_cast<Instance*>(object) : nullptr;
    }

    /// Releases what the fields hold; Class_Terminate does not run any more.
    void Abandon() noexcept;

private:
    friend class Namespace;

    ~Instance();
    void End() noexcept;
    void Terminate() noexcept;
    static void EndAll(Instance* first) noexcept;

    std::uint32_t mReferences = 1;
    bool mEnded = false;    // Class_Terminate has run
    Ref<Namespace> mSpace;  // outlives what belongs to it
    Ref<BoundClass> mClass;
    MemoryAccount::Share mMemory;
    std::unique_ptr<Slot[]> mFields;
    Instance* mPrevious = nullptr;  // among the living ones of the namespace
    Instance* mNext = nullptr;
    Instance* mNextDying = nullptr;
};

/// A procedure as an object, as GetRef gives it: calling the object calls the procedure.
class FunctionObject final : public IDispatch, private LivingObjects {
public:
    explicit FunctionObject(BoundCode& procedure) : mSpace(procedure.space), mProcedure(&procedure) {
        mMemory.Resize(sizeof(FunctionObject));
    }
    FunctionObject(const FunctionObject&) = delete;
    FunctionObject& operator=(const FunctionObject&) = delete;

    void* QueryInterface(const Guid& iid) noexcept override;
    std::uint32_t AddRef() noexcept override { return ++mReferences; }
    std::uint32_t Release() noexcept override;
    std::uint32_t GetTypeInfoCount() const noexcept override { return 0; }
    const InterfaceInfo* GetTypeInfo() const noexcept override { return nullptr; }
    DispId GetIDsOfNames(std::u16string_view) override { return kDispIdUnknown; }
    Variant Invoke(DispId id, CallKind kind, Arguments& arguments) override;
    Text ClassName() const override { return u"Object"; }

    BoundCode& Procedure() const noexcept { return *mProcedure; }
    static FunctionObject* From(IDispatch* object) noexcept {
        return &typeid(*object) == &typeid(FunctionObject) ? static_cast<FunctionObject*>(object) : nullptr;
    }

private:
    ~FunctionObject() = default;

    std::uint32_t mReferences = 1;
    Ref<Namespace> mSpace;  // outlives what belongs to it
    Ref<BoundCode> mProcedure;
    MemoryAccount::Share mMemory;
};

}  // namespace ov::vbscript
