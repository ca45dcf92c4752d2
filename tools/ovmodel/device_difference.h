/// @file
/// What two devices of one type show differently.
#pragma once

#include <string>
#include <vector>

#include "ovmodel/command.h"

namespace ovmodel {

/// A parameter that a user sees differently. A value is followed by its unit, and by "(disabled)" or "(removed)" where
/// it is not in force; it is "" in the device that lacks the parameter.
struct Difference {
    std::string path, name, a, b;
};

/// Opens both trees.
std::vector<Difference> FindDifferences(ov::Module& a, ov::Module& b);

/// The differences as rows of a table, as in "1/21/2101  Sensor type  Pt100 -> Pt1000".
std::vector<std::vector<std::string>> DifferenceRows(const std::vector<Difference>& differences);

/// The differences as a JSON array whose elements call the two values @p a and @p b.
Json DescribeDifferences(const std::vector<Difference>& differences, const char* a, const char* b);

}  // namespace ovmodel
