/// @file
/// Pictures: how a number, a date or a text is to be written, as the `Format` function of Visual Basic reads them.
///
/// A picture is one of
/// - the empty text: the value's plain text;
/// - a name, in any case: "General Number", "Currency", "Fixed", "Standard", "Percent", "Scientific", "Yes/No",
///   "True/False", "On/Off", "General Date", "Long Date", "Medium Date", "Short Date", "Long Time", "Medium Time",
///   "Short Time";
/// - a number picture: up to four sections between ";" (positive, negative, zero, Null) of digit placeholders "0" and
///   "#", ".", ",", "%" and exponents "E+00";
/// - a date picture: "d" to "dddddd", "w", "ww", "m" to "mmmm", "oooo", "aaaa", "q", "y", "yy", "yyyy", "h", "hh", "n",
///   "nn", "s", "ss", "ttttt", "c", "AM/PM", "am/pm", "A/P", "a/p", "AMPM", in any case; "m" behind hours is minutes;
/// - a text picture: up to two sections (text; Null and empty text) of "@", "&", "<", ">" and "!".
/// The first character that only one kind knows decides which kind it is. In every kind "\" makes the next character
/// stand for itself, and so do double quotes for what they enclose; in numbers and dates ":" and "/" are the locale's
/// separators. All else stands for itself.
///
/// Which kind a value takes is up to the picture: a text that reads as a number is written as one by a number picture,
/// and a text that reads as a date, or else as a number of days, by a date picture. A text that is no such thing stays
/// as it is.
#pragma once

#include <memory>

#include "platform/automation/text.h"
#include "platform/automation/variant.h"

namespace ov {

class PictureForm;

/// A picture, read once to be applied often. Copies share what was read. No text is a wrong picture.
class Picture {
public:
    /// The empty picture.
    Picture() noexcept = default;
    explicit Picture(const Text& picture);

    /// The text of @p value in the locale of the moment. Numbers round half away from zero, in the digits of their
    /// text: 15 significant ones of a Double, 7 of a Single, all of a Decimal or Currency. Null is the empty text where
    /// the picture has no section for it, and so is Empty in numbers and dates; NaN and infinity are their plain text.
    /// @throws RuntimeError 13 for an array or an error code, 91 and 438 for an object without a value, 448 for
    /// Missing, 6 for a number in a date picture that is no date
    Text Apply(const Variant& value) const;

private:
    std::shared_ptr<const PictureForm> mForm;  // none for the empty picture
};

/// The text of @p value as @p picture tells. Whoever applies a picture again and again keeps a Picture instead.
Text Format(const Variant& value, const Text& picture);

}  // namespace ov
