#include "platform/automation/guid.h"

#include <array>
#include <cstdio>

namespace ov {

Text FormatGuid(const Guid& guid) {
    std::array<char, 40> form;
    const int length = std::snprintf(form.data(), form.size(), "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                                     guid.data1, guid.data2, guid.data3, guid.data4[0], guid.data4[1], guid.data4[2],
                                     guid.data4[3], guid.data4[4], guid.data4[5], guid.data4[6], guid.data4[7]);
    return Text::FromAscii({form.data(), static_cast<std::size_t>(length)});
}

}  // namespace ov
