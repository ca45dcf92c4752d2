/// @file
/// Which texts of a descriptor are scripts.
#pragma once

#include <vector>

#include "module/host.h"
#include "ovmodel/descriptor/parameter_words.h"
#include "platform/automation/text.h"

namespace ovmodel {

/// How a column is read, which decides what is a script where texts have no prefixes.
enum class Reader {
    Number,     ///< a script if it does not read as a number
    Truth,      ///< a script if it reads neither as a number nor as True or False
    Rule,       ///< always a script
    String,     ///< a script if it holds a call: open bracket, double quote
    Statement,  ///< always statements, in any generation
};

/// Whether a text begins with the mark of a script, "#:" or "!:".
bool HoldsPrefix(std::u16string_view text);

/// Whether a text without prefix is what it should be by itself.
bool IsLiteral(Reader reader, const ov::Text& text);

/// Whether a text runs. @param hasPrefixes the descriptor is of generation 1 or later
bool IsScript(Reader reader, const ov::Text& text, bool hasPrefixes);

/// A column of the table Parameters that may hold a rule.
struct RuleCell {
    ov::RuleColumn column;
    Reader reader;
};

/// Those of a row with this word as its type, less the unit, whose text stands elsewhere.
std::vector<RuleCell> RuleCellsOf(const ParameterWord& word);

}  // namespace ovmodel
