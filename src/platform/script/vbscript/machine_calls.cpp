#include <algorithm>
#include <array>

#include "platform/automation/conversions.h"
#include "platform/automation/interface_info.h"
#include "platform/script/vbscript/code_cache.h"
#include "platform/script/vbscript/fast_operators.h"
#include "platform/script/vbscript/machine.h"

namespace ov::vbscript {

namespace {

/// Where the values of arguments go back to after a call of something native.
class Targets {
public:
    explicit Targets(std::size_t count) {
        if (count > mFew.size()) mMany.resize(count);
        mTargets = count > mFew.size() ? mMany.data() : mFew.data();
    }
    Variant*& operator[](std::size_t index) noexcept { return mTargets[index]; }

private:
    std::array<Variant*, 8> mFew;
    std::vector<Variant*> mMany;
    Variant** mTargets;
};

/// True if none of the arguments stands for a variable.
[[gnu::always_inline]] inline bool HoldsValues(const Slot* arguments, std::size_t count) noexcept {
    return std::none_of(arguments, arguments + count, [](const Slot& slot) { return slot.IsAlias(); });
}

}  // namespace

// Puts a call's result in its place. Arguments have ended before.
void Machine::Finish(Slot* result, Variant&& value, std::uint8_t flags) noexcept {
    result->Take(flags & kDiscard ? Variant() : std::move(value));
}

// Calls something native with arguments that are values or stand for variables, and ends them.
template <class Function>
Variant Machine::CallWithValues(Slot* arguments, std::size_t count, Function function) {
    if (HoldsValues(arguments, count)) {
        Arguments call{{count == 0 ? nullptr : &arguments[0].value, count}};
        Variant result = function(call);
        mWritten = call.written;
        ClearSlots(arguments, count);
        return result;
    }
    Targets targets(count);
    for (std::size_t i = 0; i < count; ++i) {
        targets[i] = nullptr;
        if (!arguments[i].IsAlias()) continue;
        targets[i] = arguments[i].link.variable;
        new (&arguments[i].value) Variant(*targets[i]);
    }
    Arguments call{{&arguments[0].value, count}};
    Variant result = function(call);
    mWritten = call.written;
    for (std::size_t i = 0; i < count; ++i) {
        if (targets[i] && i < 32 && ((call.written >> i) & 1)) {
            Store(*targets[i], std::move(arguments[i].value));
        }
        arguments[i].Clear();
    }
    return result;
}

Variant Machine::InvokeObject(IDispatch* object, DispId id, CallKind kind, Slot* arguments, std::size_t count) {
    Variant result = CallWithValues(arguments, count, [&](Arguments& call) { return object->Invoke(id, kind, call); });
    Tick(kStepsOfHostCall);
    return result;
}

void Machine::CallName(const Instruction& i) {
    Slot* const window = mTop->slots + i.a;
    Slot& link = mTop->links[i.b];
    if (i.flags & kHasLocal) {
        Slot& local = mTop->slots[i.n];
        const bool isInUse = local.IsAlias() || !local.value.IsEmpty();
        if (isInUse) return CallObject(Read(local), window, i.c, window, i.flags);
    }
    if (link.IsAlias()) {
        if (CallsItself(*link.link.variable, i)) return CallScope(window, i);
        return CallObject(*link.link.variable, window, i.c, window, i.flags);
    }
    Global& global = GlobalOf(link);
    if (global.kind == Global::Kind::Procedure) {
        return PushFrame(*global.procedure, nullptr, window, i.c, window, (i.flags & kDiscard) != 0);
    }
    if (global.kind == Global::Kind::Object) return CallPublished(global, window, i.c, i.flags);
    if (global.kind == Global::Kind::Undefined) IsWritten(global);
    CallGlobal(global, i.a, i.c, i.flags);
}

// True for a call, in a text that runs inside a function, by the name of the function: it is no index into the result.
bool Machine::CallsItself(const Variant& variable, const Instruction& i) const noexcept {
    const Frame* const scope = mTop->scope;
    return scope && scope != mTop && !(i.flags & kBare) && scope->code->hasResult &&
           &variable == &scope->slots[scope->code->result].value;
}

void Machine::CallPublished(Global& global, Slot* window, std::size_t count, std::uint8_t flags) {
    IDispatch* const object = global.value.AsObject();
    if (global.call && global.call->Takes(count) && HoldsValues(window, count)) {
        const Ref<IDispatch> keep(object);  // the script may take it from the engine
        Arguments call{{&window->value, count}};
        Variant value = global.call->call(object, call);
        mWritten = call.written;
        ClearSlots(window, count);
        Tick(kStepsOfHostCall);
        if (!(flags & kDiscard)) new (&window->value) Variant(std::move(value));  // the arguments have ended
        return;
    }
    if (!object || Instance::From(object) || FunctionObject::From(object)) {
        return CallObject(global.value, window, count, window, flags);
    }
    const Ref<IDispatch> keep(object);
    Variant value = InvokeObject(object, kDispIdValue, CallKind::Call, window, count);
    if (!(flags & kDiscard)) new (&window->value) Variant(std::move(value));  // the arguments have ended
}

void Machine::CallScope(Slot* window, const Instruction& i) {
    const Frame& scope = *mTop->scope;
    PushFrame(*scope.bound, scope.me, window, i.c, window, (i.flags & kDiscard) != 0);
}

void Machine::CallGlobal(Global& global, std::uint32_t slot, std::size_t count, std::uint8_t flags) {
    Slot* const window = mTop->slots + slot;
    switch (global.kind) {
        case Global::Kind::Procedure:
            PushFrame(*global.procedure, nullptr, window, count, window, (flags & kDiscard) != 0);
            return;
        case Global::Kind::Builtin: {
            const Builtin& builtin = *global.builtin;
            if (!builtin.Takes(count)) Raise(ErrorNumber::WrongArgumentCount);
            Tick();
            Variant result = CallWithValues(window, count, [&](Arguments& call) {
                for (const Variant& value : call.values) {
                    Charge(SizeOf(value));
                }
                return builtin.call(*this, call.values);
            });
            Charge(SizeOf(result));
            return Finish(window, std::move(result), flags);
        }
        case Global::Kind::HostMember: {
            const Ref<IDispatch> host(global.value.AsObject());
            Variant result = InvokeObject(host.get(), global.member, CallKind::Call, window, count);
            return Finish(window, std::move(result), flags);
        }
        case Global::Kind::OwnMember: {
            const ClassCode::Member& member =
                mTop->me->Class().code.members[static_cast<std::size_t>(global.member)].value;
            return CallInstance(*mTop->me, member, window, count, window, flags);
        }
        case Global::Kind::Intrinsic:
            return CallIntrinsic(global.intrinsic, window, count, flags);
        case Global::Kind::Undefined:
            // A name that is nothing and is called.
            if (mTop->code->optionExplicit && (flags & kBare) && !(flags & kDiscard)) {
                throw RuntimeError(500);
            }
            Raise(ErrorNumber::TypeMismatch);
        case Global::Kind::Class:
            Raise(ErrorNumber::TypeMismatch);
        default:
            return CallObject(global.value, window, count, window, flags);
    }
}

void Machine::CallValue(const Instruction& i) {
    Slot* const window = mTop->slots + i.a;
    CallObject(std::move(window->value), window + 1, i.c, window, i.flags);
}

// Calls a value: an element of an array, the default member of an object, a procedure that GetRef gave.
void Machine::CallObject(Variant callee, Slot* arguments, std::size_t count, Slot* result, std::uint8_t flags) {
    if (callee.IsArray() && !((flags & kBare) && count == 0)) {
        Variant element =
            CallWithValues(arguments, count, [&](Arguments& call) { return IndexArray(callee, call.values); });
        return Finish(result, std::move(element), flags);
    }
    if (!callee.IsObject()) {
        const bool isValue = (flags & kBare) && !(flags & kDiscard) && count == 0;
        if (!isValue) Raise(ErrorNumber::TypeMismatch);
        return Finish(result, std::move(callee), flags);
    }
    if (callee.IsNothing()) Raise(ErrorNumber::ObjectVariableNotSet);
    IDispatch* const object = callee.AsObject();
    if (Instance* instance = Instance::From(object)) {
        const ClassCode& code = instance->Class().code;
        if (code.defaultMember < 0) Raise(ErrorNumber::NoSuchMember);
        const auto member = static_cast<std::size_t>(code.defaultMember);
        return CallInstance(*instance, code.members[member].value, arguments, count, result, flags);
    }
    if (FunctionObject* function = FunctionObject::From(object)) {
        PushFrame(function->Procedure(), nullptr, arguments, count, result, (flags & kDiscard) != 0);
        return;
    }
    Variant value = InvokeObject(object, kDispIdValue, CallKind::Call, arguments, count);
    Finish(result, std::move(value), flags);
}

void Machine::CallMember(const Instruction& i) {
    Slot* const window = mTop->slots + i.a;
    const MemberSite& site = mTop->code->sites[i.b];
    const Variant& value = window->value;
    if (!value.IsObject()) return Fail(ErrorNumber::ObjectRequired);
    if (value.IsNothing()) {
        return Fail(i.flags & kWith ? ErrorNumber::ObjectVariableNotSet : ErrorNumber::ObjectRequired);
    }
    IDispatch* const object = value.AsObject();
    if (GoesOn() && RaisesPlainly(object, site, window + 1, i.c)) return;
    if (Instance* instance = Instance::From(object)) {
        const ClassCode::Member& member = FindMember(*instance, site, CallKind::Call, (i.flags & kOwn) != 0);
        return CallInstance(*instance, member, window + 1, i.c, window, i.flags);
    }
    Variant result = InvokeObject(object, FindMember(object, site), CallKind::Call, window + 1, i.c);
    Finish(window, std::move(result), i.flags);
}

// Err.Raise as it mostly is, with a number and maybe texts: the error takes its way without an exception.
bool Machine::RaisesPlainly(IDispatch* object, const MemberSite& site, const Slot* arguments, std::size_t count) {
    static const DispId raise = IErr::Members().Find(u"Raise");
    if (site.id != raise || site.info != &IErr::Members() || object->GetTypeInfo() != site.info) return false;
    if (count == 0 || count > 3) return false;
    const auto argument = [&](std::size_t index) -> const Variant& {
        return arguments[index].IsAlias() ? *arguments[index].link.variable : arguments[index].value;
    };
    const auto isText = [&](std::size_t index) { return index >= count || argument(index).IsString(); };
    if (!fast::IsWhole(argument(0).Type()) || !isText(1) || !isText(2)) return false;
    const auto text = [&](std::size_t index) {
        return index < count ? std::optional(argument(index).AsText()) : std::nullopt;
    };
    ErrObject& err = static_cast<ErrObject&>(static_cast<Facet<IErr>&>(*static_cast<IErr*>(object)));
    Fail(err.Raised(fast::Whole(argument(0)), text(1), text(2), {}, {}));
    return true;
}

// The window's object keeps the instance alive while its arguments are read; a frame holds it itself.
void Machine::CallInstance(Instance& instance, const ClassCode::Member& member, Slot* arguments, std::size_t count,
                           Slot* result, std::uint8_t flags) {
    if (member.field != ClassCode::Member::kNoField) {
        Variant value = instance.Fields()[member.field].value;
        if (count == 0) return Finish(result, std::move(value), flags);
        return CallObject(std::move(value), arguments, count, result, flags);
    }
    if (member.get < 0) Raise(ErrorNumber::NoSuchMember);
    PushFrame(instance.Class().Procedure(member.get), &instance, arguments, count, result, (flags & kDiscard) != 0);
}

DispId Machine::FindMember(IDispatch* object, const MemberSite& site) {
    // Short cut: the last object here had the same members.
    const InterfaceInfo* const info = object->GetTypeInfo();
    if (info && info == site.info) return site.id;
    const DispId id = object->GetIDsOfNames(site.name);
    if (id == kDispIdUnknown) Raise(ErrorNumber::NoSuchMember);
    if (info) {
        site.info = info;
        site.id = id;
        site.classNumber = 0;
    }
    return id;
}

const ClassCode::Member& Machine::FindMember(Instance& instance, const MemberSite& site, CallKind kind, bool isOwn) {
    const ClassCode& code = instance.Class().code;
    if (site.classNumber != code.number) {
        const std::size_t index = code.members.IndexOf(site.name, site.hash);
        if (index == code.members.kNone) Raise(ErrorNumber::NoSuchMember);
        site.id = static_cast<DispId>(index);
        site.classNumber = code.number;
        site.info = nullptr;
    }
    const ClassCode::Member& member = code.members[static_cast<std::size_t>(site.id)].value;
    if (!isOwn && !member.IsPublic(kind)) Raise(ErrorNumber::NoSuchMember);
    return member;
}

void Machine::PutMember(const Instruction& i) {
    Slot* const window = mTop->slots + i.a;
    const MemberSite& site = mTop->code->sites[i.b];
    const bool isSet = (i.flags & kIsSet) != 0;
    const Variant target = std::move(window->value);
    Slot& value = window[i.c + 1];
    if (!target.IsObject()) Raise(ErrorNumber::ObjectRequired);
    if (target.IsNothing()) {
        Raise(i.flags & kWith ? ErrorNumber::ObjectVariableNotSet : ErrorNumber::ObjectRequired);
    }
    IDispatch* const object = target.AsObject();
    if (Instance* instance = Instance::From(object)) {
        const ClassCode::Member& member =
            FindMember(*instance, site, isSet ? CallKind::Set : CallKind::Let, (i.flags & kOwn) != 0);
        return PutInstance(*instance, member, window + 1, i.c, isSet);
    }
    PrepareValue(value.value, isSet, Taker::Value);
    InvokeObject(object, FindMember(object, site), isSet ? CallKind::Set : CallKind::Let, window + 1, i.c + 1u);
}

// Writes a member of a script's object. The window holds the indexes and the value.
void Machine::PutInstance(Instance& instance, const ClassCode::Member& member, Slot* window, std::size_t count,
                          bool isSet) {
    if (member.field != ClassCode::Member::kNoField) {
        Slot& field = instance.Fields()[member.field];
        if (count > 0) return PutInto(field, window, count, isSet);
        PrepareValue(window[0].value, isSet, Taker::Value);
        return Store(field.value, std::move(window[0].value));
    }
    const std::int32_t procedure = isSet ? member.set : member.let;
    if (procedure < 0) Raise(ErrorNumber::NoSuchMember);
    PrepareValue(window[count].value, isSet, Taker::Property);
    PushFrame(instance.Class().Procedure(procedure), &instance, window, count + 1, nullptr, true);
}

Variant Machine::InvokeInstance(Instance& instance, const ClassCode::Member& member, CallKind kind,
                                Arguments& arguments) {
    const Ref<Instance> keep(&instance);
    const bool isCall = Overlap(kind, CallKind::Call);
    if (!member.IsPublic(kind)) Raise(ErrorNumber::NoSuchMember);
    if (member.field == ClassCode::Member::kNoField) {
        const bool asSet = kind == CallKind::Set && member.set >= 0;
        const std::int32_t procedure = isCall ? member.get : asSet ? member.set : member.let;
        if (procedure < 0) Raise(ErrorNumber::NoSuchMember);
        return CallProcedure(instance.Class().Procedure(procedure), &instance, arguments);
    }
    return InvokeVariable(instance.Fields()[member.field].value, kind, arguments);
}

// Uses a global name for a caller that has it as a member of an object.
Variant Machine::InvokeGlobal(Global& global, CallKind kind, Arguments& arguments) {
    switch (global.kind) {
        case Global::Kind::Variable:
            return InvokeVariable(global.value, kind, arguments);
        case Global::Kind::HostMember: {
            const Ref<IDispatch> host(global.value.AsObject());
            return host->Invoke(global.member, kind, arguments);
        }
        default:
            break;
    }
    if (!Overlap(kind, CallKind::Call)) Raise(ErrorNumber::NoSuchMember);
    if (global.kind == Global::Kind::Procedure) {
        const Ref<BoundCode> procedure = global.procedure;
        return CallProcedure(*procedure, nullptr, arguments);
    }
    Variant value = global.value;
    return InvokeVariable(value, kind, arguments);
}

// Uses a variable that is a member of an object: its value, an element, or the default member of an object in it.
Variant Machine::InvokeVariable(Variant& variable, CallKind kind, Arguments& arguments) {
    const bool isCall = Overlap(kind, CallKind::Call);
    const std::span<Variant> values = arguments.values;
    const std::size_t indexes = isCall ? values.size() : values.size() - 1;
    if (!isCall && values.empty()) Raise(ErrorNumber::WrongArgumentCount);
    if (indexes == 0) {
        if (isCall) return variable;
        Store(variable, Variant(values[0]));
        return Variant();
    }
    if (variable.IsObject() && !variable.IsNothing()) {
        const Ref<IDispatch> object = variable.AsObject();  // the call may put something else into the variable
        return object->Invoke(kDispIdValue, kind, arguments);
    }
    if (!variable.IsArray()) Raise(ErrorNumber::TypeMismatch);
    if (isCall) return IndexArray(variable, values);
    std::vector<std::int32_t> positions;
    for (const Variant& index : values.first(indexes)) {
        positions.push_back(ToLong(index));
    }
    Variant value = values.back();
    if (!variable.IsArray()) Raise(ErrorNumber::TypeMismatch);  // the default value of an index may have changed it
    Array& array = variable.AsArray();
    if (array.ElementType() == VarType::Byte) {
        array.Set(positions, value);
    } else {
        Store(array.Element(positions), std::move(value));
    }
    return Variant();
}

// The value of a name that is a call, for a place where the machine cannot begin a frame.
Variant Machine::CallNatively(Global& global) {
    Arguments none;
    switch (global.kind) {
        case Global::Kind::Procedure:
            return CallProcedure(*global.procedure, nullptr, none);
        case Global::Kind::Builtin:
            if (global.builtin->fewest > 0) Raise(ErrorNumber::WrongArgumentCount);
            return global.builtin->call(*this, {});
        case Global::Kind::HostMember:
            return global.value.AsObject()->Invoke(global.member, CallKind::Call, none);
        case Global::Kind::Intrinsic:
            if (global.intrinsic == Intrinsic::Err) return Variant(mTop->space->Err().Dispatch());
            Raise(ErrorNumber::WrongArgumentCount);
        default:
            Raise(ErrorNumber::TypeMismatch);
    }
}

void Machine::CallIntrinsic(Intrinsic intrinsic, Slot* window, std::size_t count, std::uint8_t flags) {
    Namespace& space = *mTop->space;
    if (intrinsic == Intrinsic::Err) {
        Variant err(space.Err().Dispatch());
        if (count == 0) return Finish(window, std::move(err), flags);
        return CallObject(std::move(err), window, count, window, flags);
    }
    if (intrinsic == Intrinsic::CreateObject || intrinsic == Intrinsic::GetObject) {
        const bool isNamed = count > 0 && window->IsValue() && window->value.IsString();
        RaiseAbout(ErrorNumber::CannotCreateObject, isNamed ? window->value.AsText() : Text());
    }
    if (intrinsic == Intrinsic::MsgBox || intrinsic == Intrinsic::InputBox) Raise(ErrorNumber::PermissionDenied);
    if (count != 1) Raise(ErrorNumber::WrongArgumentCount);
    Variant argument = window->IsAlias() ? *window->link.variable : window->value;
    window->Clear();
    if (argument.IsObject()) argument = DefaultValue(argument);
    if (intrinsic == Intrinsic::GetRef) {
        BoundCode* const procedure = space.FindProcedure(ToText(argument));
        if (!procedure) Raise(ErrorNumber::InvalidProcedureCall);
        const auto function = Ref<FunctionObject>::Adopt(new FunctionObject(*procedure));
        return Finish(window, Variant(static_cast<IDispatch*>(function.get())), flags);
    }
    if (intrinsic == Intrinsic::Eval && !argument.IsString()) return Finish(window, std::move(argument), flags);
    RunText(intrinsic, ToText(argument), window, (flags & kDiscard) != 0);
}

// Begins a text that is compiled at run time.
void Machine::RunText(Intrinsic intrinsic, const Text& source, Slot* result, bool discard) {
    CheckTime();  // compiling is no step among others
    const Ref<Unit> unit = CompiledText(source, intrinsic == Intrinsic::Eval);
    Namespace& space = *mTop->space;
    Frame* const scope = intrinsic == Intrinsic::ExecuteGlobal ? nullptr : mTop->scope;
    if (scope && intrinsic == Intrinsic::Execute) {
        space.DefineLocally(unit, LocalNames(*scope));
        if (unit->definesNames) Shadow(*scope, *unit);  // the loop takes the links again behind the text's end
    } else {
        space.Define(unit);
        if (!unit->hasStatements) return;
    }
    PushUnit(space, unit, scope, result, discard);
}

}  // namespace ov::vbscript
