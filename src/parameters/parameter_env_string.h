/// @file
/// The parameter that is fetched from the module's environment.
#pragma once

#include "contract/callbacks.h"
#include "contract/default_interfaces.h"
#include "parameters/image_transfers.h"
#include "parameters/text_parameter.h"

namespace ov {

/// CBase_ParameterENVString: a text that has no place in a device image. An import asks the host for it, through the
/// environment; between imports it does not follow the environment.
class ParameterENVString final
    : public Object<ParameterENVString, Facet<CBase_ParameterENVString>, Facet<IBase_CallbackModule>,
                    ImageTransfers<ParameterENVString, TextParameter>> {
public:
    static constexpr const char* kClassName = "CBase_ParameterENVString";

    void OnLanguageChanged(IBase_GuiModule*) override {}
    void OnUnload(IBase_GuiModule*) override {}
    void OnEnvironmentChanged(IBase_GuiModule*, const Text&, const Variant&) override {}

    bool MoveValue(const DeviceImage& image, const ImagePlace& place);

private:
    void ReadType() override;
    Text DisplayText(const Text& value, Purpose purpose) override;
    /// @throws RuntimeError without an environment, and what its listeners raise
    void Fetch();

    Text mKey;  // name of the variable
};

}  // namespace ov
