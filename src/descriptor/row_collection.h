/// @file
/// Descriptor rows: what an object of the tree keeps of the row that describes it.
#pragma once

#include "platform/automation/collection.h"
#include "platform/store/store.h"

namespace ov {

/// A copy of the current row of @p rs. @throws RuntimeError 3021 without a current row
Ref<Row> CurrentRow(Recordset& rs);

/// Copies the current row of @p rs: column name to value, in column order, Null as Null. Rows of one recordset share
/// their names. @throws RuntimeError 3021 without a current row
Ref<Collection> RowToCollection(Recordset& rs);

/// The value at @p column. @throws RuntimeError 3265 where there is none, as for a missing column of a recordset
const Variant& CellOf(const Row& row, std::optional<std::size_t> column);

/// True if @p rs has a column of this name.
bool FieldExists(Recordset& rs, std::u16string_view name);

/// The value of a column in the current row. @throws RuntimeError 3265 for a missing column, 3021 without a current row
Variant FieldValue(Recordset& rs, std::u16string_view name);

}  // namespace ov
