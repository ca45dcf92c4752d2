#include "descriptor/named_file.h"

#include "platform/automation/errors.h"
#include "platform/locale/code_page.h"
#include "platform/system/confinement.h"
#include "platform/system/file_system.h"
#include "platform/system/input_file.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

bool IsOutOfReach(const std::string& path, const Text& folder) {
    return FilesAreConfined() && !IsBelowFolder(path, file_system::NativePath(folder));
}

std::string ReadNamedFile(const Text& path, const Text& folder) {
    const InputFile file(file_system::NativePath(path));
    // Asked of what is open: the path may lead elsewhere by now.
    const std::string real = file.RealPath();
    if (IsOfTheSystem(real) || IsOutOfReach(real, folder)) Raise(ErrorNumber::PermissionDenied);
    return file.Read(file_system::kMostBytesRead);
}

}  // namespace

Text LoadStringFromFile(const Text& path, const Text& folder) {
    try {
        return FromCodePage(ReadNamedFile(path, folder));
    } catch (const std::exception&) {
        LogEntry(u"Module1", u"LoadStringFromFile(" + path + u") failed");
        return Text();
    }
}

Text PermittedFile(const Text& path, const Text& folder) {
    return path.empty() || !IsOutOfReach(file_system::NativePath(path), folder) ? path : Text();
}

Text PermittedName(const Text& name, const Text& folder) {
    const Text path = file_system::IsAbsolute(name) ? name : file_system::BuildPath(folder, name);
    return PermittedFile(path, folder).empty() ? Text() : name;
}

}  // namespace ov
