// ovmodel graph: what is drawn, and what stays text whatever it holds.
#include <gmock/gmock.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "support/temporary_folder.h"
#include "support/test_database.h"
#include "support/tool.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::Not;
using Json = nlohmann::json;
using testing::Outcome;
using testing::Row;
using testing::RunShell;
using testing::RunTool;
using testing::TemporaryFolder;
using testing::TestDatabase;

Json Graph(const TestDatabase& database, const std::string& options = "") {
    return Json::parse(RunTool("graph " + database.path() + " A --format json " + options).text, nullptr, false);
}

// "FROM>TO:COLUMN*COUNT" of each edge, "!" behind those of circles.
std::string Edges(const Json& graph) {
    std::string told;
    for (const Json& edge : graph["edges"]) {
        told += (told.empty() ? "" : " ") + edge["from"].get<std::string>() + ">" + edge["to"].get<std::string>() +
                ":" + edge["column"].get<std::string>() + "*" + edge["count"].dump() + (edge["inCircle"] ? "!" : "");
    }
    return told;
}

std::string Paths(const Json& graph) {
    std::string told;
    for (const Json& node : graph["nodes"]) {
        told += (told.empty() ? "" : " ") + node["path"].get<std::string>();
    }
    return told;
}

TEST(Graph, HasAnEdgeForEachReadAndFindsCircles) {
    const TestDatabase database(testing::kTree + Row(1, 1, "Max='!:P(\"2\") + 5'") +
                                Row(1, 2, "Max='!:P(\"3\") + P(\"3\")'") + Row(1, 3, "Min='!:P(\"1\") - 9'") +
                                Row(1, 4, "dependency='!:P(\"1\") = 9'") + Row(1, 5) +
                                Row(2, 1, "DefaultValue='!:ENV.Variable(\"K\")';Max='!:G(\"1\")(\"1\") + 1'") +
                                Row(3, 1, "Min='!:CH(\"1\")(\"2\")(\"1\") - 1'"));
    const Json graph = Graph(database);
    EXPECT_EQ(Edges(graph),
              "1/1/2>1/1/1:Max*1! 1/1/3>1/1/2:Max*1! 1/1/1>1/1/3:Min*1! 1/1/1>1/1/4:dependency*1 1/1/1>1/2/1:Max*1 "
              "ENV.Variable(\"K\")>1/2/1:DefaultValue*1 1/2/1>2/1/1:Min*1");
    EXPECT_EQ(graph["circles"], Json::parse(R"([["1/1/1", "1/1/2", "1/1/3"]])"));
    EXPECT_EQ(graph["nodes"][3]["inForce"], false);
    EXPECT_EQ(Paths(Graph(database, "--path 2")), "1/2/1 2/1/1") << "what it has to do with stays";
    EXPECT_EQ(Paths(Graph(database, "--path 1/2")), "1/1/1 1/2/1 2/1/1 ENV.Variable(\"K\")");
    const std::string dot = RunTool("graph " + database.path() + " A --format dot").text;
    EXPECT_THAT(
        dot, AllOf(HasSubstr("\"1/1/1\" -> \"1/1/3\" [label=\"Min\", color=\"#c00000\""),
                   HasSubstr("\"1/1/1\" -> \"1/1/4\" [label=\"dependency\"];"), HasSubstr("subgraph \"cluster_1/2\"")));
    for (const auto& [options, words] : {std::pair{"--path 7", "no channel '7'"},
                                         {"--path 1/7", "no group '7' in 1"},
                                         {"--path 1/1/1", "is no path"},
                                         {"-o /no/such/g.dot --format dot", "cannot write"},
                                         {"--load /etc/passwd", "is no JSON"}}) {
        const Outcome failed = RunTool("graph " + database.path() + " A " + options);
        EXPECT_EQ(failed.status, 1) << options;
        EXPECT_THAT(failed.text, AllOf(MatchesRegex("ovmodel: [^\n]*\n"), HasSubstr(words)));
    }
    EXPECT_EQ(RunTool("graph " + database.path() + " A --format png").status, 2);
}

