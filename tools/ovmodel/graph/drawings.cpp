#include "ovmodel/graph/drawings.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <vector>

namespace ovmodel {

namespace {

constexpr const char* kRed = "#c00000";
constexpr const char* kGrey = "#808080";

std::string LabelOf(const GraphNode& node) {
    if (node.kind == GraphNode::Kind::Variable) return node.path;
    const std::string id = node.path.substr(node.path.rfind('/') + 1);
    const std::string label = node.name.empty() ? id : id + " " + node.name;
    if (node.kind == GraphNode::Kind::Parameter) return label;
    return label + " (" + std::to_string(node.count) + ")";
}

std::string LabelOf(const GraphEdge& edge) {
    return edge.column.empty() ? std::to_string(edge.count) : edge.column;
}

std::string LabelOf(const GraphCluster& cluster) {
    return cluster.name.empty() ? cluster.path : cluster.path + " " + cluster.name;
}

// The nodes of a cluster; those of "" stand by themselves.
std::vector<std::size_t> MembersOf(const RuleGraph& graph, const std::string& cluster) {
    std::vector<std::size_t> members;
    for (std::size_t node = 0; node < graph.nodes.size(); ++node) {
        if (graph.nodes[node].cluster == cluster) members.push_back(node);
    }
    return members;
}

// Whether a text goes on at @p at like a character reference: "&lt;", "&#1;".
bool IsReference(const std::string& text, std::size_t at) {
    std::size_t end = at + 1;
    while (end < text.size() && (text[end] == '#' || std::isalnum(static_cast<unsigned char>(text[end]))))
        ++end;
    return end > at + 1 && end < text.size() && text[end] == ';';
}

// In quotes. Graphviz would make characters of references, and writes some of them into an SVG as they stand: an
// invisible character behind the "&" keeps them text. Control characters, which no SVG may hold, are left out.
std::string DotText(const std::string& text) {
    constexpr const char* kWordJoiner = "\xE2\x81\xA0";
    std::string quoted = "\"";
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto each = static_cast<unsigned char>(text[at]);
        if (each == '"' || each == '\\') quoted += '\\';
        quoted += each < ' ' || each == 0x7F ? ' ' : text[at];
        if (each == '&' && IsReference(text, at)) quoted += kWordJoiner;
    }
    return quoted + "\"";
}

std::string DotNode(const GraphNode& node) {
    std::string line = DotText(node.path) + " [label=" + DotText(LabelOf(node)) + ", tooltip=" + DotText(node.path);
    if (node.kind == GraphNode::Kind::Variable) line += ", shape=ellipse";
    if (!node.isInForce) line += std::string(R"(, style="dashed", fontcolor=")") + kGrey + "\"";
    if (node.isInCircle) line += std::string(R"(, color=")") + kRed + R"(", penwidth=2)";
    return line + "];\n";
}

// Quoted for Mermaid, whose own escapes are the numbers of characters.
std::string MermaidText(const std::string& text) {
    std::string quoted = "\"";
    for (const char each : text) {
        const auto code = static_cast<unsigned char>(each);
        const bool isPlain = code >= 0x80 || std::isalnum(code) || each == ' ' || each == '/' || each == '.';
        quoted += isPlain ? std::string(1, each) : code < ' ' || code == 0x7F ? " " : "#" + std::to_string(code) + ";";
    }
    return quoted + "\"";
}

std::string MermaidId(std::size_t node) {
    return "n" + std::to_string(node);
}

std::string MermaidNode(const RuleGraph& graph, std::size_t node) {
    const bool isRound = graph.nodes[node].kind == GraphNode::Kind::Variable;
    return MermaidId(node) + (isRound ? "(" : "[") + MermaidText(LabelOf(graph.nodes[node])) + (isRound ? ")" : "]") +
           "\n";
}

template <class Wanted>
std::string MermaidList(std::size_t count, const std::string& prefix, Wanted isWanted) {
    std::string list;
    for (std::size_t i = 0; i < count; ++i) {
        if (isWanted(i)) list += (list.empty() ? "" : ",") + prefix + std::to_string(i);
    }
    return list;
}

}  // namespace

std::string DotOf(const RuleGraph& graph) {
    std::string dot = "digraph " + DotText(graph.type) + " {\n" +
                      R"(  graph [rankdir=LR, fontname="Helvetica", fontsize=12, ranksep=1];
  node [shape=box, fontname="Helvetica", fontsize=10, height=0.3];
  edge [fontname="Helvetica", fontsize=9, color="#606060", arrowsize=0.7];
)";
    for (const GraphCluster& cluster : graph.clusters) {
        const std::vector<std::size_t> members = MembersOf(graph, cluster.path);
        if (members.empty()) continue;
        dot += "  subgraph " + DotText("cluster_" + cluster.path) + " {\n    label=" + DotText(LabelOf(cluster)) +
               ";\n    color=\"#a0a0a0\";\n";
        for (const std::size_t node : members) {
            dot += "    " + DotNode(graph.nodes[node]);
        }
        dot += "  }\n";
    }
    for (const std::size_t node : MembersOf(graph, "")) {
        dot += "  " + DotNode(graph.nodes[node]);
    }
    for (const GraphEdge& edge : graph.edges) {
        dot += "  " + DotText(graph.nodes[edge.from].path) + " -> " + DotText(graph.nodes[edge.to].path) +
               " [label=" + DotText(LabelOf(edge));
        if (edge.isInCircle) dot += std::string(R"(, color=")") + kRed + R"(", fontcolor=")" + kRed + "\"";
        dot += "];\n";
    }
    return dot + "}\n";
}

