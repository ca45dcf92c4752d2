#include "platform/script/script_control.h"

#include "platform/script/vbscript/code_cache.h"
#include "platform/script/vbscript/machine.h"
#include "platform/script/vbscript/namespace.h"

namespace ov {

namespace {

const Text& LanguageName() {
    static const Text name(u"VBScript");
    return name;
}

}  // namespace

/// The namespace begins with the first thing that is put into it.
struct ScriptControl::Engine {
    ScriptPolicy policy;
    std::int32_t timeout = 0;
    Ref<vbscript::Namespace> space;

    vbscript::Namespace& Space() {
        if (!space) {
            space = Ref<vbscript::Namespace>::Adopt(new vbscript::Namespace(policy == ScriptPolicy::Rules));
            space->timeout = timeout;
        }
        return *space;
    }
    Variant Run(const Text& text, bool isExpression) {
        const Ref<vbscript::Unit> unit = vbscript::CompiledText(text, isExpression);
        return vbscript::Machine::Get().RunUnit(Space(), unit);
    }
};

ScriptControl::ScriptControl(ScriptPolicy policy) : mEngine(std::make_unique<Engine>()) {
    mEngine->policy = policy;
}

ScriptControl::~ScriptControl() {
    Reset();
}

void ScriptControl::SetLanguage(const Text& language) {
    if (!EqualNoCase(language, LanguageName())) Raise(ErrorNumber::InvalidPropertyValue);
}

const Text& ScriptControl::GetLanguage() const noexcept {
    return LanguageName();
}

void ScriptControl::Reset() {
    // What runs at the moment goes on with what it has left.
    const Ref<vbscript::Namespace> old = std::exchange(mEngine->space, nullptr);
    if (old) old->Clear();
}

void ScriptControl::SetTimeout(std::int32_t milliseconds) {
    mEngine->timeout = milliseconds;
    if (mEngine->space) mEngine->space->timeout = milliseconds;
}

void ScriptControl::AddObject(const Text& name, IDispatch* object, bool addMembers) {
    mEngine->Space().Publish(name, object, addMembers);
}

void ScriptControl::AddConstant(const Text& name, const Variant& value) {
    mEngine->Space().DefineConstant(name, value);
}

void ScriptControl::AddCode(const Text& code) {
    mEngine->Run(code, false);
}

Variant ScriptControl::Eval(const Text& expression) {
    return mEngine->Run(expression, true);
}

void ScriptControl::ExecuteStatement(const Text& statement) {
    mEngine->Run(statement, false);
}

std::uint64_t ScriptControl::Definitions() const noexcept {
    return mEngine->space ? mEngine->space->Definitions() : 0;
}

bool ScriptControl::HasProcedure(std::u16string_view name) const {
    return mEngine->space && mEngine->space->FindProcedure(name);
}

Variant ScriptControl::CallProcedure(std::u16string_view name, Arguments& arguments) {
    // Held, the namespace longest: the script may reset or end this engine.
    const Ref<vbscript::Namespace> space = mEngine->space;
    const Ref<vbscript::BoundCode> procedure = space ? space->FindProcedure(name) : nullptr;
    if (!procedure) Raise(ErrorNumber::NoSuchMember);
    return vbscript::Machine::Get().CallProcedure(*procedure, nullptr, arguments);
}

}  // namespace ov
