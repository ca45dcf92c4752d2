/// @file
/// A walk over a typed collection of the tree.
#pragma once

#include "platform/automation/enumeration.h"

namespace ov::testing {

/// Calls @p visit with each element, as an IDispatch*.
template <class Collection, class Visit>
void ForEach(const Ref<Collection>& collection, Visit visit) {
    const Ref<IEnumVariant> walk = collection->NewEnum();
    for (Variant item; walk->Next(item);) {
        visit(item.AsObject());
    }
}

}  // namespace ov::testing
