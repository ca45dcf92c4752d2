#include "contract/module.h"

#include <array>

#include "contract/callbacks.h"
#include "contract/collections.h"
#include "contract/environment.h"
#include "contract/parameter.h"
#include "contract/station.h"
#include "platform/automation/collection.h"
#include "platform/automation/member.h"
#include "platform/store/store.h"

namespace ov {

const InterfaceInfo& CBase_Module::Members() {
    static constexpr std::array kMembers = {
        get_member<&CBase_Module::get_mDB>("mDB"),
        set_member<&CBase_Module::set_mDB>("mDB"),
        member<&CBase_Module::GetDllPath>("GetDllPath"),
        member<&CBase_Module::GetDBVersion>("GetDBVersion"),
        member<&CBase_Module::Gui>("Gui"),
        member<&CBase_Module::Spec>("Spec"),
        member<&CBase_Module::GetUnloadPointer>("GetUnloadPointer"),
        member<&CBase_Module::GetModuleType>("GetModuleType"),
        member<&CBase_Module::SetLanguage>("SetLanguage"),
        member<&CBase_Module::GetLanguage>("GetLanguage"),
        member<&CBase_Module::SetSourcePath>("SetSourcePath"),
        member<&CBase_Module::GetSourcePath>("GetSourcePath"),
        member<&CBase_Module::Types>("Types"),
        member<&CBase_Module::Load>("Load"),
        member<&CBase_Module::Unload>("Unload"),
        member<&CBase_Module::GetModuleType2>("GetModuleType2"),
        member<&CBase_Module::GetDBPath>("GetDBPath"),
        member<&CBase_Module::GetModelVersionIndex>("GetModelVersionIndex"),
        member<&CBase_Module::RegisterModuleCallbackOnly>("RegisterModuleCallbackOnly"),
        member<&CBase_Module::GetIndexedFile>("GetIndexedFile"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_GuiModule::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_GuiModule::name>("name"),
        member<&IBase_GuiModule::consistent>("consistent"),
        member<&IBase_GuiModule::image>("image"),
        member<&IBase_GuiModule::modified>("modified"),
        member<&IBase_GuiModule::id>("id"),
        member<&IBase_GuiModule::ClearModified>("ClearModified"),
        member<&IBase_GuiModule::unknown>("unknown"),
        member<&IBase_GuiModule::SetUnknown>("SetUnknown"),
        member<&IBase_GuiModule::LockDataset>("LockDataset"),
        member<&IBase_GuiModule::UnlockDataset>("UnlockDataset"),
        member<&IBase_GuiModule::channels>("channels"),
        member<&IBase_GuiModule::station>("station"),
        member<&IBase_GuiModule::mainValue>("mainValue"),
        member<&IBase_GuiModule::deviceHelpFile>("deviceHelpFile"),
        member<&IBase_GuiModule::description>("description"),
        member<&IBase_GuiModule::authentification>("authentification"),
        member<&IBase_GuiModule::RegisterCallback>("RegisterCallback"),
        member<&IBase_GuiModule::UnregisterCallback>("UnregisterCallback"),
        member<&IBase_GuiModule::Spec>("Spec"),
        member<&IBase_GuiModule::Base>("Base"),
        member<&IBase_GuiModule::ClearUnknown>("ClearUnknown"),
        member<&IBase_GuiModule::ResetValue>("ResetValue"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_SpecModule::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_SpecModule::id>("id"),
        member<&IBase_SpecModule::channels>("channels"),
        member<&IBase_SpecModule::station>("station"),
        member<&IBase_SpecModule::Clone>("Clone"),
        member<&IBase_SpecModule::Compare>("Compare"),
        member<&IBase_SpecModule::CheckConsistency>("CheckConsistency"),
        member<&IBase_SpecModule::UpdateDependencies>("UpdateDependencies"),
        member<&IBase_SpecModule::RegisterImExport>("RegisterImExport"),
        member<&IBase_SpecModule::Import>("Import"),
        member<&IBase_SpecModule::Export>("Export"),
        member<&IBase_SpecModule::desc>("desc"),
        member<&IBase_SpecModule::Gui>("Gui"),
        member<&IBase_SpecModule::Base>("Base"),
        member<&IBase_SpecModule::fdtDeviceTypeInformation>("fdtDeviceTypeInformation"),
        member<&IBase_SpecModule::Environment>("Environment"),
        member<&IBase_SpecModule::ParameterKindToString>("ParameterKindToString"),
        member<&IBase_SpecModule::Unload>("Unload"),
        member<&IBase_SpecModule::CloneType>("CloneType"),
        member<&IBase_SpecModule::scriptAccess>("scriptAccess"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& CBase_Unload::Members() {
    static constexpr std::array kMembers = {
        get_member<&CBase_Unload::get_o>("o"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
