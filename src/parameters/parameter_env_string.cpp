#include "parameters/parameter_env_string.h"

#include "parameters/memory_map.h"
#include "platform/automation/conversions.h"
#include "platform/format/format.h"

namespace ov {

namespace {

constexpr const char16_t* kRequest = u"GET_FROM_BASE";  // the variable that asks the host to write another one

}  // namespace

void ParameterENVString::ReadType() {
    TextParameter::ReadType();
    mKey = CellText(RowCell::Subtype);
}

Text ParameterENVString::DisplayText(const Text& value, Purpose) {
    const Variant format = CellOr(RowCell::DisplayFormat, Variant::Null());
    return format.IsNull() ? value : Format(value, ToText(format));
}

bool ParameterENVString::MoveValue(const DeviceImage& image, const ImagePlace&) {
    if (!IsImport(image)) return true;
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    try {
        Fetch();
        return true;
    } catch (const RuntimeError& failure) {
        LogFailedImport(image, failure);
        return false;
    }
}

void ParameterENVString::Fetch() {
    const Ref<ModuleServices> module = Module();
    const Ref<CBase_Environment> environment = module ? module->Environment() : nullptr;
    if (!environment) Raise(ErrorNumber::ObjectVariableNotSet);
    environment->let_Variable(kRequest, Text());  // so that the next write is a change, and told, every time
    environment->let_Variable(kRequest, mKey);
    let_realvalue(environment->get_Variable(mKey));
}

}  // namespace ov
