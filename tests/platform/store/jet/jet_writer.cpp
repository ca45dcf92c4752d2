#include "platform/store/jet/jet_writer.h"

#include <algorithm>
#include <bit>
#include <fstream>
#include <stdexcept>

#include "platform/locale/code_page.h"
#include "platform/store/jet/rc4.h"
#include "platform/store/jet/rows.h"

namespace ov::testing {

namespace {

using jet::ColumnType;
using jet::Version;
using Buffer = std::vector<std::uint8_t>;

void Append(Buffer& to, std::uint64_t value, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        to.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
}

void Append(Buffer& to, const Buffer& bytes) {
    to.insert(to.end(), bytes.begin(), bytes.end());
}

void Put(Buffer& to, std::size_t at, std::uint64_t value, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        to.at(at + i) = static_cast<std::uint8_t>(value >> (8 * i));
    }
}

Buffer BytesOf(const std::string& text) {
    return Buffer(text.begin(), text.end());
}

class Writer {
public:
    explicit Writer(const JetFile& file) : mFile(file), mIsJet3(file.version == Version::Jet3) {}

    Buffer Write() {
        NewPage();
        NewPage();
        NewPage();  // the catalogue's definition
        // As in a file that has grown: the catalogue first, then the definitions, and the rows behind them.
        std::vector<JetRow> objects;
        std::vector<std::size_t> definitions;
        for (const JetTable& table : mFile.tables) {
            definitions.push_back(table.type == 1 ? NewPage() : 0);
            const std::int64_t id = table.type == 1 ? static_cast<std::int64_t>(definitions.back()) : table.id;
            objects.push_back({{id, table.name, std::int64_t{table.type}, std::int64_t{0}, PropertyBlob(table)}});
        }
        objects.push_back({{std::int64_t{2}, "MSysObjects", std::int64_t{1}, std::int64_t{-2147483648LL}, {}}});
        const JetTable catalogue{"MSysObjects",
                                 {{"Id", ColumnType::Long, true},
                                  {"Name", ColumnType::Text},
                                  {"Type", ColumnType::Integer},
                                  {"Flags", ColumnType::Long},
                                  {"LvProp", ColumnType::LongBinary}},
                                 objects,
                                 {}};
        WriteTable(catalogue, 2, 'S');
        for (std::size_t i = 0; i < definitions.size(); ++i) {
            if (definitions[i] != 0) WriteTable(mFile.tables[i], definitions[i], 'N');
        }
        WriteHeader();
        Buffer all;
        for (std::size_t number = 0; number < mPages.size(); ++number) {
            const auto key = mFile.pageKey ^ static_cast<std::uint32_t>(number);
            if (number > 0 && mFile.pageKey != 0) jet::ApplyRc4(key, mPages[number]);
            Append(all, mPages[number]);
        }
        return all;
    }

private:
    std::size_t PageSize() const { return jet::PageSize(mFile.version); }
    std::size_t HeadSize() const { return mIsJet3 ? 10 : 14; }
    std::size_t NewPage() {
        mPages.emplace_back(PageSize());
        return mPages.size() - 1;
    }

    void WriteHeader() {
        constexpr double kCreated = 36789.25;
        Buffer& page = mPages[0];
        page[1] = 1;
        std::ranges::copy(std::string("Standard Jet DB"), page.begin() + 4);
        page[0x14] = mIsJet3 ? 0 : 1;
        Put(page, 0x3C, 1252, 2);
        Put(page, 0x3E, mFile.pageKey, 4);
        Put(page, 0x72, std::bit_cast<std::uint64_t>(kCreated), 8);
        const Buffer password = mIsJet3 ? Encode(mFile.password) : Wide(mFile.password);
        std::ranges::copy(password, page.begin() + 0x42);
        for (std::size_t i = 0; !mIsJet3 && i < 40; ++i) {
            page[0x42 + i] ^= static_cast<std::uint8_t>(static_cast<std::uint32_t>(kCreated) >> (i % 4 * 8));
        }
        jet::ApplyRc4(0x6B39DAC7, std::span(page).subspan(0x18, mIsJet3 ? 126 : 128));
    }

