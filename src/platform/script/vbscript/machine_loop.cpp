#include <array>
#include <cstdint>

#include "platform/script/vbscript/machine_frames.h"

namespace ov::vbscript {

namespace {

/// The variable that a slot stands for, or its own value.
Variant& Through(Slot& slot) noexcept {
    return slot.IsAlias() ? *slot.link.variable : slot.value;
}

// An element that is a number.
[[gnu::always_inline]] inline bool Indexing(const Variant& array, const Variant& index, Variant& to) noexcept {
    if (!array.IsArray() || !fast::IsWhole(index.Type())) return false;
    const Variant* const element = array.AsArray().Find(fast::Whole(index));
    return element && fast::Copy(*element, to);
}

// A number into an element that holds one.
[[gnu::always_inline]] inline bool Filling(Variant& array, const Variant& index, const Variant& value) noexcept {
    if (!array.IsArray() || !fast::IsWhole(index.Type())) return false;
    Variant* const element = array.AsArray().FindOwn(fast::Whole(index));
    return element && fast::Copy(value, *element);
}

// Like fast::Copy, with texts, which are shared.
[[gnu::always_inline]] inline bool CopyOrShare(const Variant& from, Variant& to) noexcept {
    if (fast::Copy(from, to)) return true;
    if (!from.IsString() || !fast::IsSimple(to)) return false;
    new (&to) Variant(from.AsText());
    return true;
}

/// The global name that a call is of; nullptr for one that is or may be a variable.
Global* GlobalBehind(const Slot& link, const Instruction& i) noexcept {
    return link.IsName() && !(i.flags & kHasLocal) ? link.link.global : nullptr;
}

static_assert(sizeof(Slot) == Operand::kSlotSize);

}  // namespace

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
// Labels as values are an extension of the compilers that this is built with: each instruction ends with a jump of its
// own to the next one, which processors foresee better than a common one.
//
// Nothing here may hold what needs an end, and nothing may be kept for the handler of errors: whatever can throw is a
// function behind `Leaving`, which notes where the procedure is.
void Machine::Loop() {
    // In the order of the opcodes.
    // clang-format off
    static const void* const labels[] = {
        &&doLet, &&step, &&doMove, &&doPassRef, &&doPassName, &&doLoadName, &&step, &&doNew, &&step, &&doAdd,
        &&doSubtract, &&doMultiply, &&doDivide, &&doIntegerDivide, &&doModulo, &&step, &&doConcatenate, &&doAnd,
        &&doOr, &&step, &&step, &&step, &&step, &&doEqual, &&doNotEqual, &&doLess, &&doLessEqual, &&doGreater,
        &&doGreaterEqual, &&doNegate, &&step, &&step, &&step, &&doJump, &&doJumpBack, &&doJumpIfFalse, &&doJumpIfTrue,
        &&doJumpUnlessEqual, &&doJumpUnlessNotEqual, &&doJumpUnlessLess, &&doJumpUnlessLessEqual,
        &&doJumpUnlessGreater, &&doJumpUnlessGreaterEqual, &&doJumpWhenEqual, &&doForStart, &&doForNext, &&step,
        &&doForEachNext, &&doCallName, &&doCallMember, &&doCallValue, &&doGetElement, &&step, &&doPutElement, &&step,
        &&doPutMember, &&step, &&step, &&step, &&step, &&doReturn, &&doResult, &&step, &&step, &&doLetSlots,
        &&doLetConstant, &&doMoveSlots, &&doMoveConstant, &&doAddSlots, &&doAddConstant, &&doSubtractSlots,
        &&doSubtractConstant, &&doMultiplySlots, &&doMultiplyConstant, &&doDivideSlots, &&doDivideConstant,
        &&doIntegerDivideSlots, &&doIntegerDivideConstant, &&doModuloSlots, &&doModuloConstant, &&doAndSlots,
        &&doOrSlots, &&doEqualSlots, &&doEqualConstant, &&doNotEqualSlots, &&doNotEqualConstant, &&doLessSlots,
        &&doLessConstant, &&doLessEqualSlots, &&doLessEqualConstant, &&doGreaterSlots, &&doGreaterConstant,
        &&doGreaterEqualSlots, &&doGreaterEqualConstant, &&doJumpIfFalseSlots, &&doJumpUnlessEqualSlots,
        &&doJumpUnlessEqualConstant, &&doJumpUnlessNotEqualSlots, &&doJumpUnlessNotEqualConstant,
        &&doJumpUnlessLessSlots, &&doJumpUnlessLessConstant, &&doJumpUnlessLessEqualSlots,
        &&doJumpUnlessLessEqualConstant, &&doJumpUnlessGreaterSlots, &&doJumpUnlessGreaterConstant,
        &&doJumpUnlessGreaterEqualSlots, &&doJumpUnlessGreaterEqualConstant, &&doForNextSlots, &&doGetElementSlots,
        &&doPutElementSlots,
    };
    // clang-format on
    static_assert(std::size(labels) == static_cast<std::size_t>(kLastForm) + 1);

    Frame* frame;
    const Instruction* i;
    bool holds;
    // Where slots of each kind of operand begin, less what the kind adds to an operand; the first two again, since they
    // are read most.
    std::array<std::uintptr_t, 4> bases;
    std::uintptr_t slots;
    std::uintptr_t constants;
    const auto setBase = [&](OperandKind kind, const Slot* first) __attribute__((always_inline)) {
        const auto index = static_cast<std::size_t>(kind);
        return bases[index] = reinterpret_cast<std::uintptr_t>(first) - index;
    };
    // Goes on with the frame on the top.
    const auto enter = [&]() __attribute__((always_inline)) {
        frame = mTop;
        i = frame->pc;
        slots = setBase(OperandKind::Frame, frame->slots);
        constants = setBase(OperandKind::Constant, frame->code->constants.get());
        setBase(OperandKind::Name, frame->links);
        setBase(OperandKind::Field, frame->fields);
    };
    const auto at = [&](std::uint32_t operand) __attribute__((always_inline))->Slot& {
        return *reinterpret_cast<Slot*>(bases[operand & Operand::kKindMask] + operand);
    };
    const auto through = [&](std::uint32_t operand) __attribute__((always_inline))->Variant& {
        return Through(at(operand));
    };
    // What an operand of a form holds; one that stands for a variable elsewhere has a type that no short cut takes.
    const auto slot = [&](std::uint32_t operand) __attribute__((always_inline))->Variant& {
        return reinterpret_cast<Slot*>(slots + operand)->value;
    };
    const auto constant = [&](std::uint32_t operand) __attribute__((always_inline))->const Variant& {
        return reinterpret_cast<const Slot*>(constants + operand)->value;
    };
    // Before anything that can throw.
    const auto leave = [&]() __attribute__((always_inline)) {
        frame->pc = i + 1;
    };
    const auto tick = [&]() __attribute__((always_inline)) {
        if (--mBudget >= 0) return;
        leave();
        CheckTime();
    };
    // Behind a short cut: goes on if it was one.
    const auto stepped = [&](bool done) __attribute__((always_inline)) {
        if (!done) [[unlikely]]
            return false;
        ++i;
        return true;
    };
    // The same for the comparison of a jump.
    const auto decided = [&](bool known) __attribute__((always_inline)) {
        if (!known) [[unlikely]]
            return false;
        i += holds ? 1 : i->Distance();
        return true;
    };
    // For an instruction that may begin a frame, or go on elsewhere behind an error.
    const auto call = [&](void(Machine::*function)(const Instruction&)) __attribute__((always_inline)) {
        leave();
        (this->*function)(*i);
        if (mTop == frame && frame->pc == i + 1) {
            ++i;
        } else {
            enter();
        }
    };
    enter();
    for (;;) {
        goto* labels[static_cast<std::size_t>(i->op)];

    doLetSlots:
        if (stepped(fast::Copy(slot(i->b), slot(i->a)))) continue;
        goto doLet;
    doLetConstant:
        if (stepped(fast::Copy(constant(i->b), slot(i->a)))) continue;
    doLet:
        leave();
        Let(*i);
        ++i;
        continue;
    doMoveSlots:
        if (stepped(fast::Copy(slot(i->b), slot(i->a)))) continue;
        goto doMove;
    doMoveConstant:
        if (stepped(CopyOrShare(constant(i->b), slot(i->a)))) continue;
    doMove:
        leave();
        Move(*i);
        ++i;
        continue;
    doPassRef:
        if (Slot& from = at(i->b); from.IsValue()) {
            at(i->a).PutAlias(from.value);
        } else {
            leave();
            PassRef(*i);
        }
        ++i;
        continue;

    doAddSlots:
        if (stepped(fast::Arithmetic<fast::Add>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doAdd;
    doAddConstant:
        if (stepped(fast::Arithmetic<fast::Add>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doAdd:
        if (stepped(fast::Arithmetic<fast::Add>(through(i->b), through(i->c), through(i->a)))) continue;
        goto operate;
    doSubtractSlots:
        if (stepped(fast::Arithmetic<fast::Subtract>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doSubtract;
    doSubtractConstant:
        if (stepped(fast::Arithmetic<fast::Subtract>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doSubtract:
        if (stepped(fast::Arithmetic<fast::Subtract>(through(i->b), through(i->c), through(i->a)))) continue;
        goto operate;
    doMultiplySlots:
        if (stepped(fast::Arithmetic<fast::Multiply>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doMultiply;
    doMultiplyConstant:
        if (stepped(fast::Arithmetic<fast::Multiply>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doMultiply:
        if (stepped(fast::Arithmetic<fast::Multiply>(through(i->b), through(i->c), through(i->a)))) continue;
        goto operate;
    doDivideSlots:
        if (stepped(fast::Divide(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doDivide;
    doDivideConstant:
        if (stepped(fast::Divide(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doDivide:
        if (stepped(fast::Divide(through(i->b), through(i->c), through(i->a)))) continue;
        goto operate;
    doIntegerDivideSlots:
        if (stepped(fast::WholeDivision<false>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doIntegerDivide;
    doIntegerDivideConstant:
        if (stepped(fast::WholeDivision<false>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doIntegerDivide:
        if (stepped(fast::WholeDivision<false>(through(i->b), through(i->c), through(i->a)))) continue;
        goto operate;
    doModuloSlots:
        if (stepped(fast::WholeDivision<true>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doModulo;
    doModuloConstant:
        if (stepped(fast::WholeDivision<true>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doModulo:
        if (stepped(fast::WholeDivision<true>(through(i->b), through(i->c), through(i->a)))) continue;
        goto operate;
    doAndSlots:
        if (stepped(fast::Logic<fast::And>(slot(i->b), slot(i->c), slot(i->a)))) continue;
    doAnd:
        if (stepped(fast::Logic<fast::And>(through(i->b), through(i->c), through(i->a)))) continue;
        goto operate;
    doOrSlots:
        if (stepped(fast::Logic<fast::Or>(slot(i->b), slot(i->c), slot(i->a)))) continue;
    doOr:
        if (stepped(fast::Logic<fast::Or>(through(i->b), through(i->c), through(i->a)))) continue;
        goto operate;
    doEqualSlots:
        if (stepped(fast::Compare<fast::Equal>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doEqual;
    doEqualConstant:
        if (stepped(fast::Compare<fast::Equal>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doEqual:
        if (stepped(fast::Compare<fast::Equal>(through(i->b), through(i->c), at(i->a).value))) continue;
        goto compare;
    doNotEqualSlots:
        if (stepped(fast::Compare<fast::NotEqual>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doNotEqual;
    doNotEqualConstant:
        if (stepped(fast::Compare<fast::NotEqual>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doNotEqual:
        if (stepped(fast::Compare<fast::NotEqual>(through(i->b), through(i->c), at(i->a).value))) continue;
        goto compare;
    doLessSlots:
        if (stepped(fast::Compare<fast::Less>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doLess;
    doLessConstant:
        if (stepped(fast::Compare<fast::Less>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doLess:
        if (stepped(fast::Compare<fast::Less>(through(i->b), through(i->c), at(i->a).value))) continue;
        goto compare;
    doLessEqualSlots:
        if (stepped(fast::Compare<fast::LessEqual>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doLessEqual;
    doLessEqualConstant:
        if (stepped(fast::Compare<fast::LessEqual>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doLessEqual:
        if (stepped(fast::Compare<fast::LessEqual>(through(i->b), through(i->c), at(i->a).value))) continue;
        goto compare;
    doGreaterSlots:
        if (stepped(fast::Compare<fast::Greater>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doGreater;
    doGreaterConstant:
        if (stepped(fast::Compare<fast::Greater>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doGreater:
        if (stepped(fast::Compare<fast::Greater>(through(i->b), through(i->c), at(i->a).value))) continue;
        goto compare;
    doGreaterEqualSlots:
        if (stepped(fast::Compare<fast::GreaterEqual>(slot(i->b), slot(i->c), slot(i->a)))) continue;
        goto doGreaterEqual;
    doGreaterEqualConstant:
        if (stepped(fast::Compare<fast::GreaterEqual>(slot(i->b), constant(i->c), slot(i->a)))) continue;
    doGreaterEqual:
        if (stepped(fast::Compare<fast::GreaterEqual>(through(i->b), through(i->c), at(i->a).value))) continue;
        goto compare;
    doJumpUnlessEqualSlots:
        if (decided(fast::Holds<fast::Equal>(slot(i->a), slot(i->b), holds))) continue;
        goto doJumpUnlessEqual;
    doJumpUnlessEqualConstant:
        if (decided(fast::Holds<fast::Equal>(slot(i->a), constant(i->b), holds))) continue;
    doJumpUnlessEqual:
        if (decided(fast::Holds<fast::Equal>(through(i->a), through(i->b), holds))) continue;
        goto test;
    doJumpUnlessNotEqualSlots:
        if (decided(fast::Holds<fast::NotEqual>(slot(i->a), slot(i->b), holds))) continue;
        goto doJumpUnlessNotEqual;
    doJumpUnlessNotEqualConstant:
        if (decided(fast::Holds<fast::NotEqual>(slot(i->a), constant(i->b), holds))) continue;
    doJumpUnlessNotEqual:
        if (decided(fast::Holds<fast::NotEqual>(through(i->a), through(i->b), holds))) continue;
        goto test;
    doJumpUnlessLessSlots:
        if (decided(fast::Holds<fast::Less>(slot(i->a), slot(i->b), holds))) continue;
        goto doJumpUnlessLess;
    doJumpUnlessLessConstant:
        if (decided(fast::Holds<fast::Less>(slot(i->a), constant(i->b), holds))) continue;
    doJumpUnlessLess:
        if (decided(fast::Holds<fast::Less>(through(i->a), through(i->b), holds))) continue;
        goto test;
    doJumpUnlessLessEqualSlots:
        if (decided(fast::Holds<fast::LessEqual>(slot(i->a), slot(i->b), holds))) continue;
        goto doJumpUnlessLessEqual;
    doJumpUnlessLessEqualConstant:
        if (decided(fast::Holds<fast::LessEqual>(slot(i->a), constant(i->b), holds))) continue;
    doJumpUnlessLessEqual:
        if (decided(fast::Holds<fast::LessEqual>(through(i->a), through(i->b), holds))) continue;
        goto test;
    doJumpUnlessGreaterSlots:
        if (decided(fast::Holds<fast::Greater>(slot(i->a), slot(i->b), holds))) continue;
        goto doJumpUnlessGreater;
    doJumpUnlessGreaterConstant:
        if (decided(fast::Holds<fast::Greater>(slot(i->a), constant(i->b), holds))) continue;
    doJumpUnlessGreater:
        if (decided(fast::Holds<fast::Greater>(through(i->a), through(i->b), holds))) continue;
        goto test;
    doJumpUnlessGreaterEqualSlots:
        if (decided(fast::Holds<fast::GreaterEqual>(slot(i->a), slot(i->b), holds))) continue;
        goto doJumpUnlessGreaterEqual;
    doJumpUnlessGreaterEqualConstant:
        if (decided(fast::Holds<fast::GreaterEqual>(slot(i->a), constant(i->b), holds))) continue;
    doJumpUnlessGreaterEqual:
        if (decided(fast::Holds<fast::GreaterEqual>(through(i->a), through(i->b), holds))) continue;
        goto test;
    doNegate:
        if (stepped(fast::Negate(through(i->b), through(i->a)))) continue;
    operate:
        call(&Machine::Operate);
        continue;
    compare:
        leave();
        Compare(*i);
        ++i;
        continue;
    doConcatenate:
        leave();
        Concatenate(*i);
        ++i;
        continue;

    jump:
    doJump:
        i += i->Distance();
        continue;
    doJumpBack:
        tick();
        goto jump;
    doJumpIfFalseSlots:
        if (slot(i->a).Type() != VarType::Boolean) [[unlikely]]
            goto doJumpIfFalse;
        if (!slot(i->a).AsBoolean()) goto jump;
        ++i;
        continue;
    doJumpIfFalse:
        leave();
        if (!IsTrue(*i)) goto jump;
        ++i;
        continue;
    doJumpIfTrue:
        leave();
        if (IsTrue(*i)) goto jump;
        ++i;
        continue;
    test:
        leave();
        if (!Test(*i)) goto jump;
        ++i;
        continue;
    doJumpWhenEqual:
        leave();
        if (Test(*i)) goto jump;
        ++i;
        continue;

    doForStart:
        leave();
        if (!ForStart(*i)) goto jump;
        ++i;
        continue;
    doForNextSlots:
        tick();
        if (fast::ForNext(slot(i->a), slot(i->b), slot(i->b + Operand::kSlotSize))) [[likely]]
            goto jump;
        goto forNext;
    doForNext:
        tick();
        if (fast::ForNext(through(i->a), slot(i->b), slot(i->b + Operand::kSlotSize))) goto jump;
    forNext:
        leave();
        if (ForNext(*i)) goto jump;
        ++i;
        continue;
    doForEachNext:
        leave();
        if (!ForEachNext(*i)) goto jump;
        ++i;
        continue;

    doGetElementSlots:
        if (!Indexing(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doGetElement;
        ++i;
        continue;
    doGetElement:
        if (!Indexing(through(i->b), through(i->c), at(i->a).value)) {
            call(&Machine::GetElement);
            continue;
        }
        ++i;
        continue;
    doPutElementSlots:
        if ((i->flags & kIsSet) || !Filling(slot(i->a), slot(i->b), slot(i->c))) [[unlikely]]
            goto doPutElement;
        ++i;
        continue;
    doPutElement:
        call(&Machine::PutElement);
        continue;

    doLoadName:
        if (const Slot& link = frame->links[i->b];
            (i->flags & kHasLocal) || !link.IsAlias() || !CopyOrShare(*link.link.variable, frame->slots[i->a].value)) {
            call(&Machine::LoadName);
        } else {
            ++i;
        }
        continue;
    doPassName:
        call(&Machine::PassName);
        continue;
    doCallName:
        if (Global* const global = GlobalBehind(frame->links[i->b], *i);
            global && global->kind == Global::Kind::Procedure) {
            leave();
            BeginFrame(*global->procedure, nullptr, frame->slots + i->a, i->c, frame->slots + i->a,
                       (i->flags & kDiscard) != 0);
            enter();
        } else if (global && global->kind == Global::Kind::Object && global->call) {
            leave();
            CallPublished(*global, frame->slots + i->a, i->c, i->flags);
            ++i;
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
        leave();
        if (Result(*i)) return;
        enter();
        continue;
    doReturn:
        if (!ReturnsQuickly() && Return()) return;
        enter();
        continue;
    step:
        call(&Machine::Step);
    }
}
#pragma GCC diagnostic pop

}  // namespace ov::vbscript
