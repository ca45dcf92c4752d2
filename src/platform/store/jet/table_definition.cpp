#include "platform/store/jet/table_definition.h"

#include <algorithm>
#include <optional>

namespace ov::jet {

namespace {

// Where things stand in a definition; sizes are those of one entry of a list.
struct Layout {
    std::size_t variableColumnCount;
    std::size_t columnCount;
    std::size_t indexCount;      // logical ones, which have names and kinds
    std::size_t realIndexCount;  // those that hold keys; several logical ones can
                                 // share one
    std::size_t usageMap;
    std::size_t end;
    std::size_t realIndexHeadSize;
    std::size_t columnSize;
    std::size_t columnNumber;
    std::size_t columnVariableIndex;
    std::size_t columnScale;
    std::size_t columnFlags;
    std::size_t columnFixedOffset;
    std::size_t columnLength;
    std::size_t realIndexSize;
    std::size_t realIndexColumns;
    std::size_t realIndexFlags;
    std::size_t indexSize;
    std::size_t indexRealNumber;
    std::size_t indexKind;
    std::size_t nameLengthSize;
};

constexpr Layout kJet3{.variableColumnCount = 23,
                       .columnCount = 25,
                       .indexCount = 27,
                       .realIndexCount = 31,
                       .usageMap = 35,
                       .end = 43,
                       .realIndexHeadSize = 8,
                       .columnSize = 18,
                       .columnNumber = 1,
                       .columnVariableIndex = 3,
                       .columnScale = 10,
                       .columnFlags = 13,
                       .columnFixedOffset = 14,
                       .columnLength = 16,
                       .realIndexSize = 39,
                       .realIndexColumns = 0,
                       .realIndexFlags = 38,
                       .indexSize = 20,
                       .indexRealNumber = 4,
                       .indexKind = 19,
                       .nameLengthSize = 1};
constexpr Layout kJet4{.variableColumnCount = 43,
                       .columnCount = 45,
                       .indexCount = 47,
                       .realIndexCount = 51,
                       .usageMap = 55,
                       .end = 63,
                       .realIndexHeadSize = 12,
                       .columnSize = 25,
                       .columnNumber = 5,
                       .columnVariableIndex = 7,
                       .columnScale = 12,
                       .columnFlags = 15,
                       .columnFixedOffset = 21,
                       .columnLength = 23,
                       .realIndexSize = 52,
                       .realIndexColumns = 4,
                       .realIndexFlags = 42,
                       .indexSize = 28,
                       .indexRealNumber = 8,
                       .indexKind = 23,
                       .nameLengthSize = 2};

constexpr std::size_t kMostKeyColumns = 10;
constexpr std::size_t kKeyColumnSize = 3;

// The pages of a definition as one: what continues it stands behind a head of
// eight bytes.
std::vector<std::uint8_t> ReadPages(PageFile& file, std::uint32_t first) {
    constexpr std::uint8_t kDefinitionPage = 2;
    constexpr std::size_t kHeadSize = 8;
    constexpr std::size_t kNextPageAt = 4;
    std::vector<std::uint8_t> all;
    for (std::uint32_t number = first; number != 0;) {
        const Bytes page = file.Page(number);
        if (page.U8(0) != kDefinitionPage) Raise(ErrorNumber::ObjectDamaged);
        file.Take(page.size());
        all.insert(all.end(), page.data() + (all.empty() ? 0 : kHeadSize), page.data() + page.size());
        number = page.U32(kNextPageAt);
    }
    return all;
}

// Reads the lists of a definition, which stand one behind the other.
class DefinitionReader {
public:
    DefinitionReader(const Bytes& bytes, const Layout& layout, ColumnText& text)
        : mBytes(bytes), mLayout(layout), mText(text), mAt(layout.end) {}

    void SkipEntries(std::uint32_t count, std::size_t size) { mAt += std::size_t{count} * size; }

    std::vector<Column> Columns(std::size_t count) {
        std::vector<Column> columns;
        for (std::size_t i = 0; i < count; ++i) {
            columns.push_back(ReadColumn(mBytes.Part(mAt, mLayout.columnSize)));
            mAt += mLayout.columnSize;
        }
        for (Column& column : columns) {
            column.name = Name();
        }
        return columns;
    }

