// What a parameter answers for itself, its marks, and its listeners.
#include <bit>
#include <cstdint>

#include "contract/module.h"
#include "descriptor/named_file.h"
#include "parameters/memory_map.h"
#include "parameters/parameter.h"
#include "platform/automation/conversions.h"
#include "platform/system/file_system.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

Text AddressText(const void* object) {
    return Text::FromInteger(static_cast<std::int64_t>(std::bit_cast<std::uintptr_t>(object)));
}

bool HasScriptPrefix(const Text& text) {
    return text.view().starts_with(u"#:") || text.view().starts_with(u"!:");
}

}  // namespace

Text Parameter::ShownValue() {
    mTrace.NoteRead();
    switch (mValueExt) {
        case eParameterValueExt::eParamValueExtNaN:
            return u"QNAN";
        case eParameterValueExt::eParamValueExtErrorSettingValue:
            return ErrorText(static_cast<std::int32_t>(ErrorNumber::InternalError));
        case eParameterValueExt::eParamValueExtOutOfRange:
            return ErrorText(static_cast<std::int32_t>(ErrorNumber::Overflow));
        default:
            return DisplayedValue();
    }
}

Text Parameter::TranslatedText(const char16_t* column) const {
    const Ref<ModuleServices> module = Module();
    return module ? module->GetTranslatedText(ToLong(CellOr(column, 0))) : Text();
}

Text Parameter::html() {
    const Ref<ModuleServices> module = Module();
    if (!module) return Text();
    const Text name = module->GetTranslatedFile(ToLong(CellOr(u"html", 0)));
    return PermittedName(name, file_system::GetParentFolderName(module->GetSourcePath()));
}

Text Parameter::unit() {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    return CurrentUnit();
}

// @pre the parameter is kept alive
Text Parameter::CurrentUnit() {
    RefreshUnitForLanguage();
    // A row without unit text leaves the unit that was there before.
    if (mUnitScript.empty()) return mUnit;
    if (const Ref<ParameterOwner> owner = mGroup) {
        const Ref<Collection> row = mData;
        Text text = mUnitScript;
        {
            Recording recording(mTrace, RuleColumn::Unit);
            owner->GetStringValueFromScript(text, mId);
            recording.Keep(text);
        }
        if (mData != row) return mUnit;  // the rule gave the parameter another row, with a unit of its own
        mUnit = text;
        ForgetStatic(*owner, mUnitScript, Text());
    }
    return mUnit;
}

bool Parameter::editable() {
    return ToBoolean(Cell(u"editable")) && !mDatasetLocked;
}

bool Parameter::expertOnly() {
    return ToBoolean(Cell(u"expertOnly"));
}

bool Parameter::trendVariable() {
    return ToBoolean(CellOr(u"trendvariable", Text()));  // a Null is no Boolean here, and fails
}

Text Parameter::EditPlugin(Text* args) {
    if (args) {
        *args = CellText(u"editPluginArguments");
        const Ref<ModuleServices> module = Module();
        if (module && module->GetModelVersionIndex() >= 1 && HasScriptPrefix(*args)) *args = args->view().substr(2);
    }
    return CellText(u"EditPlugin");
}

eParameterAuthentification Parameter::authentification() {
    const std::int32_t level = ToLong(Cell(u"authentification"));
    const Ref<IBase_GuiModule> module = level > 0 ? facet<IBase_GuiModule>(Module()) : nullptr;
    if (module && !module->authentification()) return eParameterAuthentification::eParameterAuthNone;
    return static_cast<eParameterAuthentification>(level);
}

eParameterDirection Parameter::direction() {
    constexpr auto kDefault = static_cast<std::int32_t>(eParameterDirection::eParameterDirectionReadWrite);
    return static_cast<eParameterDirection>(ToLong(CellOr(u"direction", kDefault)));
}

Text Parameter::error() {
    return Text::FromInteger(static_cast<std::int32_t>(mValueExt));
}

