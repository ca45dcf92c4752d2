/// @file
/// A plain container of modules, with an id and a name.
#pragma once

#include "contract/module.h"
#include "contract/station.h"
#include "tree/event_relay.h"
#include "tree/kind_folds.h"
#include "tree/typed_collection.h"

namespace ov {

/// `modules` has one name and two types in the station's faces; these facets part them.
class GuiStationFacet : public KindFolds<IBase_GuiStation, IBase_GuiModule> {
public:
    Ref<CBase_GuiModuleCollection> modules() final { return GuiModules(); }

protected:
    virtual Ref<CBase_GuiModuleCollection> GuiModules() = 0;
};
class SpecStationFacet : public Facet<IBase_SpecStation> {
public:
    Ref<CBase_SpecModuleCollection> modules() final { return SpecModules(); }

protected:
    virtual Ref<CBase_SpecModuleCollection> SpecModules() = 0;
};

/// CBase_Station. Holds its modules, which end on their own: the station's end unloads none of them. Nothing comes back
/// from them either, as AddModule does not make itself known to the module (see Module::SetStation): no parameter event
/// reaches the station's listeners, and no listener hears of modules that come or go.
class Station final : public Object<Station, Facet<CBase_Station>, Facet<IBase_CallbackModule>, SpecStationFacet,
                                    EventRelay, GuiStationFacet> {
public:
    static constexpr const char* kClassName = "CBase_Station";

    Station() { mGuiModules->SetUnderlying(mSpecModules->Underlying()); }

    // What modules that are marked as reached by scripts use: none in any host.
    /// Sweeps the rules of all modules until nothing changes, then checks all parameters.
    void UpdateDependencies();
    bool scriptAccess() const noexcept { return false; }  // nothing stands above a station
    void CheckConsistencyAll();

    // CBase_Station
    Variant get_id() override { return mId; }
    void let_id(const Variant& value) override { mId = value; }
    void set_id(const Variant& value) override { mId = value; }
    Text get_name() override { return mName; }
    void let_name(const Text& value) override { mName = value; }
    bool AddModule(CBase_Module* module) override;
    bool RemoveModule(const Variant& other) override;

    // IBase_GuiStation and IBase_SpecStation
    Text name() override { return mName; }
    Variant id() override { return mId; }
    void RegisterCallback(IDispatch* cb) override;
    void UnregisterCallback(IDispatch* cb) override;
    Ref<IBase_SpecStation> Clone() override { return nullptr; }  // modules are cloned one by one
    bool Compare(IBase_SpecStation* other, std::optional<eParameterKind> kind) override;

    // IBase_CallbackModule: a station has no use for these events.
    void OnLanguageChanged(IBase_GuiModule*) override {}
    void OnUnload(IBase_GuiModule*) override {}
    void OnEnvironmentChanged(IBase_GuiModule*, const Text&, const Variant&) override {}

private:
    Ref<CBase_GuiModuleCollection> GuiModules() override { return mGuiModules; }
    Ref<CBase_SpecModuleCollection> SpecModules() override { return mSpecModules; }
    bool LoadChildren() override { return true; }
    Ref<TypedList<IBase_GuiModule>> LoadedChildren() override { return mGuiModules; }
    void PassOn(ParameterEvent event, IBase_GuiParameter* p) override { TellAll(mParameterCallbacks, event, p); }
    template <class Visit>
    void ForEachModule(Visit visit);
    bool ReconfigurationPass();

    Variant mId;
    Text mName;
    Ref<TypedList<IBase_SpecModule>> mSpecModules = MakeObject<TypedList<IBase_SpecModule>>();
    Ref<TypedList<IBase_GuiModule>> mGuiModules = MakeObject<TypedList<IBase_GuiModule>>();  // a view of the same list
    CallbackList<IBase_CallbackParameter> mParameterCallbacks;
    CallbackList<IBase_CallbackStation> mStationCallbacks;
};

}  // namespace ov