    // Numbers of the columns of the index that is named as readers ask for it. Names stand in the order of the indexes.
    std::vector<std::uint16_t> PrimaryKey(std::uint32_t realIndexCount, std::uint32_t indexCount) {
        constexpr std::uint16_t kNoColumn = 0xFFFF;
        constexpr std::uint8_t kPrimaryKey = 1;
        constexpr std::uint8_t kUnique = 1;
        bool isUnique = false;
        const std::size_t realIndexesAt = mAt;
        SkipEntries(realIndexCount, mLayout.realIndexSize);
        const std::size_t indexesAt = mAt;
        SkipEntries(indexCount, mLayout.indexSize);
        std::optional<std::uint32_t> key;
        for (std::uint32_t i = 0; i < indexCount && !key; ++i) {
            if (!EqualNoCase(Text::FromUtf8(Name()), u"PrimaryKey")) continue;
            const std::size_t index = indexesAt + i * mLayout.indexSize;
            key = mBytes.U32(index + mLayout.indexRealNumber);
            isUnique = mBytes.U8(index + mLayout.indexKind) == kPrimaryKey;
        }
        std::vector<std::uint16_t> numbers;
        if (!key) return numbers;
        if (*key >= realIndexCount) Raise(ErrorNumber::ObjectDamaged);
        const std::size_t realIndex = realIndexesAt + *key * mLayout.realIndexSize;
        isUnique = isUnique || (mBytes.U8(realIndex + mLayout.realIndexFlags) & kUnique) != 0;
        if (!isUnique) return numbers;
        const std::size_t at = realIndex + mLayout.realIndexColumns;
        for (std::size_t i = 0; i < kMostKeyColumns; ++i) {
            const std::uint16_t number = mBytes.U16(at + i * kKeyColumnSize);
            if (number != kNoColumn) numbers.push_back(number);
        }
        return numbers;
    }

private:
    Column ReadColumn(const Bytes& entry) const {
        constexpr std::uint8_t kFixed = 0x01;
        constexpr std::uint8_t kCounter = 0x04;
        const std::uint8_t flags = entry.U8(mLayout.columnFlags);
        return {.name = {},
                .type = static_cast<ColumnType>(entry.U8(0)),
                .number = entry.U16(mLayout.columnNumber),
                .isFixed = (flags & kFixed) != 0,
                .isCounter = (flags & kCounter) != 0,
                .fixedOffset = entry.U16(mLayout.columnFixedOffset),
                .variableIndex = entry.U16(mLayout.columnVariableIndex),
                .length = entry.U16(mLayout.columnLength),
                .scale = entry.U8(mLayout.columnScale)};
    }

    std::string Name() {
        const std::size_t length = mLayout.nameLengthSize == 1 ? mBytes.U8(mAt) : mBytes.U16(mAt);
        const Bytes stored = mBytes.Part(mAt + mLayout.nameLengthSize, length);
        mAt += mLayout.nameLengthSize + length;
        return std::string(mText.ToUtf8(stored));
    }

    Bytes mBytes;
    const Layout& mLayout;
    ColumnText& mText;
    std::size_t mAt;
};

}  // namespace

TableDefinition ReadTableDefinition(PageFile& file, std::uint32_t page, ColumnText& text) {
    const std::vector<std::uint8_t> pages = ReadPages(file, page);
    const Bytes bytes{std::span(pages)};
    const Layout& layout = file.header().version == Version::Jet3 ? kJet3 : kJet4;
    const std::uint32_t indexCount = bytes.U32(layout.indexCount);
    const std::uint32_t realIndexCount = bytes.U32(layout.realIndexCount);

    TableDefinition table;
    table.page = page;
    table.hasVariableColumns = bytes.U16(layout.variableColumnCount) != 0;
    table.usageMap = RowPointer::FromNumber(bytes.U32(layout.usageMap));
    DefinitionReader reader(bytes, layout, text);
    reader.SkipEntries(realIndexCount, layout.realIndexHeadSize);
    table.columns = reader.Columns(bytes.U16(layout.columnCount));
    std::ranges::stable_sort(table.columns, {}, &Column::number);
    for (const std::uint16_t number : reader.PrimaryKey(realIndexCount, indexCount)) {
        const auto column = std::ranges::find(table.columns, number, &Column::number);
        if (column == table.columns.end()) Raise(ErrorNumber::ObjectDamaged);
        table.primaryKey.push_back(static_cast<std::size_t>(column - table.columns.begin()));
    }
    return table;
}

}  // namespace ov::jet