Variant Parameter::desc(const Text& fieldname, std::optional<bool> asScript) {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    mTrace.NoteRead();
    if (asScript.value_or(false)) {
        const Ref<Collection> row = Row();
        mTrace.NoteChange();  // a static script may give way to its result
        return Owner()->GetParameterDescAsScript(fieldname, *row, mId, VarType::Empty);
    }
    try {
        return Cell(fieldname);
    } catch (const RuntimeError& failure) {
        if (DebugOutput()) {
            Log(u"Parameter '" + TextForLog(mId) + u" '.IBase_SpecParameter_desc(" + fieldname +
                u",False): ERROR getting value () from Collection: " + failure.description() + u", ObjPtr=" +
                AddressText(mData.get()) + u", ObjPtr(Me)=" + AddressText(Identity()));
        }
        return Variant();
    }
}

void Parameter::ClearModified() {
    if (!modified()) return;
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    SaveValue();
    Notify(kStateChanged);
}

void Parameter::SetUnknownTo(bool unknown) {
    if (mUnknown == unknown) return;
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    mUnknown = unknown;
    Notify(kStateChanged);
}

void Parameter::SetDatasetLocked(bool locked) {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    const bool before = editable();
    mDatasetLocked = locked;
    if (editable() != before) Notify(kReconfigured);
}

void Parameter::let_configState(eParameterConfigState value) {
    if (mConfigState == value) return;
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    mConfigState = value;
    mTrace.NoteToDo();
    Notify(kConfigStateChanged);
}

void Parameter::WriteState(eParameterValueExt state) {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    try {
        MarkWritten();
        if (mValueExt == state) {
            ClearUnknown();
            return;
        }
        mUnknown = false;
        mValueExt = state;
        mTrace.NoteChange();
        Notify(kValueChanged);
    } catch (const RuntimeError&) {
        if (DebugOutput()) {
            LogWithId(u"Property Let Property_valueExt(" + Text::FromInteger(static_cast<std::int32_t>(state)) +
                      u"): ERROR: Aktion nicht möglich");
        }
    }
}

void Parameter::RegisterCallback(IBase_CallbackParameter* cb) {
    HostsThings().callbacks.Add(cb);
}

Parameter::HostThings& Parameter::HostsThings() {
    if (!mHosts) mHosts = std::make_unique<HostThings>();
    return *mHosts;
}

void Parameter::UnregisterCallback(IBase_CallbackParameter* cb) {
    if (mHosts && cb) mHosts->callbacks.Remove(cb);
}

void Parameter::let_scriptAccess(bool value) {
    // Whoever has read this parameter would mark it again.
    if (mScriptAccess && !value) mTrace.NoteChange();
    mScriptAccess = value;
}

void Parameter::ForgetStatic(ParameterOwner& owner, Text& text, const Text& replacement) {
    const Text former = text;
    owner.ForgetStaticScript(text, replacement);
    if (text != former) Traces::Leave(Unrepeatable::Change);
}

void Parameter::Notify(Event event) {
    Traces::Leave(Unrepeatable::Change);
    if (mHosts) mHosts->callbacks.Tell([&](IBase_CallbackParameter& listener) { (listener.*event)(this); });
    const Ref<ParameterOwner> group = mGroup;
    if (mGroupEvents) (mGroupEvents->*event)(this);
}

void Parameter::Log(const Text& message) {
    LogEntry(Identity(), message);
}

void Parameter::LogFailedImport(const DeviceImage& image, const RuntimeError& failure) {
    if (!DebugOutput()) return;
    LogWithId(OperationName(image) + (u"(): ERROR: Aktion nicht möglich (" + failure.description()) + u")");
}

void Parameter::LogWithId(const Text& message) {
    LogEntry(Identity(), u"(ParamId " + TextForLog(mId) + u") " + message);
}

}  // namespace ov
