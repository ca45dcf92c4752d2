/// @file
/// The functions, constants and classes that the language brings along.
#pragma once

#include <string_view>

#include "platform/automation/dispatch.h"
#include "platform/functions/builtin.h"

namespace ov::vbscript {

/// The function of a name, without regard to case, or nullptr. "Randomize" is among them, LBound and UBound are, too.
/// Not among them: what needs the machine itself (Eval, Execute, ExecuteGlobal, GetRef, CreateObject, GetObject,
/// MsgBox, InputBox, Err).
const Builtin* FindBuiltin(std::u16string_view name) noexcept;

/// The value of a constant such as vbCrLf, without regard to case, or nullptr.
const Variant* FindConstant(std::u16string_view name) noexcept;

/// A new object of a class that the language has built in, by name without regard to case ("RegExp"), or Nothing.
Ref<IDispatch> NewBuiltinObject(std::u16string_view className, BuiltinContext& context);

}  // namespace ov::vbscript
