#include "platform/automation/unknown.h"

namespace ov {

bool SameObject(IUnknown* a, IUnknown* b) noexcept {
    if (a == b || !a || !b) return a == b;
    return facet<IUnknown>(a) == facet<IUnknown>(b);
}

}  // namespace ov
