/// @file
/// The pages of a Jet file.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/store/jet/bytes.h"
#include "platform/store/jet/header.h"

namespace ov::jet {

/// Where a row stands: what Jet calls a data pointer.
struct RowPointer {
    std::uint32_t page;
    std::uint8_t row;

    static RowPointer FromNumber(std::uint32_t number) noexcept {
        return {number >> 8, static_cast<std::uint8_t>(number)};
    }
};

/// A Jet file in memory. Pages are decoded when they are first looked at.
class PageFile {
public:
    /// @throws RuntimeError 3343 if @p content is no Jet file, 3011 if it ends
    /// inside its first page
    explicit PageFile(std::vector<std::uint8_t> content);

    const Header& header() const noexcept { return mHeader; }
    std::size_t PageSize() const noexcept { return jet::PageSize(mHeader.version); }
    std::size_t PageCount() const noexcept { return mContent.size() / PageSize(); }

    /// A page but the first. @throws RuntimeError 3011 if there is none of that
    /// number
    Bytes Page(std::size_t number);

    /// Accounts for @p bytes of content that go into the result. In a sound file
    /// nothing is used twice, so a file from which more comes than it can have
    /// points to the same places again and again.
    /// @throws RuntimeError 3011 then
    void Take(std::size_t bytes);
    /// True once Take has failed: nothing more is to be had from the file.
    bool IsExhausted() const noexcept { return mIsExhausted; }

private:
    std::vector<std::uint8_t> mContent;
    std::vector<bool> mDecoded;  // by page
    Header mHeader;
    std::size_t mLeft;  // bytes that can still be taken
    bool mIsExhausted = false;
};

}  // namespace ov::jet
