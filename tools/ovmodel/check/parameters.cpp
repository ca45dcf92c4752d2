// Rows of parameters, each by itself: words, subtypes, formats, limits, flags, lists.
#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>

#include "ovmodel/check/inspection.h"
#include "ovmodel/check/subtype_words.h"
#include "ovmodel/command.h"
#include "ovmodel/descriptor/parameter_words.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"

namespace ovmodel {

namespace {

using ov::Text;

bool HoldsPrefix(std::u16string_view text) {
    return text.starts_with(u"#:") || text.starts_with(u"!:");
}

class RowCheck {
public:
    RowCheck(Inspection& inspection, const Row& row, const ParameterWord& word)
        : mInspection(inspection), mRow(row), mWord(word) {}

    void Run() {
        CheckNumbers();
        CheckFlags();
        CheckSubtype();
        CheckDisplayFormat();
        CheckAction();
        if (!mWord.isText) CheckGain();
        if (mWord.kind == ParameterWord::Query || mWord.kind == ParameterWord::TextQuery) CheckQuery();
        if (mWord.kind == ParameterWord::Enumeration) CheckList(u"Enums");
        if (mWord.kind == ParameterWord::TextEnumeration) CheckList(u"EnumsStr");
        if (mWord.isText) {
            CheckLength();
        } else {
            CheckLimits();
        }
    }

private:
    void Error(std::u16string_view column, std::string text) {
        mInspection.Add(Severity::Error, mRow, column, std::move(text));
    }
    void Warn(std::u16string_view column, std::string text) {
        mInspection.Add(Severity::Warning, mRow, column, std::move(text));
    }

    /// The number that a column holds by itself; nullopt for Null and for what may be a rule.
    std::optional<double> Literal(std::u16string_view column) const {
        const Text text = mRow.TextOf(column);
        if (text.empty() || HoldsPrefix(text)) return std::nullopt;
        return ov::ReadNumber(text);
    }

    void CheckNumbers() {
        struct Range {
            std::u16string_view column;
            std::int32_t low, high;
            bool mayBeNull;
            const char* meaning;
        };
        static constexpr std::array kRanges = {
            Range{u"kind", 1, 11, false, "one of the kinds 1 to 11"},
            Range{u"direction", 1, 4, true, "1 none, 2 read, 3 read and write or 4 write"},
            Range{u"authentification", 0, 2, false, "0 as the module, 1 for writing or 2 for reading and writing"},
        };
        for (const Range& range : kRanges) {
            if (!mRow.table->Find(range.column) || (range.mayBeNull && mRow[range.column].IsNull())) continue;
            const auto number = mRow.LongOf(range.column);
            if (number && *number >= range.low && *number <= range.high) continue;
            Error(range.column, Shown(mRow[range.column]) + " is not " + range.meaning);
        }
    }

    void CheckFlags() {
        for (const std::u16string_view column : {u"editable", u"expertOnly", u"trendvariable"}) {
            if (mRow.table->Find(column) && mRow[column].IsNull()) {
                Error(column, "Null: a host that asks for it gets an error");
            }
        }
        for (const std::u16string_view column : {u"idx", u"ParameterId"}) {
            if (mRow.table->Find(column) && mRow[column].IsNull()) Error(column, "Null: the row cannot be told apart");
        }
    }

    void CheckSubtype() {
        const Text subtype = mRow.TextOf(u"subtype");
        std::string fault;
        if (mWord.kind == ParameterWord::Integer) fault = FaultOfIntegerSubtype(subtype);
        if (mWord.kind == ParameterWord::Float) fault = FaultOfFloatSubtype(subtype);
        if (mWord.kind == ParameterWord::String) fault = FaultOfStringSubtype(subtype);
        if (!fault.empty()) Error(u"subtype", Quoted(subtype) + ": " + fault);
        if (mWord.kind == ParameterWord::Environment && subtype.empty()) {
            Warn(u"subtype", "Null: it names no variable of the environment");
        }
    }

