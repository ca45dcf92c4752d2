#include "module/host.h"

#include "descriptor/database_cache.h"
#include "platform/automation/errors.h"
#include "platform/store/jet/file_opening.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

Text PasswordFor(const std::optional<Text>& given) {
    return given ? *given : jet::PasswordOf(kDescriptorConnect);
}

}  // namespace

void SwitchDebugOutputOn() {
    InitDebug(DebugMode::OutputOnly);
}

void SwitchDebugOutputOff() {
    InitDebug(DebugMode::Off);
}

Text ReasonOfFailedOpen(const Text& path) {
    if (DatabaseCache(path)) return Text();
    try {
        const Ref<Workspace> workspace = DefaultStoreEngine().CreateWorkspace(u"OV_Model", u"Admin", u"");
        OpenDatabaseFile2(workspace.get(), path, false, true, kDescriptorConnect);
        return Text();
    } catch (const RuntimeError& error) {
        return error.description();
    }
}

Ref<Database> OpenedDatabase(const Text& path) {
    return DatabaseCache(path);
}

DatabaseFacts FactsOf(const Text& path, const std::optional<Text>& password) {
    return DescribeDatabase(path, PasswordFor(password));
}

jet::ImportReport ConvertToSqlite(const Text& source, const std::optional<Text>& password, const std::string& target) {
    return jet::Convert(source, PasswordFor(password), target);
}

}  // namespace ov
