#include "platform/store/jet/catalogue.h"

#include <algorithm>
#include <array>
#include <optional>

namespace ov::jet {

namespace {

constexpr std::uint32_t kCataloguePage = 2;
constexpr std::string_view kQueriesTable = "MSysQueries";

enum ObjectType : std::int64_t { kTable = 1, kLinkByDriver = 4, kQuery = 5, kLink = 6 };

// A row of the catalogue.
class CatalogueReader {
public:
    CatalogueReader(PageFile& file, ValueReader& values)
        : mValues(values), mDefinition(ReadTableDefinition(file, kCataloguePage, values.text())) {
        static constexpr std::array kNames = {"Id", "Name", "Type", "Flags"};
        for (std::size_t i = 0; i < kNames.size(); ++i) {
            const auto found = std::ranges::find(mDefinition.columns, kNames[i], &Column::name);
            if (found == mDefinition.columns.end()) Raise(ErrorNumber::ObjectDamaged);
            mColumns[i] = &*found;
        }
        const auto properties = std::ranges::find(mDefinition.columns, "LvProp", &Column::name);
        if (properties != mDefinition.columns.end()) mProperties = &*properties;
    }

    const TableDefinition& Definition() const noexcept { return mDefinition; }

    void Add(const Row& row, Catalogue& catalogue) {
        const std::string name(mValues.Read(row, *mColumns[1]).bytes);
        const std::int64_t type = Number(row, 2);
        if (type == kTable && name == kQueriesTable) catalogue.queriesPage = PageOf(row);
        if (IsOwn(name, Number(row, 3))) return;
        switch (type) {
            case kTable:
                catalogue.tables.push_back({name, PageOf(row), PropertiesOf(row, name, catalogue)});
                break;
            case kLink:
            case kLinkByDriver:
                catalogue.losses.push_back("table '" + name + "' is a link to another file");
                break;
            case kQuery:
                catalogue.queries.push_back({name, Number(row, 0)});
                break;
            default:  // forms, relations and the like are nothing that is read
                break;
        }
    }

private:
    std::int64_t Number(const Row& row, std::size_t column) { return mValues.Read(row, *mColumns[column]).integer; }

    std::uint32_t PageOf(const Row& row) {
        constexpr std::int64_t kPageMask = 0xFFFFFF;
        return static_cast<std::uint32_t>(Number(row, 0) & kPageMask);
    }

    // The engine's own tables and what it has left over.
    static bool IsOwn(const std::string& name, std::int64_t flags) {
        constexpr std::int64_t kSystem = 0x80000002;
        return (flags & kSystem) != 0 || name.starts_with("MSys") || name.starts_with('~');
    }

    std::vector<Property> PropertiesOf(const Row& row, const std::string& name, Catalogue& catalogue) {
        if (!mProperties) return {};
        try {
            const Value stored = mValues.Read(row, *mProperties);
            if (stored.kind != Value::Kind::Blob) return {};
            const auto* bytes = reinterpret_cast<const std::uint8_t*>(stored.bytes.data());
            return ReadProperties(Bytes(std::span(bytes, stored.bytes.size())), mValues.text());
        } catch (const RuntimeError&) {
            catalogue.losses.push_back("table '" + name + "': its properties cannot be read");
            catalogue.isDamaged = true;
            return {};
        }
    }

    ValueReader& mValues;
    TableDefinition mDefinition;
    std::array<const Column*, 4> mColumns{};
    const Column* mProperties = nullptr;
};

}  // namespace

Catalogue ReadCatalogue(PageFile& file, ValueReader& values) {
    Catalogue catalogue;
    CatalogueReader reader(file, values);
    RowWalk walk(file, reader.Definition());
    std::size_t unreadable = 0;
    for (;;) {
        try {
            const std::optional<Bytes> body = walk.Next();
            if (!body) break;
            reader.Add(Row(file.header().version, reader.Definition(), *body), catalogue);
        } catch (const RuntimeError&) {
            if (file.IsExhausted()) throw;
            ++unreadable;
        }
    }
    if (unreadable > 0) {
        catalogue.losses.push_back("catalogue: " + std::to_string(unreadable) + " rows or pages cannot be read");
        catalogue.isDamaged = true;
    }
    std::ranges::stable_sort(catalogue.tables, {}, &CatalogueTable::definitionPage);
    return catalogue;
}

}  // namespace ov::jet
