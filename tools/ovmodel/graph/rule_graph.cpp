#include "ovmodel/graph/rule_graph.h"

#include <algorithm>
#include <map>
#include <set>

#include "contract/explain.h"
#include "ovmodel/explanation.h"
#include "ovmodel/graph/circles.h"
#include "ovmodel/parameter_path.h"

namespace ovmodel {

namespace {

using ov::Ref;

constexpr std::size_t kMostNodes = 300;  // of a drawing that somebody can still read

std::string ParentOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "" : path.substr(0, slash);
}

bool IsBelow(const std::string& path, const std::string& branch) {
    return branch.empty() || path == branch || path.starts_with(branch + "/");
}

/// All parameters of a device, and the variables that its rules read.
class Reader {
public:
    Reader(ov::Module& module, RuleGraph& graph) : mGraph(graph) {
        for (const auto& channel : Elements(module.Spec()->channels())) {
            for (const auto& group : Elements(channel->groups())) {
                const std::string path = Utf8(channel->id()) + "/" + Utf8(group->id());
                mGraph.clusters.push_back({path, group->Gui()->name().ToUtf8()});
                for (const auto& parameter : Elements(group->Gui()->parameters())) {
                    AddParameter(*parameter, path);
                }
            }
        }
    }

    void ReadRules() {
        const std::size_t count = mParameters.size();
        for (std::size_t reader = 0; reader < count; ++reader) {
            for (const auto& rule : ListOf<ov::IExplain_Rule>(Explained(*mParameters[reader])->rules())) {
                const std::string column = rule->column().ToUtf8();
                for (const auto& read : ListOf<ov::IExplain_Read>(rule->reads())) {
                    AddEdge(NodeOf(read->path().ToUtf8()), reader, column);
                }
            }
        }
    }

private:
    void AddParameter(ov::IBase_GuiParameter& parameter, const std::string& group) {
        const bool isInForce = parameter.configState() == ov::eParameterConfigState::eParameterValid;
        const std::string path = group + "/" + Utf8(parameter.id());
        mPlaces.emplace(path, mGraph.nodes.size());
        mGraph.nodes.push_back(
            {.path = path, .name = parameter.name().ToUtf8(), .cluster = group, .isInForce = isInForce});
        mParameters.emplace_back(&parameter);
    }

    std::size_t NodeOf(const std::string& path) {
        const auto [place, isNew] = mPlaces.emplace(path, mGraph.nodes.size());
        if (isNew) mGraph.nodes.push_back({.kind = GraphNode::Kind::Variable, .path = path});
        return place->second;
    }

    void AddEdge(std::size_t from, std::size_t to, const std::string& column) {
        if (mEdges.emplace(from, to, column).second) mGraph.edges.push_back({.from = from, .to = to, .column = column});
    }

