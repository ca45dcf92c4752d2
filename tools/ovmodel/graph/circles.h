/// @file
/// Circles in a directed graph.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace ovmodel {

/// The number of the strongly connected component of each of @p nodes. Two nodes have one number if there is a way from
/// each to the other.
std::vector<std::size_t> ComponentsOf(std::size_t nodes, const std::vector<std::pair<std::size_t, std::size_t>>& edges);

}  // namespace ovmodel
