/// @file
/// The default interfaces that have no operation of their own. Their classes are used through their other facets.
#pragma once

#include "platform/automation/interface_info.h"

namespace ov {

/// A default interface without operations.
template <class Self>
class EmptyInterface : public IDispatch {
public:
    static const InterfaceInfo& Members() {
        static const InterfaceInfo info(Self::kIid, Self::kName, {});
        return info;
    }
};

/// The script host of a channel; used by the channel alone.
class CBase_ChannelScripting : public EmptyInterface<CBase_ChannelScripting> {
public:
    static constexpr Guid kIid = Guid::Parse("{D3E51013-FC39-5E7B-B1BE-E956F86F5900}");
    static constexpr const char* kName = "_CBase_ChannelScripting";
};

/// The script host of a group; used by the group alone.
class CBase_GroupScripting : public EmptyInterface<CBase_GroupScripting> {
public:
    static constexpr Guid kIid = Guid::Parse("{875EC7F3-4C61-5A2B-A7E8-13EE6E5CD59D}");
    static constexpr const char* kName = "_CBase_GroupScripting";
};

/// A heading over groups: used through IBase_GuiBlock.
class CBase_Block : public EmptyInterface<CBase_Block> {
public:
    static constexpr Guid kIid = Guid::Parse("{DE0E2C23-FECB-5804-BA57-6955C7C2F64F}");
    static constexpr const char* kName = "_CBase_Block";
};

/// An integer of up to 32 bits; like all parameters used through the facets of parameter.h.
class CBase_ParameterInt : public EmptyInterface<CBase_ParameterInt> {
public:
    static constexpr Guid kIid = Guid::Parse("{8CF443BF-FD07-55E4-9C4A-744BF296BD51}");
    static constexpr const char* kName = "_CBase_ParameterInt";
};

/// A number with decimal places, of a single or an integer form in the device.
class CBase_ParameterFloat : public EmptyInterface<CBase_ParameterFloat> {
public:
    static constexpr Guid kIid = Guid::Parse("{543CFE97-9605-57C2-AB88-70D68BF43B88}");
    static constexpr const char* kName = "_CBase_ParameterFloat";
};

/// An integer of up to 64 bits.
class CBase_ParameterDecimal : public EmptyInterface<CBase_ParameterDecimal> {
public:
    static constexpr Guid kIid = Guid::Parse("{EB7CB80B-CF97-5B9C-8DFC-F98A816A1B83}");
    static constexpr const char* kName = "_CBase_ParameterDecimal";
};

/// A choice from a list by number.
class CBase_ParameterEnum : public EmptyInterface<CBase_ParameterEnum> {
public:
    static constexpr Guid kIid = Guid::Parse("{22B1C8A7-7ADC-5D11-9396-9AB4FFA384B3}");
    static constexpr const char* kName = "_CBase_ParameterEnum";
};

/// A choice from a list of the older form; no row of a descriptor makes one.
class CBase_ParameterSelect : public EmptyInterface<CBase_ParameterSelect> {
public:
    static constexpr Guid kIid = Guid::Parse("{5E82239A-7C78-560D-95E5-8A9463C921F1}");
    static constexpr const char* kName = "_CBase_ParameterSelect";
};

/// A choice from a list by text.
class CBase_ParameterEnumS : public EmptyInterface<CBase_ParameterEnumS> {
public:
    static constexpr Guid kIid = Guid::Parse("{F3612CA7-4D9F-5D32-8336-CBB97868F245}");
    static constexpr const char* kName = "_CBase_ParameterEnumS";
};

/// A text that comes from the module's environment.
class CBase_ParameterENVString : public EmptyInterface<CBase_ParameterENVString> {
public:
    static constexpr Guid kIid = Guid::Parse("{2E2E3889-80A9-56CC-95DF-E3472924EF36}");
    static constexpr const char* kName = "_CBase_ParameterENVString";
};

}  // namespace ov
