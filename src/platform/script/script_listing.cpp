#include "platform/script/script_listing.h"

#include "platform/script/vbscript/compiler.h"
#include "platform/script/vbscript/disassembler.h"

namespace ov {

void CheckScript(const Text& script) {
    vbscript::CompileText(script, false);
}

std::string ListingOf(const Text& script) {
    return vbscript::Disassembled(*vbscript::CompileText(script, false));
}

}  // namespace ov
