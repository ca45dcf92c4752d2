/// @file
/// Run-time errors: numbers, texts and the exception that carries them.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "platform/automation/text.h"

namespace ov {

/// Numbers of the run-time errors that the system raises itself. The texts are in ErrorText.
enum class ErrorNumber : std::int32_t {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    ArrayFixedOrLocked = 10,
    DivisionByZero = 11,
    TypeMismatch = 13,
    OutOfStringSpace = 14,
    OutOfStackSpace = 28,
    InternalError = 51,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    PathFileAccessError = 75,
    PathNotFound = 76,
    PermissionDenied = 70,
    ObjectVariableNotSet = 91,
    ForLoopNotInitialized = 92,
    InvalidUseOfNull = 94,
    InvalidPropertyValue = 380,
    ObjectRequired = 424,
    CannotCreateObject = 429,
    ClassDoesNotSupportAutomation = 430,
    NoSuchMember = 438,
    ActionNotSupported = 445,
    NamedArgumentNotFound = 448,
    ArgumentNotOptional = 449,
    WrongArgumentCount = 450,
    NotACollection = 451,
    KeyAlreadyAssociated = 457,
    VariableUsesUnsupportedType = 458,
    // Database engine
    InvalidEngineArgument = 3001,
    ObjectDamaged = 3011,
    NotAnIndex = 3015,
    NoCurrentIndex = 3019,
    NoCurrentRecord = 3021,
    FileNotFoundByEngine = 3024,
    CannotUpdateReadOnly = 3027,
    NotAValidPassword = 3031,
    CouldNotLockFile = 3050,
    TooFewParameters = 3061,
    QuerySyntax = 3075,
    TableNotFound = 3078,
    InvalidOperation = 3219,
    OperationNotSupported = 3251,
    ItemNotFound = 3265,
    UnrecognizedFormat = 3343,
    ObjectInvalid = 3420,
};

/// The standard text of a run-time error, such as "Type mismatch" for 13; "Unknown runtime error" for a number that
/// the table does not have. A text with a place for a name in it ("Could not find file 'PATH'.") is given by the code
/// that raises it; the table then holds the text without the name.
Text ErrorText(std::int32_t number);

/// A run-time error on its way to the code that handles it.
class RuntimeError : public std::exception {
public:
    RuntimeError(std::int32_t number, Text source, Text description);
    explicit RuntimeError(ErrorNumber number) : RuntimeError(static_cast<std::int32_t>(number)) {}
    /// With the standard text.
    explicit RuntimeError(std::int32_t number);
    RuntimeError(ErrorNumber number, Text description);

    std::int32_t number() const noexcept { return mNumber; }
    /// Name of the component that raised it; may be empty.
    const Text& source() const noexcept { return mSource; }
    /// The standard text of the number, or words of the code that raised it.
    const Text& description() const noexcept { return mDescription; }
    /// The name that the error is about, such as that of a variable, for people who read of it; may be empty. Scripts
    /// and logs get the description, which does not hold it.
    const Text& subject() const noexcept { return mSubject; }
    void SetSubject(Text subject) noexcept { mSubject = std::move(subject); }
    /// True if the description is the standard text, so that a subject may stand behind it.
    bool IsStandard() const noexcept { return mIsStandard; }
    /// For people, in UTF-8: the description, and the subject behind it: "Variable is undefined: 'x'".
    const char* what() const noexcept override;

private:
    std::int32_t mNumber;
    bool mIsStandard = false;
    Text mSource;
    Text mDescription;
    Text mSubject;
    mutable std::string mWhat;  // made when it is asked for
};

/// @throws RuntimeError with the standard text.
[[noreturn]] void Raise(ErrorNumber number);
/// @throws RuntimeError with the standard text, about @p subject
[[noreturn]] void RaiseAbout(ErrorNumber number, Text subject);

/// The error in flight, to be called inside a handler: a RuntimeError as it is, an exhausted memory as error 7, any
/// other exception as error 51 with its own words.
RuntimeError CurrentError() noexcept;

}  // namespace ov
