/// @file
/// Runs compiled code.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>

#include "platform/automation/errors.h"
#include "platform/script/vbscript/builtins.h"
#include "platform/script/vbscript/code.h"
#include "platform/script/vbscript/instance.h"
#include "platform/script/vbscript/namespace.h"

namespace ov::vbscript {

/// What texts of Execute added to a procedure that runs.
struct AddedNames {
    Globals globals;
    std::unique_ptr<Slot[]> links;  ///< the frame's links, once one of the names stands for an added one
};

/// One procedure that runs.
struct Frame {
    const Code* code;
    const Instruction* pc;  ///< the next instruction, while another procedure runs
    Slot* slots;
    Slot* links;   ///< one for each of the code's names
    Slot* result;  ///< gets the result
    Slot* fields;  ///< of `me`
    Namespace* space;
    Instance* me = nullptr;       ///< held
    BoundCode* bound = nullptr;   ///< held
    Unit* unit = nullptr;         ///< held, of a text that was compiled at run time
    Frame* scope;                 ///< the procedure whose variables are seen; itself for a procedure
    AddedNames* added = nullptr;  ///< owned
    bool discard;                 ///< the result is not wanted
    bool isEntry = false;         ///< the machine was called for it
    bool holdsMore;               ///< there is something in `me`, `unit` or `added`
    bool resumeNext = false;
};

/// The one machine of the process. Code runs in frames on a stack of its own, so that procedures that call each other
/// take nothing of the thread's stack; only objects of the host, and what calls back from them, do.
///
/// Frame slots that are in no use hold nothing that needs a release, so that they can be overwritten.
class Machine final : public BuiltinContext {
public:
    static Machine& Get();

    /// Runs the statements, or evaluates the expression, of a text in the global namespace.
    Variant RunUnit(Namespace& space, const Ref<Unit>& unit);
    /// Calls a procedure, of @p me if it is a method. Arguments that it may have written are marked.
    Variant CallProcedure(BoundCode& procedure, Instance* me, Arguments& arguments);
    /// Uses a member of a script's object, for a caller outside scripts.
    Variant InvokeInstance(Instance& instance, const ClassCode::Member& member, CallKind kind, Arguments& arguments);
    /// Uses a global name as a member of an object.
    Variant InvokeGlobal(Global& global, CallKind kind, Arguments& arguments);
    /// Runs Class_Terminate, whose errors are nobody's.
    void Terminate(Instance& instance) noexcept;

    // BuiltinContext
    void CheckTime() override;
    std::uint32_t& RandomSeed() override;
    Variant CallFunction(const Variant& function, std::span<Variant> arguments) override;

private:
    Machine();

    // The loop.
    Variant Run();
    void Execute();
    void Loop();
    void Step(const Instruction& instruction);

    // Frames.
    void PushFrame(BoundCode& procedure, Instance* me, Slot* arguments, std::size_t count, Slot* result, bool discard);
    void PushUnit(Namespace& space, const Ref<Unit>& unit, Frame* scope, Slot* result, bool discard);
    void TakeArguments(Frame& frame);
    // The next frame, for slots that begin at `slots`. @throws RuntimeError 28
    Frame* NextFrame(const Code& code, const Slot* slots) const {
        Frame* const frame = mTop ? mTop + 1 : mFrames;
        if (frame == mFramesEnd || slots + code.frameSize > mSlotsEnd) [[unlikely]]
            Raise(ErrorNumber::OutOfStackSpace);
        return frame;
    }
    void BindOpenNames(Frame& frame);
    void PopFrame() noexcept;
    void BeginFrame(BoundCode& procedure, Instance* me, Slot* arguments, std::size_t count, Slot* result, bool discard);
    bool ReturnsQuickly() noexcept;
    bool Return();
    bool Result(const Instruction& instruction);
    bool EndFrame(Variant&& value);
    Slot* StackTop() const noexcept;

    // Operands of the current frame.
    Slot& At(std::uint32_t operand) const noexcept;
    const Variant& Read(Slot& slot);
    const Variant& ReadName(Slot& link);
    Global& GlobalOf(const Slot& link) const noexcept;
    static void Relink(Slot& link, Global& global) noexcept;
    void Write(Slot& slot, Variant&& value);
    Variant& VariableOf(Slot& slot);
    static void Store(Variant& variable, Variant&& value) noexcept;

    // Operators.
    // Whatever fails may leave the place where it goes on in the frame on the top.
    void Operate(const Instruction& instruction);
    void Compare(const Instruction& instruction);
    bool Test(const Instruction& instruction);
    bool IsTrue(const Instruction& instruction);
    void Concatenate(const Instruction& instruction);
    void ConcatenateAll(const Instruction& instruction);
    void Append(const Instruction& instruction);

    // Values and names.
    void Let(const Instruction& instruction);
    void Set(const Instruction& instruction);
    void Move(const Instruction& instruction);
    void PassRef(const Instruction& instruction);
    void PassName(const Instruction& instruction);
    void LoadName(const Instruction& instruction);
    void LoadMe(const Instruction& instruction);
    void New(const Instruction& instruction);
    void ClearSlots(Slot* first, std::size_t count) noexcept;
    void NoteNewVariable(Global& global);
    bool IsWritten(Global& global);
    void PassUndefined(Global& global, Slot& to);
    static void LinkGlobally(Namespace& space, const Name& name, Slot& link) {
        Global& global = space.Resolve(name);
        if (global.kind == Global::Kind::Variable) {
            link.PutAlias(global.value);
        } else {
            link.PutName(global);
        }
    }
    static Globals& LocalNames(Frame& scope);
    void Shadow(Frame& scope, const Unit& unit);
    static void LinkLocally(Frame& scope, const Name& name, Slot& link);

