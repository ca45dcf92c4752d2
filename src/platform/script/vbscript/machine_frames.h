/// @file
/// The beginning and the end of procedures, where they have to be quick.
#pragma once

#include "platform/script/vbscript/fast_operators.h"
#include "platform/script/vbscript/machine.h"

namespace ov::vbscript {

// Begins a procedure whose arguments are in the slots that will be its first ones.
[[gnu::always_inline]] inline void Machine::BeginFrame(BoundCode& procedure, Instance* me, Slot* arguments,
                                                       std::size_t count, Slot* result, bool discard) {
    const Code& code = procedure.code;
    if (count != code.parameters) [[unlikely]]
        Raise(ErrorNumber::WrongArgumentCount);
    Tick();
    Slot* const links = procedure.Links();
    Frame* const frame = NextFrame(code, arguments);
    for (Slot *slot = arguments + count, *end = arguments + code.frameSize; slot != end; ++slot) {
        slot->PutEmpty();
    }
    new (frame) Frame{.code = &code,
                      .pc = code.instructions.data(),
                      .slots = arguments,
                      .links = links,
                      .result = result,
                      .fields = me ? me->Fields() : nullptr,
                      .space = procedure.space,
                      .me = me,
                      .bound = &procedure,
                      .scope = frame,
                      .discard = discard,
                      .holdsMore = me != nullptr};
    if (me) me->AddRef();
    procedure.AddRef();
    mTop = frame;
    if (!code.takesAll) [[unlikely]]
        TakeArguments(*frame);
}

// Ends the current procedure if another one called it and its result is a number or the like that is wanted. False,
// with nothing done, if not.
[[gnu::always_inline]] inline bool Machine::ReturnsQuickly() noexcept {
    const Frame& frame = *mTop;
    if (frame.discard || frame.isEntry || frame.holdsMore || !frame.code->hasResult) return false;
    Slot kept;
    if (!fast::Copy(frame.slots[frame.code->result].value, kept.value)) return false;
    mWritten = frame.code->written;
    for (Slot *slot = frame.slots, *end = slot + frame.code->frameSize; slot != end; ++slot) {
        if (!slot->IsSimple()) slot->Clear();
    }
    Slot* const to = frame.result;
    mTop = mTop - 1;
    frame.bound->Release();
    if (!fast::Copy(kept.value, to->value)) to->Take(std::move(kept.value));
    kept.PutEmpty();
    return true;
}

}  // namespace ov::vbscript