    void CheckDisplayFormat() {
        const Text format = mRow.TextOf(u"displayFormat");
        if (format.empty() || HoldsPrefix(format)) return;
        std::string fault;
        switch (mWord.kind) {
            case ParameterWord::Integer:
                fault = FaultOfIntegerFormat(format, IsWideInteger(mRow.TextOf(u"subtype")));
                break;
            case ParameterWord::Float:
                fault = FaultOfFloatFormat(format);
                break;
            case ParameterWord::Enumeration:
            case ParameterWord::TextEnumeration:
                if (!ov::EqualNoCase(format, u"icon")) fault = "a list knows no format but 'icon'";
                break;
            case ParameterWord::String:
                if (ov::EqualNoCase(format, u"MAC") && mRow.TextOf(u"subtype").view().find(u"hexstream") == kNone) {
                    fault = "the form of addresses is for the subtype 'hexstream'";
                }
                break;
            default:
                break;
        }
        if (!fault.empty()) Warn(u"displayFormat", Quoted(format) + ": " + fault);
    }

    void CheckAction() {
        if (mRow.TextOf(u"actionOnChange").empty()) return;
        const bool runs =
            mWord.hasAction && !(mWord.kind == ParameterWord::Integer && IsWideInteger(mRow.TextOf(u"subtype")));
        if (!runs) Warn(u"actionOnChange", "a parameter of this type and subtype runs no action");
    }

    void CheckGain() {
        const Text text = mRow.TextOf(u"realGain");
        if (text.empty() || HoldsPrefix(text)) return;
        const std::optional<double> gain = ov::ReadNumber(text);
        if (gain == 0.0) Error(u"realGain", "a gain of 0 is taken for 1");
    }

    void CheckQuery() {
        const Text statement = mRow.TextOf(u"subtype");
        if (statement.empty()) return Error(u"subtype", "Null, where the query of the list belongs");
        std::size_t rows = 0;
        for (const Row& type : mInspection.descriptor.Rows(u"ModuleTypes")) {
            const std::optional<std::size_t> found = RunQuery(statement, type.TextOf(u"IDX"));
            if (!found) return;
            rows += *found;
        }
        if (rows == 0) Warn(u"subtype", "the query gives no row in any module type");
    }

    // The number of rows; nullopt once a fault was found.
    std::optional<std::size_t> RunQuery(const Text& statement, const Text& module) {
        const Text sql = ReplaceAll(ReplaceAll(statement, u"$module", module), u"$value", u"0");
        try {
            const ov::Ref<ov::Recordset> rows = mInspection.descriptor.database().OpenRecordset(sql);
            if (!HasFieldsOfTemplate(rows->FieldCount())) return std::nullopt;
            std::size_t count = 0;
            for (; !rows->Eof(); rows->MoveNext(), ++count) {
                const ov::Variant value = rows->ValueAt(0);
                if (mWord.kind == ParameterWord::Query ? !ov::IsNumeric(value) : value.IsNull()) {
                    Error(u"subtype", "the query's first column holds " + Shown(value) + ", which is no value");
                    return std::nullopt;
                }
            }
            return count;
        } catch (const ov::RuntimeError& error) {
            Error(u"subtype", "the query fails: " + std::string(error.what()));
            return std::nullopt;
        }
    }

    bool HasFieldsOfTemplate(std::int32_t fields) {
        const Text format = mRow.TextOf(u"displayFormat");
        const std::u16string_view text = format.view();
        for (std::size_t at = text.find(u'$'); at != kNone; at = text.find(u'$', at + 1)) {
            if (at + 1 >= text.size() || text[at + 1] < u'0' || text[at + 1] > u'9') continue;
            if (text[at + 1] - u'0' < fields) continue;
            Error(u"displayFormat", Quoted(format) + " asks for column " + ov::Text(text.substr(at + 1, 1)).ToUtf8() +
                                        " of a query with " + std::to_string(fields) + ", counted from 0");
            return false;
        }
        return true;
    }

    void CheckList(std::u16string_view table) {
        const Text subtype = mRow.TextOf(u"subtype");
        if (subtype.empty()) return Error(u"subtype", "Null, where the name of an enumeration belongs");
        bool isKnown = false, hasDefault = false, acceptsAll = false;
        const Text wanted = mRow.TextOf(u"DefaultValue");
        std::vector<std::string> names;
        for (const Row& row : mInspection.descriptor.Rows(table)) {
            const Text name = row.TextOf(u"enumSubType");
            names.push_back(name.ToUtf8());
            if (name != subtype) continue;
            isKnown = true;
            hasDefault = hasDefault || SameValue(row.TextOf(u"value"), wanted);
            if (row[u"value"].IsNull()) acceptsAll = acceptsAll || AcceptsAll(row);
        }
        if (!isKnown) {
            const std::string closest = ClosestName(subtype.ToUtf8(), names);
            return Error(u"subtype", "there is no enumeration " + Quoted(subtype) + " in " + Text(table).ToUtf8() +
                                         (closest.empty() ? "" : "; did you mean '" + closest + "'?"));
        }
        const bool isRule =
            HoldsPrefix(wanted) || (!mWord.isText && !ov::ReadNumber(wanted)) || wanted.view().find(u"(\"") != kNone;
        if (wanted.empty() || isRule || hasDefault || acceptsAll || CommonFallbackAcceptsAll()) return;
        Error(u"DefaultValue", Quoted(wanted) + " is not in the enumeration " + Quoted(subtype));
    }