    // Calls. They leave the frame that is to go on as the current one.
    void CallName(const Instruction& instruction);
    void CallMember(const Instruction& instruction);
    bool RaisesPlainly(IDispatch* object, const MemberSite& site, const Slot* arguments, std::size_t count);
    void CallValue(const Instruction& instruction);
    bool CallsItself(const Variant& variable, const Instruction& instruction) const noexcept;
    void CallPublished(Global& global, Slot* window, std::size_t count, std::uint8_t flags);
    void CallScope(Slot* window, const Instruction& instruction);
    void CallGlobal(Global& global, std::uint32_t window, std::size_t count, std::uint8_t flags);
    void CallObject(Variant callee, Slot* arguments, std::size_t count, Slot* result, std::uint8_t flags);
    void CallInstance(Instance& instance, const ClassCode::Member& member, Slot* arguments, std::size_t count,
                      Slot* result, std::uint8_t flags);
    void CallIntrinsic(Intrinsic intrinsic, Slot* window, std::size_t count, std::uint8_t flags);
    void RunText(Intrinsic intrinsic, const Text& source, Slot* result, bool discard);
    Variant CallNatively(Global& global);
    static Variant InvokeVariable(Variant& variable, CallKind kind, Arguments& arguments);
    template <class Function>
    Variant CallWithValues(Slot* arguments, std::size_t count, Function function);
    Variant InvokeObject(IDispatch* object, DispId id, CallKind kind, Slot* arguments, std::size_t count);
    DispId FindMember(IDispatch* object, const MemberSite& site);
    const ClassCode::Member& FindMember(Instance& instance, const MemberSite& site, CallKind kind, bool isOwn);
    void Finish(Slot* result, Variant&& value, std::uint8_t flags) noexcept;

    // Elements and members.
    enum class Taker : std::uint8_t { Value, Property };
    static Taker TakerOf(const Variant& target) noexcept;
    static void PrepareValue(Variant& value, bool isSet, Taker taker);
    Variant* PlaceOf(Slot& slot);
    bool IsArray(Slot& slot);
    Array& ArrayAt(Slot& slot);
    void GetElement(const Instruction& instruction);
    void RefElement(const Instruction& instruction);
    void PutElement(const Instruction& instruction);
    void PutIndexed(const Instruction& instruction);
    void PutMember(const Instruction& instruction);
    void PutBack(const Instruction& instruction);
    void PutInto(Slot& place, Slot* window, std::size_t count, bool isSet);
    void PutInstance(Instance& instance, const ClassCode::Member& member, Slot* window, std::size_t count, bool isSet);
    void ReDim(const Instruction& instruction);
    void Erase(const Instruction& instruction);
    void With(const Instruction& instruction);

    // Loops.
    bool ForStart(const Instruction& instruction);
    bool ForNext(const Instruction& instruction);
    void ForEachStart(const Instruction& instruction);
    bool ForEachNext(const Instruction& instruction);

    // Errors.
    void Recover(const Frame* entry);
    Frame* HandlerUpTo(const Frame* entry) const noexcept;
    void Resume(Frame& handler, const RuntimeError& error);
    bool GoesOn() const noexcept { return mTop->resumeNext; }
    void Fail(const RuntimeError& error);
    void Fail(ErrorNumber number) { Fail(RuntimeError(number)); }
    Text SubjectOf(const RuntimeError& error) const noexcept;
    Text SubjectOfOperator(const RuntimeError& error, const Instruction& instruction) const;
    Text NameOf(Operand operand) const;
    bool IsUndefined(Operand operand) const noexcept;
    Text NameBehind(std::uint32_t slot) const;
    void Unwind(const Frame* entry) noexcept;
    Position PositionOf(const Frame& frame) const noexcept;
    // Counts the work on this many bytes as steps.
    void Charge(std::size_t bytes) {
        if (bytes >= kBytesOfStep) Tick(static_cast<std::int32_t>(std::min(bytes / kBytesOfStep, kMostSteps)));
    }
    // The same for what a slot holds or stands for.
    void ChargeFor(const Slot& slot) {
        if (!slot.IsName()) Charge(SizeOf(slot.IsAlias() ? *slot.link.variable : slot.value));
    }
    // About the bytes that a text holds, or that a copy of an array costs when one of the two is written to.
    static std::size_t SizeOf(const Variant& value) noexcept {
        if (value.IsString()) return value.AsText().size() * sizeof(char16_t);
        return value.IsArray() ? value.AsArray().size() * sizeof(Variant) : 0;
    }
    void Tick(std::int32_t steps = 1) {
        mBudget -= steps;
        if (mBudget < 0) CheckTime();
    }

    static constexpr std::int32_t kStepsBetweenChecks = 64;  // few, since a step can be the copy of a big array
    static constexpr std::size_t kBytesOfStep = 4096;
    static constexpr std::size_t kMostSteps = 1u << 20;
    static constexpr std::int32_t kStepsOfHostCall = 24;  // it may take long

    std::unique_ptr<std::byte[]> mSlotMemory;
    std::unique_ptr<std::byte[]> mFrameMemory;
    Slot* const mSlots;
    const Slot* const mSlotsEnd;
    Frame* const mFrames;
    const Frame* const mFramesEnd;
    Frame* mTop = nullptr;       // the running procedure
    std::uint64_t mWritten = 0;  // arguments that the last call may have written
    std::int32_t mBudget = 0;    // jumps and calls until the time is looked at
    Variant mResult;             // of the run that ended last
    Variant mNameValue;          // of a name that had to be called to be read
};

}  // namespace ov::vbscript
