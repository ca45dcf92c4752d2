/// @file
/// The rows on a page.
#pragma once

#include <cstdint>

#include "platform/store/jet/page_file.h"

namespace ov::jet {

/// A page that holds rows: of a table, of long values, of usage maps.
class DataPage {
public:
    struct Row {
        Bytes body;
        bool isPointer;  ///< the body is a pointer to where the row has moved
        bool isSkipped;  ///< deleted, or the place to which a row of another page
                         ///< has moved
    };

    /// @throws RuntimeError 3011 if page @p number is no such page
    DataPage(PageFile& file, std::size_t number);

    /// Page of the definition of the table whose rows these are.
    std::uint32_t Owner() const { return mPage.U32(4); }
    std::size_t RowCount() const noexcept { return mRowCount; }
    /// @throws RuntimeError 3011
    Row RowAt(std::size_t number) const;

private:
    std::size_t Offset(std::size_t number) const { return mPage.U16(mOffsetsAt + 2 * number); }

    Bytes mPage;
    std::size_t mOffsetsAt;
    std::size_t mRowCount;
};

/// The body of the row at @p at, wherever it has moved to from there. @throws
/// RuntimeError 3011
Bytes RowBody(PageFile& file, RowPointer at);

}  // namespace ov::jet
