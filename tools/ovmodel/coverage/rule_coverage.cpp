#include "ovmodel/coverage/rule_coverage.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "ovmodel/coverage/type_rules.h"

namespace ovmodel {

namespace {

struct CountedRule {
    TypeRule rule;
    ov::RuleCount count;
};

struct CountedRow {
    TypeRow row;
    bool hasBeenInForce;
};

/// What became of the rules of one module type.
struct TypeCoverage {
    std::string database, type;
    std::vector<CountedRule> rules;
    std::vector<CountedRow> rows;  ///< those that rules put in force
};

// A rule that answers True or False, each of which is worth a test.
bool IsCondition(ov::RuleColumn column) {
    return column == ov::RuleColumn::Dependency || column == ov::RuleColumn::Consistency;
}

bool WentBothWays(const CountedRule& rule) {
    return rule.count.trues > 0 && rule.count.falses > 0;
}

// Scripts may name a file as descriptors do, with backslashes.
std::string NativePath(std::string path) {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) std::ranges::replace(path, '\\', '/');
    return path;
}

TypeCoverage CoverageOf(const std::string& database, const std::string& type, const ov::RuleCounts& counts) {
    TypeCoverage coverage{NativePath(database), type, {}, {}};
    TypeRules rules = RulesOf(coverage.database, type);
    auto uncounted = counts.Rules();
    for (TypeRule& rule : rules.rules) {
        const auto count = uncounted.extract({rule.row, rule.column});
        coverage.rules.push_back({std::move(rule), count ? count.mapped() : ov::RuleCount()});
    }
    for (const auto& [place, count] : uncounted) {  // of rows that a host has brought, or changed
        coverage.rules.push_back({{place.first, place.second, "", {}}, count});
    }
    for (TypeRow& row : rules.rows) {
        if (!row.mayChange) continue;
        const bool hasBeenInForce = counts.RowsInForce().contains(row.row);
        coverage.rows.push_back({std::move(row), hasBeenInForce});
    }
    return coverage;
}

struct Totals {
    std::size_t rules, ran, failed, conditions, bothWays, rows, inForce;
};

Totals TotalsOf(const TypeCoverage& coverage) {
    const auto count = [](const auto& list, auto wanted) {
        return static_cast<std::size_t>(std::ranges::count_if(list, wanted));
    };
    const auto isCondition = [](const CountedRule& each) { return IsCondition(each.rule.column); };
    return {coverage.rules.size(),
            count(coverage.rules, [](const CountedRule& each) { return each.count.runs > 0; }),
            count(coverage.rules, [](const CountedRule& each) { return each.count.failures > 0; }),
            count(coverage.rules, isCondition),
            count(coverage.rules, [&](const CountedRule& each) { return isCondition(each) && WentBothWays(each); }),
            coverage.rows.size(),
            count(coverage.rows, [](const CountedRow& each) { return each.hasBeenInForce; })};
}

std::string Share(std::size_t part, std::size_t whole) {
    const std::string share = whole == 0 ? "" : " (" + std::to_string(part * 100 / whole) + " %)";
    return std::to_string(part) + " of " + std::to_string(whole) + share;
}

std::string OnOneLine(std::string text) {
    std::ranges::replace_if(
        text, [](unsigned char each) { return each < ' '; }, ' ');
    return text;
}

std::string PathsOf(const std::vector<std::string>& paths) {
    if (paths.empty()) return "";
    return paths.front() + (paths.size() == 1 ? "" : " and " + std::to_string(paths.size() - 1) + " more");
}

// What is left to be tried, in a word or two.
std::string LeftOf(const CountedRule& each) {
    if (each.count.failures > 0) return "fails";
    if (each.count.runs == 0) return "never ran";
    if (!IsCondition(each.rule.column) || WentBothWays(each)) return "";
    return each.count.trues > 0 ? "never False" : "never True";
}

std::string TextOf(const TypeCoverage& coverage) {
    const Totals totals = TotalsOf(coverage);
    std::string text = coverage.type + " of " + coverage.database + "\n";
    text += TableText({{"  rules that ran", Share(totals.ran, totals.rules)},
                       {"  rules that failed", std::to_string(totals.failed)},
                       {"  conditions that were True and False", Share(totals.bothWays, totals.conditions)},
                       {"  rows that came into force", Share(totals.inForce, totals.rows)}});
    std::vector<std::vector<std::string>> table = {
        {"LEFT", "RUNS", "TRUE", "FALSE", "FAILED", "ROW", "COLUMN", "RULE", "PARAMETER"}};
    for (const CountedRule& each : coverage.rules) {
        const bool isCondition = IsCondition(each.rule.column);
        table.push_back(
            {LeftOf(each), std::to_string(each.count.runs), isCondition ? std::to_string(each.count.trues) : "",
             isCondition ? std::to_string(each.count.falses) : "", std::to_string(each.count.failures),
             "Parameters [" + std::to_string(each.rule.row) + "]", ov::Text(ov::ColumnName(each.rule.column)).ToUtf8(),
             OnOneLine(each.rule.text), PathsOf(each.rule.paths)});
    }
    for (const CountedRow& each : coverage.rows) {
        if (each.hasBeenInForce) continue;
        table.push_back({"never in force", "", "", "", "", "Parameters [" + std::to_string(each.row.row) + "]", "", "",
                         PathsOf(each.row.paths)});
    }
    return text + TableText(table);
}

Json DescribeRule(const CountedRule& each) {
    Json json = {{"table", "Parameters"},
                 {"row", each.rule.row},
                 {"column", ov::Text(ov::ColumnName(each.rule.column)).ToUtf8()},
                 {"text", each.rule.text},
                 {"paths", each.rule.paths},
                 {"runs", each.count.runs}};
    if (IsCondition(each.rule.column)) {
        json["true"] = each.count.trues;
        json["false"] = each.count.falses;
    }
    json["failed"] = each.count.failures;
    return json;
}

Json Describe(const TypeCoverage& coverage) {
    const Totals totals = TotalsOf(coverage);
    Json rules = Json::array(), rows = Json::array();
    for (const CountedRule& each : coverage.rules) {
        rules.push_back(DescribeRule(each));
    }
    for (const CountedRow& each : coverage.rows) {
        rows.push_back({{"table", "Parameters"},
                        {"row", each.row.row},
                        {"paths", each.row.paths},
                        {"inForce", each.hasBeenInForce}});
    }
    return {{"descriptor", coverage.database},
            {"type", coverage.type},
            {"totals",
             {{"rules", totals.rules},
              {"ran", totals.ran},
              {"failed", totals.failed},
              {"conditions", totals.conditions},
              {"trueAndFalse", totals.bothWays},
              {"rows", totals.rows},
              {"inForce", totals.inForce}}},
            {"rules", std::move(rules)},
            {"rows", std::move(rows)}};
}

}  // namespace

