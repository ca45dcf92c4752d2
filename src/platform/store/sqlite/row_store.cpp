#include "platform/store/sqlite/row_store.h"

#include <algorithm>
#include <cstring>

#include "platform/automation/errors.h"

namespace ov::sqlite {

namespace {

constexpr std::size_t kFirstRows = 4;
constexpr std::size_t kFirstChunk = 1024;
constexpr std::size_t kLargestChunk = 256 * 1024;

std::string_view ValueBytes(sqlite3_value* value, const void* bytes) noexcept {
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

}  // namespace

bool SameCell(const Cell& a, const Cell& b) noexcept {
    if (a.kind != b.kind) return false;
    switch (a.kind) {
        case CellKind::Null:
            return true;
        case CellKind::Integer:
            return a.integer == b.integer;
        case CellKind::Real:
            return a.real == b.real;
        case CellKind::Text:
        case CellKind::Blob:
            return a.Bytes() == b.Bytes();
    }
    return false;
}

// The values are read through sqlite3_column_value, one call for each column. That is sound since the connection
// belongs to one thread.
void RowStore::Append(sqlite3_stmt* statement) {
    Cell* cell = mRows < mRowCapacity ? mCells.get() + mRows * mWidth : GrowCells();
    const int width = static_cast<int>(mWidth);
    for (int column = 0; column < width; ++column, ++cell) {
        sqlite3_value* value = sqlite3_column_value(statement, column);
        switch (sqlite3_value_type(value)) {
            case SQLITE_INTEGER:
                cell->kind = CellKind::Integer;
                cell->integer = sqlite3_value_int64(value);
                break;
            case SQLITE_FLOAT:
                cell->kind = CellKind::Real;
                cell->real = sqlite3_value_double(value);
                break;
            case SQLITE_TEXT: {
                cell->kind = CellKind::Text;
                const unsigned char* text = sqlite3_value_text(value);  // first, since it may convert the value
                if (!text) Raise(ErrorNumber::OutOfMemory);
                CopyBytes(*cell, ValueBytes(value, text));
                break;
            }
            case SQLITE_BLOB: {
                cell->kind = CellKind::Blob;
                CopyBytes(*cell, ValueBytes(value, sqlite3_value_blob(value)));
                break;
            }
            default:
                cell->kind = CellKind::Null;
                break;
        }
    }
    ++mRows;
}

void RowStore::Append(const Cell* row) {
    Cell* cell = mRows < mRowCapacity ? mCells.get() + mRows * mWidth : GrowCells();
    for (std::size_t column = 0; column < mWidth; ++column) {
        cell[column] = row[column];
        const bool hasBytes = row[column].kind == CellKind::Text || row[column].kind == CellKind::Blob;
        if (hasBytes) CopyBytes(cell[column], row[column].Bytes());
    }
    ++mRows;
}

Cell* RowStore::GrowCells() {
    const std::size_t capacity = std::max(mRowCapacity * 2, kFirstRows);
    Account((capacity - mRowCapacity) * mWidth * sizeof(Cell));
    void* grown = std::realloc(mCells.get(), capacity * mWidth * sizeof(Cell));
    if (!grown) Raise(ErrorNumber::OutOfMemory);
    static_cast<void>(mCells.release());
    mCells.reset(static_cast<Cell*>(grown));
    mRowCapacity = capacity;
    return mCells.get() + mRows * mWidth;
}

void RowStore::CopyBytes(Cell& cell, std::string_view bytes) {
    cell.length = static_cast<std::uint32_t>(bytes.size());
    cell.bytes = "";
    if (bytes.empty()) return;
    char* copy = TakeBytes(bytes.size());
    std::memcpy(copy, bytes.data(), bytes.size());
    cell.bytes = copy;
}

char* RowStore::TakeBytes(std::size_t length) {
    if (length > mFreeBytes) {
        const std::size_t usual = std::min(kFirstChunk << std::min<std::size_t>(mChunks.size(), 8), kLargestChunk);
        const std::size_t chunk = std::max(usual, length);
        Account(chunk);
        mChunks.push_back(std::make_unique_for_overwrite<char[]>(chunk));
        mFree = mChunks.back().get();
        mFreeBytes = chunk;
    }
    char* taken = mFree;
    mFree += length;
    mFreeBytes -= length;
    return taken;
}

void RowStore::Account(std::size_t bytes) {
    if (bytes > kMaxBytes - mUsed) Raise(ErrorNumber::OutOfMemory);
    mUsed += bytes;
}

}  // namespace ov::sqlite
