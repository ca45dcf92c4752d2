#include "parameters/image_bytes.h"

#include <string>
#include <type_traits>

#include "parameters/memory_map.h"
#include "platform/automation/errors.h"
#include "platform/conversion/hex_digits.h"

namespace ov {

namespace {

template <class Image>
constexpr bool kIsText = std::is_same_v<std::remove_const_t<Image>, Text>;

}  // namespace

std::int64_t LastByte(const DeviceImage& image) {
    return std::visit(
        [](auto* bytes) {
            if constexpr (kIsText<std::remove_pointer_t<decltype(bytes)>>) {
                return static_cast<std::int64_t>(bytes->size() / 2) - 1;
            } else {
                if (!bytes->isRow) Raise(ErrorNumber::SubscriptOutOfRange);
                return bytes->lower + static_cast<std::int64_t>(bytes->bytes.size()) - 1;
            }
        },
        image);
}

std::size_t BytesBehind(const DeviceImage& image, std::int32_t index) {
    const auto* const* array = std::get_if<const ByteArray*>(&image);
    const auto* const* target = std::get_if<ByteArray*>(&image);
    const std::int32_t first = array ? (*array)->lower : target ? (*target)->lower : 0;
    const std::int64_t last = LastByte(image);
    return index < first || index > last ? 0 : static_cast<std::size_t>(last - index + 1);
}

Text ListWidthFault(const DeviceImage& image, std::int32_t width) {
    return OperationName(image) +
           (u"(): ERROR: bitlength>=8 and other than 8, 16, 24: BitLen=" + Text::FromInteger(width));
}

void WriteBytes(const DeviceImage& image, std::int32_t index, std::span<const std::uint8_t> bytes) {
    if (auto* const* array = std::get_if<ByteArray*>(&image)) {
        std::int64_t at = index;
        for (const std::uint8_t byte : bytes) {
            ByteAt(**array, at++) = byte;
        }
    } else if (!bytes.empty()) {
        std::u16string digits;
        for (const std::uint8_t byte : bytes) {
            digits += HexDigit(byte >> 4u);
            digits += HexDigit(byte);
        }
        WriteDigits(*std::get<Text*>(image), index, digits);
    }
}

std::vector<std::uint8_t> ReadBytes(const DeviceImage& image, std::int32_t index, std::size_t count) {
    if (count > BytesBehind(image, index)) Raise(ErrorNumber::SubscriptOutOfRange);
    std::vector<std::uint8_t> bytes(count);
    std::int64_t at = index;
    for (std::uint8_t& byte : bytes) {
        const auto* const* array = std::get_if<const ByteArray*>(&image);
        byte = array ? PeekByte(**array, at) : PeekByte(*std::get<const Text*>(image), at);
        ++at;
    }
    return bytes;
}

}  // namespace ov
