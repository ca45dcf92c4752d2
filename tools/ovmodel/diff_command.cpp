// ovmodel diff A B
#include <algorithm>
#include <iostream>
#include <map>
#include <memory>
#include <set>

#include "ovmodel/command.h"
#include "ovmodel/descriptor/descriptor_tables.h"
#include "ovmodel/descriptor/index_columns.h"

namespace ovmodel {

namespace {

using ov::Text;

/// One thing that differs. What does not apply is "".
struct Change {
    enum class Kind { Table, Order, Column, Row, Cell };

    Kind kind = Kind::Cell;
    std::string table;
    std::string key;     ///< of the row
    std::string column;  ///< of the cell, or the column itself
    std::string before;  ///< "" where it is new
    std::string after;   ///< "" where it is gone
};

/// A descriptor with the columns of it that hold numbers of texts.
class Side {
public:
    Side(const std::string& path, std::int32_t language)
        : descriptor(path), mLanguage(u"Text_" + Text::FromInteger(language)) {
        for (const IndexColumn& index : kIndexColumns) {
            if (!index.isFile) mTextColumns.emplace(Folded(index.table), Folded(index.column));
        }
        for (const Row& row : descriptor.Rows(u"FieldProperties")) {
            if (IsTextSource(row)) {
                mTextColumns.emplace(Folded(row.TextOf(u"TableName")), Folded(row.TextOf(u"FieldName")));
            }
        }
    }

    /// A value as people read it, a number of a text with the text behind it.
    std::string Show(const Row& row, std::u16string_view column) const {
        const ov::Variant& value = row[column];
        if (value.IsString()) return "'" + value.AsText().ToUtf8() + "'";
        const bool isText = mTextColumns.contains({Folded(Text::FromUtf8(row.table->name())), Folded(column)});
        const auto number = isText ? row.LongOf(column) : std::nullopt;
        const auto text = number ? descriptor.TextOf(*number, mLanguage) : std::nullopt;
        return Shown(value) + (text ? " ('" + text->ToUtf8() + "')" : "");
    }

    const Descriptor descriptor;

private:
    Text mLanguage;
    std::set<std::pair<std::u16string, std::u16string>> mTextColumns;
};

class Comparison {
public:
    Comparison(const Side& before, const Side& after) : mBefore(before), mAfter(after) {}

    std::vector<Change> Run() {
        for (const auto& table : mBefore.descriptor.tables()) {
            const Table* other = mAfter.descriptor.Find(Text::FromUtf8(table->name()));
            if (other) {
                CompareTables(*table, *other);
            } else {
                mChanges.push_back({Change::Kind::Table, table->name(), "", "", CountOf(*table), ""});
            }
        }
        for (const auto& table : mAfter.descriptor.tables()) {
            if (mBefore.descriptor.Find(Text::FromUtf8(table->name()))) continue;
            mChanges.push_back({Change::Kind::Table, table->name(), "", "", "", CountOf(*table)});
        }
        return std::move(mChanges);
    }

private:
    struct RowKey {
        std::string key;
        std::size_t occurrence;  // of rows that share the key
        auto operator<=>(const RowKey&) const = default;
    };

    static std::string CountOf(const Table& table) { return std::to_string(table.rows().size()) + " rows"; }

    // Rows that have nothing to be known by are known by all that they hold.
    static std::vector<RowKey> KeysOf(const Table& table) {
        std::map<std::string, std::size_t> seen;
        std::vector<RowKey> keys;
        for (const Row& row : table.rows()) {
            std::string key;
            if (table.identity().empty()) {
                for (const ov::Variant& value : row.values) {
                    key += (key.empty() ? "" : ", ") + Shown(value);
                }
            } else {
                key = table.KeyOf(row);
            }
            keys.push_back({key, seen[key]++});
        }
        return keys;
    }

    void CompareTables(const Table& before, const Table& after) {
        CompareColumns(before, after);
        const std::vector<RowKey> oldKeys = KeysOf(before), newKeys = KeysOf(after);
        std::map<RowKey, std::size_t> places;
        for (std::size_t i = 0; i < newKeys.size(); ++i) {
            places.emplace(newKeys[i], i);
        }
        std::vector<std::size_t> kept;
        for (std::size_t i = 0; i < oldKeys.size(); ++i) {
            const auto place = places.find(oldKeys[i]);
            if (place == places.end()) {
                mChanges.push_back(
                    {Change::Kind::Row, before.name(), oldKeys[i].key, "", Contents(mBefore, before.rows()[i]), ""});
                continue;
            }
            kept.push_back(place->second);
            CompareRows(before.rows()[i], after.rows()[place->second], oldKeys[i].key);
            places.erase(place);
        }
        for (std::size_t i = 0; i < newKeys.size(); ++i) {
            if (!places.contains(newKeys[i])) continue;
            mChanges.push_back(
                {Change::Kind::Row, after.name(), newKeys[i].key, "", "", Contents(mAfter, after.rows()[i])});
        }
        if (!std::ranges::is_sorted(kept)) {
            mChanges.push_back({Change::Kind::Order, before.name(), "", "", "one order", "another order"});
        }
    }

