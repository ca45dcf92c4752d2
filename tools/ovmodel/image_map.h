/// @file
/// Which parameter lies where in a device image, as a CSV file tells it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "contract/enumerations.h"

namespace ovmodel {

/// One line of a map: "path,startByte,bitLength,startBit,byteOrder" with a path CHANNEL/GROUP/PARAMETER of ids and
/// "little" or "big".
struct MapField {
    int line = 0;
    std::string path;
    std::int32_t startByte = 0;
    std::int32_t bitLength = 0;
    std::int32_t startBit = 0;
    ov::eByteOrder byteOrder = ov::eByteOrder::eLittleEndian;

    /// The bits that the field takes, as numbers from bit 0 of byte 0 on. A field of 8 bits or more takes whole bytes
    /// from the start byte on; a narrower one may go on in the next byte, which in big endian is the one before.
    std::vector<std::int64_t> Bits() const;
};

/// Reads a map: a line of titles, then the fields; lines that are empty or begin with "#" count for nothing.
/// @throws Failure with a line for each fault
std::vector<MapField> ReadImageMap(const std::string& path);

/// The number of bytes that hold all fields.
std::size_t SizeOf(const std::vector<MapField>& map);

/// @throws Failure with a line for each field that lies outside @p size bytes or on bits of an earlier one
void CheckPlaces(const std::string& path, const std::vector<MapField>& map, std::size_t size);

}  // namespace ovmodel
