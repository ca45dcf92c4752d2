/// @file
/// The rows of a table, in the order in which they are stored.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/store/jet/data_page.h"
#include "platform/store/jet/table_definition.h"

namespace ov::jet {

/// One row, cut into the stored forms of its columns.
class Row {
public:
    /// @param table outlives the row. @throws RuntimeError 3011 if @p body is no
    /// row of the table
    Row(Version version, const TableDefinition& table, const Bytes& body);

    /// True if the column's bit is set: it has a value; a Boolean is True.
    bool IsSet(const Column& column) const;
    /// Bytes of a value, or nullopt for Null. Not for Boolean columns. @throws
    /// RuntimeError 3011
    std::optional<Bytes> Stored(const Column& column) const;

private:
    std::size_t VariableOffset(std::size_t index) const;

    bool mIsJet3;
    Bytes mBody;
    std::size_t mColumnCount = 0;  // that the table had when the row was written
    std::size_t mNullBitmapAt = 0;
    std::size_t mVariableCount = 0;
    std::size_t mOffsetsEnd = 0;  // the offsets stand before it, the first one last
    Bytes mJumps;                 // of Jet 3: where offsets pass a multiple of 256
};

/// Bytes that column @p column takes in a row if it is fixed.
std::size_t FixedSize(const Column& column) noexcept;

/// Walks over the rows of a table.
class RowWalk {
public:
    /// @throws RuntimeError 3011 if the pages of the table cannot be told
    RowWalk(PageFile& file, const TableDefinition& table);

    /// The bytes of the next row, or nullopt behind the last one. The bytes are
    /// accounted for.
    /// @throws RuntimeError 3011 for a row or a page that cannot be read; the
    /// walk goes on behind it
    std::optional<Bytes> Next();

private:
    PageFile& mFile;
    const TableDefinition& mTable;
    std::vector<std::uint32_t> mPages;
    std::size_t mNextPage = 0;
    std::optional<DataPage> mPage;
    std::size_t mNextRow = 0;
};

}  // namespace ov::jet
