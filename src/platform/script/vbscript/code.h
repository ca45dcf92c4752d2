/// @file
/// Compiled texts. They are shared by all engines and know nothing of any of them.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/automation/dispatch.h"
#include "platform/automation/memory_account.h"
#include "platform/script/vbscript/ast.h"
#include "platform/script/vbscript/builtins.h"
#include "platform/script/vbscript/counted.h"
#include "platform/script/vbscript/name_map.h"
#include "platform/script/vbscript/opcodes.h"
#include "platform/script/vbscript/slot.h"

namespace ov::vbscript {

/// A name that the engine itself answers, unless a script or a host has its own.
enum class Intrinsic : std::uint8_t {
    None,
    Err,
    Eval,
    Execute,
    ExecuteGlobal,
    GetRef,
    CreateObject,
    GetObject,
    MsgBox,
    InputBox,
};

/// A name outside the procedure that uses it, with what it means if no engine knows it.
struct Name {
    Text text;
    std::uint32_t hash = 0;
    Intrinsic intrinsic = Intrinsic::None;
    const Builtin* builtin = nullptr;
    const Variant* constant = nullptr;

    /// @p hash is HashNoCase of the name.
    static Name Of(std::u16string_view name, std::uint32_t hash);

    /// What the name stood for when a text was linked last, and the number of the namespace where it did.
    struct Link {
        std::uint64_t space = 0;
        Global* global = nullptr;
    };
    mutable Link last = {};
};

/// A place that calls a member by name, with the number that the name had in the last object. An object is known by
/// its InterfaceInfo, or by the number of its class if a script's class made it.
struct MemberSite {
    Text name;
    std::uint32_t hash = 0;
    mutable DispId id = kDispIdUnknown;
    mutable const InterfaceInfo* info = nullptr;
    mutable std::uint64_t classNumber = 0;
};

/// The beginning of a statement.
struct Mark {
    std::uint32_t pc = 0;
    Position position;
    std::uint16_t live = 0;       ///< frame slots that are in use; all others are free
    bool resumes = true;          ///< On Error Resume Next may go on here; else it only tells the position
    std::uint32_t otherwise = 0;  ///< where it goes on after an error here; 0: at the next mark where it may
};

/// The instructions of one procedure, or of the statements outside procedures.
///
/// A frame has the parameters first, then the other variables, then temporary values.
struct Code {
    Text name;
    ProcedureKind kind = ProcedureKind::Main;
    bool optionExplicit = false;
    std::uint16_t parameters = 0;
    std::uint16_t variables = 0;  ///< parameters included
    std::uint16_t frameSize = 0;
    std::uint16_t result = 0;  ///< slot of the result; none of a Sub
    bool hasResult = false;
    bool takesAll = true;  ///< arguments and variables as they come: there is nothing in `byValue` and `open`
    std::vector<std::uint16_t> byValue;  ///< parameters by value
    std::uint64_t written = 0;           ///< bit n: parameter n may be written; the last bit stands for all behind it
    std::vector<Instruction> instructions;
    std::unique_ptr<Slot[]> constants;
    std::vector<Name> names;
    std::vector<MemberSite> sites;
    std::vector<Mark> marks;  ///< by pc

    struct Local {
        std::uint16_t slot = 0;
    };
    NameMap<Text, Local> locals;  ///< all variables, for texts that are compiled at run time

    /// A variable that was never declared: it is global if there is a global one when the procedure begins.
    struct Open {
        std::uint16_t slot = 0;
        std::uint32_t name = 0;
    };
    std::vector<Open> open;

    static constexpr std::size_t kWrittenBits = 64;
    bool MayWrite(std::size_t parameter) const noexcept {
        return (written >> (parameter < kWrittenBits ? parameter : kWrittenBits - 1)) & 1;
    }
    /// The name of the variable in a slot; "" for a temporary value.
    Text NameOfLocal(std::uint16_t slot) const;
    /// The mark at or before @p pc, or nullptr.
    const Mark* MarkAt(std::uint32_t pc) const noexcept;
    /// Where On Error Resume Next goes on after an error in the statement of @p mark.
    std::uint32_t ResumeAfter(const Mark& mark) const noexcept;
};

/// A variable with the bounds of its declaration.
struct Declaration {
    Text name;
    std::uint32_t hash = 0;
    bool isPublic = true;
    bool isArray = false;
    std::vector<ArrayBound> bounds;

    Variant StartValue() const;
};

/// A class of a script.
struct ClassCode {
    /// A field or the procedures of one name. A member's number as an object's is its position plus 1.
    struct Member {
        static constexpr std::uint16_t kNoField = 0xFFFF;
        std::uint16_t field = kNoField;
        std::uint8_t publicKinds = 0;  ///< bits of CallKind
        // Positions in `procedures`, or -1. A method is under `get`.
        std::int32_t get = -1;
        std::int32_t let = -1;
        std::int32_t set = -1;

        /// True if anybody may use the member in this way.
        bool IsPublic(CallKind kind) const noexcept { return (publicKinds & static_cast<unsigned>(kind)) != 0; }
    };

    std::uint64_t number = 0;  ///< tells classes apart, for ever
    Text name;
    std::uint32_t hash = 0;
    std::vector<Declaration> fields;
    std::vector<std::unique_ptr<Code>> procedures;
    NameMap<Text, Member> members;
    std::int32_t defaultMember = -1;  ///< position in `members`
    std::int32_t initialize = -1;     ///< position in `procedures`
    std::int32_t terminate = -1;
};

/// One compiled text.
class Unit : public Counted<Unit> {
public:
    struct Procedure {
        Text name;
        std::uint32_t hash = 0;
        std::unique_ptr<Code> code;
    };
    struct NamedConstant {
        Text name;
        std::uint32_t hash = 0;
        Variant value;
    };

    std::unique_ptr<Code> main;
    std::vector<Procedure> procedures;
    std::vector<std::unique_ptr<ClassCode>> classes;
    std::vector<Declaration> variables;
    std::vector<NamedConstant> constants;
    bool hasStatements = false;  ///< there is something to run
    bool definesNames = false;   ///< there are procedures, classes, variables or constants
    MemoryAccount::Share memory;

    /// True if the text holds procedures and nothing else, so that an engine need not look at it before it is used.
    bool HasProceduresOnly() const noexcept {
        return !hasStatements && classes.empty() && variables.empty() && constants.empty();
    }
};

}  // namespace ov::vbscript
