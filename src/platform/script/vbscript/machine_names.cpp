#include "platform/automation/conversions.h"
#include "platform/automation/unrepeatable.h"
#include "platform/script/vbscript/machine.h"

namespace ov::vbscript {

namespace {

constexpr std::int32_t kUndefinedVariable = 500;
constexpr std::int32_t kIllegalAssignment = 501;
constexpr std::int32_t kClassNotDefined = 506;

[[noreturn]] void RaiseNumber(std::int32_t number) {
    throw RuntimeError(number);
}

}  // namespace

Slot& Machine::At(std::uint32_t operand) const noexcept {
    const Operand place{operand};
    switch (place.Kind()) {
        case OperandKind::Frame:
            return mTop->slots[place.Index()];
        case OperandKind::Constant:
            return mTop->code->constants[place.Index()];
        case OperandKind::Name:
            return mTop->links[place.Index()];
        default:
            return mTop->me->Fields()[place.Index()];
    }
}

const Variant& Machine::Read(Slot& slot) {
    if (slot.IsValue()) return slot.value;
    if (slot.IsAlias()) return *slot.link.variable;
    return ReadName(slot);
}

// What a link to a name stands for. What is nothing globally may be what a text of Execute made of the name in the
// current procedure.
Global& Machine::GlobalOf(const Slot& link) const noexcept {
    Global& global = *link.link.global;
    const Frame* const scope = mTop->scope;
    if (global.kind != Global::Kind::Undefined || !scope || !scope->added) return global;
    const Name& name = mTop->code->names[static_cast<std::size_t>(&link - mTop->links)];
    const std::unique_ptr<Global>* const added = scope->added->globals.Find(name.text, name.hash);
    return added ? **added : global;
}

// Lets a link stand for a variable from now on. One that Execute added is none: other calls share the link.
void Machine::Relink(Slot& link, Global& global) noexcept {
    if (link.link.global == &global) link.PutAlias(global.value);
}

// True if a name that was nothing has become a variable because a procedure wrote to an argument that stood for it.
bool Machine::IsWritten(Global& global) {
    if (global.kind != Global::Kind::Undefined || global.value.IsEmpty()) return false;
    mTop->space->MakeVariable(global);
    NoteNewVariable(global);
    return true;
}

// Lets a slot stand for a name that is nothing so far, for a procedure that may write to it.
void Machine::PassUndefined(Global& global, Slot& to) {
    if (mTop->code->optionExplicit && !IsWritten(global)) RaiseNumber(kUndefinedVariable);
    to.PutAlias(global.value);
}

// A global name among the operands: mostly a variable that was none when the text was linked.
const Variant& Machine::ReadName(Slot& link) {
    Global& global = GlobalOf(link);
    switch (global.kind) {
        case Global::Kind::Variable:
            Relink(link, global);
            return global.value;
        case Global::Kind::Constant:
        case Global::Kind::Object:
            return global.value;
        case Global::Kind::Undefined:
            if (IsWritten(global)) return global.value;
            if (mTop->code->optionExplicit) RaiseNumber(kUndefinedVariable);
            return global.value;
        default:
            break;
    }
    mNameValue = CallNatively(global);
    return mNameValue;
}

// Puts a value into a variable; what was there ends last, when everything is in order.
void Machine::Store(Variant& variable, Variant&& value) noexcept {
    const Variant old = std::exchange(variable, Variant());
    variable = std::move(value);
}

void Machine::Write(Slot& slot, Variant&& value) {
    if (slot.IsValue()) return Store(slot.value, std::move(value));
    if (slot.IsAlias()) return Store(*slot.link.variable, std::move(value));
    Store(VariableOf(slot), std::move(value));
}

// The variable that an operand is, for a write.
Variant& Machine::VariableOf(Slot& slot) {
    if (slot.IsValue()) return slot.value;
    if (slot.IsAlias()) return *slot.link.variable;
    Global& global = GlobalOf(slot);
    if (global.kind == Global::Kind::Undefined && !IsWritten(global)) {
        if (mTop->code->optionExplicit) RaiseNumber(kUndefinedVariable);
        mTop->space->MakeVariable(global);
        NoteNewVariable(global);
    } else if (global.kind != Global::Kind::Variable) {
        RaiseNumber(kIllegalAssignment);
    }
    Relink(slot, global);
    return global.value;
}

// Procedures that run, and have a variable of their own only because there was no global one of the name, see the
// global one from now on, unless theirs is in use already.
void Machine::NoteNewVariable(Global& global) {
    for (Frame* frame = mTop; frame; frame = frame == mFrames ? nullptr : frame - 1) {
        if (frame->space != mTop->space || !frame->bound) continue;
        for (const Code::Open& open : frame->code->open) {
            Slot& slot = frame->slots[open.slot];
            const Slot& link = frame->links[open.name];
            if (link.IsName() && link.link.global == &global && slot.IsValue() && slot.value.IsEmpty()) {
                slot.PutAlias(global.value);
            }
        }
    }
}

void Machine::BindOpenNames(Frame& frame) {
    for (const Code::Open& open : frame.code->open) {
        Slot& link = frame.links[open.name];
        if (link.IsAlias()) {
            frame.slots[open.slot].PutAlias(*link.link.variable);
        } else if (link.link.global->kind == Global::Kind::Variable) {
            link.PutAlias(link.link.global->value);
            frame.slots[open.slot].PutAlias(*link.link.variable);
        }
    }
}

Globals& Machine::LocalNames(Frame& scope) {
    if (!scope.added) scope.added = new AddedNames;
    scope.holdsMore = true;
    return scope.added->globals;
}

// Lets the names that a text declared in a procedure stand for that from now on, whatever they stood for before: in the
// procedure itself, and in the texts that run in it.
void Machine::Shadow(Frame& scope, const Unit& unit) {
    std::unique_ptr<Slot[]>& own = scope.added->links;
    if (!own) {
        const std::size_t count = scope.code->names.size();
        own = std::make_unique<Slot[]>(count);
        std::copy_n(reinterpret_cast<const Slot::Link*>(scope.links), count, reinterpret_cast<Slot::Link*>(own.get()));
        scope.links = own.get();
    }
    const auto shadow = [&](const Text& name, std::uint32_t hash) {
        Global& local = **scope.added->globals.Find(name, hash);
        for (Frame* frame = mTop; frame >= &scope; --frame) {
            if (frame->scope != &scope) continue;
            for (std::size_t i = 0; i < frame->code->names.size(); ++i) {
                const Name& known = frame->code->names[i];
                if (known.hash == hash && EqualNoCase(known.text, name)) frame->links[i].PutName(local);
            }
        }
    };
    for (const Unit::NamedConstant& constant : unit.constants) {
        shadow(constant.name, constant.hash);
    }
    for (const Declaration& variable : unit.variables) {
        shadow(variable.name, variable.hash);
    }
    for (const Unit::Procedure& procedure : unit.procedures) {
        shadow(procedure.name, procedure.hash);
    }
}

// Links a name of a text that runs inside a procedure: to the procedure's variables, to names that such texts added
// before, to members of the procedure's class. A name that is nothing anywhere becomes one of the added names.
void Machine::LinkLocally(Frame& scope, const Name& name, Slot& link) {
    if (const Code::Local* local = scope.code->locals.Find(name.text, name.hash)) {
        Slot& slot = scope.slots[local->slot];
        if (slot.IsValue()) {
            link.PutAlias(slot.value);
        } else if (slot.IsAlias()) {
            link.PutAlias(*slot.link.variable);
        } else {
            link.PutName(*slot.link.global);
        }
        return;
    }
    if (scope.added) {
        if (const std::unique_ptr<Global>* known = scope.added->globals.Find(name.text, name.hash)) {
            return link.PutName(**known);
        }
    }
    if (scope.me) {
        const auto& members = scope.me->Class().code.members;
        const std::size_t index = members.IndexOf(name.text, name.hash);
        if (index != members.kNone) {
            const ClassCode::Member& member = members[index].value;
            if (member.field != ClassCode::Member::kNoField) {
                return link.PutAlias(scope.me->Fields()[member.field].value);
            }
            Global& global = EnterName(LocalNames(scope), name.text, name.hash);
            global.kind = Global::Kind::OwnMember;
            global.member = static_cast<DispId>(index);
            return link.PutName(global);
        }
    }
    LinkGlobally(*scope.space, name, link);
    if (link.IsName() && link.link.global->kind == Global::Kind::Undefined) {
        link.PutName(EnterName(LocalNames(scope), name.text, name.hash));
    }
}

void Machine::Let(const Instruction& i) {
    Slot& from = At(i.b);
    Slot& to = At(i.a);
    if ((i.flags & kFreeB) && from.IsValue() && !from.value.IsObject()) return Write(to, std::move(from.value));
    const Variant& value = Read(from);
    if (value.IsArray()) Charge(SizeOf(value));
    if (!value.IsObject()) return Write(to, Variant(value));
    Variant inner = DefaultValue(value);
    if (i.flags & kFreeB) from.Clear();
    Write(to, std::move(inner));
}

void Machine::Set(const Instruction& i) {
    Slot& from = At(i.b);
    const Variant& value = Read(from);
    if (!value.IsObject()) Raise(ErrorNumber::ObjectRequired);
    if ((i.flags & kFreeB) && from.IsValue()) return Write(At(i.a), std::move(from.value));
    Write(At(i.a), Variant(value));
}

void Machine::Move(const Instruction& i) {
    Slot& from = At(i.b);
    Slot& to = At(i.a);
    if ((i.flags & kFreeB) && from.IsValue()) {
        to.Take(std::move(from.value));
    } else {
        const Variant& value = Read(from);
        if (value.IsArray()) Charge(SizeOf(value));
        to.Take(Variant(value));
    }
}

void Machine::PassRef(const Instruction& i) {
    Slot& from = At(i.b);
    Slot& to = At(i.a);
    if (from.IsAlias()) return to.PutAlias(*from.link.variable);
    Global& global = GlobalOf(from);
    if (global.kind == Global::Kind::Undefined) return PassUndefined(global, to);
    if (global.kind == Global::Kind::Variable) return to.PutAlias(VariableOf(from));
    to.Take(Variant(ReadName(from)));
}

// A name as an argument. Where it is nothing, the procedure that is called may make something of it.
void Machine::PassName(const Instruction& i) {
    Slot& link = mTop->links[i.b];
    Slot& to = mTop->slots[i.a];
    if (i.flags & kHasLocal) {
        Slot& local = mTop->slots[i.n];
        if (local.IsAlias()) return to.PutAlias(*local.link.variable);
        const bool isNothing = link.IsName() && link.link.global->kind == Global::Kind::Undefined;
        if (isNothing || !local.value.IsEmpty()) return to.PutAlias(local.value);
    }
    if (link.IsAlias()) return to.PutAlias(*link.link.variable);
    Global& global = GlobalOf(link);
    switch (global.kind) {
        case Global::Kind::Undefined:
            return PassUndefined(global, to);
        case Global::Kind::Variable:
            return to.PutAlias(VariableOf(link));
        case Global::Kind::Constant:
        case Global::Kind::Object:
            return to.Take(Variant(global.value));
        default:
            break;
    }
    CallGlobal(global, i.a, 0, kBare);
}

void Machine::LoadName(const Instruction& i) {
    Slot& link = mTop->links[i.b];
    Slot& to = mTop->slots[i.a];
    if (i.flags & kHasLocal) {
        Slot& local = mTop->slots[i.n];
        if (local.IsAlias()) return to.Take(Variant(*local.link.variable));
        if (!local.value.IsEmpty()) return to.Take(Variant(local.value));
    }
    if (link.IsAlias()) return to.Take(Variant(*link.link.variable));
    Global& global = GlobalOf(link);
    switch (global.kind) {
        case Global::Kind::Variable:
            Relink(link, global);
            return to.Take(Variant(global.value));
        case Global::Kind::Constant:
        case Global::Kind::Object:
            return to.Take(Variant(global.value));
        case Global::Kind::Undefined:
            if (IsWritten(global)) return to.Take(Variant(global.value));
            if (mTop->code->optionExplicit) RaiseNumber(kUndefinedVariable);
            return to.Take(Variant());
        default:
            break;
    }
    CallGlobal(global, i.a, 0, kBare);
}

void Machine::LoadMe(const Instruction& i) {
    Slot& to = mTop->slots[i.a];
    if (mTop->me) return to.Take(Variant(static_cast<IDispatch*>(mTop->me)));
    to.Take(Variant(mTop->space->Object()));
}

void Machine::New(const Instruction& i) {
    Traces::Leave(Unrepeatable::Object);
    const Name& name = mTop->code->names[i.b];
    Slot& link = mTop->links[i.b];
    Slot& to = mTop->slots[i.a];
    Global* const global = link.IsName() ? link.link.global : nullptr;
    if (!global || global->kind != Global::Kind::Class) {
        const Ref<IDispatch> builtin = NewBuiltinObject(name.text, *this);
        if (!builtin) RaiseNumber(kClassNotDefined);
        return to.Take(Variant(builtin));
    }
    const Ref<Instance> instance = Ref<Instance>::Adopt(new Instance(*global->boundClass));
    to.Take(Variant(static_cast<IDispatch*>(instance.get())));
    const ClassCode& code = global->boundClass->code;
    if (code.initialize < 0) return;
    PushFrame(global->boundClass->Procedure(code.initialize), instance.get(), &to + 1, 0, nullptr, true);
}

void Machine::With(const Instruction& i) {
    const Variant& value = mTop->slots[i.a].value;
    if (!value.IsObject()) Raise(ErrorNumber::ObjectRequired);
}

}  // namespace ov::vbscript
