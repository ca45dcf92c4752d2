/// @file
/// The functions that the library exports, and how a C++ host makes its first object:
///
///     ov::Ref<ov::CBase_Module> module = ov::CreateObject<ov::CBase_Module>(u"CBase_Module");
///
/// The library is a self-registering in-process server; the four functions have the meaning that they have there.
#pragma once

#include <cstdint>
#include <string_view>

#include "contract/classes.h"
#include "platform/automation/errors.h"
#include "platform/automation/unknown.h"

/// Status results of the exported functions; negative ones are failures.
enum OvResult : std::int32_t {
    kOvOk = 0,
    kOvFalse = 1,
    kOvNoInterface = static_cast<std::int32_t>(0x80004002),
    kOvInvalidPointer = static_cast<std::int32_t>(0x80004003),
    kOvFail = static_cast<std::int32_t>(0x80004005),
    kOvNoAggregation = static_cast<std::int32_t>(0x80040110),
    kOvClassNotAvailable = static_cast<std::int32_t>(0x80040111),
    kOvAccessDenied = static_cast<std::int32_t>(0x80070005),
    kOvOutOfMemory = static_cast<std::int32_t>(0x8007000E),
};

/// Gives the class object of @p rclsid, seen as @p riid, to @p ppv; on a failure *ppv is nullptr.
extern "C" __attribute__((visibility("default"))) std::int32_t DllGetClassObject(const ov::Guid& rclsid,
                                                                                 const ov::Guid& riid,
                                                                                 void** ppv) noexcept;
/// kOvOk if no object of the library lives and nobody locks it, else kOvFalse.
extern "C" __attribute__((visibility("default"))) std::int32_t DllCanUnloadNow() noexcept;
/// Writes the classes into the registry. kOvAccessDenied if it cannot be written.
extern "C" __attribute__((visibility("default"))) std::int32_t DllRegisterServer() noexcept;
/// Removes what DllRegisterServer wrote.
extern "C" __attribute__((visibility("default"))) std::int32_t DllUnregisterServer() noexcept;

namespace ov {

/// The class object of a creatable class.
class IClassFactory : public IUnknown {
public:
    static constexpr Guid kIid = Guid::Parse("{00000001-0000-0000-C000-000000000046}");
    static constexpr const char* kName = "IClassFactory";

    /// Makes an object and gives it, seen as @p riid, to @p ppv. @p outer is nullptr: objects do not aggregate.
    virtual std::int32_t CreateInstance(IUnknown* outer, const Guid& riid, void** ppv) noexcept = 0;
    /// Keeps the library in use, or lets it go again.
    virtual std::int32_t LockServer(bool lock) noexcept = 0;
};

/// A new object of the class of that name, such as u"CBase_Module", seen as @p T.
/// @throws RuntimeError 429 if there is no such class, 430 if it lacks the interface
template <class T>
Ref<T> CreateObject(std::u16string_view className) {
    const ClassDescription* description = FindClass(className);
    void* factory = nullptr;
    if (!description || DllGetClassObject(description->clsid, IClassFactory::kIid, &factory) != kOvOk) {
        RaiseAbout(ErrorNumber::CannotCreateObject, className);
    }
    const Ref<IClassFactory> maker = Ref<IClassFactory>::Adopt(static_cast<IClassFactory*>(factory));
    void* object = nullptr;
    if (maker->CreateInstance(nullptr, T::kIid, &object) != kOvOk) Raise(ErrorNumber::ClassDoesNotSupportAutomation);
    return Ref<T>::Adopt(static_cast<T*>(object));
}

}  // namespace ov
