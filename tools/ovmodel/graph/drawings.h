/// @file
/// A graph of rules in the languages of programs that draw. Names of descriptors may hold anything: they are written so
/// that they stay text.
#pragma once

#include <string>

#include "ovmodel/graph/rule_graph.h"

namespace ovmodel {

/// The language of Graphviz.
std::string DotOf(const RuleGraph& graph);
/// A flowchart of Mermaid, as wikis and code forges draw it.
std::string MermaidOf(const RuleGraph& graph);
Json JsonOf(const RuleGraph& graph);

/// The drawing that Graphviz makes of a text in its language, as SVG.
/// @throws Failure if it is not installed, fails, or takes too long
std::string SvgOf(const std::string& dot);

}  // namespace ovmodel
