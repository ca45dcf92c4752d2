// What becomes of an error in the machine: On Error Resume Next, or the way out with its place and its subject.
#include "platform/automation/conversions.h"
#include "platform/script/vbscript/forms.h"
#include "platform/script/vbscript/machine.h"
#include "platform/script/vbscript/run_guard.h"

namespace ov::vbscript {

namespace {

constexpr std::size_t kLongestQuote = 40;
constexpr std::int32_t kUndefinedVariable = 500;

bool IsAbout(const RuntimeError& error, ErrorNumber number) noexcept {
    return error.number() == static_cast<std::int32_t>(number);
}

/// True for an error about an object, not about the member that was wanted of it.
bool IsAboutObject(const RuntimeError& error) noexcept {
    return IsAbout(error, ErrorNumber::ObjectRequired) || IsAbout(error, ErrorNumber::ObjectVariableNotSet);
}

/// A text that is no number, as a person would write it.
Text Quoted(const Text& text) {
    const bool isLong = text.size() > kLongestQuote;
    return u"\"" + Text(text.view().substr(0, kLongestQuote)) + (isLong ? u"...\"" : u"\"");
}

}  // namespace

// The place in the text where a procedure is.
Position Machine::PositionOf(const Frame& frame) const noexcept {
    const auto behind = static_cast<std::uint32_t>(frame.pc - frame.code->instructions.data());
    const Mark* mark = frame.code->MarkAt(behind == 0 ? 0 : behind - 1);
    return mark ? mark->position : Position{};
}

// In a handler: goes on at the next statement of the innermost procedure with On Error Resume Next, with all
// procedures that it called ended; throws the error if there is none up to the entry.
void Machine::Recover(const Frame* entry) {
    const Position position = PositionOf(*mTop);
    try {
        throw;
    } catch (const ScriptTimeout& timeout) {
        Unwind(entry);
        if (timeout.line() != 0) throw;
        throw ScriptTimeout(static_cast<std::int32_t>(position.line), static_cast<std::int32_t>(position.column));
    } catch (const EndScript&) {
        Unwind(entry);
        throw;
    } catch (const ScriptError& error) {
        if (Frame* const handler = HandlerUpTo(entry)) return Resume(*handler, error);
        Unwind(entry);
        throw;
    } catch (...) {
        RuntimeError error = CurrentError();
        if (Frame* const handler = HandlerUpTo(entry)) return Resume(*handler, error);
        if (error.IsStandard() && error.subject().empty()) error.SetSubject(SubjectOf(error));
        Unwind(entry);
        throw ScriptError(error, false, static_cast<std::int32_t>(position.line),
                          static_cast<std::int32_t>(position.column));
    }
}

// The innermost procedure up to the entry that has On Error Resume Next, or nullptr.
Frame* Machine::HandlerUpTo(const Frame* entry) const noexcept {
    for (Frame* frame = mTop;; --frame) {
        if (frame->resumeNext) return frame;
        if (frame == entry) return nullptr;
    }
}

void Machine::Resume(Frame& handler, const RuntimeError& error) {
    while (mTop != &handler) {
        PopFrame();
    }
    const Code& code = *handler.code;
    const auto failed = static_cast<std::uint32_t>(handler.pc - code.instructions.data()) - 1;
    const Mark* const mark = code.MarkAt(failed);
    ClearSlots(handler.slots + mark->live, code.frameSize - mark->live);
    handler.space->Err().Note(error);
    handler.pc = code.instructions.data() + code.ResumeAfter(*mark);
}

// An error of the current instruction that was foreseen: the place where it goes on is in the frame on the top.
void Machine::Fail(const RuntimeError& error) {
    if (!GoesOn()) throw error;
    Resume(*mTop, error);
}

void Machine::Unwind(const Frame* entry) noexcept {
    while (mTop != entry) {
        PopFrame();
    }
    PopFrame();
}

// The name that the instruction which failed is about; "" where none can be told.
Text Machine::SubjectOf(const RuntimeError& error) const noexcept {
    const MemoryAccount::Exemption exemption;
    const Code& code = *mTop->code;
    if (mTop->pc == code.instructions.data()) return Text();
    const Instruction& i = *(mTop->pc - 1);
    const Opcode op = GeneralOf(i.op);
    switch (op) {
        case Opcode::CallName:
        case Opcode::LoadName:
        case Opcode::PassName:
        case Opcode::New:
            return code.names[i.b].text;
        case Opcode::CallMember:
        case Opcode::PutMember:
            return IsAboutObject(error) ? NameBehind(i.a) : code.sites[i.b].name;
        case Opcode::CallValue:
        case Opcode::With:
            return NameBehind(i.a);
        case Opcode::GetElement:
        case Opcode::RefElement:
        case Opcode::ForEachStart:
            return NameOf({i.b});
        case Opcode::PutElement:
        case Opcode::PutIndexed:
        case Opcode::ReDim:
        case Opcode::Erase:
            return NameOf({i.a});
        case Opcode::RaiseNumber:
            return i.b == 0 ? Text() : code.names[i.b - 1].text;
        case Opcode::Let:
        case Opcode::Set:
        case Opcode::Move:
        case Opcode::PassRef:
            return NameOf({error.number() == kUndefinedVariable && !IsUndefined({i.b}) ? i.a : i.b});
        default:
            return IsOperator(op) ? SubjectOfOperator(error, i) : Text();
    }
}

// Of an operator or a comparison: the variable that is not there, or the text that is no number.
Text Machine::SubjectOfOperator(const RuntimeError& error, const Instruction& i) const {
    const Opcode op = GeneralOf(i.op);
    const bool isJump = op >= Opcode::JumpIfFalse;
    const Operand operands[] = {{isJump ? i.a : i.b}, {isJump ? i.b : i.c}};
    const std::size_t count = IsUnary(op) ? 1 : 2;
    const bool isUndefined = error.number() == kUndefinedVariable;
    for (const Operand operand : std::span(operands, count)) {
        const Slot& slot = At(operand.bits);
        if (slot.IsName()) {
            if (isUndefined && IsUndefined(operand)) return NameOf(operand);
            continue;
        }
        const Variant& value = slot.IsAlias() ? *slot.link.variable : slot.value;
        if (!IsAbout(error, ErrorNumber::TypeMismatch)) {
            if (value.IsObject()) return NameOf(operand);
            continue;
        }
        if (value.IsString() && !ReadNumber(value.AsText())) return Quoted(value.AsText());
        if (value.IsArray()) return NameOf(operand);
    }
    return isUndefined ? NameOf({i.a}) : Text();
}

// True for a name that stands for nothing.
bool Machine::IsUndefined(Operand operand) const noexcept {
    if (operand.Kind() != OperandKind::Name) return false;
    const Slot& link = mTop->links[operand.Index()];
    return link.IsName() && GlobalOf(link).kind == Global::Kind::Undefined;
}

// The name of a variable, as it was written; "" for anything else.
Text Machine::NameOf(Operand operand) const {
    const std::size_t index = operand.Index();
    switch (operand.Kind()) {
        case OperandKind::Name:
            return mTop->code->names[index].text;
        case OperandKind::Field:
            return mTop->me->Class().code.fields[index].name;
        case OperandKind::Frame:
            if (index >= mTop->code->variables) return NameBehind(static_cast<std::uint32_t>(index));
            return mTop->code->NameOfLocal(static_cast<std::uint16_t>(index));
        default:
            return Text();
    }
}

// The name from which the temporary value of the instruction that failed came, within its statement.
Text Machine::NameBehind(std::uint32_t slot) const {
    const Code& code = *mTop->code;
    const auto failed = static_cast<std::uint32_t>(mTop->pc - 1 - code.instructions.data());
    const Mark* const mark = code.MarkAt(failed);
    const std::uint32_t operand = Operand::Of(OperandKind::Frame, slot).bits;
    for (std::uint32_t pc = failed; mark && pc > mark->pc;) {
        const Instruction& i = code.instructions[--pc];
        switch (GeneralOf(i.op)) {
            case Opcode::LoadName:
            case Opcode::CallName:
                if (i.a == slot) return code.names[i.b].text;
                break;
            case Opcode::CallMember:
                if (i.a == slot) return code.sites[i.b].name;
                break;
            case Opcode::Move:
            case Opcode::GetElement:
                // Nothing behind a temporary value of its own: that one is a step of the same chain, below this slot.
                if (i.a == operand) {
                    const Operand from{i.b};
                    const bool isVariable = from.Kind() != OperandKind::Frame || from.Index() < code.variables;
                    return isVariable ? NameOf(from) : Text();
                }
                break;
            default:
                break;
        }
    }
    return Text();
}

}  // namespace ov::vbscript
