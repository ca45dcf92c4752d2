#include "module/unload_pointer.h"

#include "platform/automation/errors.h"

namespace ov {

UnloadPointer::~UnloadPointer() {
    if (!mGuarded) return;
    try {
        CallByName(mGuarded.get(), u"Unload", CallKind::Method);
    } catch (const RuntimeError&) {
        // An end has nobody to report to.
    }
}

}  // namespace ov
