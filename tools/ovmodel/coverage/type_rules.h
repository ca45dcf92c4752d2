/// @file
/// The rules that a module type has, as its descriptor holds them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "module/host.h"

namespace ovmodel {

/// A row of the table Parameters that a parameter of the type may take.
struct TypeRow {
    std::int32_t row = 0;            ///< the key `idx`
    std::vector<std::string> paths;  ///< of the parameters
    bool mayChange = false;          ///< whether a rule decides if it is in force
};

/// A text of such a row that runs.
struct TypeRule {
    std::int32_t row = 0;
    ov::RuleColumn column{};
    std::string text;  ///< as it stands in the descriptor
    std::vector<std::string> paths;
};

struct TypeRules {
    std::vector<TypeRow> rows;  ///< in the order of the tree
    std::vector<TypeRule> rules;
};

/// Loads a device of its own to find them. @throws Failure if that cannot be done
TypeRules RulesOf(const std::string& database, const std::string& type);

}  // namespace ovmodel
