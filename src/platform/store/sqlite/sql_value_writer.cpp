#include <algorithm>
#include <array>
#include <charconv>

#include "platform/automation/conversions.h"
#include "platform/functions/date_literal.h"
#include "platform/store/sqlite/engine_error.h"
#include "platform/store/sqlite/sql_tokens.h"
#include "platform/store/sqlite/sql_writer.h"

namespace ov::sqlite {

namespace {

using Kind = SqlExpression::Kind;

std::string QuotedText(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c;
        if (c == '\'') quoted += c;
    }
    return quoted + "'";
}

// With a point or an exponent, so that it is no whole number to SQLite.
std::string RealText(double value) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    std::string text(digits.data(), end);
    return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

// "&HFFFF" is -1, as in the rule language.
SqlWritten NumberLiteral(const std::string& text) {
    if (!text.starts_with('&')) return {.text = text, .isLiteral = true};
    const auto value = static_cast<std::int64_t>(ValPrefix(Text::FromUtf8(text)));
    return {.text = value < 0 ? "(" + std::to_string(value) + ")" : std::to_string(value)};
}

SqlWritten DateLiteral(const std::string& text) {
    const std::optional<Date> date = vbscript::ReadDateLiteral(Text::FromUtf8(text));
    if (!date) throw BadQuery(u"syntax error in date: #" + Text::FromUtf8(text) + u"#");
    return {.text = RealText(date->days), .type = ColumnType::Date};
}

SqlWritten TruthConstant(bool truth) {
    return {.text = truth ? "(-1)" : "0", .truth = truth};
}

std::optional<bool> TruthOf(std::string_view word) {
    for (const std::string_view yes : {"TRUE", "YES", "ON"}) {
        if (EqualsUpper(word, yes)) return true;
    }
    for (const std::string_view no : {"FALSE", "NO", "OFF"}) {
        if (EqualsUpper(word, no)) return false;
    }
    return std::nullopt;
}

// A value as an operand or argument: a truth is -1 or 0, and dates take their kind along.
std::string Operand(const SqlWritten& value) {
    if (value.isCondition) return "(-(" + value.text + "))";
    if (value.type == ColumnType::Boolean && value.isColumn) return "(-(" + value.text + " <> 0))";
    const char* conversion = value.type == ColumnType::Date                       ? kAsDateFunction
                             : value.type == ColumnType::Single && value.isColumn ? kAsSingleFunction
                                                                                  : nullptr;
    return conversion ? BracketName(conversion) + "(" + value.text + ")" : value.text;
}

// Whether something holds: any number but 0 does.
std::string Held(const SqlWritten& value) {
    return value.text;
}

std::string NameOfPath(const std::vector<std::string>& path) {
    std::string text;
    for (const std::string& name : path) {
        text += (text.empty() ? "" : ".") + BracketName(name);
    }
    return text;
}

// The operands of one operator that is used again and again, from left to right. SQLite's parser goes less deep into
// brackets than such a chain can be long.
std::vector<const SqlExpression*> Chain(const SqlExpression& expression) {
    constexpr std::size_t kMost = 90;  // arguments of a function
    std::vector<const SqlExpression*> operands{expression.parts[1].get()};
    const SqlExpression* left = expression.parts[0].get();
    while (left->kind == Kind::Binary && left->text == expression.text && operands.size() < kMost) {
        operands.push_back(left->parts[1].get());
        left = left->parts[0].get();
    }
    operands.push_back(left);
    std::ranges::reverse(operands);
    return operands;
}

Variant ValueOf(const SqlExpression& literal) {
    if (literal.kind == Kind::Text) return Text::FromUtf8(literal.text);
    std::int32_t number = 0;
    const char* end = literal.text.data() + literal.text.size();
    const auto read = std::from_chars(literal.text.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? Variant(number) : Variant();
}

}  // namespace

// Texts that compare alike in the whole database say so wherever SQLite would not know it.
std::string SqlWriter::CollationOf(const SqlWritten& value) const {
    const std::string_view collation = mSchema.TextCollation();
    const bool mayBeText = value.type == ColumnType::String || value.type == ColumnType::AsStored;
    if (collation.empty() || !mayBeText || value.isCondition || value.truth) return {};
    return " COLLATE " + std::string(collation);
}

std::string SqlWriter::Condition(const SqlExpression& expression, SqlScope& scope) {
    return Held(Value(expression, scope));
}

std::string SqlWriter::Argument(const SqlExpression& expression, SqlScope& scope) {
    return Operand(Value(expression, scope));
}

std::string SqlWriter::Arguments(const SqlExpression& call, SqlScope& scope) {
    std::string text;
    for (const SqlExpressionPtr& part : call.parts) {
        text += (text.empty() ? "" : ", ") + Argument(*part, scope);
    }
    return text;
}

SqlWritten SqlWriter::Value(const SqlExpression& expression, SqlScope& scope) {
    switch (expression.kind) {
        case Kind::Text:
            return {.text = QuotedText(expression.text), .type = ColumnType::String, .isLiteral = true};
        case Kind::Number:
            return NumberLiteral(expression.text);
        case Kind::Date:
            return DateLiteral(expression.text);
        case Kind::Null:
            return {.text = "NULL"};
        case Kind::Parameter:
            return {.text = expression.text};
        case Kind::Star:
            return {.text = "*"};
        case Kind::Name:
            return Name(expression, scope);
        case Kind::Call:
            return Call(expression, scope);
        case Kind::Prefix:
            return Prefix(expression, scope);
        case Kind::Binary:
            return Binary(expression, scope);
        case Kind::Test:
            return {.text = "(" + Value(*expression.parts[0], scope).text + " " + expression.text + ")",
                    .isCondition = true};
        case Kind::Like:
            return Like(expression, scope);
        case Kind::Between:
            return Between(expression, scope);
        case Kind::InList:
        case Kind::InQuery:
            return In(expression, scope);
        case Kind::Quantified:
            return Quantified(expression, scope);
        case Kind::Query: {
            const Rows rows = Query(*expression.query, &scope);
            return {.text = "(" + rows.text + ")",
                    .type = rows.columns.size() == 1 ? rows.columns[0].type : ColumnType::AsStored};
        }
        case Kind::Exists:
            return {.text = "EXISTS (" + Query(*expression.query, &scope).text + ")", .isCondition = true};
        case Kind::Case:
            return Case(expression, scope);
        case Kind::Cast:
            return {.text = "CAST(" + Argument(*expression.parts[0], scope) + " AS " + expression.text + ")"};
        case Kind::Collate:
            return {
                .text = "(" + Argument(*expression.parts[0], scope) + " COLLATE " + BracketName(expression.text) + ")",
                .type = ColumnType::String};
        case Kind::List:
            return {.text = "(" + Arguments(expression, scope) + ")"};
    }
    return {};
}

// The constants are words without brackets, and all but True and False may be columns, too.
SqlWritten SqlWriter::Name(const SqlExpression& expression, SqlScope& scope) {
    const std::string& last = expression.path.back();
    const std::optional<bool> truth = expression.isBareWord ? TruthOf(last) : std::nullopt;
    if (truth && (EqualsUpper(last, "TRUE") || EqualsUpper(last, "FALSE"))) return TruthConstant(*truth);
    if (expression.path.size() == 1) {
        const auto parameter =
            std::ranges::find_if(mParameters, [&](const std::string& each) { return SameName(each, last); });
        if (parameter != mParameters.end()) return {.text = "$p" + std::to_string(parameter - mParameters.begin())};
    }
    const std::optional<SqlScope::Found> found = scope.Find(expression.path);
    if (!found && truth) return TruthConstant(*truth);
    if (found && found->alias) return {.text = found->alias->text, .type = found->alias->type};
    return {.text = NameOfPath(expression.path), .type = found ? found->type : ColumnType::AsStored, .isColumn = true};
}

SqlWritten SqlWriter::Prefix(const SqlExpression& expression, SqlScope& scope) {
    const SqlExpression& operand = *expression.parts[0];
    if (expression.text == "NOT") return {.text = "(NOT " + Condition(operand, scope) + ")", .isCondition = true};
    const SqlWritten value = Value(operand, scope);
    if (expression.text == "+") return {.text = Operand(value), .type = value.type};
    return {.text = "(" + expression.text + " " + Operand(value) + ")"};
}

SqlWritten SqlWriter::Binary(const SqlExpression& expression, SqlScope& scope) {
    const std::string& name = expression.text;
    const SqlExpression& a = *expression.parts[0];
    const SqlExpression& b = *expression.parts[1];
    const auto holds = [&](const SqlExpression& side) { return "(" + Condition(side, scope) + " <> 0)"; };
    const auto condition = [](std::string text) {
        return SqlWritten{.text = "(" + std::move(text) + ")", .isCondition = true};
    };
    if (name == "AND" || name == "OR") {
        std::string text;
        for (const SqlExpression* operand : Chain(expression)) {
            text += (text.empty() ? "" : " " + name + " ") + Condition(*operand, scope);
        }
        return condition(std::move(text));
    }
    if (name == "XOR") return condition(holds(a) + " <> " + holds(b));
    if (name == "EQV") return condition(holds(a) + " = " + holds(b));
    if (name == "IMP") return condition("NOT " + holds(a) + " OR " + holds(b));
    if (name == "IS" || name == "IS NOT") return condition(Argument(a, scope) + " " + name + " " + Argument(b, scope));
    for (const std::string_view comparison : {"=", "<>", "<", "<=", ">", ">="}) {
        if (name == comparison) return Comparison(expression, scope);
    }
    for (const std::string_view own : {"||", "|", "<<", ">>", "%"}) {
        if (name == own) return {.text = "(" + Argument(a, scope) + " " + name + " " + Argument(b, scope) + ")"};
    }
    std::string operands;
    int dates = 0;
    for (const SqlExpression* operand : Chain(expression)) {
        const SqlWritten value = Value(*operand, scope);
        operands += (operands.empty() ? "" : ", ") + Operand(value);
        dates += value.type == ColumnType::Date ? 1 : 0;
    }
    const bool isDate = (name == "+" || name == "-") && dates == 1;
    return {.text = BracketName(name == "MOD" ? "mod" : name) + "(" + operands + ")",
            .type = name == kJoinFunction ? ColumnType::String
                    : isDate              ? ColumnType::Date
                                          : ColumnType::AsStored};
}

// A literal behind "=" becomes a parameter, so that the queries for one group of a device and for another share a
// statement.
SqlWritten SqlWriter::Comparison(const SqlExpression& expression, SqlScope& scope) {
    const SqlExpression& a = *expression.parts[0];
    const SqlExpression& b = *expression.parts[1];
    const SqlWritten left = Value(a, scope);
    SqlWritten right = Value(b, scope);
    if (mMayTakeValues && right.isLiteral && expression.text == "=" && mValues.size() < kMostValues) {
        Variant value = ValueOf(b);
        if (!value.IsEmpty()) {
            mValues.push_back(std::move(value));
            mTaken.push_back(&b);
            right.text = "?" + std::to_string(mValues.size());
        }
    }
    return Compared(expression.text, left, right);
}

// True is stored as -1 or 1, so a comparison with it becomes one with 0, the other way round.
SqlWritten SqlWriter::Compared(const std::string& comparison, const SqlWritten& left, const SqlWritten& right) const {
    const bool isEqual = comparison == "=";
    if ((isEqual || comparison == "<>") && (left.truth || right.truth)) {
        const SqlWritten& constant = right.truth ? right : left;
        const SqlWritten& other = right.truth ? left : right;
        const bool wantsTrue = *constant.truth == isEqual;
        return {.text = "(" + other.text + (wantsTrue ? " <> 0)" : " = 0)"), .isCondition = true};
    }
    const bool areTexts = !CollationOf(left).empty() && !CollationOf(right).empty();
    return {.text = "(" + Operand(left) + " " + comparison + " " + Operand(right) +
                    (areTexts ? CollationOf(right) : "") + ")",
            .isCondition = true};
}

SqlWritten SqlWriter::Like(const SqlExpression& expression, SqlScope& scope) {
    const std::string text = Argument(*expression.parts[0], scope);
    const std::string pattern = Argument(*expression.parts[1], scope);
    const bool hasEscape = expression.parts.size() > 2;
    const std::string escape = hasEscape ? Argument(*expression.parts[2], scope) : "";
    std::string written;
    if (expression.text == "ALIKE") {
        written =
            BracketName(kOtherLikeFunction) + "(" + pattern + ", " + text + (hasEscape ? ", " + escape : "") + ")";
    } else {
        written = text + " " + expression.text + " " + pattern + (hasEscape ? " ESCAPE " + escape : "");
    }
    return {.text = std::string(expression.isNegated ? "(NOT (" : "((") + written + "))", .isCondition = true};
}

SqlWritten SqlWriter::Between(const SqlExpression& expression, SqlScope& scope) {
    const SqlWritten value = Value(*expression.parts[0], scope);
    return {.text = "(" + Operand(value) + CollationOf(value) + (expression.isNegated ? " NOT" : "") + " BETWEEN " +
                    Argument(*expression.parts[1], scope) + " AND " + Argument(*expression.parts[2], scope) + ")",
            .isCondition = true};
}

SqlWritten SqlWriter::In(const SqlExpression& expression, SqlScope& scope) {
    const SqlWritten value = Value(*expression.parts[0], scope);
    std::string list;
    if (expression.query) {
        list = Query(*expression.query, &scope).text;
    } else {
        for (std::size_t i = 1; i < expression.parts.size(); ++i) {
            list += (i > 1 ? ", " : "") + Argument(*expression.parts[i], scope);
        }
    }
    return {.text = "(" + Operand(value) + CollationOf(value) + (expression.isNegated ? " NOT" : "") + " IN (" + list +
                    "))",
            .isCondition = true};
}

// A comparison with Null holds for nothing: it is a counterexample for ALL and no example for ANY.
SqlWritten SqlWriter::Quantified(const SqlExpression& expression, SqlScope& scope) {
    const Rows rows = Query(*expression.query, &scope);
    SqlWritten each{.text = "[each value]",
                    .type = rows.columns.size() == 1 ? rows.columns[0].type : ColumnType::AsStored,
                    .isColumn = true};
    const std::string holds = Compared(expression.text, Value(*expression.parts[0], scope), each).text;
    const std::string from =
        "(WITH [all values]([each value]) AS (" + rows.text + ") SELECT 1 FROM [all values] WHERE " + holds;
    return {.text = expression.isAll ? "(NOT EXISTS " + from + " IS NOT TRUE))" : "(EXISTS " + from + "))",
            .isCondition = true};
}

SqlWritten SqlWriter::Case(const SqlExpression& expression, SqlScope& scope) {
    std::string text = "CASE";
    std::size_t i = 0;
    if (expression.hasOperand) {
        const SqlWritten operand = Value(*expression.parts[i++], scope);
        text += " " + Operand(operand) + CollationOf(operand);
    }
    while (i + 1 < expression.parts.size()) {
        const SqlExpression& when = *expression.parts[i++];
        text += " WHEN " + (expression.hasOperand ? Argument(when, scope) : Condition(when, scope));
        text += " THEN " + Argument(*expression.parts[i++], scope);
    }
    if (expression.hasElse) text += " ELSE " + Argument(*expression.parts[i], scope);
    return {.text = text + " END"};
}

SqlWritten SqlWriter::Choice(const SqlExpression& call, SqlScope& scope) {
    if (call.parts.size() != 3) throw BadQuery(u"wrong number of arguments to function IIf");
    const SqlWritten yes = Value(*call.parts[1], scope);
    const SqlWritten no = Value(*call.parts[2], scope);
    return {.text = "CASE WHEN " + Condition(*call.parts[0], scope) + " THEN " + Operand(yes) + " ELSE " + Operand(no) +
                    " END",
            .type = yes.type == no.type ? yes.type : ColumnType::AsStored};
}

SqlWritten SqlWriter::FirstOrLast(const SqlExpression& call, const SqlFunction& function, SqlScope& scope) {
    if (call.parts.size() != 1) throw BadQuery(u"wrong number of arguments to function " + Text::FromUtf8(call.text));
    const SqlWritten value = Value(*call.parts[0], scope);
    std::string text = BracketName(function.name) + "(" + Operand(value);
    for (const std::string& place : scope.RowOrder()) {
        text += ", " + place;
    }
    return {.text = text + ")", .type = value.type};
}

SqlWritten SqlWriter::Call(const SqlExpression& call, SqlScope& scope) {
    const SqlFunction* function = FindSqlFunction(call.text);
    const bool isOver = function && (function->role == SqlRole::Aggregate || function->role == SqlRole::FirstOrLast);
    static constexpr std::array<std::string_view, 2> kOther = {"TOTAL", "GROUP_CONCAT"};
    const bool isOther =
        std::ranges::any_of(kOther, [&](std::string_view name) { return EqualsUpper(call.text, name); });
    if ((isOver || isOther) && call.tail.empty()) scope.isAggregate = true;
    if (function && function->role == SqlRole::Choice) return Choice(call, scope);
    if (function && function->role == SqlRole::FirstOrLast) return FirstOrLast(call, *function, scope);
    if (function && function->role == SqlRole::Condition && EqualsUpper(call.text, "ISNULL") &&
        call.parts.size() == 1) {
        return {.text = "(" + Value(*call.parts[0], scope).text + " IS NULL)", .isCondition = true};
    }
    const std::string begin = BracketName(call.text) + (call.isDistinct ? "(DISTINCT " : "(");
    const bool isExtreme = call.parts.size() == 1 && (EqualsUpper(call.text, "MIN") || EqualsUpper(call.text, "MAX"));
    if (isExtreme) {
        const SqlWritten value = Value(*call.parts[0], scope);
        return {.text = begin + Operand(value) + CollationOf(value) + ")" + call.tail, .type = value.type};
    }
    const ColumnType type = function ? function->type : ColumnType::AsStored;
    return {.text = begin + Arguments(call, scope) + ")" + call.tail, .type = type};
}

}  // namespace ov::sqlite
