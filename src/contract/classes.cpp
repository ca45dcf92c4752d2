#include "contract/classes.h"

#include <algorithm>
#include <array>

#include "platform/automation/text.h"

namespace ov {

namespace {

constexpr const char* kModule[] = {"_CBase_Module", "_IBase_SpecModule", "_IBase_CallbackParameter",
                                   "_IBase_GuiModule"};
constexpr const char* kChannelScripting[] = {"_CBase_ChannelScripting"};
constexpr const char* kScriptingParameters[] = {"_CBase_ScriptingParameters"};
constexpr const char* kStation[] = {"_CBase_Station", "_IBase_CallbackModule", "_IBase_SpecStation",
                                    "_IBase_CallbackParameter", "_IBase_GuiStation"};
constexpr const char* kGuiModuleCollection[] = {"_CBase_GuiModuleCollection"};
constexpr const char* kGuiChannelCollection[] = {"_CBase_GuiChannelCollection"};
constexpr const char* kGuiBlockCollection[] = {"_CBase_GuiBlockCollection"};
constexpr const char* kGuiParameterCollection[] = {"_CBase_GuiParameterCollection"};
constexpr const char* kSpecParameterCollection[] = {"_CBase_SpecParameterCollection"};
constexpr const char* kSpecChannelCollection[] = {"_CBase_SpecChannelCollection"};
constexpr const char* kSpecModuleCollection[] = {"_CBase_SpecModuleCollection"};
constexpr const char* kParameterDecimal[] = {"_CBase_ParameterDecimal", "_IBase_GuiParameter", "_IBase_Internal",
                                             "_IBase_SpecParameter", "_IBase_SpecParameterStorage"};
constexpr const char* kBlock[] = {"_CBase_Block", "_IBase_CallbackParameter", "_IBase_GuiBlock"};
constexpr const char* kChannel[] = {"_CBase_Channel", "_IBase_SpecChannel", "_IBase_CallbackParameter",
                                    "_IBase_GuiChannel", "_IBase_ScriptingChannel"};
constexpr const char* kGuiGroupCollection[] = {"_CBase_GuiGroupCollection"};
constexpr const char* kGroup[] = {"_CBase_Group", "_IBase_GuiGroup", "_IBase_SpecGroup", "_IBase_CallbackParameter",
                                  "_IBase_ScriptingGroup"};
constexpr const char* kScriptingChannels[] = {"_CBase_ScriptingChannels"};
constexpr const char* kParameterEnum[] = {"_CBase_ParameterEnum", "_IBase_GuiParameter", "_IBase_Internal",
                                          "_IBase_SpecParameter", "_IBase_SpecParameterStorage"};
constexpr const char* kParameterFloat[] = {"_CBase_ParameterFloat", "_IBase_GuiParameter", "_IBase_Internal",
                                           "_IBase_SpecParameter", "_IBase_SpecParameterStorage"};
constexpr const char* kEnvironment[] = {"_CBase_Environment", "__CBase_Environment"};
constexpr const char* kParameterString[] = {"_CBase_ParameterString", "_IBase_GuiParameter", "_IBase_Internal",
                                            "_IBase_SpecParameter", "_IBase_SpecParameterStorage"};
constexpr const char* kSpecGroupCollection[] = {"_CBase_SpecGroupCollection"};
constexpr const char* kScriptingGroups[] = {"_CBase_ScriptingGroups"};
constexpr const char* kParamDependency[] = {"_CBase_ParamDependency"};
constexpr const char* kUnload[] = {"_CBase_Unload"};
constexpr const char* kParameterInt[] = {"_CBase_ParameterInt", "_IBase_GuiParameter", "_IBase_Internal",
                                         "_IBase_SpecParameter", "_IBase_SpecParameterStorage"};
constexpr const char* kParameterSelect[] = {"_CBase_ParameterSelect", "_IBase_GuiParameter", "_IBase_Internal",
                                            "_IBase_SpecParameter", "_IBase_SpecParameterStorage"};
constexpr const char* kParameterEnumS[] = {"_CBase_ParameterEnumS", "_IBase_GuiParameter", "_IBase_SpecParameter",
                                           "_IBase_Internal", "_IBase_SpecParameterStorage"};
constexpr const char* kGroupScripting[] = {"_CBase_GroupScripting"};
constexpr const char* kScriptingTexts[] = {"_CBase_ScriptingTexts"};
constexpr const char* kParameterENVString[] = {"_CBase_ParameterENVString",   "_IBase_GuiParameter",
                                               "_IBase_SpecParameter",        "_IBase_Internal",
                                               "_IBase_SpecParameterStorage", "_IBase_CallbackModule"};

constexpr std::array kClasses = {
    ClassDescription{"CBase_Module", Guid::Parse("{A2D31342-348E-472B-BB73-D2C1436D7468}"), kModule},
    ClassDescription{"CBase_ChannelScripting", Guid::Parse("{7ACB57F7-212A-45E1-AE95-37E59D22D5B7}"),
                     kChannelScripting},
    ClassDescription{"CBase_ScriptingParameters", Guid::Parse("{33E82EC7-F477-4FBD-8206-FBACFB4D041A}"),
                     kScriptingParameters},
    ClassDescription{"CBase_Station", Guid::Parse("{F1FFD71B-C773-477D-A4FD-32809EC505E9}"), kStation},
    ClassDescription{"CBase_GuiModuleCollection", Guid::Parse("{3C89642F-B691-4434-8876-6BFA10C33591}"),
                     kGuiModuleCollection},
    ClassDescription{"CBase_GuiChannelCollection", Guid::Parse("{450AA350-E12C-468A-96D8-23184268873C}"),
                     kGuiChannelCollection},
    ClassDescription{"CBase_GuiBlockCollection", Guid::Parse("{6B85900B-C773-4555-8575-C977459A2F9B}"),
                     kGuiBlockCollection},
    ClassDescription{"CBase_GuiParameterCollection", Guid::Parse("{696E6629-F7D7-4744-9ACE-9EBFF8D8BB4F}"),
                     kGuiParameterCollection},
    ClassDescription{"CBase_SpecParameterCollection", Guid::Parse("{E7BB28A9-B538-4BF1-B973-615F54443279}"),
                     kSpecParameterCollection},
    ClassDescription{"CBase_SpecChannelCollection", Guid::Parse("{C9C49049-740D-4EC2-B0EA-B5FBF3769C6E}"),
                     kSpecChannelCollection},
    ClassDescription{"CBase_SpecModuleCollection", Guid::Parse("{7E2BD9FB-B965-436E-B587-2FD061E107BE}"),
                     kSpecModuleCollection},
    ClassDescription{"CBase_ParameterDecimal", Guid::Parse("{710F1E71-680F-46AC-A6E7-F2F410FC5C05}"),
                     kParameterDecimal},
    ClassDescription{"CBase_Block", Guid::Parse("{0AF287AE-D499-4175-A21B-7369DE300E75}"), kBlock},
    ClassDescription{"CBase_Channel", Guid::Parse("{D46AF6E2-DFD9-4962-9648-70AAD15992A9}"), kChannel},
    ClassDescription{"CBase_GuiGroupCollection", Guid::Parse("{48DEF75C-547B-4089-A367-A5E6F794789E}"),
                     kGuiGroupCollection},
    ClassDescription{"CBase_Group", Guid::Parse("{2B41917E-C87F-441F-BF1A-A17C629AF92A}"), kGroup},
    ClassDescription{"CBase_ScriptingChannels", Guid::Parse("{F2F298BB-DE0C-4D48-913A-0D5FDA05CC3B}"),
                     kScriptingChannels},
    ClassDescription{"CBase_ParameterEnum", Guid::Parse("{61669AF2-4C75-43E7-A44A-BAA84760F9D5}"), kParameterEnum},
    ClassDescription{"CBase_ParameterFloat", Guid::Parse("{C7BE1EEA-28F7-49B6-ADC9-A00E8CDFFBBC}"), kParameterFloat},
    ClassDescription{"CBase_Environment", Guid::Parse("{4468E6FD-7000-458D-B69D-F46B27961B32}"), kEnvironment},
    ClassDescription{"CBase_ParameterString", Guid::Parse("{D0F06C0C-F3B2-4CC2-B9D5-359BCD4E9441}"), kParameterString},
    ClassDescription{"CBase_SpecGroupCollection", Guid::Parse("{DF7D21B5-9DB7-406C-BAC8-1AF2B85FCA58}"),
                     kSpecGroupCollection},
    ClassDescription{"CBase_ScriptingGroups", Guid::Parse("{7CC97608-D0D4-47E6-86D9-99649D267B9E}"), kScriptingGroups},
    ClassDescription{"CBase_ParamDependency", Guid::Parse("{080AEE45-016E-46D5-9BB8-51EA27EF15BE}"), kParamDependency},
    ClassDescription{"CBase_Unload", Guid::Parse("{2DC620BF-7EF8-4F7B-A77C-7755DEDEFA54}"), kUnload},
    ClassDescription{"CBase_ParameterInt", Guid::Parse("{85D7371F-5F21-46B9-AB2E-32EB023B00E7}"), kParameterInt},
    ClassDescription{"CBase_ParameterSelect", Guid::Parse("{6BFC310D-1718-4B44-8273-7B534AC72A7B}"), kParameterSelect},
    ClassDescription{"CBase_ParameterEnumS", Guid::Parse("{F8AEA197-19EE-418D-B5F0-EA35F237D990}"), kParameterEnumS},
    ClassDescription{"CBase_GroupScripting", Guid::Parse("{D3C863E7-371C-4F33-A091-BD06B3EBF02F}"), kGroupScripting},
    ClassDescription{"CBase_ScriptingTexts", Guid::Parse("{D2B241DD-B921-4CDA-8227-C219F62E21E9}"), kScriptingTexts},
    ClassDescription{"CBase_ParameterENVString", Guid::Parse("{132A9734-E50A-4C4E-9CFA-9C4346651CF6}"),
                     kParameterENVString},
};

}  // namespace

std::span<const ClassDescription> ClassDescriptions() {
    return kClasses;
}

const ClassDescription* FindClass(std::u16string_view name) {
    const auto at = std::ranges::find_if(kClasses, [name](const ClassDescription& description) {
        return EqualNoCase(Text::FromAscii(description.name), name);
    });
    return at == kClasses.end() ? nullptr : &*at;
}

}  // namespace ov
