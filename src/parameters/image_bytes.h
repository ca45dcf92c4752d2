/// @file
/// Device images as rows of bytes, for the classes whose fields are of any number of them.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "parameters/device_image.h"

namespace ov {

/// Index of an image's last byte; -1 for none. @throws RuntimeError 9 for an array of more than one dimension
std::int64_t LastByte(const DeviceImage& image);
/// The number of bytes from @p index to the end of an image; 0 for a place outside it. @throws RuntimeError 9 as above
std::size_t BytesBehind(const DeviceImage& image, std::int32_t index);
/// Writes bytes from @p index on. @pre image is one that is exported to
/// @throws RuntimeError 9 at the first byte that an array does not have, 5 before the first one for a text
void WriteBytes(const DeviceImage& image, std::int32_t index, std::span<const std::uint8_t> bytes);
/// @pre image is one that is imported from @throws RuntimeError 9 unless the image has all of them
std::vector<std::uint8_t> ReadBytes(const DeviceImage& image, std::int32_t index, std::size_t count);

/// The log line about a width that a field of a list cannot have.
Text ListWidthFault(const DeviceImage& image, std::int32_t width);

/// Writes a field of @p size bytes that @p encode(size) makes. An array gets the bytes that it has room for before the
/// error is raised, a text gets all or none. @throws RuntimeError 9, 5
template <class Encode>
void WriteField(const DeviceImage& image, std::int32_t index, std::size_t size, Encode encode) {
    const std::size_t room = BytesBehind(image, index);
    // What an array has no room for stands for itself as one byte, however wide the field is.
    WriteBytes(image, index, encode(size <= room ? size : room + 1));
}

}  // namespace ov
