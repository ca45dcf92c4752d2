/// @file
/// Turning a Jet file into a SQLite file.
#pragma once

#include <string>

#include "platform/automation/errors.h"
#include "platform/automation/text.h"
#include "platform/store/jet/import_report.h"

namespace ov::jet {

/// The new file cannot be written; the description tells why.
class TargetError : public RuntimeError {
public:
    explicit TargetError(Text reason) : RuntimeError(ErrorNumber::PathFileAccessError, std::move(reason)) {}
};

/// Writes the tables of the Jet file @p source to the new SQLite file @p target. What cannot be read is left out.
/// @throws TargetError, RuntimeError 3024, 3343, 3050, 3031, 3011; what stands in @p target then is of no use
ImportReport Convert(const Text& source, const Text& password, const std::string& target);

}  // namespace ov::jet
