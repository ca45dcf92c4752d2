#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/classes.h"
#include "contract/environment.h"
#include "contract/group.h"
#include "contract/module.h"
#include "contract/parameter.h"
#include "contract/records.h"
#include "contract/station.h"
#include "platform/automation/object.h"
#include "platform/automation/record.h"
#include "platform/automation/variant_testing.h"
#include "platform/store/store.h"

namespace ov {
namespace {

TEST(ClassTableTest, HasEveryClassWithItsFacets) {
    const struct {
        const char* name;
        const char* clsid;
        const char* implements;
    } classes[] = {
        {"CBase_Module", "{A2D31342-348E-472B-BB73-D2C1436D7468}",
         "_CBase_Module _IBase_SpecModule _IBase_CallbackParameter _IBase_GuiModule"},
        {"CBase_ChannelScripting", "{7ACB57F7-212A-45E1-AE95-37E59D22D5B7}", "_CBase_ChannelScripting"},
        {"CBase_ScriptingParameters", "{33E82EC7-F477-4FBD-8206-FBACFB4D041A}", "_CBase_ScriptingParameters"},
        {"CBase_Station", "{F1FFD71B-C773-477D-A4FD-32809EC505E9}",
         "_CBase_Station _IBase_CallbackModule _IBase_SpecStation _IBase_CallbackParameter _IBase_GuiStation"},
        {"CBase_GuiModuleCollection", "{3C89642F-B691-4434-8876-6BFA10C33591}", "_CBase_GuiModuleCollection"},
        {"CBase_GuiChannelCollection", "{450AA350-E12C-468A-96D8-23184268873C}", "_CBase_GuiChannelCollection"},
        {"CBase_GuiBlockCollection", "{6B85900B-C773-4555-8575-C977459A2F9B}", "_CBase_GuiBlockCollection"},
        {"CBase_GuiParameterCollection", "{696E6629-F7D7-4744-9ACE-9EBFF8D8BB4F}", "_CBase_GuiParameterCollection"},
        {"CBase_SpecParameterCollection", "{E7BB28A9-B538-4BF1-B973-615F54443279}", "_CBase_SpecParameterCollection"},
        {"CBase_SpecChannelCollection", "{C9C49049-740D-4EC2-B0EA-B5FBF3769C6E}", "_CBase_SpecChannelCollection"},
        {"CBase_SpecModuleCollection", "{7E2BD9FB-B965-436E-B587-2FD061E107BE}", "_CBase_SpecModuleCollection"},
        {"CBase_ParameterDecimal", "{710F1E71-680F-46AC-A6E7-F2F410FC5C05}",
         "_CBase_ParameterDecimal _IBase_GuiParameter _IBase_Internal _IBase_SpecParameter "
         "_IBase_SpecParameterStorage"},
        {"CBase_Block", "{0AF287AE-D499-4175-A21B-7369DE300E75}",
         "_CBase_Block _IBase_CallbackParameter _IBase_GuiBlock"},
        {"CBase_Channel", "{D46AF6E2-DFD9-4962-9648-70AAD15992A9}",
         "_CBase_Channel _IBase_SpecChannel _IBase_CallbackParameter _IBase_GuiChannel _IBase_ScriptingChannel"},
        {"CBase_GuiGroupCollection", "{48DEF75C-547B-4089-A367-A5E6F794789E}", "_CBase_GuiGroupCollection"},
        {"CBase_Group", "{2B41917E-C87F-441F-BF1A-A17C629AF92A}",
         "_CBase_Group _IBase_GuiGroup _IBase_SpecGroup _IBase_CallbackParameter _IBase_ScriptingGroup"},
        {"CBase_ScriptingChannels", "{F2F298BB-DE0C-4D48-913A-0D5FDA05CC3B}", "_CBase_ScriptingChannels"},
        {"CBase_ParameterEnum", "{61669AF2-4C75-43E7-A44A-BAA84760F9D5}",
         "_CBase_ParameterEnum _IBase_GuiParameter _IBase_Internal _IBase_SpecParameter _IBase_SpecParameterStorage"},
        {"CBase_ParameterFloat", "{C7BE1EEA-28F7-49B6-ADC9-A00E8CDFFBBC}",
         "_CBase_ParameterFloat _IBase_GuiParameter _IBase_Internal _IBase_SpecParameter _IBase_SpecParameterStorage"},
        {"CBase_Environment", "{4468E6FD-7000-458D-B69D-F46B27961B32}", "_CBase_Environment __CBase_Environment"},
        {"CBase_ParameterString", "{D0F06C0C-F3B2-4CC2-B9D5-359BCD4E9441}",
         "_CBase_ParameterString _IBase_GuiParameter _IBase_Internal _IBase_SpecParameter _IBase_SpecParameterStorage"},
        {"CBase_SpecGroupCollection", "{DF7D21B5-9DB7-406C-BAC8-1AF2B85FCA58}", "_CBase_SpecGroupCollection"},
        {"CBase_ScriptingGroups", "{7CC97608-D0D4-47E6-86D9-99649D267B9E}", "_CBase_ScriptingGroups"},
        {"CBase_ParamDependency", "{080AEE45-016E-46D5-9BB8-51EA27EF15BE}", "_CBase_ParamDependency"},
        {"CBase_Unload", "{2DC620BF-7EF8-4F7B-A77C-7755DEDEFA54}", "_CBase_Unload"},
        {"CBase_ParameterInt", "{85D7371F-5F21-46B9-AB2E-32EB023B00E7}",
         "_CBase_ParameterInt _IBase_GuiParameter _IBase_Internal _IBase_SpecParameter _IBase_SpecParameterStorage"},
        {"CBase_ParameterSelect", "{6BFC310D-1718-4B44-8273-7B534AC72A7B}",
         "_CBase_ParameterSelect _IBase_GuiParameter _IBase_Internal _IBase_SpecParameter _IBase_SpecParameterStorage"},
        {"CBase_ParameterEnumS", "{F8AEA197-19EE-418D-B5F0-EA35F237D990}",
         "_CBase_ParameterEnumS _IBase_GuiParameter _IBase_SpecParameter _IBase_Internal _IBase_SpecParameterStorage"},
        {"CBase_GroupScripting", "{D3C863E7-371C-4F33-A091-BD06B3EBF02F}", "_CBase_GroupScripting"},
        {"CBase_ScriptingTexts", "{D2B241DD-B921-4CDA-8227-C219F62E21E9}", "_CBase_ScriptingTexts"},
        {"CBase_ParameterENVString", "{132A9734-E50A-4C4E-9CFA-9C4346651CF6}",
         "_CBase_ParameterENVString _IBase_GuiParameter _IBase_SpecParameter _IBase_Internal "
         "_IBase_SpecParameterStorage _IBase_CallbackModule"},
    };
    ASSERT_EQ(ClassDescriptions().size(), std::size(classes));
    for (const auto& each : classes) {
        const ClassDescription* found = FindClass(Text::FromAscii(each.name));
        ASSERT_TRUE(found) << each.name;
        EXPECT_EQ(found->clsid, Guid::Parse(each.clsid)) << each.name;
        std::string implements;
        for (const char* facet : found->implements) {
            implements.append(implements.empty() ? "" : " ").append(facet);
        }
        EXPECT_EQ(implements, each.implements) << each.name;
    }
    EXPECT_EQ(FindClass(u"cbase_MODULE"), FindClass(u"CBase_Module"));
    for (const char16_t* name : {u"", u"CBase_", u"_CBase_Module", u"CBase_Module ", u"IBase_GuiModule"}) {
        EXPECT_EQ(FindClass(name), nullptr);
    }
    EXPECT_EQ(kTypeLibrary, Guid::Parse("{48D28B32-4605-44A3-90C1-B868E723D0B5}"));
    EXPECT_STREQ(kTypeLibraryName, "OV_Model");
    EXPECT_STREQ(kTypeLibraryVersion, "3.27");
    EXPECT_EQ(kTypeLibraryLocale, 1033);
}

TEST(EnumerationTest, NamesEveryValueOnce) {
    std::map<std::u16string, std::int32_t> constants;
    for (const EnumerationConstant& constant : EnumerationConstants()) {
        std::u16string folded;
        for (const char16_t c : constant.name) {
            folded += FoldCase(c);  // scripts know no case
        }
        EXPECT_TRUE(constants.emplace(folded, constant.value).second) << Text(constant.name).ToUtf8();
    }
    EXPECT_EQ(constants.size(), 52u);
    const std::pair<const char16_t*, std::int32_t> samples[] = {{u"standard", 1},
                                                                {u"icon", 4},
                                                                {u"eparameterinvalid", 2},
                                                                {u"eparameterauthreadwrite", 2},
                                                                {u"eparamvalueextnan", 1},
                                                                {u"eparamvalueexterrorsettingvalue", 4},
                                                                {u"fdt_classificationid_ndef", 0},
                                                                {u"fdt_speeddrive", 10},
                                                                {u"fdt_dtmspecific", 17},
                                                                {u"eparamkinddtmparam", 1},
                                                                {u"eparamkindprocessdata", 8},
                                                                {u"eparamkindspecific4", 256},
                                                                {u"eparamkinddeviceident", 1024},
                                                                {u"eparamkindallkinds", 2047},
                                                                {u"eparameterdirectionnone", 1},
                                                                {u"eparameterdirectionwrite", 4},
                                                                {u"elittleendian", 0},
                                                                {u"emiddleendian", 2}};
    for (const auto& [name, value] : samples) {
        ASSERT_TRUE(constants.contains(name)) << Text(name).ToUtf8();
        EXPECT_EQ(constants[name], value) << Text(name).ToUtf8();
    }
}

TEST(EnumerationTest, KindsAreMasks) {
    using enum eParameterKind;
    constexpr eParameterKind both = eParamKindDeviceParam | eParamKindDiagnosis;
    EXPECT_EQ(static_cast<std::int32_t>(both), 18);
    EXPECT_TRUE(MatchesKind(eParamKindDiagnosis, both));
    EXPECT_FALSE(MatchesKind(eParamKindProcessData, both));
    EXPECT_TRUE(MatchesKind(eParamKindDeviceIdent, eParamKindAllKinds));
    EXPECT_FALSE(MatchesKind(static_cast<eParameterKind>(0), eParamKindAllKinds));  // a kind that no row should have
    EXPECT_FALSE(MatchesKind(eParamKindDtmParam, static_cast<eParameterKind>(2048)));
}

Variant Read(const Variant& object, std::u16string_view name) {
    return CallByName(object.AsObject(), name, CallKind::Get);
}

std::string FieldsOf(const InterfaceInfo& info) {
    std::string all = info.Name();
    for (const Member& field : info.Members()) {
        all.append(" ").append(field.name);
    }
    return all;
}

TEST(ContractRecordTest, FieldsAreInOrder) {
    EXPECT_EQ(FieldsOf(tBaseDescriptorDB::Fields()), "tBaseDescriptorDB db rs");
    EXPECT_EQ(FieldsOf(tBaseVersionInformation::Fields()),
              "tBaseVersionInformation name vendor version date descriptor");
    EXPECT_EQ(FieldsOf(tBaseBusCategory::Fields()),
              "tBaseBusCategory busCategory busCategoryName CommunicationTypeEntry");
    EXPECT_EQ(FieldsOf(tBaseFdtDeviceTypeInfo::Fields()),
              "tBaseFdtDeviceTypeInfo manufacturerId deviceTypeId subDeviceType deviceTypeInformation classificationId "
              "version supportedLanguages busCategories deviceIcon");
}

TEST(ContractRecordTest, IsReadByName) {
    tBaseFdtDeviceTypeInfo info;
    info.deviceTypeId = 7;
    info.classificationId = eFdtClassificationId::fdt_level;
    info.version.vendor = u"maker";
    info.supportedLanguages = {u"&H0407", u"&H0409"};
    const Variant boxed = BoxRecord(info);
    EXPECT_EQ(Describe(Read(boxed, u"DeviceTypeId")), "Long 7");
    EXPECT_EQ(Describe(Read(boxed, u"classificationId")), "Long 2");
    EXPECT_EQ(Describe(Read(Read(boxed, u"version"), u"vendor")), "String maker");
    const Array languages = Read(boxed, u"supportedLanguages").AsArray();
    EXPECT_EQ(std::pair(languages.LowerBound(1), languages.UpperBound(1)), std::pair(1, 2));
    EXPECT_TRUE(Read(boxed, u"busCategories").IsEmpty());
    info.busCategories.push_back({u"{1}", u"bus", u"required"});
    const Array buses = Read(BoxRecord(info), u"busCategories").AsArray();
    EXPECT_EQ(buses.LowerBound(1), 1);
    EXPECT_EQ(Describe(Read(buses.At(0), u"communicationtypeentry")), "String required");
    EXPECT_TRUE(Read(BoxRecord(tBaseDescriptorDB{}), u"rs").IsNothing());
}

/// A late-bound listener with some operations of given names; notes what it is called with.
class INoted : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{00000000-0000-0000-0000-0000000000D1}");
    static const InterfaceInfo& Members() {
        static const InterfaceInfo info(kIid, "_INoted", {});
        return info;
    }
};
class Noted final : public Object<Noted, Facet<INoted>> {
public:
    static constexpr const char* kClassName = "Noted";
    explicit Noted(std::vector<std::string> names) : mNames(std::move(names)) {}
    DispId GetIDsOfNames(std::u16string_view name) override {
        const auto at = std::ranges::find(mNames, Text(name).ToUtf8());
        return at == mNames.end() ? kDispIdUnknown : static_cast<DispId>(at - mNames.begin()) + 1;
    }
    Variant Invoke(DispId id, CallKind, Arguments& arguments) override {
        mNoted += mNames.at(static_cast<std::size_t>(id) - 1);
        for (Variant& value : arguments.values) {
            mNoted += value.IsNothing() ? " Nothing" : " " + Describe(value);
            if (!value.IsObject()) value = Variant(u"new");
        }
        return Variant(true);
    }
    std::string Take() { return std::exchange(mNoted, {}); }

private:
    std::vector<std::string> mNames;
    std::string mNoted;
};

TEST(ContractListenerTest, EachEventGoesToTheOperationOfItsName) {
    const Ref<Noted> noted = MakeObject<Noted>(std::vector<std::string>{
        "OnParameterReconfigured", "OnParameterStateChanged", "OnParameterValueChanged",
        "OnParameterConfigStateChanged", "OnLanguageChanged", "OnUnload", "OnEnvironmentChanged", "OnAddModule",
        "OnRemoveModule", "DoImport", "DoExport", "DoReImportParameter", "Changed"});
    IDispatch* object = noted->Dispatch();
    const auto expect = [&noted](auto&& call, const std::string& heard) {
        call();
        EXPECT_EQ(noted->Take(), heard);
    };
    const auto parameter = CastListener<IBase_CallbackParameter>(object);
    expect([&] { parameter->OnParameterReconfigured(nullptr); }, "OnParameterReconfigured Nothing");
    expect([&] { parameter->OnParameterStateChanged(nullptr); }, "OnParameterStateChanged Nothing");
    expect([&] { parameter->OnParameterValueChanged(nullptr); }, "OnParameterValueChanged Nothing");
    expect([&] { parameter->OnParameterConfigStateChanged(nullptr); }, "OnParameterConfigStateChanged Nothing");
    const auto module = CastListener<IBase_CallbackModule>(object);
    expect([&] { module->OnLanguageChanged(nullptr); }, "OnLanguageChanged Nothing");
    expect([&] { module->OnUnload(nullptr); }, "OnUnload Nothing");
    expect([&] { module->OnEnvironmentChanged(nullptr, u"k", Variant(true)); },
           "OnEnvironmentChanged Nothing String k True");
    const auto station = CastListener<IBase_CallbackStation>(object);
    expect([&] { station->OnAddModule(nullptr); }, "OnAddModule Nothing");
    expect([&] { station->OnRemoveModule(nullptr); }, "OnRemoveModule Nothing");
    const auto events = CastListener<CBase_EnvironmentEvents>(object);
    expect([&] { events->Changed(u"k", Variant(1.5)); }, "Changed String k Double 1.5");
    const auto service = CastListener<ISpec_ImExport>(object);
    expect([&] { EXPECT_TRUE(service->DoReImportParameter(nullptr)); }, "DoReImportParameter Nothing");

    Variant data(u"data");
    Variant source;
    expect([&] { EXPECT_TRUE(service->DoImport(nullptr, data, source)); }, "DoImport Nothing String data Empty");
    EXPECT_EQ(Describe(data) + "/" + Describe(source), "String new/String new");
    expect([&] { EXPECT_TRUE(service->DoExport(nullptr, data, source)); }, "DoExport Nothing String new String new");
}

TEST(ContractListenerTest, WhatAListenerLacksDoesNothing) {
    const Ref<Noted> noted = MakeObject<Noted>(std::vector<std::string>{"DoExport", "OnUnload"});
    const auto service = CastListener<ISpec_ImExport>(noted->Dispatch());
    ASSERT_TRUE(service);
    Variant data(u"data");
    Variant source(true);
    EXPECT_FALSE(service->DoImport(nullptr, data, source));
    EXPECT_FALSE(service->DoReImportParameter(nullptr));
    EXPECT_EQ(Describe(data) + "/" + Describe(source), "String data/True");
    CastListener<IBase_CallbackModule>(noted->Dispatch())->OnLanguageChanged(nullptr);
    EXPECT_EQ(noted->Take(), "");
    EXPECT_FALSE(CastListener<IBase_CallbackParameter>(noted->Dispatch()));
    EXPECT_FALSE(CastListener<IBase_CallbackStation>(noted->Dispatch()));
    EXPECT_FALSE(CastListener<CBase_EnvironmentEvents>(noted->Dispatch()));
}

}  // namespace
}  // namespace ov
