#include "platform/script/vbscript/namespace.h"

#include <algorithm>

#include "platform/automation/errors.h"
#include "platform/automation/unrepeatable.h"
#include "platform/script/vbscript/compile_errors.h"
#include "platform/script/vbscript/global_object.h"
#include "platform/script/vbscript/instance.h"
#include "platform/script/vbscript/run_guard.h"

namespace ov::vbscript {

namespace {

constexpr std::size_t kMaxLazyProcedures = 16;

}  // namespace

BoundCode::~BoundCode() {
    if (mLinks) space->ForgetLinked(*this);
}

Slot* BoundCode::MakeLinks() {
    mLinks = std::make_unique<Slot[]>(code.names.size());
    for (std::size_t i = 0; i < code.names.size(); ++i) {
        mLinks[i].PutName(space->Resolve(code.names[i]));
    }
    space->NoteLinked(*this);
    return mLinks.get();
}

void BoundCode::Forget(Global& global) noexcept {
    for (std::size_t i = 0; mLinks && i < code.names.size(); ++i) {
        if (mLinks[i].IsAlias() && mLinks[i].link.variable == &global.value) mLinks[i].PutName(global);
    }
}

BoundCode& BoundClass::Procedure(std::int32_t position) {
    const auto index = static_cast<std::size_t>(position);
    Ref<BoundCode>& procedure = mProcedures[index];
    if (!procedure) procedure = Ref<BoundCode>::Adopt(new BoundCode(*space, mUnit, *code.procedures[index]));
    return *procedure;
}

Namespace::~Namespace() {
    Clear();
}

Global& EnterName(Globals& globals, const Text& name, std::uint32_t hash) {
    auto global = std::make_unique<Global>();
    global->memory.Resize(sizeof(Global) + sizeof(Globals::Entry));
    return *globals.Add(name, hash, std::move(global));
}

void Namespace::NoteLinked(BoundCode& code) {
    code.mPosition = mLinked.size();
    mLinked.push_back(&code);
}

void Namespace::ForgetLinked(BoundCode& code) noexcept {
    mLinked[code.mPosition] = mLinked.back();
    mLinked[code.mPosition]->mPosition = code.mPosition;
    mLinked.pop_back();
}

// Forgets what a name stood for.
void Namespace::Reset(Global& global, Global::Kind kind) {
    if (global.kind == Global::Kind::Variable) {
        for (BoundCode* linked : mLinked) {
            linked->Forget(global);
        }
    }
    global.kind = kind;
    const Variant old = std::exchange(global.value, Variant());
    const Ref<BoundCode> procedure = std::exchange(global.procedure, nullptr);
    const Ref<BoundClass> boundClass = std::exchange(global.boundClass, nullptr);
}

void Namespace::PutObject(Global& global, IDispatch* object) {
    global.value = Variant(object);
    const InterfaceInfo* const info = object ? object->GetTypeInfo() : nullptr;
    global.call = info && info->IsFacet(*object) ? info->DefaultMember() : nullptr;
}

void Namespace::Publish(const Text& name, IDispatch* object, bool addMembers) {
    ++mDefinitions;
    if (mPublished.capacity() == 0) mPublished.reserve(8);
    mPublished.push_back({name, object, addMembers});
    if (mGlobals.size() == 0) return;
    const std::uint32_t hash = HashNoCase(name);
    if (std::unique_ptr<Global>* known = mGlobals.Find(name, hash)) {
        Reset(**known, Global::Kind::Object);
        PutObject(**known, object);
    }
    if (!addMembers) return;
    for (auto& [member, memberHash, global] : mGlobals) {
        if (global->kind != Global::Kind::Undefined) continue;
        const DispId id = object ? object->GetIDsOfNames(member) : kDispIdUnknown;
        if (id == kDispIdUnknown) continue;
        Reset(*global, Global::Kind::HostMember);
        global->value = Variant(object);
        global->member = id;
    }
}

void Namespace::DefineConstant(const Text& name, const Variant& value) {
    ++mDefinitions;
    const std::uint32_t hash = HashNoCase(name);
    std::unique_ptr<Global>* known = mGlobals.Find(name, hash);
    Global& global = known ? **known : EnterName(mGlobals, name, hash);
    Reset(global, Global::Kind::Constant);
    global.value = value;
}

void Namespace::DefineVariable(Global& global, const Declaration& declaration) {
    const bool isVariable = global.kind == Global::Kind::Variable;
    if (isVariable && !declaration.isArray) return;  // declared again: it keeps its value
    Variant start = declaration.StartValue();
    if (!isVariable) {
        Reset(global, Global::Kind::Undefined);
        MakeVariable(global);
    }
    std::swap(global.value, start);
}

void Namespace::Define(const Ref<Unit>& unit) {
    // Names that no text has used yet can wait; few of them are found quickly.
    if (mGlobals.size() == 0 && unit->HasProceduresOnly() && unit->procedures.size() <= kMaxLazyProcedures) {
        if (!unit->procedures.empty()) ++mDefinitions;
        mUnits.push_back(unit);
        return;
    }
    if (unit->definesNames) ++mDefinitions;
    const auto enter = [&](const Text& name, std::uint32_t hash) -> Global& {
        std::unique_ptr<Global>* known = mGlobals.Find(name, hash);
        return known ? **known : EnterName(mGlobals, name, hash);
    };
    for (const std::unique_ptr<ClassCode>& code : unit->classes) {
        const std::unique_ptr<Global>* known = mGlobals.Find(code->name, code->hash);
        if (known && (*known)->kind == Global::Kind::Class) Fail(CompileError::NameRedefined, {});
    }
    for (const std::unique_ptr<ClassCode>& code : unit->classes) {
        Global& global = enter(code->name, code->hash);
        Reset(global, Global::Kind::Class);
        global.boundClass = Ref<BoundClass>::Adopt(new BoundClass(*this, unit, *code));
    }
    for (const Unit::NamedConstant& constant : unit->constants) {
        Global& global = enter(constant.name, constant.hash);
        Reset(global, Global::Kind::Constant);
        global.value = constant.value;
    }
    for (const Declaration& variable : unit->variables) {
        DefineVariable(enter(variable.name, variable.hash), variable);
    }
    for (const Unit::Procedure& procedure : unit->procedures) {
        Global& global = enter(procedure.name, procedure.hash);
        Reset(global, Global::Kind::Procedure);
        global.procedure = Ref<BoundCode>::Adopt(new BoundCode(*this, unit, *procedure.code));
    }
}

void Namespace::DefineLocally(const Ref<Unit>& unit, Globals& locals) {
    const auto enter = [&](const Text& name, std::uint32_t hash) -> Global& {
        std::unique_ptr<Global>* known = locals.Find(name, hash);
        return known ? **known : EnterName(locals, name, hash);
    };
    for (const Unit::NamedConstant& constant : unit->constants) {
        Global& global = enter(constant.name, constant.hash);
        global.kind = Global::Kind::Constant;
        global.value = constant.value;
    }
    for (const Declaration& variable : unit->variables) {
        Global& global = enter(variable.name, variable.hash);
        global.kind = Global::Kind::Variable;
        Variant start = variable.StartValue();
        std::swap(global.value, start);
    }
    for (const Unit::Procedure& procedure : unit->procedures) {
        Global& global = enter(procedure.name, procedure.hash);
        global.kind = Global::Kind::Procedure;
        global.procedure = Ref<BoundCode>::Adopt(new BoundCode(*this, unit, *procedure.code));
    }
    for (const std::unique_ptr<ClassCode>& code : unit->classes) {
        ++mDefinitions;
        std::unique_ptr<Global>* known = mGlobals.Find(code->name, code->hash);
        Global& global = known ? **known : EnterName(mGlobals, code->name, code->hash);
        Reset(global, Global::Kind::Class);
        global.boundClass = Ref<BoundClass>::Adopt(new BoundClass(*this, unit, *code));
    }
}

Global& Namespace::Enter(const Name& name) {
    if (std::unique_ptr<Global>* known = mGlobals.Find(name.text, name.hash)) return **known;
    Global& global = EnterName(mGlobals, name.text, name.hash);
    LookUp(name, global);
    return global;
}

// Finds what a name stands for that no text has used before. A script's own names come first, then the host's.
bool Namespace::LookUp(const Name& name, Global& global) {
    Ref<Unit> unit;
    if (const Unit::Procedure* procedure = FindLazily(name.text, name.hash, unit)) {
        global.kind = Global::Kind::Procedure;
        global.procedure = Ref<BoundCode>::Adopt(new BoundCode(*this, unit, *procedure->code));
        return true;
    }
    for (auto published = mPublished.rbegin(); published != mPublished.rend(); ++published) {
        if (!EqualNoCase(published->name, name.text)) continue;
        global.kind = Global::Kind::Object;
        PutObject(global, published->object.get());
        return true;
    }
    for (const Published& published : mPublished) {
        if (!published.addMembers || !published.object) continue;
        const DispId id = published.object->GetIDsOfNames(name.text);
        if (id == kDispIdUnknown) continue;
        global.kind = Global::Kind::HostMember;
        global.value = Variant(published.object);
        global.member = id;
        return true;
    }
    const bool isRuleName = name.intrinsic >= Intrinsic::CreateObject;
    if (name.intrinsic != Intrinsic::None && (mRuleNames || !isRuleName)) {
        global.kind = Global::Kind::Intrinsic;
        global.intrinsic = name.intrinsic;
    } else if (name.builtin) {
        global.kind = Global::Kind::Builtin;
        global.builtin = name.builtin;
    } else if (name.constant) {
        global.kind = Global::Kind::Constant;
        global.value = *name.constant;
    }
    return global.kind != Global::Kind::Undefined;
}

const Unit::Procedure* Namespace::FindLazily(std::u16string_view name, std::uint32_t hash,
                                             Ref<Unit>& unit) const noexcept {
    for (auto at = mUnits.rbegin(); at != mUnits.rend(); ++at) {
        const std::vector<Unit::Procedure>& procedures = (*at)->procedures;
        // The last one of several procedures of one name holds.
        for (auto procedure = procedures.rbegin(); procedure != procedures.rend(); ++procedure) {
            if (procedure->hash != hash || !EqualNoCase(procedure->name, name)) continue;
            unit = *at;
            return &*procedure;
        }
    }
    return nullptr;
}

BoundCode* Namespace::FindProcedure(std::u16string_view name) {
    const std::uint32_t hash = HashNoCase(name);
    std::unique_ptr<Global>* known = mGlobals.Find(name, hash);
    if (!known) {
        Ref<Unit> unit;
        const Unit::Procedure* procedure = FindLazily(name, hash, unit);
        if (!procedure) return nullptr;
        Global& global = EnterName(mGlobals, procedure->name, hash);
        global.kind = Global::Kind::Procedure;
        global.procedure = Ref<BoundCode>::Adopt(new BoundCode(*this, unit, *procedure->code));
        return global.procedure.get();
    }
    return (*known)->procedure.get();
}

void Namespace::MakeVariable(Global& global) {
    ++mDefinitions;
    global.kind = Global::Kind::Variable;
}

Ref<IDispatch> Namespace::Object() {
    if (mObject) return Ref<IDispatch>(mObject);
    mObject = new GlobalObject(*this);
    return Ref<IDispatch>::Adopt(mObject);
}

std::size_t Namespace::MemberPosition(std::u16string_view name) {
    const std::uint32_t hash = HashNoCase(name);
    Enter(Name::Of(name, hash));
    const std::size_t position = mGlobals.IndexOf(name, hash);
    return MemberAt(position) ? position : Globals::kNone;
}

Global* Namespace::MemberAt(std::size_t position) noexcept {
    if (position >= mGlobals.size()) return nullptr;
    Global& global = *mGlobals[position].value;
    switch (global.kind) {
        case Global::Kind::Variable:
        case Global::Kind::Constant:
        case Global::Kind::Object:
        case Global::Kind::HostMember:
        case Global::Kind::Procedure:
            return &global;
        default:
            return nullptr;
    }
}

ErrObject& Namespace::Err() {
    Traces::Leave(Unrepeatable::ScriptState);
    if (!mErr) mErr = MakeObject<ErrObject>();
    return *mErr;
}

void Namespace::ResetVariables() {
    for (std::size_t i = 0; i < mGlobals.size(); ++i) {  // an object's end may run a script that adds names
        Global& global = *mGlobals[i].value;
        if (global.kind == Global::Kind::Variable) Reset(global, Global::Kind::Undefined);
    }
}

void Namespace::Clear() noexcept {
    const EndGuard guard(timeout);
    // Objects end while the names that their last script uses still stand for something.
    ResetVariables();
    // What is left are objects that hold each other, those that a host keeps, and those that the end of others made.
    while (mInstances) {
        const Ref<Instance> instance = mInstances;
        instance->Abandon();
    }
    const std::vector<Published> published = std::exchange(mPublished, {});
    const std::vector<Ref<Unit>> units = std::exchange(mUnits, {});
    for (std::size_t i = 0; i < mGlobals.size(); ++i) {
        Reset(*mGlobals[i].value, Global::Kind::Undefined);
    }
    mErr = nullptr;
}

}  // namespace ov::vbscript
