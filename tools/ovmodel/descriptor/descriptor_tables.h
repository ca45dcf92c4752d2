/// @file
/// A descriptor read in: all tables with all rows.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "module/host.h"

namespace ovmodel {

class Table;

/// A row of a table, which must outlive it.
struct Row {
    const Table* table = nullptr;
    std::size_t number = 0;  ///< from 1 on, in row order
    std::vector<ov::Variant> values;

    /// The value of a column; Null for a column that there is not.
    const ov::Variant& operator[](std::u16string_view column) const;
    /// The value as text; "" for Null and for what has no text.
    ov::Text TextOf(std::u16string_view column) const;
    /// The number; nullopt for Null and for what is no Long.
    std::optional<std::int32_t> LongOf(std::u16string_view column) const;
};

class Table {
public:
    /// @param facts of the table. Its rows are read through @p database. @throws RuntimeError of the store
    Table(ov::Database& database, const ov::TableFacts& facts);
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    const std::string& name() const { return mName; }
    const std::vector<ov::Text>& columns() const { return mColumns; }
    /// The types of the columns' values, such as "Long".
    const std::vector<ov::Text>& types() const { return mTypes; }
    const std::vector<Row>& rows() const { return mRows; }
    bool hasKey() const { return mHasKey; }
    /// The number of a column, without regard to case.
    std::optional<std::size_t> Find(std::u16string_view column) const;
    /// The columns that tell its rows apart: the primary key, or those that do so in a table of this name; none if
    /// neither is known.
    const std::vector<std::size_t>& identity() const { return mIdentity; }
    /// The values of the identity, joined, or "row N". Rows may share it.
    std::string KeyOf(const Row& row) const;

private:
    std::string mName;
    std::vector<ov::Text> mColumns;
    std::vector<ov::Text> mTypes;
    bool mHasKey = false;
    std::vector<std::size_t> mIdentity;
    std::vector<Row> mRows;
};

class Descriptor {
public:
    /// @throws Failure with the reason why the file cannot be read
    explicit Descriptor(const std::string& path);
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    const std::string& path() const { return mPath; }
    ov::Database& database() const { return *mDatabase; }
    /// The tables in the order of their making.
    const std::vector<std::unique_ptr<Table>>& tables() const { return mTables; }
    /// A table by name without regard to case, or nullptr.
    const Table* Find(std::u16string_view name) const;
    /// The rows of a table; none if there is no such table.
    const std::vector<Row>& Rows(std::u16string_view table) const;
    /// Generation of the format: from 1 on prefixes tell what is a script.
    std::int32_t generation() const { return mGeneration; }
    /// The columns of the table of texts, one for each language.
    const std::vector<ov::Text>& textColumns() const { return mTextColumns; }
    /// The text of a number in the language of a column, with the base language in its gaps; nullopt for a number that
    /// there is not.
    std::optional<ov::Text> TextOf(std::int32_t number, std::u16string_view column = u"Text_7") const;

private:
    std::string mPath;
    ov::Ref<ov::Database> mDatabase;
    std::vector<std::unique_ptr<Table>> mTables;
    std::int32_t mGeneration = 0;
    std::vector<ov::Text> mTextColumns;
    std::map<std::int32_t, const Row*> mTexts;
};

/// A text without regard to case, as a key.
std::u16string Folded(std::u16string_view text);

/// True for a row of FieldProperties that makes a column one of text numbers.
bool IsTextSource(const Row& property);

/// The text of any value: "Null", bytes in hexadecimal.
std::string Shown(const ov::Variant& value);

}  // namespace ovmodel
