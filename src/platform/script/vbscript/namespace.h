/// @file
/// The global names of one engine.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/automation/interface_info.h"
#include "platform/automation/memory_account.h"
#include "platform/script/vbscript/code.h"
#include "platform/script/vbscript/err_object.h"

namespace ov::vbscript {

class BoundClass;
class GlobalObject;
class Instance;
class Namespace;

/// A procedure in one engine: its code, with the places that its names stand for there.
class BoundCode : public Counted<BoundCode> {
public:
    BoundCode(Namespace& owner, Ref<Unit> unit, const Code& instructions)
        : code(instructions), space(&owner), mUnit(std::move(unit)) {}
    ~BoundCode();

    /// One slot for each of the code's names; made at the first use.
    Slot* Links() { return mLinks ? mLinks.get() : MakeLinks(); }
    /// Makes the names that stood for @p global as a variable look at what it is now.
    void Forget(Global& global) noexcept;

    const Code& code;
    Namespace* const space;

private:
    friend class Namespace;

    Slot* MakeLinks();

    Ref<Unit> mUnit;
    std::unique_ptr<Slot[]> mLinks;
    std::size_t mPosition = 0;  // among the linked ones of the namespace
};

/// A script's class in one engine.
class BoundClass : public Counted<BoundClass> {
public:
    BoundClass(Namespace& owner, Ref<Unit> unit, const ClassCode& definition)
        : code(definition), space(&owner), mUnit(std::move(unit)), mProcedures(definition.procedures.size()) {}

    BoundCode& Procedure(std::int32_t position);

    const ClassCode& code;
    Namespace* const space;

private:
    Ref<Unit> mUnit;
    std::vector<Ref<BoundCode>> mProcedures;
};

/// What a global name stands for.
struct Global {
    enum class Kind : std::uint8_t {
        Undefined,   ///< nothing so far; a variable once something is assigned to it
        Variable,    ///<
        Constant,    ///< of a script, of the host, or of the language
        Object,      ///< published by the host
        HostMember,  ///< a member of an object that the host published with its members
        OwnMember,   ///< a member of the class whose method runs a text that is compiled at run time
        Procedure,   ///<
        Class,       ///<
        Builtin,     ///< a function of the language
        Intrinsic,   ///< one that needs the engine
    };

    Variant value;  ///< of a Variable, Constant or Object; the object of a HostMember
    Kind kind = Kind::Undefined;
    Intrinsic intrinsic = Intrinsic::None;
    DispId member = kDispIdUnknown;
    const Member* call = nullptr;  ///< of an Object that is a facet: its default member
    const Builtin* builtin = nullptr;
    Ref<BoundCode> procedure;
    Ref<BoundClass> boundClass;
    MemoryAccount::Share memory;
};

/// Global names that are made one by one; each keeps its place.
using Globals = NameMap<Text, std::unique_ptr<Global>>;

/// Enters a name that stands for nothing yet. @pre it is not there
Global& EnterName(Globals& globals, const Text& name, std::uint32_t hash);

/// The global names of one engine, with what they stand for. Objects and procedures of scripts hold it, so it may
/// outlive its engine; Clear has taken everything out of it then.
class Namespace : public Counted<Namespace> {
public:
    explicit Namespace(bool ruleNames) noexcept : mRuleNames(ruleNames), mNumber(++sLastNumber) {}
    ~Namespace();

    void Publish(const Text& name, IDispatch* object, bool addMembers);
    void DefineConstant(const Text& name, const Variant& value);
    /// Takes over a text's procedures, classes, variables and constants. @throws RuntimeError 1041 for a class that is
    /// there already.
    void Define(const Ref<Unit>& unit);
    /// The same into @p locals, for a text that runs inside a procedure; its classes are global.
    void DefineLocally(const Ref<Unit>& unit, Globals& locals);

    /// What @p name stands for; entered as undefined if it stands for nothing. Its place stays the same.
    Global& Resolve(const Name& name) {
        if (name.last.space != mNumber) name.last = {mNumber, &Enter(name)};
        return *name.last.global;
    }
    /// The procedure of a name, or nullptr.
    BoundCode* FindProcedure(std::u16string_view name);
    /// Makes an undefined name a variable.
    void MakeVariable(Global& global);

    /// The object whose members are the global names.
    Ref<IDispatch> Object();
    void Forget(const GlobalObject& object) noexcept {
        if (mObject == &object) mObject = nullptr;
    }
    /// The position of a global name that is a member of that object: a procedure, variable or constant of scripts, or
    /// what the host published; or Globals::kNone.
    std::size_t MemberPosition(std::u16string_view name);
    /// The name at a position, or nullptr if it is no member.
    Global* MemberAt(std::size_t position) noexcept;

    ErrObject& Err();
    /// Grows with each object, constant, variable, procedure and class that is defined.
    std::uint64_t Definitions() const noexcept { return mDefinitions; }
    std::uint32_t& RandomSeed() noexcept { return mRandomSeed; }
    /// Milliseconds that one outermost call may take; 0 means no bound.
    std::int32_t timeout = 0;

    /// Releases all values and objects, those of the scripts' own objects included.
    void Clear() noexcept;

private:
    friend class BoundCode;
    friend class Instance;

    struct Published {
        Text name;
        Ref<IDispatch> object;
        bool addMembers;
    };

    Global& Enter(const Name& name);
    void NoteLinked(BoundCode& code);
    void ForgetLinked(BoundCode& code) noexcept;
    void Reset(Global& global, Global::Kind kind);
    static void PutObject(Global& global, IDispatch* object);
    void ResetVariables();
    bool LookUp(const Name& name, Global& global);
    const Unit::Procedure* FindLazily(std::u16string_view name, std::uint32_t hash, Ref<Unit>& unit) const noexcept;
    void DefineVariable(Global& global, const Declaration& declaration);

    static inline std::uint64_t sLastNumber = 0;

    bool mRuleNames;
    std::uint64_t mDefinitions = 0;
    std::uint64_t mNumber;                // tells namespaces apart, for ever
    std::uint32_t mRandomSeed = 0x50000;  // so begins every engine
    std::vector<Published> mPublished;
    std::vector<Ref<Unit>> mUnits;    // procedures that are entered when a text first names them
    std::vector<BoundCode*> mLinked;  // whose names stand for places here; outlives mGlobals, whose procedures leave it
    Globals mGlobals;
    Instance* mInstances = nullptr;  // the scripts' living objects
    Ref<ErrObject> mErr;
    GlobalObject* mObject = nullptr;  // holds this
};

}  // namespace ov::vbscript
