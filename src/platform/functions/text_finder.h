/// @file
/// Finding one text in another.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/functions/arguments.h"
#include "platform/functions/pace.h"

namespace ov::vbscript {

/// Finds a text in others. Without regard to case one character stands against one, so places and lengths are the same
/// in both modes.
class TextFinder {
public:
    static constexpr std::size_t kNone = std::u16string_view::npos;

    /// @p wanted must outlive the finder.
    TextFinder(BuiltinContext& context, std::u16string_view wanted, TextMode mode) noexcept
        : mPace(context), mWanted(wanted), mMode(mode), mRarest(RarestOf(wanted)) {}

    std::size_t WantedSize() const noexcept { return mWanted.size(); }
    /// Offset of the first occurrence that begins at @p from or behind, or kNone. An empty text is found at once.
    std::size_t Find(std::u16string_view text, std::size_t from);
    /// Offset of the last occurrence that lies in @p text, or kNone.
    std::size_t FindLast(std::u16string_view text);

private:
    static std::size_t RarestOf(std::u16string_view wanted) noexcept;
    std::size_t NextPlace(std::u16string_view text, std::size_t from, std::size_t last) const noexcept;
    bool StandsAt(std::u16string_view text, std::size_t offset);

    Pace mPace;
    std::u16string_view mWanted;
    TextMode mMode;
    std::size_t mRarest;  // where in the wanted text a character is that is rare in others
};

}  // namespace ov::vbscript
