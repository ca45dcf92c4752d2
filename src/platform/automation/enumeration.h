/// @file
/// Walking the items of a collection.
#pragma once

#include <vector>

#include "platform/automation/dispatch.h"

namespace ov {

/// An enumerator, as NewEnum of a collection gives it and For Each of the rule language uses it.
class IEnumVariant : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{00020404-0000-0000-C000-000000000046}");
    static constexpr const char* kName = "IEnumVARIANT";
    static const InterfaceInfo& Members();

    /// Gives the next item, or false at the end.
    virtual bool Next(Variant& item) = 0;
    /// Goes back to the first item.
    virtual void Reset() = 0;
};

/// An enumerator over a copy of some items.
Ref<IEnumVariant> EnumerateItems(std::vector<Variant> items);

/// The enumerator of @p object: what its NewEnum gives. @throws RuntimeError 451 if it is no collection.
Ref<IEnumVariant> Enumerate(IDispatch* object);

}  // namespace ov
