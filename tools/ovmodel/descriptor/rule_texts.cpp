#include "ovmodel/descriptor/rule_texts.h"

#include "platform/automation/conversions.h"

namespace ovmodel {

using ov::Text;

namespace {

bool IsTruthWord(const Text& text) {
    return ov::EqualNoCase(text, u"True") || ov::EqualNoCase(text, u"False") || ov::IsNumeric(text);
}

bool IsNumberWord(const Text& text) {
    return ov::IsNumeric(text) || text == u"QNAN";
}

bool IsScriptByShape(Reader reader, const Text& text) {
    switch (reader) {
        case Reader::Number:
            return !IsNumberWord(text);
        case Reader::Truth:
            return !IsTruthWord(text);
        case Reader::String:
            return text.view().find(u"(\"") != std::u16string_view::npos;
        case Reader::Rule:
        case Reader::Statement:
            break;
    }
    return true;
}

}  // namespace

bool HoldsPrefix(std::u16string_view text) {
    return text.starts_with(u"#:") || text.starts_with(u"!:");
}

bool IsLiteral(Reader reader, const Text& text) {
    switch (reader) {
        case Reader::Number:
            return IsNumberWord(text);
        case Reader::Truth:
        case Reader::Rule:
            return IsTruthWord(text);
        case Reader::String:
            return true;
        case Reader::Statement:
            break;
    }
    return false;
}

bool IsScript(Reader reader, const Text& text, bool hasPrefixes) {
    if (text.empty()) return false;
    if (reader == Reader::Statement) return true;
    return hasPrefixes ? HoldsPrefix(text) : IsScriptByShape(reader, text);
}

std::vector<RuleCell> RuleCellsOf(const ParameterWord& word) {
    using enum ov::RuleColumn;
    std::vector<RuleCell> cells = {
        {Dependency, Reader::Truth},
        {Min, Reader::Number},
        {Max, Reader::Number},
        {Consistency, Reader::Rule},
        {DefaultValue, word.isText ? Reader::String : Reader::Number},
    };
    if (!word.isText) {
        cells.push_back({RealGain, Reader::Number});
        cells.push_back({RealOffset, Reader::Number});
    }
    if (word.kind == ParameterWord::Float) cells.push_back({DisplayFormat, Reader::String});
    return cells;
}

}  // namespace ovmodel
