#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/default_interfaces.h"
#include "contract/environment.h"
#include "contract/group.h"
#include "contract/internal.h"
#include "contract/module.h"
#include "contract/parameter.h"
#include "contract/scripting.h"
#include "contract/station.h"
#include "platform/automation/collection.h"
#include "platform/automation/member.h"
#include "platform/store/store.h"

namespace ov {
namespace {

/// The slot of a virtual function, which the pointer to it holds: as 1 + its offset in the table, or, where code
/// addresses use that bit, as the offset with the bit in the second word.
template <class Function>
std::size_t SlotOf(Function function) {
    std::ptrdiff_t words[2];
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
    EXPECT_TRUE(((words[0] | words[1]) & 1) != 0) << "not virtual";
    return static_cast<std::size_t>(words[0]) / sizeof(void*);
}

/// One operation as hosts know it: "get Item 1 default", "consistent 0-1", "sel 1-*". The numbers are those of the
/// arguments, the new value of a property included.
std::string ShapeOf(const Member& member) {
    std::string shape = member.kind == CallKind::Get   ? "get "
                        : member.kind == CallKind::Let ? "let "
                        : member.kind == CallKind::Set ? "set "
                                                       : "";
    shape.append(member.name);
    if (member.total == Member::kAnyNumber) {
        shape.append(" ").append(std::to_string(member.required)).append("-*");
    } else if (member.total > 0) {
        shape.append(" ").append(std::to_string(member.required));
        if (member.total != member.required) shape.append("-").append(std::to_string(member.total));
    }
    return shape.append(member.isDefault ? " default" : "");
}

constexpr std::size_t kFirstSlot = 8;  // behind three of IUnknown and five of IDispatch

/// Checks name, identifier and operations of an interface, and that each function stands in its slot and is the one
/// that is called by its name.
template <class I, auto... Functions>
void ExpectShape(const char* name, const char* identifier, const std::string& shape) {
    const InterfaceInfo& info = I::Members();
    EXPECT_STREQ(info.Name(), name);
    EXPECT_STREQ(I::kName, name);
    EXPECT_EQ(info.Iid(), Guid::Parse(identifier)) << name;
    EXPECT_EQ(I::kIid, Guid::Parse(identifier)) << name;
    std::string found;
    for (const Member& each : info.Members()) {
        found.append(found.empty() ? "" : ", ").append(ShapeOf(each));
    }
    EXPECT_EQ(found, shape) << name;
    const std::vector<std::size_t> slots{SlotOf(Functions)...};
    const std::vector<Member::Thunk> calls{member<Functions>("").call...};
    ASSERT_EQ(info.Members().size(), slots.size()) << name;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        EXPECT_EQ(slots[i], kFirstSlot + i) << name << " " << info.Members()[i].name;
        EXPECT_EQ(info.Members()[i].call, calls[i]) << name << " " << info.Members()[i].name;
    }
}

TEST(InterfaceShapeTest, Foundation) {
    EXPECT_EQ(SlotOf(&IUnknown::QueryInterface), 0u);
    EXPECT_EQ(SlotOf(&IUnknown::AddRef), 1u);
    EXPECT_EQ(SlotOf(&IUnknown::Release), 2u);
    EXPECT_EQ(SlotOf(&IDispatch::GetTypeInfoCount), 3u);
    EXPECT_EQ(SlotOf(&IDispatch::GetTypeInfo), 4u);
    EXPECT_EQ(SlotOf(&IDispatch::GetIDsOfNames), 5u);
    EXPECT_EQ(SlotOf(&IDispatch::Invoke), 6u);
    EXPECT_EQ(SlotOf(&IDispatch::ClassName), 7u);
}

TEST(InterfaceShapeTest, CBase_Module) {
    using I = CBase_Module;
    ExpectShape<I, &I::get_mDB, &I::set_mDB, &I::GetDllPath, &I::GetDBVersion, &I::Gui, &I::Spec, &I::GetUnloadPointer,
                &I::GetModuleType, &I::SetLanguage, &I::GetLanguage, &I::SetSourcePath, &I::GetSourcePath, &I::Types,
                &I::Load, &I::Unload, &I::GetModuleType2, &I::GetDBPath, &I::GetModelVersionIndex,
                &I::RegisterModuleCallbackOnly, &I::GetIndexedFile>(
        "_CBase_Module", "{DE897C62-00D5-4F0D-A52E-D425C47FB7C7}",
        "get mDB, set mDB 1, GetDllPath, GetDBVersion, Gui, Spec, GetUnloadPointer, GetModuleType 0-2, "
        "SetLanguage 1, GetLanguage, SetSourcePath 1, GetSourcePath, Types, Load 1-3, Unload, "
        "GetModuleType2 0-3, GetDBPath, GetModelVersionIndex, RegisterModuleCallbackOnly 1, "
        "GetIndexedFile 1");
}
TEST(InterfaceShapeTest, IBase_GuiModule) {
    using I = IBase_GuiModule;
    ExpectShape<I, &I::name, &I::consistent, &I::image, &I::modified, &I::id, &I::ClearModified, &I::unknown,
                &I::SetUnknown, &I::LockDataset, &I::UnlockDataset, &I::channels, &I::station, &I::mainValue,
                &I::deviceHelpFile, &I::description, &I::authentification, &I::RegisterCallback, &I::UnregisterCallback,
                &I::Spec, &I::Base, &I::ClearUnknown, &I::ResetValue>(
        "_IBase_GuiModule", "{2890C394-BA4B-425D-8F4E-1337086DECB8}",
        "name, consistent 0-1, image, modified 0-1, id, ClearModified 0-1, unknown 0-1, SetUnknown 0-1, "
        "LockDataset 0-1, UnlockDataset 0-1, channels, station, mainValue, deviceHelpFile, description, "
        "authentification, RegisterCallback 1, UnregisterCallback 1, Spec, Base, ClearUnknown 0-1, "
        "ResetValue 0-1");
}
TEST(InterfaceShapeTest, IBase_SpecModule) {
    using I = IBase_SpecModule;
    ExpectShape<I, &I::id, &I::channels, &I::station, &I::Clone, &I::Compare, &I::CheckConsistency,
                &I::UpdateDependencies, &I::RegisterImExport, &I::Import, &I::Export, &I::desc, &I::Gui, &I::Base,
                &I::fdtDeviceTypeInformation, &I::Environment, &I::ParameterKindToString, &I::Unload, &I::CloneType,
                &I::scriptAccess>(
        "_IBase_SpecModule", "{11852F1C-F258-4391-B24A-BA660A785FAB}",
        "id, channels, station, Clone, Compare 1-2, CheckConsistency, UpdateDependencies, "
        "RegisterImExport 1, Import 2, Export 2, desc, Gui, Base, fdtDeviceTypeInformation, Environment, "
        "ParameterKindToString 1, Unload, CloneType, scriptAccess");
}
TEST(InterfaceShapeTest, CBase_Station) {
    using I = CBase_Station;
    ExpectShape<I, &I::get_id, &I::let_id, &I::set_id, &I::get_name, &I::let_name, &I::AddModule, &I::RemoveModule>(
        "_CBase_Station", "{A21E2184-CB9E-4F18-A9A8-936D0529A0BE}",
        "get id, let id 1, set id 1, get name, let name 1, AddModule 1, RemoveModule 1");
}
TEST(InterfaceShapeTest, IBase_GuiStation) {
    using I = IBase_GuiStation;
    ExpectShape<I, &I::name, &I::consistent, &I::modified, &I::ClearModified, &I::unknown, &I::SetUnknown, &I::modules,
                &I::id, &I::RegisterCallback, &I::UnregisterCallback, &I::ClearUnknown>(
        "_IBase_GuiStation", "{FEA3EC16-B853-450E-9BD5-6FC421E1AA82}",
        "name, consistent 0-1, modified 0-1, ClearModified 0-1, unknown 0-1, SetUnknown 0-1, modules, "
        "id, RegisterCallback 1, UnregisterCallback 1, ClearUnknown 0-1");
}
TEST(InterfaceShapeTest, IBase_SpecStation) {
    using I = IBase_SpecStation;
    ExpectShape<I, &I::id, &I::modules, &I::Clone, &I::Compare>(
        "_IBase_SpecStation", "{F886F26C-4F08-48D4-AFAB-E1571CD0E499}", "id, modules, Clone, Compare 1-2");
}
TEST(InterfaceShapeTest, IBase_GuiChannel) {
    using I = IBase_GuiChannel;
    ExpectShape<I, &I::name, &I::consistent, &I::modified, &I::ClearModified, &I::unknown, &I::SetUnknown,
                &I::LockDataset, &I::UnlockDataset, &I::id, &I::mainValue, &I::module, &I::blocks, &I::RegisterCallback,
                &I::UnregisterCallback, &I::Spec, &I::EditPlugin, &I::ClearUnknown, &I::ResetValue>(
        "_IBase_GuiChannel", "{EEC10663-CD36-409E-B13F-0AA94D8D2AF7}",
        "name, consistent 0-1, modified 0-1, ClearModified 0-1, unknown 0-1, SetUnknown 0-1, "
        "LockDataset 0-1, UnlockDataset 0-1, id, mainValue, module, blocks, RegisterCallback 1, "
        "UnregisterCallback 1, Spec, EditPlugin 0-1, ClearUnknown 0-1, ResetValue 0-1");
}
TEST(InterfaceShapeTest, IBase_SpecChannel) {
    using I = IBase_SpecChannel;
    ExpectShape<I, &I::id, &I::module, &I::groups, &I::desc, &I::Gui, &I::Clone, &I::Compare, &I::EvaluateScript,
                &I::scriptAccess, &I::CheckConsistency, &I::UpdateDependencies>(
        "_IBase_SpecChannel", "{FF2B2388-C447-495A-82A0-91B47CF9D45E}",
        "id, module, groups, desc, Gui, Clone, Compare 1-2, EvaluateScript 1, scriptAccess, "
        "CheckConsistency, UpdateDependencies");
}
TEST(InterfaceShapeTest, IBase_ScriptingChannel) {
    using I = IBase_ScriptingChannel;
    ExpectShape<I, &I::groups>("_IBase_ScriptingChannel", "{8B261F73-FDAB-44B8-8380-68FB04EB325B}", "groups");
}
TEST(InterfaceShapeTest, IBase_GuiBlock) {
    using I = IBase_GuiBlock;
    ExpectShape<I, &I::name, &I::consistent, &I::modified, &I::ClearModified, &I::unknown, &I::SetUnknown,
                &I::LockDataset, &I::UnlockDataset, &I::id, &I::channel, &I::groups, &I::RegisterCallback,
                &I::UnregisterCallback, &I::ClearUnknown, &I::ResetValue>(
        "_IBase_GuiBlock", "{BFD87A2E-3BA0-4266-954F-08D88173E00F}",
        "name, consistent 0-1, modified 0-1, ClearModified 0-1, unknown 0-1, SetUnknown 0-1, "
        "LockDataset 0-1, UnlockDataset 0-1, id, channel, groups, RegisterCallback 1, "
        "UnregisterCallback 1, ClearUnknown 0-1, ResetValue 0-1");
}
TEST(InterfaceShapeTest, IBase_GuiGroup) {
    using I = IBase_GuiGroup;
    ExpectShape<I, &I::name, &I::consistent, &I::modified, &I::ClearModified, &I::unknown, &I::SetUnknown,
                &I::LockDataset, &I::UnlockDataset, &I::id, &I::expertOnly, &I::blocks, &I::channel, &I::parameters,
                &I::RegisterCallback, &I::UnregisterCallback, &I::Spec, &I::EditPlugin, &I::ClearUnknown,
                &I::ResetValue>("_IBase_GuiGroup", "{D8C58545-4206-4B9E-A563-3486EC1CC093}",
                                "name, consistent 0-1, modified 0-1, ClearModified 0-1, unknown 0-1, SetUnknown 0-1, "
                                "LockDataset 0-1, UnlockDataset 0-1, id, expertOnly, blocks, channel, parameters, "
                                "RegisterCallback 1, UnregisterCallback 1, Spec, EditPlugin 0-1, ClearUnknown 0-1, "
                                "ResetValue 0-1");
}
TEST(InterfaceShapeTest, IBase_SpecGroup) {
    using I = IBase_SpecGroup;
    ExpectShape<I, &I::id, &I::channel, &I::parameters, &I::desc, &I::Gui, &I::Clone, &I::Compare, &I::EvaluateScript,
                &I::scriptAccess>(
        "_IBase_SpecGroup", "{320D91F2-F36E-4D56-BCCD-D330541086DF}",
        "id, channel, parameters, desc, Gui, Clone, Compare 1-2, EvaluateScript 1, scriptAccess");
}
TEST(InterfaceShapeTest, IBase_ScriptingGroup) {
    using I = IBase_ScriptingGroup;
    ExpectShape<I, &I::parameters>("_IBase_ScriptingGroup", "{B5514B3C-1866-4CC2-9C5D-82CBEE787C58}", "parameters");
}
TEST(InterfaceShapeTest, IBase_GuiParameter) {
    using I = IBase_GuiParameter;
    ExpectShape<I, &I::get_value, &I::let_value, &I::editType, &I::editValues, &I::consistent, &I::configState,
                &I::modified, &I::ClearModified, &I::unknown, &I::SetUnknown, &I::LockDataset, &I::UnlockDataset,
                &I::name, &I::editable, &I::description, &I::unit, &I::EditPlugin, &I::Min, &I::Max, &I::expertOnly,
                &I::authentification, &I::trendVariable, &I::html, &I::error, &I::group, &I::id, &I::RegisterCallback,
                &I::UnregisterCallback, &I::Spec, &I::FormatValue, &I::ClearUnknown, &I::ResetValue>(
        "_IBase_GuiParameter", "{C5225AE7-024B-4DD9-A089-07F5AED81591}",
        "get value, let value 1, editType, editValues, consistent 0-1, configState, modified, "
        "ClearModified, unknown, SetUnknown, LockDataset, UnlockDataset, name, editable, description, "
        "unit, EditPlugin 0-1, Min, Max, expertOnly, authentification, trendVariable, html, error, "
        "group, id, RegisterCallback 1, UnregisterCallback 1, Spec, FormatValue 1-2, ClearUnknown, "
        "ResetValue");
}
TEST(InterfaceShapeTest, IBase_SpecParameter) {
    using I = IBase_SpecParameter;
    ExpectShape<I, &I::get_value, &I::let_value, &I::set_value, &I::get_realvalue, &I::let_realvalue, &I::set_realvalue,
                &I::get_tag, &I::let_tag, &I::set_tag, &I::desc, &I::id, &I::kind, &I::valid, &I::direction, &I::group,
                &I::Clone, &I::Compare, &I::Gui, &I::ExportToByteArrayMapByMemory, &I::ImportFromByteArrayMapByMemory,
                &I::ExportToHexStringMapByMemory, &I::ImportFromHexStringMapByMemory, &I::scriptAccess>(
        "_IBase_SpecParameter", "{08F18256-6983-44BB-9BD9-7D07C72CE0A6}",
        "get value, let value 1, set value 1, get realvalue, let realvalue 1, set realvalue 1, get tag, "
        "let tag 1, set tag 1, desc 1-2, id, kind, valid, direction, group, Clone, Compare 1, Gui, "
        "ExportToByteArrayMapByMemory 1-5, ImportFromByteArrayMapByMemory 1-5, "
        "ExportToHexStringMapByMemory 1-5, ImportFromHexStringMapByMemory 1-5, scriptAccess");
}
TEST(InterfaceShapeTest, IBase_SpecParameterStorage) {
    using I = IBase_SpecParameterStorage;
    ExpectShape<I, &I::get_realvalueForStorage, &I::let_realvalueForStorage>(
        "_IBase_SpecParameterStorage", "{76F4FEEA-B4C3-4B85-85B1-814B3FA6CB5B}",
        "get realvalueForStorage, let realvalueForStorage 1");
}
TEST(InterfaceShapeTest, IBase_Internal) {
    using I = IBase_Internal;
    ExpectShape<I, &I::get_configState, &I::let_configState, &I::get_scriptAccess, &I::let_scriptAccess,
                &I::CheckConsistency, &I::Config, &I::id, &I::DBindex, &I::dependencies, &I::Unload,
                &I::CheckNeedForReConfig>(
        "_IBase_Internal", "{891CC229-5CDE-46A5-AE8C-F0BFBEABCDEC}",
        "get configState, let configState 1, get scriptAccess, let scriptAccess 1, CheckConsistency, "
        "Config 2, id, DBindex, dependencies, Unload, CheckNeedForReConfig");
}
TEST(InterfaceShapeTest, IBase_CallbackParameter) {
    using I = IBase_CallbackParameter;
    ExpectShape<I, &I::OnParameterReconfigured, &I::OnParameterStateChanged, &I::OnParameterValueChanged,
                &I::OnParameterConfigStateChanged>(
        "_IBase_CallbackParameter", "{CA0E2627-06C3-4004-85A9-23BEA66D66DF}",
        "OnParameterReconfigured 1, OnParameterStateChanged 1, OnParameterValueChanged 1, "
        "OnParameterConfigStateChanged 1");
}
TEST(InterfaceShapeTest, IBase_CallbackModule) {
    using I = IBase_CallbackModule;
    ExpectShape<I, &I::OnLanguageChanged, &I::OnUnload, &I::OnEnvironmentChanged>(
        "_IBase_CallbackModule", "{AC92C8A8-4D1B-41D7-BB6C-0E6630F0F16C}",
        "OnLanguageChanged 1, OnUnload 1, OnEnvironmentChanged 3");
}
TEST(InterfaceShapeTest, IBase_CallbackStation) {
    using I = IBase_CallbackStation;
    ExpectShape<I, &I::OnAddModule, &I::OnRemoveModule>(
        "_IBase_CallbackStation", "{3EFC06FD-99CC-4936-9200-61483B8162E7}", "OnAddModule 1, OnRemoveModule 1");
}
TEST(InterfaceShapeTest, ISpec_ImExport) {
    using I = ISpec_ImExport;
    ExpectShape<I, &I::DoImport, &I::DoExport, &I::DoReImportParameter>(
        "_ISpec_ImExport", "{C50B61FE-F1F1-4623-B4DD-5C5EFE508A0C}", "DoImport 3, DoExport 3, DoReImportParameter 1");
}
TEST(InterfaceShapeTest, CBase_Environment) {
    using I = CBase_Environment;
    ExpectShape<I, &I::let_Variable, &I::get_Variable, &I::CopyContentsTo, &I::let_VariableNoEvent>(
        "_CBase_Environment", "{0395343D-28E0-4AA9-B8DD-C7DCC15FC65B}",
        "let Variable 2, get Variable 1, CopyContentsTo 1, let VariableNoEvent 2");
}
TEST(InterfaceShapeTest, CBase_ScriptingParameters) {
    using I = CBase_ScriptingParameters;
    ExpectShape<I, &I::value, &I::val, &I::sVal, &I::sel, &I::hVal, &I::script, &I::SetValue, &I::Gui, &I::isIn>(
        "_CBase_ScriptingParameters", "{30ADEE7D-25D9-4F95-8C04-BDE2FAAADF15}",
        "value 1 default, val 1, sVal 1, sel 1-*, hVal 1-3, script 1, SetValue 2, Gui 1, isIn 1-*");
}
TEST(InterfaceShapeTest, CBase_ScriptingGroups) {
    using I = CBase_ScriptingGroups;
    ExpectShape<I, &I::parameters>("_CBase_ScriptingGroups", "{A88F685C-33B8-4363-92A2-C92C036BB559}",
                                   "parameters 1 default");
}
TEST(InterfaceShapeTest, CBase_ScriptingChannels) {
    using I = CBase_ScriptingChannels;
    ExpectShape<I, &I::groups>("_CBase_ScriptingChannels", "{7EB67628-4550-4422-AEF9-63449123871D}",
                               "groups 1 default");
}
TEST(InterfaceShapeTest, CBase_ScriptingTexts) {
    using I = CBase_ScriptingTexts;
    ExpectShape<I, &I::text>("_CBase_ScriptingTexts", "{B4ACC4C2-9269-40BA-837F-6CF8E8F2FC17}", "text 1 default");
}
TEST(InterfaceShapeTest, CBase_Unload) {
    using I = CBase_Unload;
    ExpectShape<I, &I::get_o>("_CBase_Unload", "{A3B470D9-4F7A-49B3-9AA6-296DFA23BF32}", "get o");
}
TEST(InterfaceShapeTest, CBase_Channel) {
    using I = CBase_Channel;
    ExpectShape<I, &I::ExecuteScript>("_CBase_Channel", "{84963A3F-5626-44EE-A7B2-9DEFC7440311}", "ExecuteScript 1");
}
TEST(InterfaceShapeTest, CBase_Group) {
    using I = CBase_Group;
    ExpectShape<I, &I::ExecuteScript>("_CBase_Group", "{7E5EB669-3150-41B3-B547-256027388063}", "ExecuteScript 1");
}
TEST(InterfaceShapeTest, CBase_ParameterString) {
    using I = CBase_ParameterString;
    ExpectShape<I, &I::DcpNameCheck>("_CBase_ParameterString", "{BD92CD77-26CF-433E-B1BD-DCB6E75B7DA2}",
                                     "DcpNameCheck 1");
}
TEST(InterfaceShapeTest, CBase_ParamDependency) {
    using I = CBase_ParamDependency;
    ExpectShape<I, &I::get_idx, &I::get_dep, &I::get_removeOnDep, &I::get_desc, &I::MoveFirst, &I::MoveNext, &I::Add>(
        "_CBase_ParamDependency", "{16353967-1FE9-4068-81E7-11A6979EED77}",
        "get idx, get dep, get removeOnDep, get desc, MoveFirst, MoveNext, Add 4");
}
TEST(InterfaceShapeTest, CBase_Environment_events) {
    using I = CBase_EnvironmentEvents;
    ExpectShape<I, &I::Changed>("__CBase_Environment", "{6C6B9C1E-8A34-4E43-9F0A-3B5D1C7E2A90}", "Changed 2");
}

template <class I>
void ExpectCollection(const char* name, const char* identifier) {
    ExpectShape<I, &I::Add, &I::Count, &I::Remove, &I::get_Item, &I::set_Item, &I::NewEnum, &I::Inside, &I::Clear,
                &I::get_first>(
        name, identifier,
        "Add 2, Count, Remove 1, get Item 1 default, set Item 2 default, NewEnum, Inside 1, Clear, "
        "get first");
}

TEST(InterfaceShapeTest, Collections) {
    ExpectCollection<CBase_GuiParameterCollection>("_CBase_GuiParameterCollection",
                                                   "{E886E571-5E83-4789-ADD0-56ADA804B9AD}");
    ExpectCollection<CBase_GuiModuleCollection>("_CBase_GuiModuleCollection", "{7CC7D5A5-0CAB-44E8-B9A7-707FADB126C2}");
    ExpectCollection<CBase_GuiChannelCollection>("_CBase_GuiChannelCollection",
                                                 "{BB40AFDF-CBC0-4EA3-92D0-5BE9881D72C4}");
    ExpectCollection<CBase_GuiBlockCollection>("_CBase_GuiBlockCollection", "{EFB4D676-43B2-4509-A6CB-93DE71854178}");
    ExpectCollection<CBase_SpecParameterCollection>("_CBase_SpecParameterCollection",
                                                    "{C6D3D9B7-89EB-42A1-87F5-902092C926BE}");
    ExpectCollection<CBase_SpecChannelCollection>("_CBase_SpecChannelCollection",
                                                  "{1C64390C-2290-4B2F-8C0E-32474BBA96AC}");
    ExpectCollection<CBase_SpecModuleCollection>("_CBase_SpecModuleCollection",
                                                 "{59AA7C9E-68E8-4175-8309-C717AB0386B1}");
    ExpectCollection<CBase_GuiGroupCollection>("_CBase_GuiGroupCollection", "{C50EAA53-0205-49A5-8E22-B1AA6E14D164}");
    ExpectCollection<CBase_SpecGroupCollection>("_CBase_SpecGroupCollection", "{A6C8F685-7729-47BB-A20B-7214FC361F56}");
}

TEST(InterfaceShapeTest, DefaultInterfacesHaveNoOperations) {
    ExpectShape<CBase_ChannelScripting>("_CBase_ChannelScripting", "{D3E51013-FC39-5E7B-B1BE-E956F86F5900}", "");
    ExpectShape<CBase_GroupScripting>("_CBase_GroupScripting", "{875EC7F3-4C61-5A2B-A7E8-13EE6E5CD59D}", "");
    ExpectShape<CBase_Block>("_CBase_Block", "{DE0E2C23-FECB-5804-BA57-6955C7C2F64F}", "");
    ExpectShape<CBase_ParameterInt>("_CBase_ParameterInt", "{8CF443BF-FD07-55E4-9C4A-744BF296BD51}", "");
    ExpectShape<CBase_ParameterFloat>("_CBase_ParameterFloat", "{543CFE97-9605-57C2-AB88-70D68BF43B88}", "");
    ExpectShape<CBase_ParameterDecimal>("_CBase_ParameterDecimal", "{EB7CB80B-CF97-5B9C-8DFC-F98A816A1B83}", "");
    ExpectShape<CBase_ParameterEnum>("_CBase_ParameterEnum", "{22B1C8A7-7ADC-5D11-9396-9AB4FFA384B3}", "");
    ExpectShape<CBase_ParameterSelect>("_CBase_ParameterSelect", "{5E82239A-7C78-560D-95E5-8A9463C921F1}", "");
    ExpectShape<CBase_ParameterEnumS>("_CBase_ParameterEnumS", "{F3612CA7-4D9F-5D32-8336-CBB97868F245}", "");
    ExpectShape<CBase_ParameterENVString>("_CBase_ParameterENVString", "{2E2E3889-80A9-56CC-95DF-E3472924EF36}", "");
}

}  // namespace
}  // namespace ov