TEST(Graph, DrawsALargeDeviceByItsGroups) {
    std::string sql = testing::kTree + Row(1, 1, "Max='!:P(\"2\")'") + Row(1, 2, "Max='!:P(\"1\")'") +
                      Row(2, 1, "Max='!:G(\"1\")(\"1\")'") + Row(2, 2, "Max='!:G(\"1\")(\"1\") + G(\"1\")(\"2\")'");
    sql += "BEGIN;";
    for (int id = 10; id < 307; ++id) {
        sql += Row(3, id);
    }
    const TestDatabase database(sql + "COMMIT;");
    const Json graph = Graph(database);
    EXPECT_EQ(graph["byGroups"], true);
    EXPECT_EQ(Paths(graph), "1/1 1/2 2/1");
    EXPECT_EQ(Edges(graph), "1/1>1/2:*3");
    EXPECT_EQ(graph["nodes"][0]["inCircle"], true) << "the circle is inside";
    EXPECT_EQ(graph["nodes"][2]["parameters"], 297);
    EXPECT_EQ(Paths(Graph(database, "--path 1/1")), "1/1/1 1/1/2 1/2/1 1/2/2");
    EXPECT_EQ(Graph(database, "--path 2/1")["nodes"].size(), 297u) << "one group has no parts";
}

TEST(Graph, DrawingsHoldAnyNameAsText) {
    const std::string name = "<script>alert(1)</script> \"]--> & &#1; &lt; \\N \\ #quot; ` 1";
    std::string quoted = name;
    for (std::size_t at = 0; (at = quoted.find('\'', at)) != std::string::npos; at += 2) {
        quoted.insert(at, "'");
    }
    const TestDatabase database(testing::kTree + "UPDATE Texts SET Text_7 = '" + quoted +
                                "' || char(1) || char(10) || 'z';" +
                                Row(1, 1, "name=1;Max='!:ENV.Variable(\"a&<\" & Chr(2) & \"--\")'"));
    const std::string device = "graph " + database.path() + " A ";
    const std::string mermaid = RunTool(device + "--format mermaid").text;
    EXPECT_THAT(mermaid, AllOf(HasSubstr("#60;script#62;alert#40;1#41;"), Not(HasSubstr("<")), Not(HasSubstr("`"))));
    const Outcome missing = RunShell("PATH=/nowhere " OV_MODEL_TOOL " " + device);
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.text, MatchesRegex("ovmodel: Graphviz is missing: install [^\n]*--format dot[^\n]*\n"));
    const TemporaryFolder folder;
    std::ofstream(folder / "dot") << "#!/bin/sh\necho 'no such luck' >&2; exit 3\n";
    EXPECT_EQ(RunShell("chmod +x " + (folder / "dot")).status, 0);
    EXPECT_EQ(RunShell("PATH=" + folder.path() + " " OV_MODEL_TOOL " " + device).text,
              "ovmodel: 'dot' failed: no such luck\n");

    if (RunShell("command -v dot").status != 0) GTEST_SKIP() << "Graphviz is not installed";
    const std::string svg = folder / "g.svg";
    EXPECT_EQ(RunTool(device + "-o " + svg).text, "");
    // All text of the drawing as a reader of XML sees it, less the invisible guards.
    const Outcome read = RunShell(
        "python3 -c 'import sys, xml.dom.minidom as dom\n"
        "texts = dom.parse(sys.argv[1]).getElementsByTagName(\"text\")\n"
        "print(*(t.firstChild.data.replace(chr(0x2060), \"\").replace(chr(0xA0), \" \") for t in texts), "
        "sep=\"\\n\")' " +
        svg);
    EXPECT_EQ(read.status, 0) << read.text;
    EXPECT_THAT(read.text, AllOf(HasSubstr("1 " + name + "  z\n"), HasSubstr("ENV.Variable(\"a&< --\")\n")));
    EXPECT_THAT(RunShell("cat " + svg).text, Not(HasSubstr("<script")));
}

}  // namespace
}  // namespace ov