    RuleGraph& mGraph;
    std::vector<Ref<ov::IBase_GuiParameter>> mParameters;  // by their nodes
    std::map<std::string, std::size_t> mPlaces;
    std::set<std::tuple<std::size_t, std::size_t, std::string>> mEdges;
};

void MarkCircles(RuleGraph& graph) {
    std::vector<std::pair<std::size_t, std::size_t>> edges;
    for (const GraphEdge& edge : graph.edges) {
        edges.emplace_back(edge.from, edge.to);
    }
    const std::vector<std::size_t> components = ComponentsOf(graph.nodes.size(), edges);
    for (GraphEdge& edge : graph.edges) {
        edge.isInCircle = components[edge.from] == components[edge.to];
        if (edge.isInCircle) graph.nodes[edge.from].isInCircle = graph.nodes[edge.to].isInCircle = true;
    }
    std::map<std::size_t, std::size_t> places;  // of the components that are circles
    for (std::size_t node = 0; node < graph.nodes.size(); ++node) {
        if (!graph.nodes[node].isInCircle) continue;
        const auto [place, isNew] = places.emplace(components[node], graph.circles.size());
        if (isNew) graph.circles.emplace_back();
        graph.circles[place->second].push_back(graph.nodes[node].path);
    }
}

/// Leaves out the nodes that @p keep does not want; no edge may lead to one.
template <class Keep>
void Restrict(RuleGraph& graph, Keep keep) {
    std::vector<std::size_t> places(graph.nodes.size());
    std::vector<GraphNode> nodes;
    for (std::size_t node = 0; node < graph.nodes.size(); ++node) {
        places[node] = nodes.size();
        if (keep(node)) nodes.push_back(std::move(graph.nodes[node]));
    }
    graph.nodes = std::move(nodes);
    for (GraphEdge& edge : graph.edges) {
        edge.from = places[edge.from];
        edge.to = places[edge.to];
    }
    std::erase_if(graph.clusters, [&](const GraphCluster& cluster) {
        return std::ranges::find(graph.nodes, cluster.path, &GraphNode::cluster) == graph.nodes.end();
    });
}

// The branch, and what it reads or is read by.
void KeepBranch(RuleGraph& graph, const std::string& branch) {
    const auto isInside = [&](std::size_t node) { return IsBelow(graph.nodes[node].path, branch); };
    std::erase_if(graph.edges, [&](const GraphEdge& edge) { return !isInside(edge.from) && !isInside(edge.to); });
    std::set<std::size_t> wanted;
    for (const GraphEdge& edge : graph.edges) {
        wanted.insert({edge.from, edge.to});
    }
    for (std::size_t node = 0; node < graph.nodes.size(); ++node) {
        if (isInside(node)) wanted.insert(node);
    }
    Restrict(graph, [&](std::size_t node) { return wanted.contains(node); });
    std::erase_if(graph.circles, [&](const std::vector<std::string>& circle) {
        return std::ranges::none_of(circle, [&](const std::string& path) { return IsBelow(path, branch); });
    });
}

// One node for each group; what goes on inside of one shows only where it is a circle.
RuleGraph FoldedByGroups(const RuleGraph& graph, const std::vector<GraphCluster>& channels) {
    RuleGraph folded{.type = graph.type, .clusters = channels, .circles = graph.circles, .isByGroups = true};
    std::map<std::string, std::size_t> places;
    std::vector<std::size_t> placeOf;
    for (const GraphNode& node : graph.nodes) {
        const bool isVariable = node.kind == GraphNode::Kind::Variable;
        const auto [place, isNew] = places.emplace(isVariable ? node.path : node.cluster, folded.nodes.size());
        placeOf.push_back(place->second);
        if (isNew && isVariable) folded.nodes.push_back(node);
        if (isNew && !isVariable) {
            const auto group = std::ranges::find(graph.clusters, node.cluster, &GraphCluster::path);
            folded.nodes.push_back({.kind = GraphNode::Kind::Group,
                                    .path = group->path,
                                    .name = group->name,
                                    .cluster = ParentOf(group->path),
                                    .count = 0});
        }
        GraphNode& into = folded.nodes[place->second];
        if (!isVariable) ++into.count;
        into.isInCircle = into.isInCircle || node.isInCircle;
    }
    std::map<std::pair<std::size_t, std::size_t>, std::size_t> edges;
    for (const GraphEdge& edge : graph.edges) {
        const std::pair ends{placeOf[edge.from], placeOf[edge.to]};
        if (ends.first == ends.second) continue;
        const auto [place, isNew] = edges.emplace(ends, folded.edges.size());
        if (isNew) folded.edges.push_back({.from = ends.first, .to = ends.second, .count = 0});
        GraphEdge& into = folded.edges[place->second];
        ++into.count;
        into.isInCircle = into.isInCircle || edge.isInCircle;
    }
    return folded;
}

std::vector<GraphCluster> ChannelsOf(ov::Module& module) {
    std::vector<GraphCluster> channels;
    for (const auto& channel : Elements(module.Spec()->channels())) {
        channels.push_back({Utf8(channel->id()), channel->Gui()->name().ToUtf8()});
    }
    return channels;
}

}  // namespace

RuleGraph GraphOf(ov::Module& module, const std::string& type, const std::string& path) {
    const bool isOneGroup = !FindBranch(module, path).group.empty();
    RuleGraph graph{.type = type};
    Reader(module, graph).ReadRules();
    MarkCircles(graph);
    const auto wanted = std::ranges::count_if(graph.nodes, [&](const GraphNode& node) {
        return node.kind == GraphNode::Kind::Parameter && IsBelow(node.path, path);
    });
    if (!path.empty()) KeepBranch(graph, path);
    if (isOneGroup || static_cast<std::size_t>(wanted) <= kMostNodes) return graph;
    return FoldedByGroups(graph, ChannelsOf(module));
}

}  // namespace ovmodel
