#include "platform/script/vbscript/machine.h"

#include "platform/script/script_control.h"
#include "platform/script/vbscript/compile_errors.h"
#include "platform/script/vbscript/fast_operators.h"
#include "platform/script/vbscript/limits.h"
#include "platform/script/vbscript/run_guard.h"

namespace ov::vbscript {

namespace {

constexpr std::int32_t kStepsBetweenChecks = 2048;

}  // namespace

Machine& Machine::Get() {
    // Never ended: scripts' objects may outlive everything static.
    static Machine& machine = *new Machine;
    return machine;
}

Machine::Machine()
    // Not initialized: pages that no script reaches are never touched.
    : mSlotMemory(new std::byte[kStackSlots * sizeof(Slot)]),
      mFrameMemory(new std::byte[(kMaxCallDepth + 1) * sizeof(Frame)]),
      mSlots(reinterpret_cast<Slot*>(mSlotMemory.get())),
      mFrames(reinterpret_cast<Frame*>(mFrameMemory.get())) {}

void Machine::CheckTime() {
    mBudget = kStepsBetweenChecks;
    RunGuard::CheckTime();
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
    const RunGuard guard(space.timeout);
    const Ref<Namespace> keep(&space);
    space.Define(unit);
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
    if (slots + count >= mSlots + kStackSlots) Raise(ErrorNumber::OutOfStackSpace);
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
    return std::exchange(mResult, Variant());
}

void Machine::Execute() {
    Frame* const entry = mTop;
    const Instruction* pc = entry->pc;
    Slot* bases[4];
    const auto load = [&] {
        const Frame& frame = *mTop;
        pc = frame.pc;
        bases[0] = frame.slots;
        bases[1] = frame.code->constants.get();
        bases[2] = frame.links;
        bases[3] = frame.me ? frame.me->Fields() : nullptr;
    };
    const auto at = [&](std::uint16_t operand) -> Slot& {
        return bases[operand >> Operand::kIndexBits][operand & Operand::kMaxIndex];
    };
    const auto jump = [&](std::uint32_t target) { pc = mTop->code->instructions.data() + target; };
    // At a comparison with the target in the word behind.
    const auto jumpUnless = [&]<class Comparison>(Comparison, const Instruction& i) {
        bool holds;
        if (!fast::Compare<Comparison>(at(i.a), at(i.b), holds)) holds = Test(i);
        if (holds) {
            ++pc;
        } else {
            jump(pc->Target());
        }
    };
    // At an instruction that may begin or end a frame.
    const auto call = [&](void (Machine::*function)(const Instruction&), const Instruction& i) {
        mTop->pc = pc;
        (this->*function)(i);
        load();
    };
    for (;;) {
        try {
            load();
            for (;;) {
                const Instruction& i = *pc++;
                switch (i.op) {
                    case Opcode::Let: {
                        const Slot& from = at(i.b);
                        Slot& to = at(i.a);
                        if (from.IsSimple() && to.IsSimple()) {
                            new (&to.value) Variant(from.value);
                        } else {
                            Let(i);
                        }
                        break;
                    }
                    case Opcode::Move: {
                        const Slot& from = at(i.b);
                        if (from.IsSimple()) {
                            new (&at(i.a).value) Variant(from.value);
                        } else {
                            Move(i);
                        }
                        break;
                    }
                    case Opcode::PassRef: {
                        Slot& from = at(i.b);
                        if (from.IsValue()) {
                            at(i.a).PutAlias(from.value);
                        } else {
                            PassRef(i);
                        }
                        break;
                    }
                    case Opcode::Add:
                        if (!fast::Arithmetic<fast::Add>(at(i.b), at(i.c), at(i.a))) Operate(i);
                        break;
                    case Opcode::Subtract:
                        if (!fast::Arithmetic<fast::Subtract>(at(i.b), at(i.c), at(i.a))) Operate(i);
                        break;
                    case Opcode::Multiply:
                        if (!fast::Arithmetic<fast::Multiply>(at(i.b), at(i.c), at(i.a))) Operate(i);
                        break;
                    case Opcode::Divide:
                        if (!fast::Divide(at(i.b), at(i.c), at(i.a))) Operate(i);
                        break;
                    case Opcode::IntegerDivide:
                        if (!fast::WholeDivision<false>(at(i.b), at(i.c), at(i.a))) Operate(i);
                        break;
                    case Opcode::Modulo:
                        if (!fast::WholeDivision<true>(at(i.b), at(i.c), at(i.a))) Operate(i);
                        break;
                    case Opcode::And:
                        if (!fast::Logic<fast::And>(at(i.b), at(i.c), at(i.a))) Operate(i);
                        break;
                    case Opcode::Or:
                        if (!fast::Logic<fast::Or>(at(i.b), at(i.c), at(i.a))) Operate(i);
                        break;
                    case Opcode::Negate:
                        if (!fast::Negate(at(i.b), at(i.a))) Operate(i);
                        break;
                    case Opcode::Jump:
                        jump(i.Target());
                        break;
                    case Opcode::JumpBack:
                        Tick();
                        jump(i.Target());
                        break;
                    case Opcode::JumpIfFalse:
                        if (!IsTrue(i)) jump(i.Target());
                        break;
                    case Opcode::JumpIfTrue:
                        if (IsTrue(i)) jump(i.Target());
                        break;
                    case Opcode::JumpUnlessEqual:
                        jumpUnless(fast::Equal(), i);
                        break;
                    case Opcode::JumpUnlessNotEqual:
                        jumpUnless(fast::NotEqual(), i);
                        break;
                    case Opcode::JumpUnlessLess:
                        jumpUnless(fast::Less(), i);
                        break;
                    case Opcode::JumpUnlessLessEqual:
                        jumpUnless(fast::LessEqual(), i);
                        break;
                    case Opcode::JumpUnlessGreater:
                        jumpUnless(fast::Greater(), i);
                        break;
                    case Opcode::JumpUnlessGreaterEqual:
                        jumpUnless(fast::GreaterEqual(), i);
                        break;
                    case Opcode::JumpWhenEqual:
                        if (Test(i)) {
                            jump(pc->Target());
                        } else {
                            ++pc;
                        }
                        break;
                    case Opcode::ForStart:
                        if (ForStart(i)) {
                            ++pc;
                        } else {
                            jump(pc->Target());
                        }
                        break;
                    case Opcode::ForNext:
                        Tick();
                        if (fast::ForNext(at(i.a), bases[0] + i.b, mLoopAgain) ? mLoopAgain : ForNext(i)) {
                            jump(pc->Target());
                        } else {
                            ++pc;
                        }
                        break;
                    case Opcode::ForEachNext:
                        if (ForEachNext(i)) {
                            ++pc;
                        } else {
                            jump(pc->Target());
                        }
                        break;
                    case Opcode::GetElement:
                        GetElement(i);
                        break;
                    case Opcode::PutElement:
                        PutElement(i);
                        break;
                    case Opcode::Concatenate:
                        Concatenate(i);
                        break;
                    case Opcode::LoadName:
                        if (i.flags & kHasLocal) ++pc;
                        call(&Machine::LoadName, i);
                        break;
                    case Opcode::PassName:
                        if (i.flags & kHasLocal) ++pc;
                        call(&Machine::PassName, i);
                        break;
                    case Opcode::CallName:
                        if (i.flags & kHasLocal) ++pc;
                        call(&Machine::CallName, i);
                        break;
                    case Opcode::CallMember:
                        call(&Machine::CallMember, i);
                        break;
                    case Opcode::CallValue:
                        call(&Machine::CallValue, i);
                        break;
                    case Opcode::PutMember:
                        call(&Machine::PutMember, i);
                        break;
                    case Opcode::New:
                        call(&Machine::New, i);
                        break;
                    case Opcode::PutBack:
                        PutBack(i, *pc++);
                        break;
                    case Opcode::Result:
                    case Opcode::Return:
                        if (EndFrame(ResultOf(i))) return;
                        load();
                        break;
                    default:
                        Step(i);
                        break;
                }
            }
        } catch (...) {
            mTop->pc = pc;
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
            if (!mTop->me) Fail(CompileError::InvalidUseOfMe, PositionOf(*mTop));
            At(i.a).Take(Variant(static_cast<IDispatch*>(mTop->me)));
            return;
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
            throw RuntimeError(i.a, Text(), ErrorText(i.a));
        default:
            return Operate(i);
    }
}

}  // namespace ov::vbscript
