/// @file
/// Rows copied out of a statement, so that it need not stay open while somebody walks over them.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace ov::sqlite {

enum class CellKind : std::uint8_t { Null, Integer, Real, Text, Blob };

/// One stored value as SQLite has it; text is UTF-8. The bytes of text and blob belong to the RowStore.
struct Cell {
    union {
        std::int64_t integer;
        double real;
        const char* bytes;
    };
    std::uint32_t length;
    CellKind kind;

    /// @pre kind is Text or Blob
    std::string_view Bytes() const noexcept { return {bytes, length}; }
};

/// True if both hold the same stored value.
bool SameCell(const Cell& a, const Cell& b) noexcept;

/// Rows of one width. Values stay in their stored form, 16 bytes and their text, and become Variants when they are
/// read: a column that nobody reads costs its copy alone.
class RowStore {
public:
    /// Above this many bytes a result is refused: an endless query must not take the host's memory.
    static constexpr std::size_t kMaxBytes = std::size_t{512} << 20;

    explicit RowStore(std::size_t width) noexcept : mWidth(width) {}

    /// Appends the row that @p statement stands on. @pre it has as many columns as the store is wide
    /// @throws RuntimeError 7 beyond kMaxBytes or where there is no memory
    void Append(sqlite3_stmt* statement);
    /// Appends a copy of a row of another store of the same width. @throws the same
    void Append(const Cell* row);

    std::size_t size() const noexcept { return mRows; }
    std::size_t Width() const noexcept { return mWidth; }
    /// The cells of a row; the cells of all rows follow each other. @pre row < size()
    const Cell* operator[](std::size_t row) const noexcept { return mCells.get() + row * mWidth; }

private:
    struct Free {
        void operator()(void* memory) const noexcept { std::free(memory); }
    };

    Cell* GrowCells();
    void CopyBytes(Cell& cell, std::string_view bytes);
    char* TakeBytes(std::size_t length);
    void Account(std::size_t bytes);

    std::size_t mWidth;
    std::size_t mRows = 0;
    std::size_t mRowCapacity = 0;
    std::size_t mUsed = 0;
    std::unique_ptr<Cell, Free> mCells;  // grown by realloc, which moves pages instead of bytes where it is large
    std::vector<std::unique_ptr<char[]>> mChunks;
    char* mFree = nullptr;  // the rest of the last chunk
    std::size_t mFreeBytes = 0;
};

}  // namespace ov::sqlite
