#include "platform/script/vbscript/run_guard.h"

#include "platform/script/vbscript/limits.h"

namespace ov::vbscript {

namespace {

// The number of the run time's "User interrupt occurred".
constexpr std::int32_t kInterrupted = 18;

}  // namespace

ScriptTimeout::ScriptTimeout(std::int32_t line, std::int32_t column)
    : ScriptError(RuntimeError(kInterrupted, u"Microsoft VBScript runtime error", u"Script execution timed out"), false,
                  line, column) {}

RunGuard::RunGuard(std::int32_t timeout) {
    const char* here = static_cast<const char*>(__builtin_frame_address(0));
    if (sDepth == 0) {
        sStackStart = here;
        mMemory.emplace(kMaxMemory);
    } else if (sDepth >= kMaxNestedRuns || static_cast<std::size_t>(sStackStart - here) > kMaxNativeStack) {
        Raise(ErrorNumber::OutOfStackSpace);
    } else {
        CheckTime();  // runs within runs may each be too short to ask, and yet never end
    }
    ++sDepth;
    mDeadline.emplace(timeout);
}

RunGuard::~RunGuard() {
    --sDepth;
}

}  // namespace ov::vbscript