    static Buffer Wide(const std::string& text) {
        Buffer bytes;
        const Text wide = Text::FromUtf8(text);
        for (const char16_t c : wide.view()) {
            Append(bytes, c, 2);
        }
        return bytes;
    }

    // Compressed if that can be.
    Buffer Encode(const std::string& text) const {
        const Text wide = Text::FromUtf8(text);
        if (mIsJet3) return BytesOf(ToCodePage(wide.view()));
        const bool isNarrow = std::ranges::all_of(wide.view(), [](char16_t c) { return c > 0 && c < 0x100; });
        if (!isNarrow || wide.size() < 3) return Wide(text);
        Buffer bytes = {0xFF, 0xFE};
        for (const char16_t c : wide.view()) {
            bytes.push_back(static_cast<std::uint8_t>(c));
        }
        return bytes;
    }

    // A page of rows, of which each has its flags.
    struct RowPage {
        std::size_t page;
        std::size_t end;
        std::size_t count = 0;
    };

    RowPage NewRowPage(std::uint32_t owner) {
        const std::size_t number = NewPage();
        Put(mPages[number], 0, 0x0101, 2);
        Put(mPages[number], 4, owner, 4);
        return {number, PageSize()};
    }
    bool HasRoom(const RowPage& rows, std::size_t size) const {
        return rows.count < 255 && HeadSize() + 2 * (rows.count + 1) + size <= rows.end;
    }
    // The row's pointer.
    std::uint32_t AddRow(RowPage& rows, const Buffer& body, std::size_t flags) {
        if (!HasRoom(rows, body.size())) throw std::runtime_error("row is too long");
        rows.end -= body.size();
        Buffer& page = mPages[rows.page];
        std::ranges::copy(body, page.begin() + static_cast<std::ptrdiff_t>(rows.end));
        Put(page, HeadSize() + 2 * rows.count, rows.end | flags, 2);
        Put(page, HeadSize() - 2, rows.count + 1, 2);
        return static_cast<std::uint32_t>(rows.page << 8 | rows.count++);
    }

    Buffer LongValue(const Buffer& bytes) {
        constexpr std::uint32_t kOwner = 0x4C41564C;  // "LVAL"
        constexpr std::size_t kMostInline = 64;
        const std::size_t room = PageSize() - HeadSize() - 2;
        Buffer stored;
        if (bytes.size() <= kMostInline) {
            Append(stored, bytes.size() | 0x80000000, 4);
            Append(stored, 0, 8);
            Append(stored, bytes);
            return stored;
        }
        const bool isOnePage = bytes.size() <= room;
        std::uint32_t pointer = 0;
        if (isOnePage) {
            RowPage rows = NewRowPage(kOwner);
            pointer = AddRow(rows, bytes, 0);
        } else {
            const std::size_t part = room - 4;
            for (std::size_t at = (bytes.size() - 1) / part * part + part; at >= part; at -= part) {
                Buffer body;
                Append(body, pointer, 4);
                body.insert(body.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at - part),
                            bytes.begin() + static_cast<std::ptrdiff_t>(std::min(at, bytes.size())));
                RowPage rows = NewRowPage(kOwner);
                pointer = AddRow(rows, body, 0);
            }
        }
        Append(stored, bytes.size() | (isOnePage ? 0x40000000 : 0), 4);
        Append(stored, pointer, 4);
        Append(stored, 0, 4);
        return stored;
    }

    static bool IsVariable(ColumnType type) {
        return type == ColumnType::Text || type == ColumnType::Memo || type == ColumnType::Binary ||
               type == ColumnType::LongBinary;
    }
    static std::size_t Size(ColumnType type) {
        jet::Column column{};
        column.type = type;
        return IsVariable(type) ? 0 : jet::FixedSize(column);
    }

