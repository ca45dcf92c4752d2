/// @file
/// Where in a device image a parameter's field lies, and which image is meant.
#pragma once

#include <cstdint>
#include <variant>

#include "contract/enumerations.h"
#include "platform/automation/array.h"
#include "platform/automation/text.h"

namespace ov {

/// The arguments that the four transfers have in common; 0 stands for what was left out.
struct ImagePlace {
    std::int32_t startByte = 0;
    std::int32_t bitlength = 0;
    std::int32_t startBit = 0;
    eByteOrder byteOrder = eByteOrder::eLittleEndian;
};

/// The image of one transfer, and its direction: one that can be written is exported to, one that cannot is imported
/// from. A text holds two hexadecimal digits a byte.
using DeviceImage = std::variant<ByteArray*, const ByteArray*, Text*, const Text*>;

}  // namespace ov
