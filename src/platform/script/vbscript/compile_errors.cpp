#include "platform/script/vbscript/compile_errors.h"

#include <algorithm>
#include <array>

#include "platform/script/script_control.h"

namespace ov::vbscript {

namespace {

struct Entry {
    CompileError error;
    const char16_t* text;
};

// Sorted by number.
constexpr std::array kTexts = {
    Entry{CompileError::OutOfMemory, u"Out of memory"},
    Entry{CompileError::Syntax, u"Syntax error"},
    Entry{CompileError::ExpectedColon, u"Expected ':'"},
    Entry{CompileError::ExpectedOpenBracket, u"Expected '('"},
    Entry{CompileError::ExpectedCloseBracket, u"Expected ')'"},
    Entry{CompileError::ExpectedCloseSquare, u"Expected ']'"},
    Entry{CompileError::ExpectedIdentifier, u"Expected identifier"},
    Entry{CompileError::ExpectedEqual, u"Expected '='"},
    Entry{CompileError::ExpectedIf, u"Expected 'If'"},
    Entry{CompileError::ExpectedTo, u"Expected 'To'"},
    Entry{CompileError::ExpectedEnd, u"Expected 'End'"},
    Entry{CompileError::ExpectedFunction, u"Expected 'Function'"},
    Entry{CompileError::ExpectedSub, u"Expected 'Sub'"},
    Entry{CompileError::ExpectedThen, u"Expected 'Then'"},
    Entry{CompileError::ExpectedWend, u"Expected 'Wend'"},
    Entry{CompileError::ExpectedLoop, u"Expected 'Loop'"},
    Entry{CompileError::ExpectedNext, u"Expected 'Next'"},
    Entry{CompileError::ExpectedCase, u"Expected 'Case'"},
    Entry{CompileError::ExpectedSelect, u"Expected 'Select'"},
    Entry{CompileError::ExpectedExpression, u"Expected expression"},
    Entry{CompileError::ExpectedStatement, u"Expected statement"},
    Entry{CompileError::ExpectedEndOfStatement, u"Expected end of statement"},
    Entry{CompileError::ExpectedIntegerConstant, u"Expected integer constant"},
    Entry{CompileError::ExpectedWhileOrUntil, u"Expected 'While' or 'Until'"},
    Entry{CompileError::ExpectedWhileUntilOrEnd, u"Expected 'While', 'Until' or end of statement"},
    Entry{CompileError::ExpectedWith, u"Expected 'With'"},
    Entry{CompileError::IdentifierTooLong, u"Identifier too long"},
    Entry{CompileError::InvalidNumber, u"Invalid number"},
    Entry{CompileError::InvalidCharacter, u"Invalid character"},
    Entry{CompileError::UnterminatedString, u"Unterminated string constant"},
    Entry{CompileError::UnterminatedComment, u"Unterminated comment"},
    Entry{CompileError::InvalidUseOfMe, u"Invalid use of 'Me' keyword"},
    Entry{CompileError::LoopWithoutDo, u"'loop' without 'do'"},
    Entry{CompileError::InvalidExit, u"Invalid 'exit' statement"},
    Entry{CompileError::InvalidForVariable, u"Invalid 'for' loop control variable"},
    Entry{CompileError::NameRedefined, u"Name redefined"},
    Entry{CompileError::MustBeFirstStatement, u"Must be first statement on the line"},
    Entry{CompileError::CannotAssignToArgument, u"Cannot assign to non-ByVal argument"},
    Entry{CompileError::CannotUseBracketsForSub, u"Cannot use parentheses when calling a Sub"},
    Entry{CompileError::ExpectedLiteralConstant, u"Expected literal constant"},
    Entry{CompileError::ExpectedIn, u"Expected 'In'"},
    Entry{CompileError::ExpectedClass, u"Expected 'Class'"},
    Entry{CompileError::MustBeInsideClass, u"Must be defined inside a Class"},
    Entry{CompileError::ExpectedPropertyKind, u"Expected Let or Set or Get in property declaration"},
    Entry{CompileError::ExpectedProperty, u"Expected 'Property'"},
    Entry{CompileError::InconsistentArguments,
          u"Number of arguments must be consistent across properties specification"},
    Entry{CompileError::MultipleDefaults, u"Cannot have multiple default property/method in a Class"},
    Entry{CompileError::InitializeHasArguments, u"Class initialize or terminate do not have arguments"},
    Entry{CompileError::PropertyNeedsArgument, u"Property set or let must have at least one argument"},
    Entry{CompileError::UnexpectedNext, u"Unexpected 'Next'"},
    Entry{CompileError::DefaultOnlyOnProcedure,
          u"'Default' can be specified only on 'Property' or 'Function' or 'Sub'"},
    Entry{CompileError::DefaultMustBePublic, u"'Default' specification must also specify 'Public'"},
    Entry{CompileError::DefaultOnlyOnGet, u"'Default' specification can only be on Property Get"},
};
static_assert(std::ranges::is_sorted(kTexts, {}, &Entry::error));

}  // namespace

Text CompileErrorText(CompileError error) {
    const auto at = std::ranges::lower_bound(kTexts, error, {}, &Entry::error);
    return at != kTexts.end() && at->error == error ? Text(at->text) : Text(u"Syntax error");
}

void Fail(CompileError error, Position position) {
    const RuntimeError base(static_cast<std::int32_t>(error), u"Microsoft VBScript compilation error",
                            CompileErrorText(error));
    throw ScriptError(base, true, static_cast<std::int32_t>(position.line), static_cast<std::int32_t>(position.column));
}

void FailRedefined(Position a, Position b) {
    Fail(CompileError::NameRedefined, std::max(a, b));
}

}  // namespace ov::vbscript
