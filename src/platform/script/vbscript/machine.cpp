#include "platform/script/vbscript/machine.h"

#include <array>
#include <cstdint>
#include <initializer_list>

#include "platform/script/script_control.h"
#include "platform/script/vbscript/compile_errors.h"
#include "platform/script/vbscript/fast_operators.h"
#include "platform/script/vbscript/limits.h"
#include "platform/script/vbscript/run_guard.h"

namespace ov::vbscript {

namespace {

/// The variable that a slot stands for, or its own value.
Variant& Through(Slot& slot) noexcept {
    return slot.IsAlias() ? *slot.link.variable : slot.value;
}

// The short cuts, on what slots hold or stand for.

template <bool (*Operation)(const Variant&, const Variant&, Variant&)>
bool Binary(Slot& a, Slot& b, Slot& to) noexcept {
    return Operation(Through(a), Through(b), Through(to));
}

template <class Comparison>
bool Comparing(Slot& a, Slot& b, bool& holds) noexcept {
    return fast::Compare<Comparison>(Through(a), Through(b), holds);
}

// An element that is a number.
bool Indexing(Slot& array, const Slot& index, Slot& to) noexcept {
    const Variant& variable = Through(array);
    if (!variable.IsArray() || !fast::IsWhole(index.Type())) return false;
    const Variant* const element = variable.AsArray().Find(fast::Whole(index.value));
    return element && fast::Copy(*element, to.value);
}

/// True for a call of a procedure by its name.
bool IsProcedure(const Slot& link, const Instruction& i) noexcept {
    return link.IsName() && link.link.global->kind == Global::Kind::Procedure && !(i.flags & kHasLocal);
}

/// Where the loop goes on for each instruction.
class Labels {
public:
    struct Label {
        Opcode op;
        void* place;
    };
    Labels(std::initializer_list<Label> labels, void* otherwise) {
        mPlaces.fill(otherwise);
        for (const Label& label : labels) {
            mPlaces[static_cast<std::size_t>(label.op)] = label.place;
        }
    }
    void* operator[](Opcode op) const noexcept { return mPlaces[static_cast<std::size_t>(op)]; }

private:
    std::array<void*, 256> mPlaces;
};

static_assert(sizeof(Slot) == Operand::kSlotSize);

}  // namespace

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
    if (unit->DefinesNames()) space.Define(unit);
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
    if (!mTop) mNameValue = Variant();
    return std::exchange(mResult, Variant());
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
// Labels as values are an extension of the compilers that this is built with. With a switch instead, the loop is an
// eighth slower.
void Machine::Execute() {
    static const Labels labels(
        {
            {Opcode::Let, &&doLet},
            {Opcode::Move, &&doMove},
            {Opcode::PassRef, &&doPassRef},
            {Opcode::Add, &&doAdd},
            {Opcode::Subtract, &&doSubtract},
            {Opcode::Multiply, &&doMultiply},
            {Opcode::Divide, &&doDivide},
            {Opcode::IntegerDivide, &&doIntegerDivide},
            {Opcode::Modulo, &&doModulo},
            {Opcode::And, &&doAnd},
            {Opcode::Or, &&doOr},
            {Opcode::Negate, &&doNegate},
            {Opcode::Concatenate, &&doConcatenate},
            {Opcode::Equal, &&doEqual},
            {Opcode::NotEqual, &&doNotEqual},
            {Opcode::Less, &&doLess},
            {Opcode::LessEqual, &&doLessEqual},
            {Opcode::Greater, &&doGreater},
            {Opcode::GreaterEqual, &&doGreaterEqual},
            {Opcode::Jump, &&doJump},
            {Opcode::JumpBack, &&doJumpBack},
            {Opcode::JumpIfFalse, &&doJumpIfFalse},
            {Opcode::JumpIfTrue, &&doJumpIfTrue},
            {Opcode::JumpUnlessEqual, &&doJumpUnlessEqual},
            {Opcode::JumpUnlessNotEqual, &&doJumpUnlessNotEqual},
            {Opcode::JumpUnlessLess, &&doJumpUnlessLess},
            {Opcode::JumpUnlessLessEqual, &&doJumpUnlessLessEqual},
            {Opcode::JumpUnlessGreater, &&doJumpUnlessGreater},
            {Opcode::JumpUnlessGreaterEqual, &&doJumpUnlessGreaterEqual},
            {Opcode::JumpWhenEqual, &&doJumpWhenEqual},
            {Opcode::ForStart, &&doForStart},
            {Opcode::ForNext, &&doForNext},
            {Opcode::ForEachNext, &&doForEachNext},
            {Opcode::GetElement, &&doGetElement},
            {Opcode::PutElement, &&doPutElement},
            {Opcode::LoadName, &&doLoadName},
            {Opcode::PassName, &&doPassName},
            {Opcode::CallName, &&doCallName},
            {Opcode::CallMember, &&doCallMember},
            {Opcode::CallValue, &&doCallValue},
            {Opcode::PutMember, &&doPutMember},
            {Opcode::New, &&doNew},
            {Opcode::Result, &&doResult},
            {Opcode::Return, &&doReturn},
        },
        &&step);
    Frame* const entry = mTop;
    const Instruction* i = entry->pc;
    // Where slots of each kind of operand begin, less what the kind adds to an operand.
    std::array<std::uintptr_t, 4> bases;
    const auto setBase = [&](OperandKind kind, const Slot* slots) {
        const auto index = static_cast<std::size_t>(kind);
        bases[index] = reinterpret_cast<std::uintptr_t>(slots) - index;
    };
    const auto load = [&] {
        const Frame& frame = *mTop;
        i = frame.pc;
        setBase(OperandKind::Frame, frame.slots);
        setBase(OperandKind::Constant, frame.code->constants.get());
        setBase(OperandKind::Name, frame.links);
        setBase(OperandKind::Field, frame.me ? frame.me->Fields() : nullptr);
    };
    const auto at = [&](std::uint32_t operand) -> Slot& {
        return *reinterpret_cast<Slot*>(bases[operand & Operand::kKindMask] + operand);
    };
    const auto compare = [&]<class Comparison>(Comparison) {
        Slot& to = at(i->a);
        bool result;
        if (fast::TakesBoolean(to.value) && Comparing<Comparison>(at(i->b), at(i->c), result)) {
            to.Put(result);
        } else {
            Compare(*i);
        }
        ++i;
    };
    const auto holds = [&]<class Comparison>(Comparison) {
        bool result;
        return Comparing<Comparison>(at(i->a), at(i->b), result) ? result : Test(*i);
    };
    const auto runsAgain = [&] {
        bool again;
        const Slot* const control = &at(i->b);
        return fast::ForNext(Through(at(i->a)), control[0].value, control[1].value, again) ? again : ForNext(*i);
    };
    // For an instruction that may begin a frame.
    const auto call = [&](void (Machine::*function)(const Instruction&)) {
        const Frame* const caller = mTop;
        mTop->pc = i + 1;
        (this->*function)(*i);
        if (mTop == caller) {
            ++i;
        } else {
            load();
        }
    };
    for (;;) {
        try {
            load();
            for (;;) {
                goto* labels[i->op];
            doLet:
                if (!fast::Copy(at(i->b).value, at(i->a).value)) Let(*i);
                ++i;
                continue;
            doMove:
                if (Slot& from = at(i->b), &to = at(i->a); fast::Copy(from.value, to.value)) {
                } else if (from.Type() == VarType::String && to.IsSimple() && !(i->flags & kFreeB)) {
                    new (&to.value) Variant(from.value.AsText());
                } else {
                    Move(*i);
                }
                ++i;
                continue;
            doPassRef:
                if (Slot& from = at(i->b); from.IsValue()) {
                    at(i->a).PutAlias(from.value);
                } else {
                    PassRef(*i);
                }
                ++i;
                continue;
            doAdd:
                if (!Binary<fast::Arithmetic<fast::Add>>(at(i->b), at(i->c), at(i->a))) Operate(*i);
                ++i;
                continue;
            doSubtract:
                if (!Binary<fast::Arithmetic<fast::Subtract>>(at(i->b), at(i->c), at(i->a))) Operate(*i);
                ++i;
                continue;
            doMultiply:
                if (!Binary<fast::Arithmetic<fast::Multiply>>(at(i->b), at(i->c), at(i->a))) Operate(*i);
                ++i;
                continue;
            doDivide:
                if (!Binary<fast::Divide>(at(i->b), at(i->c), at(i->a))) Operate(*i);
                ++i;
                continue;
            doIntegerDivide:
                if (!Binary<fast::WholeDivision<false>>(at(i->b), at(i->c), at(i->a))) Operate(*i);
                ++i;
                continue;
            doModulo:
                if (!Binary<fast::WholeDivision<true>>(at(i->b), at(i->c), at(i->a))) Operate(*i);
                ++i;
                continue;
            doAnd:
                if (!Binary<fast::Logic<fast::And>>(at(i->b), at(i->c), at(i->a))) Operate(*i);
                ++i;
                continue;
            doOr:
                if (!Binary<fast::Logic<fast::Or>>(at(i->b), at(i->c), at(i->a))) Operate(*i);
                ++i;
                continue;
            doNegate:
                if (!fast::Negate(at(i->b).value, at(i->a).value)) Operate(*i);
                ++i;
                continue;
            doConcatenate:
                Concatenate(*i);
                ++i;
                continue;
            doEqual:
                compare(fast::Equal());
                continue;
            doNotEqual:
                compare(fast::NotEqual());
                continue;
            doLess:
                compare(fast::Less());
                continue;
            doLessEqual:
                compare(fast::LessEqual());
                continue;
            doGreater:
                compare(fast::Greater());
                continue;
            doGreaterEqual:
                compare(fast::GreaterEqual());
                continue;
            doJump:
                i += i->Distance();
                continue;
            doJumpBack:
                Tick();
                i += i->Distance();
                continue;
            doJumpIfFalse:
                i += IsTrue(*i) ? 1 : i->Distance();
                continue;
            doJumpIfTrue:
                i += IsTrue(*i) ? i->Distance() : 1;
                continue;
            doJumpUnlessEqual:
                i += holds(fast::Equal()) ? 1 : i->Distance();
                continue;
            doJumpUnlessNotEqual:
                i += holds(fast::NotEqual()) ? 1 : i->Distance();
                continue;
            doJumpUnlessLess:
                i += holds(fast::Less()) ? 1 : i->Distance();
                continue;
            doJumpUnlessLessEqual:
                i += holds(fast::LessEqual()) ? 1 : i->Distance();
                continue;
            doJumpUnlessGreater:
                i += holds(fast::Greater()) ? 1 : i->Distance();
                continue;
            doJumpUnlessGreaterEqual:
                i += holds(fast::GreaterEqual()) ? 1 : i->Distance();
                continue;
            doJumpWhenEqual:
                i += Test(*i) ? i->Distance() : 1;
                continue;
            doForStart:
                i += ForStart(*i) ? 1 : i->Distance();
                continue;
            doForNext:
                Tick();
                i += runsAgain() ? i->Distance() : 1;
                continue;
            doForEachNext:
                i += ForEachNext(*i) ? 1 : i->Distance();
                continue;
            doGetElement:
                if (!Indexing(at(i->b), at(i->c), at(i->a))) GetElement(*i);
                ++i;
                continue;
            doPutElement:
                PutElement(*i);
                ++i;
                continue;
            doLoadName:
                call(&Machine::LoadName);
                continue;
            doPassName:
                call(&Machine::PassName);
                continue;
            doCallName:
                if (const Slot& link = mTop->links[i->b]; IsProcedure(link, *i)) {
                    Slot* const window = mTop->slots + i->a;
                    mTop->pc = i + 1;
                    PushFrame(*link.link.global->procedure, nullptr, window, i->c, window, (i->flags & kDiscard) != 0);
                    load();
                } else {
                    call(&Machine::CallName);
                }
                continue;
            doCallMember:
                call(&Machine::CallMember);
                continue;
            doCallValue:
                call(&Machine::CallValue);
                continue;
            doPutMember:
                call(&Machine::PutMember);
                continue;
            doNew:
                call(&Machine::New);
                continue;
            doResult:
                if (Result(*i)) return;
                load();
                continue;
            doReturn:
                if (Return()) return;
                load();
                continue;
            step:
                Step(*i);
                ++i;
            }
        } catch (...) {
            mTop->pc = i + 1;
            Recover(entry);
        }
    }
}
#pragma GCC diagnostic pop

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