    bool SameValue(const Text& listed, const Text& wanted) const {
        return mWord.isText ? listed == Unquoted(wanted) : ov::ReadNumber(listed) == ov::ReadNumber(wanted);
    }

    // The text for what is not listed may say that it is all right.
    bool AcceptsAll(const Row& row) const {
        const auto text = mInspection.descriptor.TextOf(row.LongOf(u"valueText").value_or(0));
        return text && text->view().find(u"%consistent") != kNone;
    }
    bool CommonFallbackAcceptsAll() const {
        return std::ranges::any_of(mInspection.descriptor.Rows(u"Enums"),
                                   [this](const Row& row) { return row[u"enumSubType"].IsNull() && AcceptsAll(row); });
    }

    void CheckLimits() {
        std::optional<double> low = Literal(u"Min"), high = Literal(u"Max");
        if (low && high && *low > *high) {
            return Error(u"Min", Shown(mRow[u"Min"]) + " is above Max, " + Shown(mRow[u"Max"]) + ": no value fits");
        }
        if (mWord.kind == ParameterWord::Integer) {
            const IntegerRange type = RangeOfInteger(mRow.TextOf(u"subtype"));
            if (!low) low = type.low;
            if (!high) high = type.high;
        }
        const std::optional<double> value = Literal(u"DefaultValue");
        if (!value) return;
        if (low && *value < *low) Error(u"DefaultValue", Shown(mRow[u"DefaultValue"]) + " is below the lower limit");
        if (high && *value > *high) Error(u"DefaultValue", Shown(mRow[u"DefaultValue"]) + " is above the upper limit");
    }

    // In generation 0 a text in quotes loses them.
    Text Unquoted(const Text& text) const {
        const std::u16string_view view = text.view();
        const bool isQuoted =
            !mInspection.hasPrefixes() && view.size() > 1 && view.front() == u'"' && view.back() == u'"';
        return isQuoted ? Text(view.substr(1, view.size() - 2)) : text;
    }

    void CheckLength() {
        const Text text = mRow.TextOf(u"DefaultValue");
        const bool mayBeRule = HoldsPrefix(text) || (!mInspection.hasPrefixes() && text.view().find(u"(\"") != kNone);
        if (mRow[u"DefaultValue"].IsNull() || mayBeRule) return;
        const auto length = static_cast<double>(Unquoted(text).size());
        const std::string shown = Quoted(text) + ", of " + std::to_string(Unquoted(text).size()) + " characters, is ";
        if (const auto low = Literal(u"Min"); low && length < *low) Error(u"DefaultValue", shown + "shorter than Min");
        if (const auto high = Literal(u"Max"); high && length > *high)
            Error(u"DefaultValue", shown + "longer than Max");
    }

    static constexpr std::size_t kNone = std::u16string_view::npos;

    Inspection& mInspection;
    const Row& mRow;
    const ParameterWord& mWord;
};

}  // namespace

void CheckParameters(Inspection& inspection) {
    std::vector<std::string> words;
    for (const ParameterWord& word : kParameterWords) {
        words.push_back(Text(word.word).ToUtf8());
    }
    for (const Row& row : inspection.descriptor.Rows(u"Parameters")) {
        const Text type = row.TextOf(u"Type");
        if (const ParameterWord* word = FindParameterWord(type)) {
            RowCheck(inspection, row, *word).Run();
            continue;
        }
        const std::string closest = ClosestName(type.ToUtf8(), words);
        inspection.Add(
            Severity::Error, row, u"Type",
            Quoted(type) + " makes no parameter" + (closest.empty() ? "" : "; did you mean '" + closest + "'?"));
    }
}

}  // namespace ovmodel
