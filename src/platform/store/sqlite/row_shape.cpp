#include "platform/store/sqlite/row_shape.h"

namespace ov::sqlite {

namespace {

using ColumnFact = const char* (*)(sqlite3_stmt*, int);

std::string_view Fact(ColumnFact fact, sqlite3_stmt* statement, int column) {
    const char* text = fact(statement, column);
    return text ? std::string_view(text) : std::string_view();
}

std::string Signature(sqlite3_stmt* statement, int width) {
    std::string signature;
    for (int column = 0; column < width; ++column) {
        for (const ColumnFact fact : {&sqlite3_column_name, &sqlite3_column_decltype, &sqlite3_column_table_name,
                                      &sqlite3_column_origin_name}) {
            signature += Fact(fact, statement, column);
            signature += '\0';
        }
    }
    return signature;
}

std::shared_ptr<const RowShape> Describe(sqlite3_stmt* statement, int width) {
    auto shape = std::make_shared<RowShape>();
    std::vector<Text> names;
    for (int column = 0; column < width; ++column) {
        names.push_back(Text::FromUtf8(Fact(&sqlite3_column_name, statement, column)));
        shape->columns.push_back({DeclaredType(Fact(&sqlite3_column_decltype, statement, column)),
                                  std::string(Fact(&sqlite3_column_table_name, statement, column)),
                                  std::string(Fact(&sqlite3_column_origin_name, statement, column))});
    }
    shape->names = std::make_shared<const ColumnNames>(std::move(names));
    return shape;
}

}  // namespace

std::shared_ptr<const RowShape> RowShapes::Of(sqlite3_stmt* statement) {
    const int width = sqlite3_column_count(statement);
    std::string signature = Signature(statement, width);
    if (mShapes.size() >= kMaxShapes) mShapes.clear();
    std::shared_ptr<const RowShape>& shape = mShapes[std::move(signature)];
    if (!shape) shape = Describe(statement, width);
    return shape;
}

}  // namespace ov::sqlite
