#include "descriptor/text_file.h"

#include "platform/automation/errors.h"
#include "platform/locale/code_page.h"
#include "platform/system/file_system.h"
#include "support/diagnostics.h"

namespace ov {

Text LoadStringFromFile(const Text& path) {
    try {
        return FromCodePage(file_system::ReadFile(path));
    } catch (const RuntimeError&) {
        LogEntry(u"Module1", u"LoadStringFromFile(" + path + u") failed");
        return Text();
    }
}

}  // namespace ov
