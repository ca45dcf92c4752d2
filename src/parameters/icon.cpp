#include "parameters/icon.h"

#include "descriptor/named_file.h"
#include "platform/system/file_system.h"

namespace ov {

bool IsIconFormat(const Text& displayFormat) noexcept {
    return EqualNoCase(displayFormat, u"icon");
}

Text IconPath(ModuleServices* module, const Text& name) {
    const Text folder = module ? file_system::GetParentFolderName(module->GetSourcePath()) : Text();
    return PermittedFile(file_system::BuildPath(folder, name), folder);
}

}  // namespace ov
