#include "platform/store/table_facts.h"

#include <algorithm>

#include "platform/store/open_connection.h"

namespace ov {

namespace {

Text TypeName(sqlite::ColumnType type) {
    using sqlite::ColumnType;
    switch (type) {
        case ColumnType::Boolean:
            return u"Boolean";
        case ColumnType::Byte:
            return u"Byte";
        case ColumnType::Integer:
            return u"Integer";
        case ColumnType::Long:
            return u"Long";
        case ColumnType::Single:
            return u"Single";
        case ColumnType::Double:
            return u"Double";
        case ColumnType::Currency:
            return u"Currency";
        case ColumnType::Decimal:
            return u"Decimal";
        case ColumnType::Date:
            return u"Date";
        case ColumnType::String:
            return u"String";
        case ColumnType::Bytes:
            return u"Byte()";
        case ColumnType::AsStored:
            break;
    }
    return u"Any";
}

TableFacts Describe(const Text& name, sqlite::Table& table) {
    TableFacts facts{name, {}, table.CountRows()};
    const sqlite::RowShape& shape = *table.Shape();
    for (std::size_t i = 0; i < shape.columns.size(); ++i) {
        const auto key = std::ranges::find(table.Key(), i);
        const std::size_t place =
            key == table.Key().end() ? 0 : static_cast<std::size_t>(key - table.Key().begin()) + 1;
        facts.columns.push_back({(*shape.names)[i], TypeName(shape.columns[i].type), place});
    }
    return facts;
}

}  // namespace

DatabaseFacts DescribeDatabase(const Text& path, const Text& password) {
    const std::shared_ptr<sqlite::Connection> connection = OpenConnection(path, false, u";PWD=" + password);
    DatabaseFacts facts;
    for (const Text& name : connection->TableNames()) {
        if (const std::shared_ptr<sqlite::Table> table = connection->FindTable(name)) {
            facts.tables.push_back(Describe(name, *table));
        }
    }
    for (const std::string& line : connection->Losses()) {
        facts.leftOut.push_back(Text::FromUtf8(line));
    }
    return facts;
}

}  // namespace ov
