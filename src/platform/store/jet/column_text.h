/// @file
/// How Jet files store texts.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/store/jet/bytes.h"
#include "platform/store/jet/header.h"

struct UConverter;

namespace ov::jet {

/// Decodes texts: of a code page in Jet 3; UTF-16 or its compressed form in
/// Jet 4.
class ColumnText {
public:
    /// @param codePage Windows' number of Jet 3's code page; one that is not
    /// known is taken for 1252
    ColumnText(Version version, std::uint16_t codePage);

    /// The text in UTF-8. Characters that cannot be are replaced by U+FFFD. Valid
    /// until the next call.
    std::string_view ToUtf8(const Bytes& stored);

private:
    void AppendCodePage(const Bytes& stored);
    void AppendUtf16(const Bytes& stored);
    void AppendCompressed(const Bytes& stored);
    void AppendUnit(char16_t unit);
    void AppendCodePoint(char32_t character);

    Version mVersion;
    std::shared_ptr<UConverter> mConverter;  // Jet 3's
    char16_t mHighSurrogate = 0;             // that waits for its low one
    std::string mText;
    std::u16string mWide;
};

}  // namespace ov::jet
