/// @file
/// 128-bit identifiers of classes and interfaces.
#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "platform/automation/text.h"

namespace ov {

/// A 128-bit identifier, in the field layout of the COM binary interface.
struct Guid {
    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::array<std::uint8_t, 8> data4{};

    /// Reads the form "{48D28B32-4605-44A3-90C1-B868E723D0B5}".
    /// @throws std::invalid_argument on any other form; in a constant expression that is a compile error.
    static constexpr Guid Parse(std::string_view text);

    friend constexpr bool operator==(const Guid&, const Guid&) noexcept = default;
};

static_assert(sizeof(Guid) == 16);

namespace guid_detail {

constexpr std::uint64_t HexDigits(std::string_view text) {
    std::uint64_t value = 0;
    for (char c : text) {
        unsigned digit = 0;
        if (c >= '0' && c <= '9') {
            digit = static_cast<unsigned>(c - '0');
        } else if (c >= 'A' && c <= 'F') {
            digit = static_cast<unsigned>(c - 'A') + 10;
        } else if (c >= 'a' && c <= 'f') {
            digit = static_cast<unsigned>(c - 'a') + 10;
        } else {
            throw std::invalid_argument("not a hexadecimal digit in an identifier");
        }
        value = value * 16 + digit;
    }
    return value;
}

}  // namespace guid_detail

constexpr Guid Guid::Parse(std::string_view text) {
    if (text.size() != 38 || text[0] != '{' || text[37] != '}' || text[9] != '-' || text[14] != '-' ||
        text[19] != '-' || text[24] != '-') {
        throw std::invalid_argument("not an identifier of the form {8-4-4-4-12}");
    }
    Guid guid;
    guid.data1 = static_cast<std::uint32_t>(guid_detail::HexDigits(text.substr(1, 8)));
    guid.data2 = static_cast<std::uint16_t>(guid_detail::HexDigits(text.substr(10, 4)));
    guid.data3 = static_cast<std::uint16_t>(guid_detail::HexDigits(text.substr(15, 4)));
    for (std::size_t i = 0; i < 8; ++i) {
        const std::size_t at = i < 2 ? 20 + 2 * i : 25 + 2 * (i - 2);
        guid.data4[i] = static_cast<std::uint8_t>(guid_detail::HexDigits(text.substr(at, 2)));
    }
    return guid;
}

/// The form that Guid::Parse reads, in upper case.
Text FormatGuid(const Guid& guid);

}  // namespace ov
