#include "descriptor/row_collection.h"

#include "platform/automation/errors.h"

namespace ov {

Ref<Collection> RowToCollection(Recordset& rs) {
    const std::shared_ptr<const ColumnNames>& columns = rs.Columns();
    auto values = std::make_unique<Variant[]>(columns->size());
    rs.ReadRow(values.get());
    return MakeObject<Collection>(columns, std::move(values));
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
