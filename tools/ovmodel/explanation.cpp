#include "ovmodel/explanation.h"

#include <iostream>

namespace ovmodel {

namespace {

using ov::Ref;

constexpr std::size_t kPlaceColumn = 44;  // where a line says to what it belongs

std::string Padded(std::string text, std::size_t width) {
    std::size_t characters = 0;
    for (const char byte : text) {
        characters += (byte & 0xC0) != 0x80;
    }
    text.append(characters < width ? width - characters : 2, ' ');
    return text;
}

std::string InQuotes(const std::string& text) {
    return '"' + text + '"';
}

// The call by which a rule of the group GROUP of CHANNEL reads PATH, all three by ids.
std::string CallOf(const std::string& path, const std::string& reader) {
    const std::size_t group = path.find('/'), id = path.rfind('/');
    if (group == std::string::npos) return path;
    const std::string call = '(' + InQuotes(path.substr(id + 1)) + ')';
    if (path.substr(0, id) == reader.substr(0, reader.rfind('/'))) return "P" + call;
    const std::string inGroup = '(' + InQuotes(path.substr(group + 1, id - group - 1)) + ')' + call;
    if (path.substr(0, group) == reader.substr(0, reader.find('/'))) return "G" + inGroup;
    return "CH(" + InQuotes(path.substr(0, group)) + ')' + inGroup;
}

void PrintRead(ov::IExplain_Read& read, const std::string& reader) {
    const std::string path = read.path().ToUtf8(), value = Utf8(read.value()), shown = read.shown().ToUtf8();
    std::string line = "    " + CallOf(path, reader) + " = " + value;
    if (shown != value) line += ' ' + InQuotes(shown);
    const bool isParameter = read.parameter() != nullptr;
    if (isParameter) line = Padded(line, kPlaceColumn) + path + ' ' + read.name().ToUtf8();
    std::cout << line << "\n";
}

std::string ResultOf(ov::IExplain_Rule& rule) {
    if (!rule.hasRun()) return "not evaluated";
    const ov::Variant result = rule.result();
    return result.IsEmpty() ? "failed" : result.IsString() ? InQuotes(Utf8(result)) : Utf8(result);
}

void PrintRule(ov::IExplain_Rule& rule) {
    const std::string path = rule.path().ToUtf8();
    const std::string line =
        "  " + Padded(rule.column().ToUtf8(), 13) + rule.text().ToUtf8() + "  ->  " + ResultOf(rule);
    std::cout << Padded(line, kPlaceColumn) << "Parameters [" << rule.row() << "]"
              << (rule.isInForce() ? "" : ", not in force") << "\n";
    for (const Ref<ov::IExplain_Read>& read : ListOf<ov::IExplain_Read>(rule.reads())) {
        PrintRead(*read, path);
    }
    const std::string volatility = rule.volatility().ToUtf8();
    if (!volatility.empty()) std::cout << "    evaluated by every sweep: it " << volatility << "\n";
}

Json DescribeRead(ov::IExplain_Read& read) {
    return {{"path", read.path().ToUtf8()},
            {"name", read.name().ToUtf8()},
            {"value", Utf8(read.value())},
            {"shown", read.shown().ToUtf8()}};
}

template <class Element, class Describe>
Json DescribeAll(const Ref<ov::ICollection>& list, Describe describe) {
    Json all = Json::array();
    for (const Ref<Element>& element : ListOf<Element>(list)) {
        all.push_back(describe(*element));
    }
    return all;
}

Json DescribeRule(ov::IExplain_Rule& rule) {
    return {{"path", rule.path().ToUtf8()},
            {"column", rule.column().ToUtf8()},
            {"row", rule.row()},
            {"text", rule.text().ToUtf8()},
            {"inForce", rule.isInForce()},
            {"evaluated", rule.hasRun()},
            {"result", Utf8(rule.result())},
            {"volatile", rule.volatility().ToUtf8()},
            {"reads", DescribeAll<ov::IExplain_Read>(rule.reads(), DescribeRead)}};
}

void PrintReaders(ov::IExplain_Parameter& explained) {
    std::string readers;
    for (const Ref<ov::IExplain_Rule>& rule : ListOf<ov::IExplain_Rule>(explained.readers())) {
        readers += (readers.empty() ? "" : ", ") + rule->path().ToUtf8() + " (" + rule->column().ToUtf8() + ")";
    }
    if (!readers.empty()) std::cout << "  " << Padded("read by", 13) << readers << "\n";
}

}  // namespace

Ref<ov::IExplain_Parameter> Explained(ov::IBase_GuiParameter& parameter) {
    Ref<ov::IExplain_Parameter> explained = ov::facet<ov::IExplain_Parameter>(&parameter);
    if (!explained) throw Failure(PathOf(parameter) + " is no parameter of the descriptor");
    return explained;
}

void PrintExplanation(ov::IBase_GuiParameter& parameter) {
    const Ref<ov::IExplain_Parameter> explained = Explained(parameter);
    const std::string unit = parameter.unit().ToUtf8();
    const std::string head = PathOf(parameter) + "  " + parameter.name().ToUtf8() + " = " + ShownValue(parameter) +
                             (unit.empty() ? "" : ' ' + unit);
    std::cout << Padded(head, kPlaceColumn) << StateOf(parameter) << "\n";
    for (const Ref<ov::IExplain_Rule>& rule : ListOf<ov::IExplain_Rule>(explained->rules())) {
        PrintRule(*rule);
    }
    for (const Ref<ov::IExplain_Read>& remedy : ListOf<ov::IExplain_Read>(explained->remedies())) {
        std::cout << "  in force when " << remedy->path().ToUtf8() << " is " << remedy->shown().ToUtf8() << " ("
                  << Utf8(remedy->value()) << ")\n";
    }
    PrintReaders(*explained);
    std::cout << "  " << Padded("written by", 13) << explained->writtenBy().ToUtf8() << "\n";
}

Json DescribeExplanation(ov::IBase_GuiParameter& parameter) {
    const Ref<ov::IExplain_Parameter> explained = Explained(parameter);
    Json json = DescribeParameter(parameter);
    json["rules"] = DescribeAll<ov::IExplain_Rule>(explained->rules(), DescribeRule);
    json["inForceWhen"] = DescribeAll<ov::IExplain_Read>(explained->remedies(), DescribeRead);
    json["readBy"] = DescribeAll<ov::IExplain_Rule>(explained->readers(), [](ov::IExplain_Rule& rule) {
        return Json{{"path", rule.path().ToUtf8()}, {"column", rule.column().ToUtf8()}};
    });
    json["writtenBy"] = explained->writtenBy().ToUtf8();
    return json;
}

bool PrintRefusal(ov::IBase_GuiParameter& parameter, const std::string& text) {
    const Ref<ov::IExplain_Parameter> explained = Explained(parameter);
    const std::string reason = explained->refusal().ToUtf8(), by = explained->refusedBy().ToUtf8();
    if (reason.empty()) return false;
    std::cout << PathOf(parameter) << "=" << text << "  refused: " << reason << "\n";
    for (const Ref<ov::IExplain_Rule>& rule : ListOf<ov::IExplain_Rule>(explained->rules())) {
        if (rule->column().ToUtf8() == by) PrintRule(*rule);
    }
    return true;
}

Json DescribeRefusal(ov::IBase_GuiParameter& parameter) {
    const Ref<ov::IExplain_Parameter> explained = Explained(parameter);
    Json rules = Json::array();
    for (const Ref<ov::IExplain_Rule>& rule : ListOf<ov::IExplain_Rule>(explained->rules())) {
        if (rule->column() == explained->refusedBy()) rules.push_back(DescribeRule(*rule));
    }
    return {{"path", PathOf(parameter)},
            {"refusal", explained->refusal().ToUtf8()},
            {"refusedBy", explained->refusedBy().ToUtf8()},
            {"rules", std::move(rules)}};
}

}  // namespace ovmodel
