/// @file
/// Writes descriptors of any size, so that the benches need no files. The same call writes the same content.
///
/// Every function answers the path of a new file, which is removed when the program ends.
#pragma once

#include <cstdint>
#include <string>

namespace ov::bench {

/// What the parameters of a group are.
enum class ParameterMix {
    All,          ///< all kinds in turn
    Integers,     ///< alike, integers without rules
    OneRuleEach,  ///< alike, each with the rule `P("1") = 1 And P("2") > 50` for being there
};

/// How large a descriptor is. Numbers of channels and groups begin at 0 and 1, those of parameters at 1.
struct DescriptorShape {
    int channels = 1;
    int groups = 10;      ///< in each channel
    int parameters = 20;  ///< in each group; some have a second row, an alternative
    std::uint32_t seed = 1;
    ParameterMix mix = ParameterMix::All;
    bool isIndexed = false;  ///< whether `Parameters` has an index by group and order; real descriptors have none
};

/// Name of the one module type of a generated descriptor.
inline constexpr const char16_t* kGeneratedModuleType = u"Generated";
/// Columns of the table `Parameters`.
inline constexpr int kParameterColumns = 35;

/// A descriptor that can be loaded. In each group parameter 1 is a mode from 0 to 2 and parameter 2 a number from 0 to
/// 1000, which the rules of the others ask for: limits, scales, units, consistency, alternatives. Between groups rules
/// go to the first group of their channel alone, so that an edit in another group stays in that group.
std::string GenerateDescriptor(const DescriptorShape& shape);

/// A file with a table `Texts` alone, of @p rows rows in German and English; every eighth lacks the English text.
std::string GenerateTextTable(int rows, std::uint32_t seed = 1);

/// A file with a table `Parameters` alone, of @p rows rows in groups of 20 parameters as a descriptor has them.
std::string GenerateParameterTable(int rows, std::uint32_t seed = 1);

/// A file with a table `Numbers` of as many columns as `Parameters`, but holding whole numbers, broken numbers and NULL
/// only.
std::string GenerateNumberTable(int rows, std::uint32_t seed = 1);

}  // namespace ov::bench