RuleCoverage::RuleCoverage(std::string file) : mFile(std::move(file)) {
    if (mFile.empty()) return;
    mOutput.emplace(mFile, Existing::Overwrite);  // now, and not when the work is done and lost
    ov::CountRules([this](const ov::Text& descriptor, const ov::Text& type) {
        std::shared_ptr<ov::RuleCounts>& counts = mTypes[{descriptor.ToUtf8(), type.ToUtf8()}];
        if (!counts) counts = std::make_shared<ov::RuleCounts>();
        return counts;
    });
}

RuleCoverage::~RuleCoverage() {
    ov::CountRules({});
}

void RuleCoverage::Write() {
    if (mFile.empty()) return;
    ov::CountRules({});
    if (mTypes.empty()) throw Failure("no device was loaded, so there is nothing to tell in '" + mFile + "'");
    const bool isJson = mFile.ends_with(".json");
    Json types = Json::array();
    std::string text;
    for (const auto& [type, counts] : mTypes) {
        const TypeCoverage coverage = CoverageOf(type.first, type.second, *counts);
        if (isJson) {
            types.push_back(Describe(coverage));
        } else {
            text += (text.empty() ? "" : "\n") + TextOf(coverage);
        }
    }
    mOutput->Write(isJson ? Json{{"types", std::move(types)}}.dump(2) + "\n" : text);
    mOutput->Finish();
}

CLI::Option* RuleCoverage::AddOption(CLI::App& command, std::string& file) {
    return command.add_option("--coverage", file,
                              "Write which rules ran to this file: JSON if its name ends in .json, else text");
}

}  // namespace ovmodel
