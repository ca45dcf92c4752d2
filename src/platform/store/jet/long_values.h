/// @file
/// Values that are too long for a row.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/store/jet/page_file.h"

namespace ov::jet {

/// Reads the values of memo and long binary columns.
class LongValues {
public:
    explicit LongValues(PageFile& file) : mFile(file) {}

    /// The bytes of the value for which @p stored stands in the row. Valid until
    /// the next call.
    /// @throws RuntimeError 3011
    Bytes Read(const Bytes& stored);

private:
    Bytes ReadChain(RowPointer at, std::size_t length);

    PageFile& mFile;
    std::vector<std::uint8_t> mWhole;
};

}  // namespace ov::jet
