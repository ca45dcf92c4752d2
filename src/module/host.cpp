#include "module/host.h"

#include "descriptor/database_cache.h"
#include "platform/automation/errors.h"
#include "support/diagnostics.h"

namespace ov {

void SwitchDebugOutputOn() {
    InitDebug(DebugMode::OutputOnly);
}

Text ReasonOfFailedOpen(const Text& path) {
    if (DatabaseCache(path)) return Text();
    try {
        const Ref<Workspace> workspace = DefaultStoreEngine().CreateWorkspace(u"OV_Model", u"Admin", u"");
        OpenDatabaseFile2(workspace.get(), path, false, true, u"");
        return Text();
    } catch (const RuntimeError& error) {
        return error.description();
    }
}

}  // namespace ov
