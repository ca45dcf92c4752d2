#include "platform/script/vbscript/machine_frames.h"

#include "platform/script/vbscript/limits.h"

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

// Ends the current procedure's variables, and with them maybe objects; then the frame. What is left in its slots can be
// overwritten, and stands for nothing.
void Machine::PopFrame() noexcept {
    Frame& frame = *mTop;
    for (Slot *slot = frame.slots, *end = slot + frame.code->frameSize; slot != end; ++slot) {
        if (!slot->IsSimple()) slot->Clear();
    }
    if (frame.added) delete std::exchange(frame.added, nullptr);
    if (frame.me) frame.me->Release();
    mTop = &frame == mFrames ? nullptr : &frame - 1;
    if (frame.bound) frame.bound->Release();
    if (frame.unit) frame.unit->Release();
}

Slot* Machine::StackTop() const noexcept {
    return mTop ? mTop->slots + mTop->code->frameSize : mSlots;
}

void Machine::PushFrame(BoundCode& procedure, Instance* me, Slot* arguments, std::size_t count, Slot* result,
                        bool discard) {
    BeginFrame(procedure, me, arguments, count, result, discard);
}

// Lets the parameters by value have values of their own, and the names that were never declared their meaning.
void Machine::TakeArguments(Frame& frame) {
    for (const std::uint16_t parameter : frame.code->byValue) {
        Slot& slot = frame.slots[parameter];
        if (slot.IsAlias()) new (&slot.value) Variant(*slot.link.variable);
    }
    if (!frame.code->open.empty()) BindOpenNames(frame);
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
        if (scope) {
            LinkLocally(*scope, code.names[i], links[i]);
        } else {
            LinkGlobally(space, code.names[i], links[i]);
        }
    }
    Slot* const slots = links + count;
    Frame* const frame = NextFrame(code, slots);
    for (Slot *slot = slots, *end = slots + code.frameSize; slot != end; ++slot) {
        slot->PutEmpty();
    }
    new (frame) Frame{.code = &code,
                      .pc = code.instructions.data(),
                      .slots = slots,
                      .links = links,
                      .result = result,
                      .fields = scope ? scope->fields : nullptr,
                      .space = &space,
                      .me = scope ? scope->me : nullptr,
                      .unit = unit.get(),
                      .scope = scope,
                      .discard = discard,
                      .holdsMore = true};
    if (frame->me) frame->me->AddRef();
    unit->AddRef();
    mTop = frame;
}

// Ends the current procedure with a value. True if the machine was called for it.
bool Machine::EndFrame(Variant&& value) {
    const bool isEntry = mTop->isEntry;
    const bool discard = mTop->discard;
    Slot* const to = mTop->result;
    mWritten = mTop->code->written;
    Variant kept = std::move(value);
    PopFrame();
    if (isEntry) {
        new (&mResult) Variant(std::move(kept));  // empty between runs
    } else if (to) {
        to->Take(discard ? Variant() : std::move(kept));
    }
    return isEntry;
}

// Ends the current procedure. True if the machine was called for it.
bool Machine::Return() {
    const Frame& frame = *mTop;
    if (!frame.code->hasResult) return EndFrame(Variant());
    return EndFrame(std::move(frame.slots[frame.code->result].value));
}

// Ends an expression text with its value.
bool Machine::Result(const Instruction& i) {
    Slot& slot = At(i.a);
    if ((i.flags & kFreeA) && slot.IsValue()) return EndFrame(std::move(slot.value));
    return EndFrame(Variant(Read(slot)));
}

}  // namespace ov::vbscript
