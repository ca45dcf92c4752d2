/// @file
/// The standard streams as objects of a script: UTF-8 outside, lines end with a line feed.
#pragma once

#include <iosfwd>

#include "ovmodel/host/script_host_objects.h"

namespace ovmodel {

ov::Ref<ITextStream> MakeInputStream(std::istream& stream);
ov::Ref<ITextStream> MakeOutputStream(std::ostream& stream);

}  // namespace ovmodel
