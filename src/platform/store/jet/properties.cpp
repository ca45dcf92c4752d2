#include "platform/store/jet/properties.h"

#include "platform/store/jet/table_definition.h"

namespace ov::jet {

namespace {

enum : std::uint16_t { kNames = 0x80, kOfColumn = 1 };

std::vector<std::string> ReadNames(Bytes chunk, ColumnText& text) {
    std::vector<std::string> names;
    while (!chunk.empty()) {
        const std::size_t length = chunk.U16(0);
        names.emplace_back(text.ToUtf8(chunk.Part(2, length)));
        chunk = chunk.From(2 + length);
    }
    return names;
}

// Numbers and dates have no text of their own here: readers ask for texts and
// switches.
std::string ValueText(ColumnType type, const Bytes& value, ColumnText& text) {
    switch (type) {
        case ColumnType::Boolean:
            return value.U8(0) != 0 ? "-1" : "0";
        case ColumnType::Byte:
            return std::to_string(value.U8(0));
        case ColumnType::Integer:
            return std::to_string(static_cast<std::int16_t>(value.U16(0)));
        case ColumnType::Long:
            return std::to_string(static_cast<std::int32_t>(value.U32(0)));
        case ColumnType::Text:
        case ColumnType::Memo:
            return std::string(text.ToUtf8(value));
        default:
            return {};
    }
}

void ReadColumn(const Bytes& chunk, const std::vector<std::string>& names, ColumnText& text,
                std::vector<Property>& properties) {
    const std::size_t headSize = chunk.U32(0);
    const std::string column(text.ToUtf8(chunk.Part(6, chunk.U16(4))));
    for (Bytes rest = chunk.From(headSize); !rest.empty();) {
        constexpr std::size_t kHeadSize = 8;
        const std::size_t size = rest.U16(0);
        const Bytes entry = rest.Part(0, size);
        const std::size_t name = entry.U16(4);
        if (name >= names.size()) Raise(ErrorNumber::ObjectDamaged);
        std::string value = ValueText(static_cast<ColumnType>(entry.U8(3)), entry.Part(kHeadSize, entry.U16(6)), text);
        properties.push_back({column, names[name], std::move(value)});
        rest = rest.From(size);
    }
}

}  // namespace

std::vector<Property> ReadProperties(const Bytes& stored, ColumnText& text) {
    constexpr std::size_t kMarkSize = 4;
    constexpr std::size_t kHeadSize = 6;
    std::vector<std::string> names;
    std::vector<Property> properties;
    for (Bytes rest = stored.From(kMarkSize); !rest.empty();) {
        const std::size_t size = rest.U32(0);
        if (size < kHeadSize) Raise(ErrorNumber::ObjectDamaged);
        const Bytes chunk = rest.Part(kHeadSize, size - kHeadSize);
        const std::uint16_t kind = rest.U16(4);
        if (kind == kNames) names = ReadNames(chunk, text);
        if (kind == kOfColumn) ReadColumn(chunk, names, text, properties);
        rest = rest.From(size);
    }
    return properties;
}

}  // namespace ov::jet
