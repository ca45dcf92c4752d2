#include "platform/store/jet/rows.h"

#include <algorithm>

#include "platform/store/jet/usage_map.h"

namespace ov::jet {

namespace {

// What looking at a page accounts for, so that many tables cannot all have all
// pages.
constexpr std::size_t kPageCost = 64;

}  // namespace

// A row is: the number of columns, fixed columns, variable columns, offsets,
// their number, null bitmap.
Row::Row(Version version, const TableDefinition& table, const Bytes& body)
    : mIsJet3(version == Version::Jet3), mBody(body) {
    const std::size_t numberSize = mIsJet3 ? 1 : 2;
    const auto number = [&](std::size_t at) -> std::size_t { return mIsJet3 ? mBody.U8(at) : mBody.U16(at); };
    mColumnCount = number(0);
    const std::size_t bitmapSize = (mColumnCount + 7) / 8;
    if (bitmapSize + numberSize > mBody.size()) Raise(ErrorNumber::ObjectDamaged);
    mNullBitmapAt = mBody.size() - bitmapSize;
    mOffsetsEnd = mNullBitmapAt;
    if (!table.hasVariableColumns) return;
    const std::size_t jumps = mIsJet3 ? (mBody.size() - 1) / 256 : 0;
    if (mNullBitmapAt < 2 * numberSize + jumps) Raise(ErrorNumber::ObjectDamaged);
    mVariableCount = number(mNullBitmapAt - numberSize);
    mOffsetsEnd = mNullBitmapAt - numberSize - jumps;
    mJumps = mBody.Part(mOffsetsEnd, jumps);
    // One more offset tells the end of the last column.
    if (mOffsetsEnd < numberSize * (mVariableCount + 2)) Raise(ErrorNumber::ObjectDamaged);
}

bool Row::IsSet(const Column& column) const {
    if (column.number >= mColumnCount) return false;
    return (mBody.U8(mNullBitmapAt + column.number / 8U) >> (column.number % 8) & 1) != 0;
}

// Jet 3 has a byte for an offset, and a list of the columns from which on the
// offsets are 256 more.
std::size_t Row::VariableOffset(std::size_t index) const {
    if (!mIsJet3) return mBody.U16(mOffsetsEnd - 2 * (index + 1));
    std::size_t offset = mBody.U8(mOffsetsEnd - (index + 1));
    for (std::size_t i = 0; i < mJumps.size(); ++i) {
        if (mJumps.U8(i) <= index) offset += 256;
    }
    return offset;
}

std::optional<Bytes> Row::Stored(const Column& column) const {
    if (!IsSet(column)) return std::nullopt;
    if (column.isFixed) {
        const std::size_t at = (mIsJet3 ? 1U : 2U) + column.fixedOffset;
        const std::size_t size = FixedSize(column);
        if (at + size > mOffsetsEnd) Raise(ErrorNumber::ObjectDamaged);
        return mBody.Part(at, size);
    }
    if (column.variableIndex >= mVariableCount) return std::nullopt;  // the row is older than the column
    const std::size_t begin = VariableOffset(column.variableIndex);
    const std::size_t end = VariableOffset(column.variableIndex + 1U);
    if (begin > end || end > mOffsetsEnd) Raise(ErrorNumber::ObjectDamaged);
    return mBody.Part(begin, end - begin);
}

std::size_t FixedSize(const Column& column) noexcept {
    switch (column.type) {
        case ColumnType::Boolean:
            return 0;
        case ColumnType::Byte:
            return 1;
        case ColumnType::Integer:
            return 2;
        case ColumnType::Long:
        case ColumnType::Single:
            return 4;
        case ColumnType::Currency:
        case ColumnType::Double:
        case ColumnType::Date:
            return 8;
        case ColumnType::Guid:
            return 16;
        case ColumnType::Decimal:
            return 17;
        case ColumnType::Binary:
        case ColumnType::Text:
        case ColumnType::LongBinary:
        case ColumnType::Memo:
            break;
    }
    return column.length;
}

RowWalk::RowWalk(PageFile& file, const TableDefinition& table)
    : mFile(file), mTable(table), mPages(ReadUsageMap(file, table.usageMap)) {}

std::optional<Bytes> RowWalk::Next() {
    for (;;) {
        while (!mPage || mNextRow >= mPage->RowCount()) {
            mPage.reset();
            if (mNextPage >= mPages.size()) return std::nullopt;
            mFile.Take(kPageCost);
            const DataPage page(mFile, mPages[mNextPage++]);
            if (page.Owner() != mTable.page) continue;  // long values can stand among the pages
            mPage = page;
            mNextRow = 0;
        }
        const DataPage::Row row = mPage->RowAt(mNextRow++);
        if (row.isSkipped) continue;
        const Bytes body = row.isPointer ? RowBody(mFile, RowPointer::FromNumber(row.body.U32(0))) : row.body;
        // A row of few bytes can stand for many Nulls.
        mFile.Take(std::max(body.size(), mTable.columns.size()));
        return body;
    }
}

}  // namespace ov::jet
