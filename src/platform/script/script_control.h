/// @file
/// The script control: an engine for rule texts, with the operations that the model's script hosts use.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/automation/dispatch.h"
#include "platform/automation/errors.h"

namespace ov {

/// An error of a script, with its place. The number of a compile error is 1000 to 1058.
class ScriptError : public RuntimeError {
public:
    ScriptError(const RuntimeError& error, bool compileError, std::int32_t line, std::int32_t column)
        : RuntimeError(error), mCompileError(compileError), mLine(line), mColumn(column) {}

    bool IsCompileError() const noexcept { return mCompileError; }
    /// From 1 on; 0 where the place is not known.
    std::int32_t line() const noexcept { return mLine; }
    std::int32_t column() const noexcept { return mColumn; }

private:
    bool mCompileError;
    std::int32_t mLine;
    std::int32_t mColumn;
};

/// Thrown by an operation of a published object to end the script that called it, with all scripts around that one.
/// It is no error: scripts do not see it, and it comes out of the call that ran the outermost of them.
struct EndScript {};

/// What scripts of an engine may reach besides the objects that were published to it.
enum class ScriptPolicy {
    Rules,  ///< nothing: CreateObject and GetObject are error 429, MsgBox and InputBox error 70
    Host,   ///< those names are free for the host to publish as its own
};

/// One script engine with a global namespace of its own. Engines that are never used cost next to nothing; texts are
/// compiled once for all engines of the process. Calls nest: a script that runs may cause another call on the same
/// engine. No threads: all engines belong to the host's one thread.
class ScriptControl {
public:
    explicit ScriptControl(ScriptPolicy policy = ScriptPolicy::Rules);
    ~ScriptControl();
    ScriptControl(const ScriptControl&) = delete;
    ScriptControl& operator=(const ScriptControl&) = delete;

    /// @throws RuntimeError 380 for any language but "VBScript"
    void SetLanguage(const Text& language);
    const Text& GetLanguage() const noexcept;
    /// Forgets all code, variables and objects; releases every object that scripts or the control hold.
    void Reset();
    /// Wall time in milliseconds that one outermost call may take, nested calls included; 0 means no bound.
    void SetTimeout(std::int32_t milliseconds);
    /// Publishes @p object under @p name; with @p addMembers its members are visible without the name too.
    void AddObject(const Text& name, IDispatch* object, bool addMembers);
    /// Publishes a value that scripts cannot assign to.
    void AddConstant(const Text& name, const Variant& value);
    /// Compiles @p code and runs its statements outside procedures; its procedures, classes and variables are global.
    /// @throws ScriptError
    void AddCode(const Text& code);
    /// The value of an expression; "=" compares. @throws ScriptError
    Variant Eval(const Text& expression);
    /// Runs statements in the global namespace. @throws ScriptError
    void ExecuteStatement(const Text& statement);

    /// Grows with every name that code, statements or the host define. Where it has not, no script has left anything
    /// behind that another one can find.
    std::uint64_t Definitions() const noexcept;
    /// True if there is a global procedure of this name.
    bool HasProcedure(std::u16string_view name) const;
    /// Calls a global procedure. @throws ScriptError; RuntimeError 438 if there is none
    Variant CallProcedure(std::u16string_view name, Arguments& arguments);

private:
    struct Engine;
    std::unique_ptr<Engine> mEngine;
};

}  // namespace ov
