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
    static const void* const labels[] = {
        &&doLet,
        &&step,
        &&doMove,
        &&doPassRef,
        &&doPassName,
        &&doLoadName,
        &&step,
        &&doNew,
        &&step,
        &&doAdd,
        &&doSubtract,
        &&doMultiply,
        &&doDivide,
        &&doIntegerDivide,
        &&doModulo,
        &&step,
        &&doConcatenate,
        &&doAnd,
        &&doOr,
        &&step,
        &&step,
        &&step,
        &&step,
        &&doEqual,
        &&doNotEqual,
        &&doLess,
        &&doLessEqual,
        &&doGreater,
        &&doGreaterEqual,
        &&doNegate,
        &&step,
        &&step,
        &&step,
        &&doJump,
        &&doJumpBack,
        &&doJumpIfFalse,
        &&doJumpIfTrue,
        &&doJumpUnlessEqual,
        &&doJumpUnlessNotEqual,
        &&doJumpUnlessLess,
        &&doJumpUnlessLessEqual,
        &&doJumpUnlessGreater,
        &&doJumpUnlessGreaterEqual,
        &&doJumpWhenEqual,
        &&doForStart,
        &&doForNext,
        &&step,
        &&doForEachNext,
        &&doCallName,
        &&doCallMember,
        &&doCallValue,
        &&doGetElement,
        &&step,
        &&doPutElement,
        &&step,
        &&doPutMember,
        &&step,
        &&step,
        &&step,
        &&step,
        &&doReturn,
        &&doResult,
        &&step,
        &&step,
        &&doLetSlots,
        &&doLetConstant,
        &&doMoveSlots,
        &&doMoveConstant,
        &&doAddSlots,
        &&doAddConstant,
        &&doSubtractSlots,
        &&doSubtractConstant,
        &&doMultiplySlots,
        &&doMultiplyConstant,
        &&doDivideSlots,
        &&doDivideConstant,
        &&doIntegerDivideSlots,
        &&doIntegerDivideConstant,
        &&doModuloSlots,
        &&doModuloConstant,
        &&doAndSlots,
        &&doOrSlots,
        &&doEqualSlots,
        &&doEqualConstant,
        &&doNotEqualSlots,
        &&doNotEqualConstant,
        &&doLessSlots,
        &&doLessConstant,
        &&doLessEqualSlots,
        &&doLessEqualConstant,
        &&doGreaterSlots,
        &&doGreaterConstant,
        &&doGreaterEqualSlots,
        &&doGreaterEqualConstant,
        &&doJumpIfFalseSlots,
        &&doJumpUnlessEqualSlots,
        &&doJumpUnlessEqualConstant,
        &&doJumpUnlessNotEqualSlots,
        &&doJumpUnlessNotEqualConstant,
        &&doJumpUnlessLessSlots,
        &&doJumpUnlessLessConstant,
        &&doJumpUnlessLessEqualSlots,
        &&doJumpUnlessLessEqualConstant,
        &&doJumpUnlessGreaterSlots,
        &&doJumpUnlessGreaterConstant,
        &&doJumpUnlessGreaterEqualSlots,
        &&doJumpUnlessGreaterEqualConstant,
        &&doForNextSlots,
        &&doGetElementSlots,
        &&doPutElementSlots,
    };
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
    // For an instruction that may begin a frame.
    const auto call = [&](void(Machine::*function)(const Instruction&)) __attribute__((always_inline)) {
        leave();
        (this->*function)(*i);
        if (mTop == frame) {
            ++i;
        } else {
            enter();
        }
    };
    enter();
    for (;;) {
        goto* labels[static_cast<std::size_t>(i->op)];

    doLetSlots:
        if (!fast::Copy(slot(i->b), slot(i->a))) [[unlikely]]
            goto doLet;
        ++i;
        continue;
    doLetConstant:
        if (!fast::Copy(constant(i->b), slot(i->a))) [[unlikely]]
            goto doLet;
        ++i;
        continue;
    doLet:
        leave();
        Let(*i);
        ++i;
        continue;
    doMoveSlots:
        if (!fast::Copy(slot(i->b), slot(i->a))) [[unlikely]]
            goto doMove;
        ++i;
        continue;
    doMoveConstant:
        if (!CopyOrShare(constant(i->b), slot(i->a))) [[unlikely]]
            goto doMove;
        ++i;
        continue;
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
        if (!fast::Arithmetic<fast::Add>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doAdd;
        ++i;
        continue;
    doAddConstant:
        if (!fast::Arithmetic<fast::Add>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doAdd;
        ++i;
        continue;
    doAdd:
        if (!fast::Arithmetic<fast::Add>(through(i->b), through(i->c), through(i->a))) [[unlikely]]
            goto operate;
        ++i;
        continue;
    doSubtractSlots:
        if (!fast::Arithmetic<fast::Subtract>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doSubtract;
        ++i;
        continue;
    doSubtractConstant:
        if (!fast::Arithmetic<fast::Subtract>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doSubtract;
        ++i;
        continue;
    doSubtract:
        if (!fast::Arithmetic<fast::Subtract>(through(i->b), through(i->c), through(i->a))) [[unlikely]]
            goto operate;
        ++i;
        continue;
    doMultiplySlots:
        if (!fast::Arithmetic<fast::Multiply>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doMultiply;
        ++i;
        continue;
    doMultiplyConstant:
        if (!fast::Arithmetic<fast::Multiply>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doMultiply;
        ++i;
        continue;
    doMultiply:
        if (!fast::Arithmetic<fast::Multiply>(through(i->b), through(i->c), through(i->a))) [[unlikely]]
            goto operate;
        ++i;
        continue;
    doDivideSlots:
        if (!fast::Divide(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doDivide;
        ++i;
        continue;
    doDivideConstant:
        if (!fast::Divide(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doDivide;
        ++i;
        continue;
    doDivide:
        if (!fast::Divide(through(i->b), through(i->c), through(i->a))) [[unlikely]]
            goto operate;
        ++i;
        continue;
    doIntegerDivideSlots:
        if (!fast::WholeDivision<false>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doIntegerDivide;
        ++i;
        continue;
    doIntegerDivideConstant:
        if (!fast::WholeDivision<false>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doIntegerDivide;
        ++i;
        continue;
    doIntegerDivide:
        if (!fast::WholeDivision<false>(through(i->b), through(i->c), through(i->a))) [[unlikely]]
            goto operate;
        ++i;
        continue;
    doModuloSlots:
        if (!fast::WholeDivision<true>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doModulo;
        ++i;
        continue;
    doModuloConstant:
        if (!fast::WholeDivision<true>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doModulo;
        ++i;
        continue;
    doModulo:
        if (!fast::WholeDivision<true>(through(i->b), through(i->c), through(i->a))) [[unlikely]]
            goto operate;
        ++i;
        continue;
    doAndSlots:
        if (!fast::Logic<fast::And>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doAnd;
        ++i;
        continue;
    doAnd:
        if (!fast::Logic<fast::And>(through(i->b), through(i->c), through(i->a))) [[unlikely]]
            goto operate;
        ++i;
        continue;
    doOrSlots:
        if (!fast::Logic<fast::Or>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doOr;
        ++i;
        continue;
    doOr:
        if (!fast::Logic<fast::Or>(through(i->b), through(i->c), through(i->a))) [[unlikely]]
            goto operate;
        ++i;
        continue;
    doEqualSlots:
        if (!fast::Compare<fast::Equal>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doEqual;
        ++i;
        continue;
    doEqualConstant:
        if (!fast::Compare<fast::Equal>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doEqual;
        ++i;
        continue;
    doEqual:
        if (!fast::Compare<fast::Equal>(through(i->b), through(i->c), at(i->a).value)) [[unlikely]]
            goto compare;
        ++i;
        continue;
    doNotEqualSlots:
        if (!fast::Compare<fast::NotEqual>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doNotEqual;
        ++i;
        continue;
    doNotEqualConstant:
        if (!fast::Compare<fast::NotEqual>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doNotEqual;
        ++i;
        continue;
    doNotEqual:
        if (!fast::Compare<fast::NotEqual>(through(i->b), through(i->c), at(i->a).value)) [[unlikely]]
            goto compare;
        ++i;
        continue;
    doLessSlots:
        if (!fast::Compare<fast::Less>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doLess;
        ++i;
        continue;
    doLessConstant:
        if (!fast::Compare<fast::Less>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doLess;
        ++i;
        continue;
    doLess:
        if (!fast::Compare<fast::Less>(through(i->b), through(i->c), at(i->a).value)) [[unlikely]]
            goto compare;
        ++i;
        continue;
    doLessEqualSlots:
        if (!fast::Compare<fast::LessEqual>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doLessEqual;
        ++i;
        continue;
    doLessEqualConstant:
        if (!fast::Compare<fast::LessEqual>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doLessEqual;
        ++i;
        continue;
    doLessEqual:
        if (!fast::Compare<fast::LessEqual>(through(i->b), through(i->c), at(i->a).value)) [[unlikely]]
            goto compare;
        ++i;
        continue;
    doGreaterSlots:
        if (!fast::Compare<fast::Greater>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doGreater;
        ++i;
        continue;
    doGreaterConstant:
        if (!fast::Compare<fast::Greater>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doGreater;
        ++i;
        continue;
    doGreater:
        if (!fast::Compare<fast::Greater>(through(i->b), through(i->c), at(i->a).value)) [[unlikely]]
            goto compare;
        ++i;
        continue;
    doGreaterEqualSlots:
        if (!fast::Compare<fast::GreaterEqual>(slot(i->b), slot(i->c), slot(i->a))) [[unlikely]]
            goto doGreaterEqual;
        ++i;
        continue;
    doGreaterEqualConstant:
        if (!fast::Compare<fast::GreaterEqual>(slot(i->b), constant(i->c), slot(i->a))) [[unlikely]]
            goto doGreaterEqual;
        ++i;
        continue;
    doGreaterEqual:
        if (!fast::Compare<fast::GreaterEqual>(through(i->b), through(i->c), at(i->a).value)) [[unlikely]]
            goto compare;
        ++i;
        continue;
    doJumpUnlessEqualSlots:
        if (!fast::Holds<fast::Equal>(slot(i->a), slot(i->b), holds)) [[unlikely]]
            goto doJumpUnlessEqual;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessEqualConstant:
        if (!fast::Holds<fast::Equal>(slot(i->a), constant(i->b), holds)) [[unlikely]]
            goto doJumpUnlessEqual;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessEqual:
        if (!fast::Holds<fast::Equal>(through(i->a), through(i->b), holds)) [[unlikely]]
            goto test;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessNotEqualSlots:
        if (!fast::Holds<fast::NotEqual>(slot(i->a), slot(i->b), holds)) [[unlikely]]
            goto doJumpUnlessNotEqual;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessNotEqualConstant:
        if (!fast::Holds<fast::NotEqual>(slot(i->a), constant(i->b), holds)) [[unlikely]]
            goto doJumpUnlessNotEqual;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessNotEqual:
        if (!fast::Holds<fast::NotEqual>(through(i->a), through(i->b), holds)) [[unlikely]]
            goto test;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessLessSlots:
        if (!fast::Holds<fast::Less>(slot(i->a), slot(i->b), holds)) [[unlikely]]
            goto doJumpUnlessLess;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessLessConstant:
        if (!fast::Holds<fast::Less>(slot(i->a), constant(i->b), holds)) [[unlikely]]
            goto doJumpUnlessLess;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessLess:
        if (!fast::Holds<fast::Less>(through(i->a), through(i->b), holds)) [[unlikely]]
            goto test;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessLessEqualSlots:
        if (!fast::Holds<fast::LessEqual>(slot(i->a), slot(i->b), holds)) [[unlikely]]
            goto doJumpUnlessLessEqual;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessLessEqualConstant:
        if (!fast::Holds<fast::LessEqual>(slot(i->a), constant(i->b), holds)) [[unlikely]]
            goto doJumpUnlessLessEqual;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessLessEqual:
        if (!fast::Holds<fast::LessEqual>(through(i->a), through(i->b), holds)) [[unlikely]]
            goto test;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessGreaterSlots:
        if (!fast::Holds<fast::Greater>(slot(i->a), slot(i->b), holds)) [[unlikely]]
            goto doJumpUnlessGreater;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessGreaterConstant:
        if (!fast::Holds<fast::Greater>(slot(i->a), constant(i->b), holds)) [[unlikely]]
            goto doJumpUnlessGreater;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessGreater:
        if (!fast::Holds<fast::Greater>(through(i->a), through(i->b), holds)) [[unlikely]]
            goto test;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessGreaterEqualSlots:
        if (!fast::Holds<fast::GreaterEqual>(slot(i->a), slot(i->b), holds)) [[unlikely]]
            goto doJumpUnlessGreaterEqual;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessGreaterEqualConstant:
        if (!fast::Holds<fast::GreaterEqual>(slot(i->a), constant(i->b), holds)) [[unlikely]]
            goto doJumpUnlessGreaterEqual;
        if (!holds) goto jump;
        ++i;
        continue;
    doJumpUnlessGreaterEqual:
        if (!fast::Holds<fast::GreaterEqual>(through(i->a), through(i->b), holds)) [[unlikely]]
            goto test;
        if (!holds) goto jump;
        ++i;
        continue;
    doNegate:
        if (!fast::Negate(through(i->b), through(i->a))) [[unlikely]]
            goto operate;
        ++i;
        continue;
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
        if (const Slot& link = frame->links[i->b]; !link.IsName() || (i->flags & kHasLocal)) {
            call(&Machine::CallName);
        } else if (Global& global = *link.link.global; global.kind == Global::Kind::Procedure) {
            leave();
            BeginFrame(*global.procedure, nullptr, frame->slots + i->a, i->c, frame->slots + i->a,
                       (i->flags & kDiscard) != 0);
            enter();
        } else if (global.kind == Global::Kind::Object && global.call) {
            leave();
            CallPublished(global, frame->slots + i->a, i->c, i->flags);
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
