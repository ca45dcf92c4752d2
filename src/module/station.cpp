#include "module/station.h"

#include "module/module.h"
#include "platform/automation/conversions.h"
#include "tree/dependency_update.h"

namespace ov {

bool Station::AddModule(CBase_Module* module) {
    try {
        const Ref<IBase_SpecModule> spec = module ? module->Spec() : nullptr;
        if (!spec) return false;
        mSpecModules->Add(spec.get(), ToText(spec->id()));  // a module that had the id goes, and the answer is True
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool Station::RemoveModule(const Variant& other) {
    try {
        const Ref<CBase_Module> module = other.IsObject() ? facet<CBase_Module>(other.AsObject()) : nullptr;
        if (other.IsObject() && other.AsObject() && !module) return false;
        const Text id = other.IsObject() ? Text() : ToText(other);
        // By what the entry is today: a module that was loaded again has another id than the one it was added under.
        const Ref<Collection> list = mSpecModules->Underlying();
        for (std::size_t i = list->size(); i-- > 0;) {
            const Ref<IBase_SpecModule> entry = facet<IBase_SpecModule>(list->At(i).second->AsObject());
            const bool isIt = other.IsObject() ? SameObject(entry.get(), module.get()) : ToText(entry->id()) == id;
            if (isIt) list->RemoveAt(i);
        }
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

void Station::RegisterCallback(IDispatch* cb) {
    if (auto listener = CastListener<IBase_CallbackStation>(cb)) mStationCallbacks.Add(std::move(listener));
    if (auto listener = CastListener<IBase_CallbackParameter>(cb)) mParameterCallbacks.Add(std::move(listener));
}

void Station::UnregisterCallback(IDispatch* cb) {
    mStationCallbacks.Remove(cb);
    mParameterCallbacks.Remove(cb);
}

bool Station::Compare(IBase_SpecStation* other, std::optional<eParameterKind> kind) {
    const Ref<CBase_SpecModuleCollection> theirs = other ? other->modules() : nullptr;
    if (!theirs) return false;
    const Ref<IEnumVariant> walk = theirs->NewEnum();
    for (Variant item; walk->Next(item);) {
        const auto module = facet<IBase_SpecModule>(item.AsObject());
        // Unlike a module with its channels, a station passes over what it lacks itself.
        const Ref<IBase_SpecModule> own = mSpecModules->get_Item(ToText(module->id()));
        if (own && !own->Compare(module.get(), kind)) return false;
    }
    return true;
}

template <class Visit>
void Station::ForEachModule(Visit visit) {
    mSpecModules->ForEach([&](IBase_SpecModule& spec) {
        if (auto* module = dynamic_cast<Module*>(&spec)) visit(*module);
        return true;
    });
}

bool Station::ReconfigurationPass() {
    bool any = false;
    ForEachModule([&](Module& module) { any = module.UpdateDependenciesChannels() || any; });
    return any;
}

void Station::CheckConsistencyAll() {
    ForEachModule([](Module& module) { module.CheckConsistencyAll(); });
}

void Station::UpdateDependencies() {
    SettleAlone(*this, &Station::ReconfigurationPass);
}

}  // namespace ov
