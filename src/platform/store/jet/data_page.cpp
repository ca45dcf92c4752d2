#include "platform/store/jet/data_page.h"

#include <algorithm>

namespace ov::jet {

namespace {

constexpr std::uint8_t kDataPage = 1;
constexpr std::size_t kPointerFlag = 0x4000;
constexpr std::size_t kSkippedFlag = 0x8000;
constexpr std::size_t kOffsetMask = 0x1FFF;
constexpr std::size_t kMostRows = 256;  // a row's number is a byte

}  // namespace

DataPage::DataPage(PageFile& file, std::size_t number) : mPage(file.Page(number)) {
    if (mPage.U8(0) != kDataPage) Raise(ErrorNumber::ObjectDamaged);
    const std::size_t countAt = file.header().version == Version::Jet3 ? 8 : 12;
    mOffsetsAt = countAt + 2;
    mRowCount = mPage.U16(countAt);
    if (mRowCount > kMostRows) Raise(ErrorNumber::ObjectDamaged);
}

// Rows fill the page from its end, each before the one of the lower number.
DataPage::Row DataPage::RowAt(std::size_t number) const {
    if (number >= mRowCount) Raise(ErrorNumber::ObjectDamaged);
    const std::size_t stored = Offset(number);
    const std::size_t begin = stored & kOffsetMask;
    const std::size_t end = number == 0 ? mPage.size() : Offset(number - 1) & kOffsetMask;
    if (begin > end || begin < mOffsetsAt + 2 * mRowCount) Raise(ErrorNumber::ObjectDamaged);
    return {mPage.Part(begin, end - begin), (stored & kPointerFlag) != 0, (stored & kSkippedFlag) != 0};
}

Bytes RowBody(PageFile& file, RowPointer at) {
    constexpr int kMostMoves = 16;  // one, in all files but those that were made by hand
    for (int i = 0; i < kMostMoves; ++i) {
        const DataPage::Row row = DataPage(file, at.page).RowAt(at.row);
        if (!row.isPointer) return row.body;
        at = RowPointer::FromNumber(row.body.U32(0));
    }
    Raise(ErrorNumber::ObjectDamaged);
}

}  // namespace ov::jet
