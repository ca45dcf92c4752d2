#include "ovmodel/user_write.h"

#include "platform/automation/conversions.h"

namespace ovmodel {

using ov::Ref;
using ov::Text;

namespace {

// Why a parameter does not take a text, as far as can be told from outside.
std::string Reason(const UserWrite& write) {
    ov::IBase_GuiParameter& parameter = *write.parameter;
    const std::string limits = Utf8(parameter.Min()) + " .. " + Utf8(parameter.Max());
    if (const Ref<ov::ICollection> values = parameter.editValues(); values && values->Count() > 0) {
        std::vector<std::string> names;
        for (std::int32_t i = 1; i <= values->Count(); ++i) {
            names.push_back(Utf8(values->Item(i)));
        }
        const std::string closest = ClosestName(write.text.ToUtf8(), names);
        return "it is none of its values" + (closest.empty() ? "" : "; did you mean '" + closest + "'?");
    }
    if (Utf8(parameter.Spec()->desc(u"Type")) == "STRING") return "its rule or its number of characters, " + limits;
    try {
        const double number = ov::ToDouble(ov::Variant(write.text));
        const bool outside = number < ov::ToDouble(parameter.Min()) || number > ov::ToDouble(parameter.Max());
        if (outside) return "it is outside the limits " + limits;
        const bool hasRule = !Utf8(parameter.Spec()->desc(u"consistency")).empty();
        return hasRule ? "its rule of consistency is against it"
                       : "read in its display form it is outside the limits " + limits;
    } catch (const ov::RuntimeError&) {
        return "it does not read as a value of the parameter";
    }
}

}  // namespace

UserWrite FindWrite(ov::Module& module, const std::string& argument) {
    const std::size_t sign = argument.find('=');
    if (sign == std::string::npos) throw Failure("'" + argument + "' is no CHANNEL/GROUP/PARAMETER=TEXT");
    return {FindParameter(module, argument.substr(0, sign)), Text::FromUtf8(argument.substr(sign + 1))};
}

// Editors refuse what is not editable; the library itself leaves that to them.
WriteResult WriteAsUser(const UserWrite& write, EventRecorder& recorder) {
    recorder.rows.clear();
    const std::string path = PathOf(*write.parameter);
    if (write.parameter->configState() != ov::eParameterConfigState::eParameterValid) {
        throw Failure(path + " is not in force: " + StateOf(*write.parameter));
    }
    if (!IsEditable(*write.parameter)) throw Failure(path + " is not editable");
    const bool acceptable = write.parameter->consistent(write.text);
    const std::string before = ShownValue(*write.parameter);
    write.parameter->let_value(write.text);
    const std::string after = ShownValue(*write.parameter);
    if (before == after && (!acceptable || write.parameter->unknown())) {
        throw Failure(path + " refuses '" + write.text.ToUtf8() + "': " + Reason(write));
    }
    return {path, before, after, recorder.rows};
}

}  // namespace ovmodel