    Buffer Stored(const JetColumn& column, const JetValue& value) {
        Buffer bytes;
        const auto* text = std::get_if<std::string>(&value);
        const auto* blob = std::get_if<Buffer>(&value);
        const auto* number = std::get_if<std::int64_t>(&value);
        const auto* real = std::get_if<double>(&value);
        if (text) bytes = Encode(*text);
        if (blob) bytes = *blob;
        if (real && column.type == ColumnType::Single) {
            Append(bytes, std::bit_cast<std::uint32_t>(static_cast<float>(*real)), 4);
        } else if (real) {
            Append(bytes, std::bit_cast<std::uint64_t>(*real), 8);
        }
        if (number && column.type == ColumnType::Decimal) {
            const auto size = static_cast<std::uint64_t>(*number < 0 ? -*number : *number);
            Append(bytes, *number < 0 ? 0x80 : 0, 1);
            Append(bytes, 0, 8);
            Append(bytes, size >> 32, 4);
            Append(bytes, size, 4);
        } else if (number) {
            Append(bytes, static_cast<std::uint64_t>(*number), Size(column.type));
        }
        const bool isLong = column.type == ColumnType::Memo || column.type == ColumnType::LongBinary;
        return isLong && !std::holds_alternative<std::monostate>(value) ? LongValue(bytes) : bytes;
    }

    Buffer RowBytes(const JetTable& table, const JetRow& row) {
        const std::size_t wide = mIsJet3 ? 1 : 2;
        const std::size_t columns = table.columns.size();
        Buffer body;
        Buffer bitmap((columns + 7) / 8);
        Append(body, columns, wide);
        std::vector<Buffer> variable;
        for (std::size_t i = 0; i < columns; ++i) {
            const JetColumn& column = table.columns[i];
            const JetValue& value = row.values.at(i);
            const auto* truth = std::get_if<bool>(&value);
            const bool isSet = truth ? *truth : !std::holds_alternative<std::monostate>(value);
            if (isSet) bitmap[i / 8] |= static_cast<std::uint8_t>(1 << i % 8);
            Buffer stored = Stored(column, value);
            if (IsVariable(column.type)) {
                variable.push_back(std::move(stored));
            } else {
                stored.resize(Size(column.type));
                Append(body, stored);
            }
        }
        std::vector<std::size_t> offsets;
        for (const Buffer& bytes : variable) {
            offsets.push_back(body.size());
            Append(body, bytes);
        }
        offsets.push_back(body.size());
        if (!variable.empty()) AppendOffsets(body, offsets, bitmap.size());
        Append(body, bitmap);
        return body;
    }

    void AppendOffsets(Buffer& body, const std::vector<std::size_t>& offsets, std::size_t bitmapSize) const {
        const std::size_t wide = mIsJet3 ? 1 : 2;
        for (auto at = offsets.rbegin(); at != offsets.rend(); ++at) {
            Append(body, *at, wide);
        }
        if (mIsJet3) {
            std::size_t jumps = 0;
            while ((body.size() + jumps + 1 + bitmapSize - 1) / 256 != jumps) {
                ++jumps;
            }
            for (std::size_t i = jumps; i >= 1; --i) {
                const auto first = std::ranges::find_if(offsets, [i](std::size_t at) { return at >= 256 * i; });
                body.push_back(first == offsets.end() ? 0xFF : static_cast<std::uint8_t>(first - offsets.begin()));
            }
        }
        Append(body, offsets.size() - 1, wide);
    }

