/// @file
/// Errors of the language's grammar.
#pragma once

#include <compare>
#include <cstdint>

#include "platform/automation/text.h"

namespace ov::vbscript {

/// Numbers of the compile errors. The texts are in CompileErrorText.
enum class CompileError : std::int32_t {
    OutOfMemory = 1001,
    Syntax = 1002,
    ExpectedColon = 1003,
    ExpectedOpenBracket = 1005,
    ExpectedCloseBracket = 1006,
    ExpectedCloseSquare = 1007,
    ExpectedIdentifier = 1010,
    ExpectedEqual = 1011,
    ExpectedIf = 1012,
    ExpectedTo = 1013,
    ExpectedEnd = 1014,
    ExpectedFunction = 1015,
    ExpectedSub = 1016,
    ExpectedThen = 1017,
    ExpectedWend = 1018,
    ExpectedLoop = 1019,
    ExpectedNext = 1020,
    ExpectedCase = 1021,
    ExpectedSelect = 1022,
    ExpectedExpression = 1023,
    ExpectedStatement = 1024,
    ExpectedEndOfStatement = 1025,
    ExpectedIntegerConstant = 1026,
    ExpectedWhileOrUntil = 1027,
    ExpectedWhileUntilOrEnd = 1028,
    ExpectedWith = 1029,
    IdentifierTooLong = 1030,
    InvalidNumber = 1031,
    InvalidCharacter = 1032,
    UnterminatedString = 1033,
    UnterminatedComment = 1034,
    InvalidUseOfMe = 1037,
    LoopWithoutDo = 1038,
    InvalidExit = 1039,
    InvalidForVariable = 1040,
    NameRedefined = 1041,
    MustBeFirstStatement = 1042,
    CannotAssignToArgument = 1043,
    CannotUseBracketsForSub = 1044,
    ExpectedLiteralConstant = 1045,
    ExpectedIn = 1046,
    ExpectedClass = 1047,
    MustBeInsideClass = 1048,
    ExpectedPropertyKind = 1049,
    ExpectedProperty = 1050,
    InconsistentArguments = 1051,
    MultipleDefaults = 1052,
    InitializeHasArguments = 1053,
    PropertyNeedsArgument = 1054,
    UnexpectedNext = 1055,
    DefaultOnlyOnProcedure = 1056,
    DefaultMustBePublic = 1057,
    DefaultOnlyOnGet = 1058,
};

/// The language's text of a compile error, such as "Expected ')'".
Text CompileErrorText(CompileError error);

/// A place in a source text; both from 1 on.
struct Position {
    std::uint32_t line = 1;
    std::uint32_t column = 1;
    friend auto operator<=>(const Position&, const Position&) noexcept = default;
};

/// @throws ScriptError
[[noreturn]] void Fail(CompileError error, Position position);
/// Fails at the later one of two declarations of a name. @throws ScriptError 1041
[[noreturn]] void FailRedefined(Position a, Position b);

}  // namespace ov::vbscript
