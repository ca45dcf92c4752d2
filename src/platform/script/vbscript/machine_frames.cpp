#include "platform/script/vbscript/fast_operators.h"
#include "platform/script/vbscript/limits.h"
#include "platform/script/vbscript/machine.h"

namespace ov::vbscript {

void Machine::ClearSlots(Slot* first, std::size_t count) noexcept {
    for (Slot* slot = first; slot != first + count; ++slot) {
        if (slot->IsSimple()) {
            slot->PutEmpty();
        } else {
            slot->Clear();
        }
    }
}

// Ends the current procedure's variables, and with them maybe objects; then the frame.
void Machine::PopFrame() noexcept {
    Frame& frame = *mTop;
    ClearSlots(frame.slots, frame.code->frameSize);
    if (frame.added) delete std::exchange(frame.added, nullptr);
    if (frame.me) frame.me->Release();
    mTop = &frame == mFrames ? nullptr : &frame - 1;
    if (frame.bound) frame.bound->Release();
    if (frame.unit) frame.unit->Release();
}

Slot* Machine::StackTop() const noexcept {
    return mTop ? mTop->slots + mTop->code->frameSize : mSlots;
}

// The next frame, for slots that begin at `slots`. @throws RuntimeError 28
Frame* Machine::NextFrame(const Code& code, const Slot* slots) const {
    Frame* const frame = mTop ? mTop + 1 : mFrames;
    if (frame == mFramesEnd || slots + code.frameSize > mSlotsEnd) Raise(ErrorNumber::OutOfStackSpace);
    return frame;
}

// Begins a procedure whose arguments are in the slots that will be its first ones.
void Machine::PushFrame(BoundCode& procedure, Instance* me, Slot* arguments, std::size_t count, Slot* result,
                        bool discard) {
    const Code& code = procedure.code;
    if (count != code.parameters) Raise(ErrorNumber::WrongArgumentCount);
    Tick();
    Slot* const links = procedure.Links();
    Frame* const frame = NextFrame(code, arguments);
    for (std::size_t i = count; i < code.frameSize; ++i) {
        arguments[i].PutEmpty();
    }
    new (frame) Frame{.code = &code,
                      .pc = code.instructions.data(),
                      .slots = arguments,
                      .links = links,
                      .result = result,
                      .space = procedure.space,
                      .me = me,
                      .bound = &procedure,
                      .scope = frame,
                      .discard = discard};
    if (me) me->AddRef();
    procedure.AddRef();
    mTop = frame;
    for (const std::uint16_t parameter : code.byValue) {
        Slot& slot = arguments[parameter];
        if (slot.IsAlias()) new (&slot.value) Variant(*slot.link.variable);
    }
    if (!code.open.empty()) BindOpenNames(*frame);
}

// Begins a text's statements or its expression. Its names stand for what the procedure `scope` sees, or for global
// names if there is none.
void Machine::PushUnit(Namespace& space, const Ref<Unit>& unit, Frame* scope, Slot* result, bool discard) {
    const Code& code = *unit->main;
    Slot* const links = StackTop();
    const std::size_t count = code.names.size();
    if (links + count >= mSlotsEnd) Raise(ErrorNumber::OutOfStackSpace);
    Tick();
    for (std::size_t i = 0; i < count; ++i) {
        new (&links[i]) Slot;
        if (scope) {
            LinkLocally(*scope, code.names[i], links[i]);
        } else {
            LinkGlobally(space, code.names[i], links[i]);
        }
    }
    Slot* const slots = links + count;
    Frame* const frame = NextFrame(code, slots);
    for (std::size_t i = 0; i < code.frameSize; ++i) {
        new (&slots[i]) Slot;
    }
    new (frame) Frame{.code = &code,
                      .pc = code.instructions.data(),
                      .slots = slots,
                      .links = links,
                      .result = result,
                      .space = &space,
                      .me = scope ? scope->me : nullptr,
                      .unit = unit.get(),
                      .scope = scope,
                      .discard = discard};
    if (frame->me) frame->me->AddRef();
    unit->AddRef();
    mTop = frame;
}

// Ends the current procedure with a value. True if the machine was called for it.
bool Machine::EndFrame(Variant value) {
    const bool isEntry = mTop->isEntry;
    const bool discard = mTop->discard;
    Slot* const to = mTop->result;
    mWritten = mTop->code->written;
    PopFrame();
    if (isEntry) {
        mResult = std::move(value);
    } else if (to) {
        to->Take(discard ? Variant() : std::move(value));
    }
    return isEntry;
}

// Ends the current procedure. True if the machine was called for it.
bool Machine::Return() {
    const Frame& frame = *mTop;
    if (!frame.code->hasResult) return EndFrame(Variant());
    Variant& value = frame.slots[frame.code->result].value;
    // Short cut: a number, for another procedure that wants it.
    Slot kept;
    Slot* const to = frame.result;
    if (!frame.isEntry && !frame.discard && fast::Copy(value, kept.value)) {
        mWritten = frame.code->written;
        PopFrame();
        if (!fast::Copy(kept.value, to->value)) to->Take(std::move(kept.value));
        return false;
    }
    return EndFrame(std::move(value));
}

// Ends an expression text with its value.
bool Machine::Result(const Instruction& i) {
    Slot& slot = At(i.a);
    if ((i.flags & kFreeA) && slot.IsValue()) return EndFrame(std::move(slot.value));
    return EndFrame(Variant(Read(slot)));
}

}  // namespace ov::vbscript
