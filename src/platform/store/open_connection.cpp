#include "platform/store/open_connection.h"

#include "platform/automation/errors.h"
#include "platform/store/jet/file_opening.h"
#include "platform/store/sqlite/file_opening.h"
#include "platform/system/file_system.h"

namespace ov {

std::shared_ptr<sqlite::Connection> OpenConnection(const Text& name, bool exclusive, const Text& connect) {
    if (!file_system::FileExists(name)) {
        throw RuntimeError(ErrorNumber::FileNotFoundByEngine, u"Could not find file '" + name + u"'.");
    }
    const std::string path = file_system::NativePath(name);
    std::shared_ptr<sqlite::Connection> connection;
    try {
        connection = sqlite::OpenFile(path, exclusive);
        if (!connection) connection = jet::OpenFile(path, exclusive, jet::PasswordOf(connect));
    } catch (const RuntimeError&) {
        throw;
    } catch (...) {
        throw CurrentError();  // such as a lack of memory
    }
    if (!connection) {
        throw RuntimeError(ErrorNumber::UnrecognizedFormat, u"Unrecognized database format '" + name + u"'.");
    }
    return connection;
}

}  // namespace ov
