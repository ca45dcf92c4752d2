#include "platform/script/vbscript/machine.h"

#include "platform/script/script_control.h"
#include "platform/script/vbscript/compile_errors.h"
#include "platform/script/vbscript/limits.h"
#include "platform/script/vbscript/run_guard.h"

namespace ov::vbscript {

Machine& Machine::Get() {
    // Never ended: scripts' objects may outlive everything static.
    static Machine& machine = *new Machine;
    return machine;
}

Machine::Machine()
    // Not initialized: pages that no script reaches are never touched.
    : mSlotMemory(new std::byte[kStackSlots * sizeof(Slot)]),
      mFrameMemory(new std::byte[kMaxCallDepth * sizeof(Frame)]),
      mSlots(reinterpret_cast<Slot*>(mSlotMemory.get())),
      mSlotsEnd(mSlots + kStackSlots),
      mFrames(reinterpret_cast<Frame*>(mFrameMemory.get())),
      mFramesEnd(mFrames + kMaxCallDepth) {}

void Machine::CheckTime() {
    mBudget = 0;  // while the time is over, every step finds out
    RunGuard::CheckTime();
    mBudget = kStepsBetweenChecks;
}

std::uint32_t& Machine::RandomSeed() {
    static std::uint32_t withoutEngine = 0;
    return mTop ? mTop->space->RandomSeed() : withoutEngine;
}

Variant Machine::CallFunction(const Variant& function, std::span<Variant> arguments) {
    if (!function.IsObject()) Raise(ErrorNumber::ObjectRequired);
    if (function.IsNothing()) Raise(ErrorNumber::ObjectVariableNotSet);
    Arguments call{arguments};
    return function.AsObject()->Invoke(kDispIdValue, CallKind::Call, call);
}

Variant Machine::RunUnit(Namespace& space, const Ref<Unit>& unit) {
    if (!mTop) mBudget = kStepsBetweenChecks;  // the guard has just looked at the clock
    const RunGuard guard(space.timeout);
    const Ref<Namespace> keep(&space);
    if (unit->definesNames) space.Define(unit);
    if (!unit->hasStatements) return Variant();
    PushUnit(space, unit, nullptr, nullptr, false);
    return Run();
}

Variant Machine::CallProcedure(BoundCode& procedure, Instance* me, Arguments& arguments) {
    Namespace& space = *procedure.space;
    const RunGuard guard(space.timeout);
    const Ref<Namespace> keep(&space);
    const std::size_t count = arguments.values.size();
    Slot* const slots = StackTop();
    if (slots + count >= mSlotsEnd) Raise(ErrorNumber::OutOfStackSpace);
    for (std::size_t i = 0; i < count; ++i) {
        slots[i].PutEmpty();
        slots[i].PutAlias(arguments.values[i]);
    }
    PushFrame(procedure, me, slots, count, nullptr, false);
    Variant result = Run();
    for (std::size_t i = 0; i < count; ++i) {
        if (procedure.code.MayWrite(i)) arguments.MarkWritten(i);
    }
    return result;
}

void Machine::Terminate(Instance& instance) noexcept {
    if (RunGuard::IsTimeOver()) return;
    try {
        Arguments none;
        const Ref<BoundClass> keep(&instance.Class());
        CallProcedure(keep->Procedure(keep->code.terminate), &instance, none);
    } catch (...) {
        // Nobody waits for it.
    }
}

// Runs the frame that was pushed last until it ends.
Variant Machine::Run() {
    mTop->isEntry = true;
    Execute();
    if (!mTop && !mNameValue.IsEmpty()) mNameValue = Variant();
    return std::move(mResult);
}

// The loop with what becomes of errors around it: nothing of it is in the loop itself.
void Machine::Execute() {
    const Frame* const entry = mTop;
    for (;;) {
        try {
            return Loop();
        } catch (const ScriptTimeout&) {
            Recover(entry);
        } catch (const RuntimeError& error) {
            // Short cut: thrown once is enough.
            if (Frame* const handler = HandlerUpTo(entry)) {
                Resume(*handler, error);
            } else {
                Recover(entry);
            }
        } catch (...) {
            Recover(entry);
        }
    }
}

// The instructions that are not worth a place in the loop.
void Machine::Step(const Instruction& i) {
    switch (i.op) {
        case Opcode::Set:
            return Set(i);
        case Opcode::LoadMe:
            return LoadMe(i);
        case Opcode::Clear:
            return ClearSlots(mTop->slots + i.a, i.b);
        case Opcode::Equal:
        case Opcode::NotEqual:
        case Opcode::Less:
        case Opcode::LessEqual:
        case Opcode::Greater:
        case Opcode::GreaterEqual:
            return Compare(i);
        case Opcode::ConcatenateAll:
            return ConcatenateAll(i);
        case Opcode::Append:
            return Append(i);
        case Opcode::ForEachStart:
            return ForEachStart(i);
        case Opcode::RefElement:
            return RefElement(i);
        case Opcode::PutIndexed:
            return PutIndexed(i);
        case Opcode::PutBack:
            return PutBack(i);
        case Opcode::ReDim:
            return ReDim(i);
        case Opcode::Erase:
            return Erase(i);
        case Opcode::With:
            return With(i);
        case Opcode::OnError:
            mTop->resumeNext = (i.flags & kResume) != 0;
            mTop->space->Err().Clear();
            return;
        case Opcode::RaiseNumber:
            throw RuntimeError(static_cast<std::int32_t>(i.a));
        default:
            return Operate(i);
    }
}

}  // namespace ov::vbscript
