/// @file
/// The texts of lists: how rows of a statement become texts, and what stands for a value that no row has.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "descriptor/module_services.h"
#include "platform/automation/text.h"
#include "platform/store/store.h"

namespace ov {

/// A statement with its marks "$module" and "$value" filled in.
Text FillMarks(const Text& statement, ModuleServices& module, const Text& value);

/// Where the search for the next mark goes on: behind the text that took the place of the last one, or at the start, so
/// that the marks in such texts are found as well.
enum class Search : bool { Onward, FromTheStart };
/// The mark of a text number: "gettext(NUMBER)".
Text GetTextMark(std::int32_t number);
/// @p text with every "gettext(NUMBER)" replaced by the text of that number.
Text ResolveGetText(const Text& text, ModuleServices& module, Search search);

/// Rows of a statement as texts, by a template in which "$0" is the first column and so on.
class RowTemplate {
public:
    using TextOfNumber = std::function<Text(std::int32_t)>;

    /// @p textOf says what stands for the content of a column of text numbers.
    RowTemplate(const Text& text, Recordset& rows, TextOfNumber textOf);

    /// The text of the current row. What has no text, such as Null, stands as nothing. Columns are filled in one by
    /// one, so a mark of a later one in the content of an earlier one is filled too.
    Text Apply(Recordset& rows) const;

private:
    Text mTemplate;
    TextOfNumber mTextOf;
    std::vector<bool> mIsTextNumber;  // by column: its row source looks up the table of texts
};

/// Whether a fallback format takes values that the list lacks for legitimate.
bool AcceptsUnlisted(const Text& format) noexcept;
/// A value that the list lacks: @p format with @p shown in it, by the place holders "%1dec", "%1non" and, if there is a
/// @p hexadecimal, "%1hex" with a width of one digit. @p hexadecimal is in upper case and as short as can be.
Text FormatUnlistedValue(const Text& format, const Text& shown, const std::optional<Text>& hexadecimal);

/// The text number of the row that stands for all values of all enumerations, the last one if there are several;
/// @p fallback where that is Null or there is none. @throws RuntimeError of a table that cannot be read
std::int32_t ReadGlobalFallback(Database& db, std::int32_t fallback);
/// The same, read once for all parameters of a module. 0 where it cannot be read.
std::int32_t GlobalFallback(ModuleServices& module);

/// Opens a statement for reading. Nothing where that fails.
Ref<Recordset> TryOpen(ModuleServices& module, const Text& statement) noexcept;

}  // namespace ov