    void CompareColumns(const Table& before, const Table& after) {
        for (std::size_t i = 0; i < before.columns().size(); ++i) {
            const auto other = after.Find(before.columns()[i]);
            const std::string was = before.types()[i].ToUtf8();
            const std::string is = other ? after.types()[*other].ToUtf8() : "";
            if (was == is) continue;
            mChanges.push_back({Change::Kind::Column, before.name(), "", before.columns()[i].ToUtf8(), was, is});
        }
        for (std::size_t i = 0; i < after.columns().size(); ++i) {
            if (before.Find(after.columns()[i])) continue;
            mChanges.push_back(
                {Change::Kind::Column, after.name(), "", after.columns()[i].ToUtf8(), "", after.types()[i].ToUtf8()});
        }
    }

    // Cells of columns that both have.
    void CompareRows(const Row& before, const Row& after, const std::string& key) {
        for (const Text& column : before.table->columns()) {
            if (!after.table->Find(column)) continue;
            const ov::Variant &was = before[column], &is = after[column];
            if (was.IsNull() == is.IsNull() && Shown(was) == Shown(is)) continue;
            mChanges.push_back({Change::Kind::Cell, before.table->name(), key, column.ToUtf8(),
                                mBefore.Show(before, column), mAfter.Show(after, column)});
        }
    }

    static std::string Contents(const Side& side, const Row& row) {
        std::string contents;
        for (const Text& column : row.table->columns()) {
            if (row[column].IsNull()) continue;
            contents += (contents.empty() ? "" : ", ") + column.ToUtf8() + " " + side.Show(row, column);
        }
        return contents;
    }

    const Side& mBefore;
    const Side& mAfter;
    std::vector<Change> mChanges;
};

std::string Words(const Change& change) {
    const bool isNew = change.before.empty(), isGone = change.after.empty();
    const std::string row = change.table + " [" + change.key + "]";
    switch (change.kind) {
        case Change::Kind::Table:
            return change.table + ": table " + (isNew ? "added, " + change.after : "removed, " + change.before);
        case Change::Kind::Order:
            return change.table + ": the rows stand in another order";
        case Change::Kind::Column:
            if (isNew) return change.table + ": column " + change.column + " added, " + change.after;
            if (isGone) return change.table + ": column " + change.column + " removed";
            return change.table + ": column " + change.column + ": " + change.before + " -> " + change.after;
        case Change::Kind::Row:
            return row + (isNew ? " added: " + change.after : " removed: " + change.before);
        case Change::Kind::Cell:
            break;
    }
    return row + " " + change.column + ": " + change.before + " -> " + change.after;
}

Json ToJson(const std::vector<Change>& changes) {
    static constexpr const char* kKinds[] = {"table", "order", "column", "row", "cell"};
    Json json = Json::array();
    for (const Change& change : changes) {
        json.push_back({{"what", kKinds[static_cast<std::size_t>(change.kind)]},
                        {"table", change.table},
                        {"key", change.key},
                        {"column", change.column},
                        {"before", change.before},
                        {"after", change.after}});
    }
    return json;
}

}  // namespace

void AddDiffCommand(CLI::App& app, int& status) {
    struct Options {
        std::string before;
        std::string after;
        std::int32_t language = 7;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand(
        "diff", "Tell what changed between two descriptors; the status is 0 for nothing, 1, or 2 for trouble");
    command->add_option("A", options->before, "Descriptor file, of SQLite or Jet")->required();
    command->add_option("B", options->after, "The other one")->required();
    command->add_option("--language", options->language, "Language of texts beside their numbers (default 7)");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &status] {
        try {
            const Side before(options->before, options->language), after(options->after, options->language);
            const std::vector<Change> changes = Comparison(before, after).Run();
            if (options->json) {
                Print(ToJson(changes));
            } else {
                for (const Change& change : changes) {
                    std::cout << Words(change) << "\n";
                }
            }
            status = changes.empty() ? 0 : 1;
        } catch (const Failure& failure) {
            std::cerr << "ovmodel: " << failure.what() << "\n";
            status = 2;  // 1 would say that something changed
        }
    });
}

}  // namespace ovmodel
