/// @file
/// What keeps a computation from being left out the next time: whatever it did or asked that a repetition might not do
/// or find again. Each such thing is counted where it happens, so that whoever compares the count before and after some
/// work knows whether the work left a trace.
#pragma once

#include <cstdint>

namespace ov {

/// Why some work cannot be taken for done.
enum class Unrepeatable : std::uint8_t {
    No,           ///< it can
    Clock,        ///< it asked for the date or the time
    Chance,       ///< it drew a random number
    Locale,       ///< it asked for or changed the locale
    ScriptState,  ///< it ran on an engine that holds variables or code of its own, or asked for the last error
    Object,       ///< it used an object that does not tell of its reads
    Line,         ///< a line was due in the log, written or not: mostly of a failure
    Change,       ///< it changed something that rules can read, or told an event
    Load,         ///< it loaded a part of the tree
    Statement,    ///< it ran statements, wrote a parameter or a variable
    GroupScript,  ///< it asked for a named script of the group, whose result may be an older one
};

/// The count of the process. There is one thread, and no lock.
class Traces {
public:
    static void Leave(Unrepeatable why) noexcept {
        ++sCount;
        sLast = why;
    }
    static std::uint64_t Count() noexcept { return sCount; }
    /// What was counted last.
    static Unrepeatable Last() noexcept { return sLast; }

private:
    static inline std::uint64_t sCount = 0;
    static inline Unrepeatable sLast = Unrepeatable::No;
};

}  // namespace ov
