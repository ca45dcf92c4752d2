// The catalogue of module types, asked before and after a type is loaded.
#include <gtest/gtest.h>

#include "module/module.h"
#include "platform/automation/conversions.h"
#include "support/small_descriptor.h"
#include "support/test_database.h"

namespace ov {
namespace {

using testing::kSmallDescriptor;
using testing::TestDatabase;

class Catalogue : public ::testing::Test {
protected:
    Catalogue() { mModule->SetSourcePath(mDatabase.Path()); }

    Variant Ask(std::int32_t device, Text sub, const Text& category = u"") {
        return mModule->GetModuleType2(device, &sub, category);
    }

    TestDatabase mDatabase{kSmallDescriptor + R"(
        INSERT INTO ModuleTypes (IDX, moduletype, enable, FDTdeviceTypeId, FDTsubDeviceType, FDTversion)
        VALUES (4, 'C', -1, 10, NULL, 1), (5, 'D', -1, 13, '', 1))"};
    Ref<Module> mModule = MakeObject<Module>();
};

TEST_F(Catalogue, ListsEnabledTypesInTableOrder) {
    const Ref<ICollection> types = mModule->Types();
    ASSERT_EQ(types->Count(), 4);
    EXPECT_EQ(ToText(types->Item(1)), u"A");
    EXPECT_EQ(ToText(types->Item(4)), u"D");
    EXPECT_FALSE(MakeObject<Module>()->Types());
}

TEST_F(Catalogue, FindsTypesByDeviceSubTypeAndBus) {
    EXPECT_EQ(ToText(Ask(11, u"x")), u"B");
    EXPECT_EQ(ToText(Ask(-1, u"x")), u"A");             // the first one
    EXPECT_EQ(ToText(Ask(-1, u"x", u"{bbbb}")), u"B");  // A has it, but not as required
    EXPECT_EQ(ToText(Ask(-1, u"x", u"{aAaA}")), u"A");
    EXPECT_TRUE(Ask(12, u"x").IsEmpty());  // disabled
    EXPECT_TRUE(Ask(11, u"X").IsEmpty());
    EXPECT_EQ(ToText(Ask(13, u"")), u"D");
    EXPECT_TRUE(Ask(10, u"").IsEmpty());   // Null matches nothing, not even ""
    EXPECT_EQ(ToText(Ask(-1, u"")), u"");  // asks for the loaded type
    EXPECT_FALSE(Ask(-1, u"").IsEmpty());
    EXPECT_TRUE(MakeObject<Module>()->GetModuleType({}, nullptr).IsEmpty());  // no path
}

TEST_F(Catalogue, CollectsAllWithTheMarkAndCutsItFromTheCallersText) {
    Text sub = u"x{}";
    EXPECT_EQ(ToText(mModule->GetModuleType(-1, &sub)), u"A{}B");
    EXPECT_EQ(sub, u"x");
    EXPECT_EQ(ToText(Ask(11, u"x{}")), u"B");
    EXPECT_TRUE(Ask(99, u"x{}").IsEmpty());

    // By name the variable of the caller changes too.
    std::array<Variant, 2> arguments{Variant(-1), Variant(u"x{}")};
    Arguments call{arguments};
    const DispId id = mModule->Dispatch()->GetIDsOfNames(u"getmoduletype");
    EXPECT_EQ(ToText(mModule->Dispatch()->Invoke(id, CallKind::Method, call)), u"A{}B");
    EXPECT_EQ(call.written, 2u);
    EXPECT_EQ(ToText(arguments[1]), u"x");
}

TEST_F(Catalogue, AnswersForTheLoadedTypeWithoutTheDatabase) {
    ASSERT_TRUE(mModule->Load(u"B", {}, {}));
    mModule->set_mDB(nullptr);
    EXPECT_EQ(ToText(Ask(-1, u"")), u"B");
    EXPECT_EQ(ToText(Ask(-1, u"x")), u"B");
    EXPECT_EQ(ToText(Ask(11, u"x", u"{bbbb}")), u"B");
    EXPECT_FALSE(mModule->get_mDB());
    EXPECT_EQ(ToText(Ask(-1, u"x", u"{AAAA}")), u"A");  // no hit in the record, so the table is asked
}

TEST_F(Catalogue, GivesNothingForADatabaseThatFails) {
    const TestDatabase broken(kSmallDescriptor + "DROP TABLE BusCategoryTypes");
    mModule->SetSourcePath(broken.Path());
    EXPECT_TRUE(Ask(-1, u"x", u"{AAAA}").IsEmpty());
    const TestDatabase empty("CREATE TABLE T (a)");
    mModule->SetSourcePath(empty.Path());
    EXPECT_TRUE(Ask(-1, u"x").IsEmpty());
    EXPECT_FALSE(mModule->Types());
}

}  // namespace
}  // namespace ov
