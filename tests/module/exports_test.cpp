// The exported functions: class objects, object counts, registration.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "contract/library.h"
#include "contract/module.h"
#include "platform/system/registry.h"
#include "support/scoped_settings.h"
#include "support/small_descriptor.h"
#include "support/temporary_folder.h"
#include "support/test_database.h"

namespace ov {
namespace {

using testing::ScopedVariable;
using testing::TemporaryFolder;

TEST(Exports, CreateObjectsOfEachClassWithAllItsFacets) {
    for (const ClassDescription& description : ClassDescriptions()) {
        void* factory = nullptr;
        ASSERT_EQ(DllGetClassObject(description.clsid, IClassFactory::kIid, &factory), kOvOk) << description.name;
        const Ref<IClassFactory> maker = Ref<IClassFactory>::Adopt(static_cast<IClassFactory*>(factory));
        void* made = nullptr;
        ASSERT_EQ(maker->CreateInstance(nullptr, IDispatch::kIid, &made), kOvOk) << description.name;
        const Ref<IDispatch> object = Ref<IDispatch>::Adopt(static_cast<IDispatch*>(made));
        EXPECT_EQ(object->ClassName().ToUtf8(), description.name);
        EXPECT_STREQ(object->GetTypeInfo()->Name(), description.implements.front());
    }
    EXPECT_EQ(DllCanUnloadNow(), kOvOk);
    EXPECT_THROW(CreateObject<CBase_Module>(u"CBase_Nothing"), RuntimeError);
    EXPECT_THROW(CreateObject<CBase_Module>(u"CBase_Environment"), RuntimeError);
    EXPECT_TRUE(CreateObject<CBase_Module>(u"cbase_module"));
}

TEST(Exports, RefuseWhatTheyCannotDo) {
    void* object = &object;
    const Guid module = FindClass(u"CBase_Module")->clsid;
    EXPECT_EQ(DllGetClassObject(module, IClassFactory::kIid, nullptr), kOvInvalidPointer);
    EXPECT_EQ(DllGetClassObject(Guid{}, IClassFactory::kIid, &object), kOvClassNotAvailable);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(DllGetClassObject(module, IDispatch::kIid, &object), kOvNoInterface);
    ASSERT_EQ(DllGetClassObject(module, IUnknown::kIid, &object), kOvOk);
    auto* factory = static_cast<IClassFactory*>(object);
    EXPECT_EQ(factory->CreateInstance(factory, CBase_Module::kIid, &object), kOvNoAggregation);
    EXPECT_EQ(factory->CreateInstance(nullptr, CBase_Unload::kIid, &object), kOvNoInterface);
    EXPECT_EQ(factory->CreateInstance(nullptr, CBase_Module::kIid, nullptr), kOvInvalidPointer);
}

TEST(Exports, CanUnloadOnceNothingLives) {
    const testing::TestDatabase database(testing::kSmallDescriptor);
    ASSERT_EQ(DllCanUnloadNow(), kOvOk);
    {
        const auto module = CreateObject<CBase_Module>(u"CBase_Module");
        EXPECT_EQ(DllCanUnloadNow(), kOvFalse);
        module->SetSourcePath(database.Path());
        EXPECT_TRUE(module->Load(u"A"));
    }
    EXPECT_EQ(DllCanUnloadNow(), kOvOk);  // although the database stays open
    void* object = nullptr;
    ASSERT_EQ(DllGetClassObject(FindClass(u"CBase_Module")->clsid, IClassFactory::kIid, &object), kOvOk);
    auto* factory = static_cast<IClassFactory*>(object);
    EXPECT_EQ(factory->LockServer(true), kOvOk);
    EXPECT_EQ(DllCanUnloadNow(), kOvFalse);
    EXPECT_EQ(factory->LockServer(false), kOvOk);
    EXPECT_EQ(factory->LockServer(false), kOvFail);
    EXPECT_EQ(DllCanUnloadNow(), kOvOk);
}

TEST(Exports, RegisterAndUnregisterLeaveTheRestOfTheRegistryAlone) {
    const TemporaryFolder folder;
    const ScopedVariable registry("OV_MODEL_REGISTRY", folder / "registry.ini");
    std::ofstream(folder / "registry.ini") << "[SOFTWARE\\Orvane\\Controls]\nDebug=0\n";
    EXPECT_EQ(DllRegisterServer(), kOvOk);
    const Text key = u"SOFTWARE\\Classes\\OV_Model.CBase_Module\\CLSID";
    EXPECT_EQ(registry::Read(key, u"").AsText(), u"{A2D31342-348E-472B-BB73-D2C1436D7468}");
    EXPECT_EQ(DllUnregisterServer(), kOvOk);
    EXPECT_TRUE(registry::Read(key, u"").IsEmpty());
    EXPECT_EQ(registry::Read(u"SOFTWARE\\Orvane\\Controls", u"Debug").AsLong(), 0);
    const ScopedVariable unwritable("OV_MODEL_REGISTRY", folder / "registry.ini/below/a/file.ini");
    EXPECT_EQ(DllRegisterServer(), kOvAccessDenied);
}

}  // namespace
}  // namespace ov
