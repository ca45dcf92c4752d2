#include "descriptor/row_collection.h"

#include "platform/automation/errors.h"

namespace ov {

Ref<Row> CurrentRow(Recordset& rs) {
    Ref<Row> row = Row::Make(rs.Columns());
    rs.ReadRow(row->Values());
    return row;
}

Ref<Collection> RowToCollection(Recordset& rs) {
    return MakeObject<Collection>(CurrentRow(rs));
}

const Variant& CellOf(const Row& row, std::optional<std::size_t> column) {
    if (!column) Raise(ErrorNumber::ItemNotFound);
    return row[*column];
}

bool FieldExists(Recordset& rs, std::u16string_view name) {
    return rs.Columns()->Find(name).has_value();
}

Variant FieldValue(Recordset& rs, std::u16string_view name) {
    const std::optional<std::size_t> column = rs.Columns()->Find(name);
    if (!column) Raise(ErrorNumber::ItemNotFound);
    return rs.ValueAt(*column);
}

}  // namespace ov
