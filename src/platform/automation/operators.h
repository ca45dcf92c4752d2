/// @file
/// Arithmetic, comparison and logic of Variants by the rules of the rule language.
///
/// Null spreads (the result is Null) before any other rule is looked at; an object stands for its default value. Text
/// reads as a number where a number is wanted (RuntimeError 13 if it is none). Operands that are no values raise what
/// their conversions raise. The types of the results are the tables of operand_types.cpp; a result beyond Double,
/// Currency or Decimal is RuntimeError 6.
#pragma once

#include <compare>
#include <optional>

#include "platform/automation/variant.h"

namespace ov {

/// Joins two Strings, else adds; Empty beside a String leaves it as it is. Integers widen on overflow: Byte, Integer,
/// Long, Double.
Variant Add(const Variant& a, const Variant& b);
Variant Subtract(const Variant& a, const Variant& b);
Variant Multiply(const Variant& a, const Variant& b);
/// Double, or Single or Decimal where both sides allow. @throws RuntimeError 11 for x/0, 6 for 0/0.
Variant Divide(const Variant& a, const Variant& b);
/// Rounds both operands to integers first, half to even, and cuts the quotient towards zero.
Variant IntegerDivide(const Variant& a, const Variant& b);
/// Rounds as IntegerDivide does; the sign is the dividend's.
Variant Modulo(const Variant& a, const Variant& b);
/// A Double. @throws RuntimeError 5 for a broken power of a negative number and for a negative power of 0.
Variant Power(const Variant& a, const Variant& b);
Variant Negate(const Variant& a);
/// Unary plus: the number as it is, text as its number.
Variant Identity(const Variant& a);
/// Joins the texts; a Null side counts as "", two Null give Null. @throws RuntimeError 13 for an error code.
Variant Concatenate(const Variant& a, const Variant& b);

// Bit by bit on integers (text, Double and Currency become Long); Booleans stay Booleans. Beside Null an operand that
// decides alone is the result: 0 for And, another number for Or and right of Imp; 0 left of Imp gives -1. Else Null.
Variant Not(const Variant& a);
Variant And(const Variant& a, const Variant& b);
Variant Or(const Variant& a, const Variant& b);
Variant Xor(const Variant& a, const Variant& b);
Variant Eqv(const Variant& a, const Variant& b);
Variant Imp(const Variant& a, const Variant& b);

/// What a literal among the operands of a comparison changes when one is text and the other a number.
enum class LiteralSide {
    None,    ///< variables on both sides: text is greater than any number
    Number,  ///< a numeric literal on one side: compared as numbers, RuntimeError 13 if the text is none
    Text,    ///< a String literal against a number: compared as texts
    Case,    ///< as Number in a Case, where a text that is no number is greater than any
};

/// The order of two values, or nullopt if one of them is Null. Text by character code. Empty is 0 beside a number and
/// "" beside text. A Double is rounded to the precision of a Single, Currency or Decimal beside it. NaN equals itself
/// and is below all numbers. @throws RuntimeError 13 for arrays and error codes, 448 for Missing.
std::optional<std::weak_ordering> Compare(const Variant& a, const Variant& b, LiteralSide literal = LiteralSide::None);

/// Equality as the model's own code asks for it: Compare, with Null equal to nothing.
bool EqualValues(const Variant& a, const Variant& b);

}  // namespace ov
