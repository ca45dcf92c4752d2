/// @file
/// Objects and values between the library and the functions of ov_model.h.
#pragma once

#include "module/ov_model.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// A new handle with one owner; nullptr for Nothing.
ov_object* MakeHandle(IDispatch* object);
/// The object of a handle, borrowed; nullptr for a null one. @throws RuntimeError 424 for a handle that does not live
IDispatch* ObjectOf(const ov_object* handle);
/// The same where Nothing will not do. @throws RuntimeError 424, 91 for a null handle
IDispatch* ObjectNeeded(const ov_object* handle);
void RetainHandle(ov_object* handle);
void ReleaseHandle(ov_object* handle);

/// @throws RuntimeError 5 for what is no value, 424 for a handle that does not live, 458 for arrays nested too deep
Variant FromC(const ov_value& value);
/// Writes @p value, which owns what it holds afterwards; what was in it before is not looked at.
void ToC(const Variant& value, ov_value& target);
/// Frees what the value owns and leaves it Empty.
void ClearC(ov_value& value) noexcept;

}  // namespace ov
