/// @file
/// The two separators of the locale, found by looking at what number formatting writes.
#pragma once

#include "platform/automation/text.h"

namespace ov {

/// Separators as they were when the object was made; a later change of locale does not reach it.
class CLocalization {
public:
    CLocalization();

    const Text& DecimalChar() const noexcept { return mDecimalChar; }
    /// Empty if the locale does not group.
    const Text& ThousandGroupDigit() const noexcept { return mThousandGroupDigit; }

private:
    Text mDecimalChar;
    Text mThousandGroupDigit;
};

}  // namespace ov
