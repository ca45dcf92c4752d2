#include "platform/store/jet/page_file.h"

#include <utility>

#include "platform/store/jet/rc4.h"

namespace ov::jet {

namespace {

Header CheckedHeader(std::span<const std::uint8_t> content) {
    if (!RecognizeVersion(content)) Raise(ErrorNumber::UnrecognizedFormat);
    return ReadHeader(content);
}

}  // namespace

PageFile::PageFile(std::vector<std::uint8_t> content)
    : mContent(std::move(content)), mHeader(CheckedHeader(mContent)), mLeft(2 * mContent.size()) {
    mDecoded.resize(PageCount());
}

Bytes PageFile::Page(std::size_t number) {
    if (number == 0 || number >= PageCount()) Raise(ErrorNumber::ObjectDamaged);
    const std::span<std::uint8_t> page = std::span(mContent).subspan(number * PageSize(), PageSize());
    if (!mDecoded[number]) {
        mDecoded[number] = true;
        if (mHeader.pageKey != 0) ApplyRc4(mHeader.pageKey ^ static_cast<std::uint32_t>(number), page);
    }
    return Bytes(page);
}

void PageFile::Take(std::size_t bytes) {
    mIsExhausted = mIsExhausted || bytes > mLeft;
    if (mIsExhausted) Raise(ErrorNumber::ObjectDamaged);
    mLeft -= bytes;
}

}  // namespace ov::jet