    void WriteTable(const JetTable& table, std::size_t definition, char kind) {
        constexpr std::size_t kMoved = 0x4000;
        constexpr std::size_t kSkipped = 0x8000;
        RowPage map = NewRowPage(0);
        const std::size_t mapPage = table.hasMapPages ? NewPage() : 0;
        WriteDefinition(table, definition, static_cast<std::uint32_t>(map.page << 8), kind);
        std::vector<std::size_t> pages;
        const auto newPage = [&] {
            const RowPage rows = NewRowPage(static_cast<std::uint32_t>(definition));
            pages.push_back(rows.page);
            return rows;
        };
        RowPage rows = newPage();
        for (const JetRow& row : table.rows) {
            Buffer body = RowBytes(table, row);
            std::size_t flags = row.place == JetRow::Place::Deleted ? kSkipped : 0;
            if (row.place == JetRow::Place::Moved) {
                RowPage target = newPage();
                const std::uint32_t pointer = AddRow(target, body, kSkipped);
                body.clear();
                Append(body, pointer, 4);
                flags = kMoved;
            }
            if (!HasRoom(rows, body.size())) rows = newPage();
            AddRow(rows, body, flags);
        }
        AddRow(map, table.hasMapPages ? MapOnPage(mapPage, pages) : MapInRow(pages), 0);
    }

    static Buffer MapInRow(const std::vector<std::size_t>& pages) {
        Buffer map(1 + 4 + (pages.back() - pages.front()) / 8 + 1);
        Put(map, 1, pages.front(), 4);
        SetBits(map, 5, pages, pages.front());
        return map;
    }
    Buffer MapOnPage(std::size_t mapPage, const std::vector<std::size_t>& pages) {
        Put(mPages[mapPage], 0, 0x0105, 2);
        SetBits(mPages[mapPage], 4, pages, 0);
        Buffer map(1 + 4 * 4);
        map[0] = 1;
        Put(map, 1, mapPage, 4);
        return map;
    }
    static void SetBits(Buffer& map, std::size_t at, const std::vector<std::size_t>& pages, std::size_t first) {
        for (const std::size_t page : pages) {
            map[at + (page - first) / 8] |= static_cast<std::uint8_t>(1 << (page - first) % 8);
        }
    }

    void WriteDefinition(const JetTable& table, std::size_t page, std::uint32_t map, char kind) {
        const std::size_t variable = static_cast<std::size_t>(
            std::ranges::count_if(table.columns, [](const JetColumn& column) { return IsVariable(column.type); }));
        const bool hasKey = std::ranges::any_of(table.columns, &JetColumn::isKey);
        const std::size_t indexes = hasKey ? 2 : 0;
        const std::size_t head = mIsJet3 ? 43 : 63;
        Buffer all(head + indexes * (mIsJet3 ? 8 : 12));
        Put(all, mIsJet3 ? 12 : 16, table.rows.size(), 4);
        all[mIsJet3 ? 20 : 40] = static_cast<std::uint8_t>(kind);
        std::size_t at = mIsJet3 ? 21 : 41;
        for (const std::size_t count : {table.columns.size(), variable, table.columns.size()}) {
            Put(all, at, count, 2);
            at += 2;
        }
        Put(all, at, indexes, 4);
        Put(all, at + 4, indexes, 4);
        Put(all, at + 8, map, 4);
        AppendColumns(all, table);
        if (hasKey) AppendIndexes(all, table);
        Append(all, 0xFFFF, 2);
        SplitDefinition(all, page);
    }

