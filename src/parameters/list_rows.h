/// @file
/// The rows that lists are made of, as the database has them.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "descriptor/module_services.h"
#include "platform/automation/text.h"
#include "platform/store/store.h"

namespace ov {

/// A statement with its marks "$module" and "$value" filled in.
Text FillMarks(const Text& statement, ModuleServices& module, const Text& value);

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

/// The text number of the row that stands for all values of all enumerations, the last one if there are several;
/// @p fallback where that is Null or there is none. @throws RuntimeError of a table that cannot be read
std::int32_t ReadGlobalFallback(Database& db, std::int32_t fallback);
/// The same, read once for all parameters of a module. 0 where it cannot be read.
std::int32_t GlobalFallback(ModuleServices& module);

/// Opens a statement for reading. Nothing where that fails.
Ref<Recordset> TryOpen(ModuleServices& module, const Text& statement) noexcept;

}  // namespace ov
