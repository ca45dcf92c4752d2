// The four functions of a self-registering in-process server.
#include <algorithm>
#include <vector>

#include "contract/library.h"
#include "descriptor/database_cache.h"
#include "module/class_factory.h"
#include "platform/automation/object.h"
#include "platform/system/folders.h"
#include "platform/system/registry.h"

namespace ov {

namespace {

std::size_t gServerLocks = 0;

/// The class object of one class; lives as long as the library, so that counting its references is needless.
class ClassFactory final : public IClassFactory {
public:
    explicit ClassFactory(const ClassDescription& description) : mDescription(description) {}

    void* QueryInterface(const Guid& iid) noexcept override {
        const bool own = iid == IClassFactory::kIid || iid == IUnknown::kIid;
        return own ? static_cast<IClassFactory*>(this) : nullptr;
    }
    std::uint32_t AddRef() noexcept override { return 2; }
    std::uint32_t Release() noexcept override { return 1; }

    std::int32_t CreateInstance(IUnknown* outer, const Guid& riid, void** ppv) noexcept override {
        if (!ppv) return kOvInvalidPointer;
        *ppv = nullptr;
        if (outer) return kOvNoAggregation;
        try {
            *ppv = MakeObjectOfClass(mDescription)->QueryInterface(riid);
            return *ppv ? kOvOk : kOvNoInterface;
        } catch (...) {
            const bool memory = CurrentError().number() == static_cast<std::int32_t>(ErrorNumber::OutOfMemory);
            return memory ? kOvOutOfMemory : kOvFail;
        }
    }
    std::int32_t LockServer(bool lock) noexcept override {
        if (!lock && gServerLocks == 0) return kOvFail;
        gServerLocks += lock ? 1u : std::size_t{0} - 1u;
        return kOvOk;
    }

private:
    const ClassDescription& mDescription;
};

std::vector<ClassFactory>& ClassFactories() {
    static std::vector<ClassFactory> factories = [] {
        std::vector<ClassFactory> made;
        for (const ClassDescription& description : ClassDescriptions()) {
            made.emplace_back(description);
        }
        return made;
    }();
    return factories;
}

Text ClassKey(const ClassDescription& description) {
    return u"SOFTWARE\\Classes\\CLSID\\" + FormatGuid(description.clsid);
}

Text ProgId(const ClassDescription& description) {
    return Text::FromAscii(kTypeLibraryName) + u"." + Text::FromAscii(description.name);
}

template <class Work>
std::int32_t OnRegistry(Work work) noexcept {
    try {
        work();
        return kOvOk;
    } catch (const RuntimeError&) {
        return kOvAccessDenied;
    } catch (...) {
        return kOvFail;
    }
}

}  // namespace

}  // namespace ov

using namespace ov;

std::int32_t DllGetClassObject(const Guid& rclsid, const Guid& riid, void** ppv) noexcept {
    if (!ppv) return kOvInvalidPointer;
    *ppv = nullptr;
    const std::span<const ClassDescription> classes = ClassDescriptions();
    const auto at = std::ranges::find(classes, rclsid, &ClassDescription::clsid);
    if (at == classes.end()) return kOvClassNotAvailable;
    *ppv = ClassFactories()[static_cast<std::size_t>(at - classes.begin())].QueryInterface(riid);
    return *ppv ? kOvOk : kOvNoInterface;
}

std::int32_t DllCanUnloadNow() noexcept {
    if (LivingObjects::Count() != 0 || gServerLocks != 0) return kOvFalse;
    ForgetSharedDescriptors();  // who asks wants the memory
    return kOvOk;
}

std::int32_t DllRegisterServer() noexcept {
    return OnRegistry([] {
        const Text library = LibraryFile();
        std::vector<registry::Entry> entries;
        for (const ClassDescription& description : ClassDescriptions()) {
            const Text key = ClassKey(description);
            const Text progId = ProgId(description);
            entries.push_back({key, u"", progId});
            entries.push_back({key + u"\\InprocServer32", u"", library});
            entries.push_back({key + u"\\ProgID", u"", progId});
            entries.push_back({u"SOFTWARE\\Classes\\" + progId + u"\\CLSID", u"", FormatGuid(description.clsid)});
        }
        registry::Write(entries);
    });
}

std::int32_t DllUnregisterServer() noexcept {
    return OnRegistry([] {
        std::vector<Text> keys;
        for (const ClassDescription& description : ClassDescriptions()) {
            keys.push_back(ClassKey(description));
            keys.push_back(u"SOFTWARE\\Classes\\" + ProgId(description));
        }
        registry::RemoveKeys(keys);
    });
}
