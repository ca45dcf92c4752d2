/// @file
/// The creatable classes: names, identifiers, facets. A host creates `CBase_Module` and `CBase_Station` and reaches
/// everything else through them; the others can be created and are empty then.
#pragma once

#include <span>
#include <string_view>

#include "platform/automation/guid.h"

namespace ov {

/// Identifier of the type library that describes the contract.
inline constexpr Guid kTypeLibrary = Guid::Parse("{48D28B32-4605-44A3-90C1-B868E723D0B5}");
inline constexpr const char* kTypeLibraryName = "OV_Model";
inline constexpr const char* kTypeLibraryVersion = "3.27";
inline constexpr int kTypeLibraryLocale = 1033;  ///< English (United States)

/// One creatable class.
struct ClassDescription {
    const char* name;                         ///< such as "CBase_Module"
    Guid clsid;                               ///< what a class factory is asked for
    std::span<const char* const> implements;  ///< names of its interfaces; the first one is the default
};

/// All classes of the contract.
std::span<const ClassDescription> ClassDescriptions();
/// The class of a name, or nullptr. Names compare without regard to case.
const ClassDescription* FindClass(std::u16string_view name);

}  // namespace ov
