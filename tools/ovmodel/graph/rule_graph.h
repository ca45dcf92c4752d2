/// @file
/// Who reads whom: the rules of a device as a graph.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "ovmodel/command.h"

namespace ovmodel {

/// An arrow goes from what is read to the parameter whose rule reads it, as a change travels.
struct GraphEdge {
    std::size_t from = 0, to = 0;
    std::string column{};   ///< of the rule; "" between groups
    std::size_t count = 1;  ///< how many reads it stands for
    bool isInCircle = false;
};

struct GraphNode {
    enum class Kind { Parameter, Variable, Group };

    Kind kind = Kind::Parameter;
    std::string path{};       ///< CHANNEL/GROUP/PARAMETER, CHANNEL/GROUP, or `ENV.Variable("KEY")`
    std::string name{};       ///< "" for a variable
    std::string cluster{};    ///< path of the group, of a group's channel, or ""
    bool isInForce = true;    ///< whether the parameter has a row
    std::size_t count = 1;    ///< how many parameters it stands for
    bool isInCircle = false;  ///< what it reads depends on itself
};

struct GraphCluster {
    std::string path, name;
};

struct RuleGraph {
    std::string type{};
    std::vector<GraphCluster> clusters{};
    std::vector<GraphNode> nodes{};  ///< in the order of the tree
    std::vector<GraphEdge> edges{};
    /// Paths of parameters that read each other round about: the strongly connected components.
    std::vector<std::vector<std::string>> circles{};
    bool isByGroups = false;
};

/// What the last evaluation of each rule read.
/// @param path "", CHANNEL or CHANNEL/GROUP: what is drawn, and what it has to do with directly. More parameters than a
/// drawing can show are drawn by their groups, unless one group is asked for.
/// @throws Failure for a path that there is not
RuleGraph GraphOf(ov::Module& module, const std::string& type, const std::string& path);

}  // namespace ovmodel
