#include "contract/callbacks.h"

#include <array>

#include "contract/module.h"
#include "contract/parameter.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& IBase_CallbackParameter::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_CallbackParameter::OnParameterReconfigured>("OnParameterReconfigured"),
        member<&IBase_CallbackParameter::OnParameterStateChanged>("OnParameterStateChanged"),
        member<&IBase_CallbackParameter::OnParameterValueChanged>("OnParameterValueChanged"),
        member<&IBase_CallbackParameter::OnParameterConfigStateChanged>("OnParameterConfigStateChanged"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_CallbackModule::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_CallbackModule::OnLanguageChanged>("OnLanguageChanged"),
        member<&IBase_CallbackModule::OnUnload>("OnUnload"),
        member<&IBase_CallbackModule::OnEnvironmentChanged>("OnEnvironmentChanged"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_CallbackStation::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_CallbackStation::OnAddModule>("OnAddModule"),
        member<&IBase_CallbackStation::OnRemoveModule>("OnRemoveModule"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& ISpec_ImExport::Members() {
    static constexpr std::array kMembers = {
        member<&ISpec_ImExport::DoImport>("DoImport"),
        member<&ISpec_ImExport::DoExport>("DoExport"),
        member<&ISpec_ImExport::DoReImportParameter>("DoReImportParameter"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

namespace {

class LateCallbackParameter final : public LateListener<IBase_CallbackParameter> {
public:
    using LateListener::LateListener;
    void OnParameterReconfigured(IBase_GuiParameter* p) override { Send(0, p); }
    void OnParameterStateChanged(IBase_GuiParameter* p) override { Send(1, p); }
    void OnParameterValueChanged(IBase_GuiParameter* p) override { Send(2, p); }
    void OnParameterConfigStateChanged(IBase_GuiParameter* p) override { Send(3, p); }
};

class LateCallbackModule final : public LateListener<IBase_CallbackModule> {
public:
    using LateListener::LateListener;
    void OnLanguageChanged(IBase_GuiModule* m) override { Send(0, m); }
    void OnUnload(IBase_GuiModule* m) override { Send(1, m); }
    void OnEnvironmentChanged(IBase_GuiModule* m, const Text& key, const Variant& value) override {
        Send(2, m, key, value);
    }
};

class LateCallbackStation final : public LateListener<IBase_CallbackStation> {
public:
    using LateListener::LateListener;
    void OnAddModule(IBase_GuiModule* m) override { Send(0, m); }
    void OnRemoveModule(IBase_GuiModule* m) override { Send(1, m); }
};

class LateImExport final : public LateListener<ISpec_ImExport> {
public:
    using LateListener::LateListener;
    bool DoImport(IBase_SpecModule* module, Variant& importdata, Variant& sourceId) override {
        return Transfer(0, module, importdata, sourceId);
    }
    bool DoExport(IBase_SpecModule* module, Variant& exportdata, Variant& sourceId) override {
        return Transfer(1, module, exportdata, sourceId);
    }
    bool DoReImportParameter(IBase_SpecParameter* pModified) override { return ToBoolean(Send(2, pModified)); }

private:
    // The service may change what it gets by reference.
    bool Transfer(std::size_t index, IBase_SpecModule* module, Variant& data, Variant& sourceId) {
        std::array<Variant, 3> values{Variant(module), data, sourceId};
        const bool done = ToBoolean(SendAll(index, values));
        data = std::move(values[1]);
        sourceId = std::move(values[2]);
        return done;
    }
};

}  // namespace

Ref<IBase_CallbackParameter> LateListenerOf<IBase_CallbackParameter>::Adapt(IDispatch* target) {
    return Ref<IBase_CallbackParameter>::Adopt(new LateCallbackParameter(target));
}

Ref<IBase_CallbackModule> LateListenerOf<IBase_CallbackModule>::Adapt(IDispatch* target) {
    return Ref<IBase_CallbackModule>::Adopt(new LateCallbackModule(target));
}

Ref<IBase_CallbackStation> LateListenerOf<IBase_CallbackStation>::Adapt(IDispatch* target) {
    return Ref<IBase_CallbackStation>::Adopt(new LateCallbackStation(target));
}

Ref<ISpec_ImExport> LateListenerOf<ISpec_ImExport>::Adapt(IDispatch* target) {
    return Ref<ISpec_ImExport>::Adopt(new LateImExport(target));
}

}  // namespace ov
