#include "platform/store/jet/header.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/store/jet/bytes.h"
#include "platform/store/jet/column_text.h"
#include "platform/store/jet/rc4.h"

namespace ov::jet {

namespace {

constexpr std::size_t kVersionAt = 0x14;
constexpr std::size_t kEncodedAt = 0x18;
constexpr std::size_t kCodePageAt = 0x3C;
constexpr std::size_t kPageKeyAt = 0x3E;
constexpr std::size_t kPasswordAt = 0x42;
constexpr std::size_t kCreationDateAt = 0x72;
constexpr std::uint32_t kHeaderKey = 0x6B39DAC7;

std::size_t EncodedBytes(Version version) noexcept {
    return version == Version::Jet3 ? 126 : 128;
}

// The creation date's day, which masks the password; another day than any that
// can be is a mask of its own kind.
std::uint32_t PasswordMask(double creationDate) noexcept {
    constexpr double kMost = 2147483647;
    return creationDate > -kMost && creationDate < kMost
               ? static_cast<std::uint32_t>(static_cast<std::int32_t>(creationDate))
               : 0x80000000U;
}

Text ReadPassword3(const Bytes& page, std::uint16_t codePage) {
    std::string_view stored = page.Part(kPasswordAt, 20).view();
    stored = stored.substr(0, stored.find('\0'));
    return Text::FromUtf8(
        ColumnText(Version::Jet3, codePage)
            .ToUtf8(Bytes(std::span(reinterpret_cast<const std::uint8_t*>(stored.data()), stored.size()))));
}

Text ReadPassword4(const Bytes& page) {
    constexpr std::size_t kCharacters = 20;
    const std::uint32_t mask = PasswordMask(page.Double(kCreationDateAt));
    std::u16string password;
    for (std::size_t i = 0; i < kCharacters; ++i) {
        const auto maskPart = static_cast<std::uint16_t>(mask >> (i % 2 * 16));
        const auto c = static_cast<char16_t>(page.U16(kPasswordAt + 2 * i) ^ maskPart);
        if (c == 0) break;
        password += c;
    }
    return Text(password);
}

}  // namespace

std::optional<Version> RecognizeVersion(std::span<const std::uint8_t> front) noexcept {
    constexpr std::size_t kNameAt = 4;
    constexpr std::string_view kName("Standard Jet DB\0", 16);
    if (front.size() < kSignatureBytes) return std::nullopt;
    if (Bytes(front.subspan(kNameAt, kName.size())).view() != kName) return std::nullopt;
    switch (front[kVersionAt]) {
        case 0:
            return Version::Jet3;
        case 1:
            return Version::Jet4;
        default:
            return std::nullopt;
    }
}

Header ReadHeader(std::span<const std::uint8_t> file) {
    Header header;
    header.version = RecognizeVersion(file).value();
    const Bytes encoded = Bytes(file).Part(0, kEncodedAt + EncodedBytes(header.version));
    std::array<std::uint8_t, kEncodedAt + 128> plain{};
    std::copy_n(encoded.data(), encoded.size(), plain.begin());
    ApplyRc4(kHeaderKey, std::span(plain).subspan(kEncodedAt, EncodedBytes(header.version)));
    const Bytes page(plain);
    header.pageKey = page.U32(kPageKeyAt);
    header.codePage = page.U16(kCodePageAt);
    header.password = header.version == Version::Jet3 ? ReadPassword3(page, header.codePage) : ReadPassword4(page);
    return header;
}

}  // namespace ov::jet