std::string MermaidOf(const RuleGraph& graph) {
    std::string text = "flowchart LR\n";
    for (std::size_t i = 0; i < graph.clusters.size(); ++i) {
        const std::vector<std::size_t> members = MembersOf(graph, graph.clusters[i].path);
        if (members.empty()) continue;
        text += "  subgraph g" + std::to_string(i) + "[" + MermaidText(LabelOf(graph.clusters[i])) + "]\n";
        for (const std::size_t node : members) {
            text += "    " + MermaidNode(graph, node);
        }
        text += "  end\n";
    }
    for (const std::size_t node : MembersOf(graph, "")) {
        text += "  " + MermaidNode(graph, node);
    }
    for (const GraphEdge& edge : graph.edges) {
        text += "  " + MermaidId(edge.from) + " -->|" + MermaidText(LabelOf(edge)) + "| " + MermaidId(edge.to) + "\n";
    }
    const auto style = [&](const std::string& list, const std::string& begin, const std::string& end) {
        if (!list.empty()) text += "  " + begin + list + end + "\n";
    };
    const auto nodes = [&](auto isWanted) {
        return MermaidList(graph.nodes.size(), "n", [&](std::size_t i) { return isWanted(graph.nodes[i]); });
    };
    text += std::string("  classDef circle stroke:") + kRed +
            ",stroke-width:2px\n  classDef away stroke-dasharray:4,color:" + kGrey + "\n";
    style(nodes([](const GraphNode& node) { return node.isInCircle; }), "class ", " circle");
    style(nodes([](const GraphNode& node) { return !node.isInForce; }), "class ", " away");
    style(MermaidList(graph.edges.size(), "", [&](std::size_t i) { return graph.edges[i].isInCircle; }), "linkStyle ",
          std::string(" stroke:") + kRed);
    return text;
}

Json JsonOf(const RuleGraph& graph) {
    static constexpr const char* kKinds[] = {"parameter", "variable", "group"};
    Json nodes = Json::array(), edges = Json::array();
    for (const GraphNode& node : graph.nodes) {
        nodes.push_back({{"kind", kKinds[static_cast<std::size_t>(node.kind)]},
                         {"path", node.path},
                         {"name", node.name},
                         {"inForce", node.isInForce},
                         {"inCircle", node.isInCircle}});
        if (graph.isByGroups) nodes.back()["parameters"] = node.kind == GraphNode::Kind::Group ? node.count : 0;
    }
    for (const GraphEdge& edge : graph.edges) {
        edges.push_back({{"from", graph.nodes[edge.from].path},
                         {"to", graph.nodes[edge.to].path},
                         {"column", edge.column},
                         {"count", edge.count},
                         {"inCircle", edge.isInCircle}});
    }
    return {{"type", graph.type},
            {"byGroups", graph.isByGroups},
            {"nodes", std::move(nodes)},
            {"edges", std::move(edges)},
            {"circles", graph.circles}};
}

}  // namespace ovmodel
