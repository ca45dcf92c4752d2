/// @file
/// The texts of lists: how rows of a statement become texts, and what stands for a value that no row has.
#pragma once

#include <optional>
#include <vector>

#include "descriptor/module_services.h"
#include "platform/automation/text.h"
#include "platform/store/store.h"

namespace ov {

/// A statement with its marks "$module" and "$value" filled in.
Text FillMarks(const Text& statement, ModuleServices& module, const Text& value);

/// @p text with every "gettext(NUMBER)" replaced by the text of that number. With @p again the replaced text is
/// searched too.
enum class Search : bool { Onward, FromTheStart };
Text ResolveGetText(const Text& text, ModuleServices& module, Search search);

/// Rows of a statement as texts, by a template in which "$0" is the first column and so on.
class RowTemplate {
public:
    RowTemplate(const Text& text, Recordset& rows);

    /// The text of the current row. Of a column of text numbers stands "gettext(NUMBER)". What has no text, such as
    /// Null, stands as nothing.
    Text Apply(Recordset& rows) const;

private:
    Text mTemplate;
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