    void AppendColumns(Buffer& all, const JetTable& table) const {
        std::size_t fixedOffset = 0;
        std::size_t variableIndex = 0;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const JetColumn& column = table.columns[i];
            const bool isVariable = IsVariable(column.type);
            const std::size_t base = all.size();
            all.resize(base + (mIsJet3 ? 18 : 25));
            all[base] = static_cast<std::uint8_t>(column.type);
            Put(all, base + (mIsJet3 ? 1 : 5), i, 2);
            Put(all, base + (mIsJet3 ? 3 : 7), isVariable ? variableIndex++ : variableIndex, 2);
            Put(all, base + (mIsJet3 ? 10 : 12), column.scale, 1);
            all[base + (mIsJet3 ? 13 : 15)] = static_cast<std::uint8_t>((isVariable ? 2 : 3) | column.isCounter << 2);
            Put(all, base + (mIsJet3 ? 14 : 21), isVariable ? 0 : fixedOffset, 2);
            Put(all, base + (mIsJet3 ? 16 : 23), isVariable ? 255 : Size(column.type), 2);
            fixedOffset += Size(column.type);
        }
        for (const JetColumn& column : table.columns) {
            AppendName(all, column.name);
        }
    }

    void AppendName(Buffer& all, const std::string& name) const {
        const Buffer stored = mIsJet3 ? Encode(name) : Wide(name);
        Append(all, stored.size(), mIsJet3 ? 1 : 2);
        Append(all, stored);
    }

    // Besides the key there is an index that comes first among those that hold keys and second among those with names.
    void AppendIndexes(Buffer& all, const JetTable& table) const {
        for (const bool isKey : {false, true}) {
            if (!mIsJet3) Append(all, 0, 4);
            std::size_t left = 10;
            for (std::size_t i = 0; i < table.columns.size(); ++i) {
                if (table.columns[i].isKey != isKey || left == 0) continue;
                Append(all, i | 1 << 16, 3);
                --left;
            }
            for (; left > 0; --left) {
                Append(all, 0xFFFF, 3);
            }
            all.resize(all.size() + (mIsJet3 ? 9 : 18));
        }
        for (const std::size_t number : {0U, 1U}) {
            if (!mIsJet3) Append(all, 0, 4);
            Append(all, number, 4);
            Append(all, 1 - number, 4);
            all.resize(all.size() + 11);
            all.push_back(number == 0 ? 1 : 0);
            if (!mIsJet3) Append(all, 0, 4);
        }
        AppendName(all, "PrimaryKey");
        AppendName(all, "Other");
    }

    void SplitDefinition(const Buffer& all, std::size_t page) {
        constexpr std::size_t kHead = 8;
        std::size_t done = kHead;
        for (std::size_t number = page; done < all.size();) {
            const std::size_t count = std::min(PageSize() - kHead, all.size() - done);
            std::copy_n(all.begin() + static_cast<std::ptrdiff_t>(done), count, mPages[number].begin() + kHead);
            done += count;
            const std::size_t next = done < all.size() ? NewPage() : 0;
            Put(mPages[number], 0, 0x0102, 2);
            Put(mPages[number], 4, next, 4);
            number = next;
        }
    }

    JetValue PropertyBlob(const JetTable& table) const {
        if (table.properties.empty()) return {};
        const auto chunk = [](Buffer& to, std::size_t kind, const Buffer& content) {
            Append(to, content.size() + 6, 4);
            Append(to, kind, 2);
            Append(to, content);
        };
        const auto encode = [&](const std::string& text) { return mIsJet3 ? Encode(text) : Wide(text); };
        Buffer all = BytesOf(mIsJet3 ? std::string("KKD\0", 4) : std::string("MR2\0", 4));
        Buffer names;
        for (const JetProperty& property : table.properties) {
            const Buffer name = encode(property.name);
            Append(names, name.size(), 2);
            Append(names, name);
        }
        chunk(all, 0x80, names);
        for (std::size_t i = 0; i < table.properties.size(); ++i) {
            const Buffer column = encode(table.properties[i].column);
            const Buffer value = encode(table.properties[i].value);
            Buffer content;
            Append(content, 6 + column.size(), 4);
            Append(content, column.size(), 2);
            Append(content, column);
            Append(content, 8 + value.size(), 2);
            content.push_back(0);
            content.push_back(static_cast<std::uint8_t>(ColumnType::Memo));
            Append(content, i, 2);
            Append(content, value.size(), 2);
            Append(content, value);
            chunk(all, 1, content);
        }
        return all;
    }

    const JetFile& mFile;
    bool mIsJet3;
    std::vector<Buffer> mPages;
};

}  // namespace

std::vector<std::uint8_t> WriteJet(const JetFile& file) {
    return Writer(file).Write();
}

void WriteJet(const JetFile& file, const std::string& path) {
    const Buffer bytes = WriteJet(file);
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace ov::testing
