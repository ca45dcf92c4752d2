#include "parameters/dcp_name.h"

#include <algorithm>
#include <cstddef>

namespace ov {

namespace {

constexpr std::size_t kMaxName = 240, kMaxLabel = 63, kPartsOfAddress = 4;

bool IsDigit(char16_t c) noexcept {
    return c >= u'0' && c <= u'9';
}

bool MayStand(char16_t c) noexcept {
    return c == u'-' || c == u'.' || IsDigit(c) || (c >= u'a' && c <= u'z');
}

bool HasGoodParts(std::u16string_view name) noexcept {
    std::size_t parts = 0;
    for (std::size_t begin = 0; begin <= name.size(); ++parts) {
        const std::size_t end = std::min(name.find(u'.', begin), name.size());
        if (end == begin || end - begin > kMaxLabel || IsDigit(name[begin])) return false;
        begin = end + 1;
    }
    return parts != kPartsOfAddress;
}

bool IsPortName(std::u16string_view name) noexcept {
    constexpr std::u16string_view kPort = u"port-";
    constexpr std::size_t kDigits = 3;
    if (name.size() < kPort.size() + kDigits || !name.starts_with(kPort)) return false;
    return std::ranges::all_of(name.substr(kPort.size(), kDigits), IsDigit);
}

}  // namespace

bool IsDcpName(std::u16string_view name) noexcept {
    if (name.empty()) return true;
    if (!std::ranges::all_of(name, MayStand)) return false;
    if (name.find(u'.') != std::u16string_view::npos && !HasGoodParts(name)) return false;
    // Parts may begin and end with "-", the whole may not.
    return !IsPortName(name) && !IsDigit(name.front()) && name.size() <= kMaxName && name.front() != u'-' &&
           name.back() != u'-';
}

}  // namespace ov
