/// @file
/// A generated device as the benches use it.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

#include "contract/group.h"
#include "contract/parameter.h"
#include "generator.h"
#include "module/module.h"

namespace ov::bench {

/// A module whose tree ends with it.
class LoadedModule {
public:
    explicit LoadedModule(const std::string& path) {
        mModule->SetSourcePath(Text::FromUtf8(path));
        if (!mModule->Load(kGeneratedModuleType, {}, {})) throw std::runtime_error("a generated type does not load");
    }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;
    ~LoadedModule() { mModule->Unload(); }

    Module& operator*() const noexcept { return *mModule; }
    Module* operator->() const noexcept { return mModule.get(); }

    // Builds the whole tree; answers the number of its parameters.
    std::size_t BuildAll() {
        std::size_t count = 0;
        ForEachGroup([&](IBase_SpecGroup& group) { count += static_cast<std::size_t>(group.parameters()->Count()); });
        return count;
    }
    Ref<IBase_SpecGroup> Group(const Text& id) {
        return mModule->Spec()->channels()->get_first()->groups()->get_Item(id);
    }
    // A group beyond the first one, which rules of other groups read.
    Ref<IBase_SpecGroup> InnerGroup() { return Group(u"5"); }
    template <class Visit>
    void ForEachParameter(Visit visit) {
        ForEachGroup([&](IBase_SpecGroup& group) {
            ForEach(group.parameters(), [&](IDispatch* parameter) { visit(*facet<IBase_SpecParameter>(parameter)); });
        });
    }

private:
    template <class Visit>
    void ForEachGroup(Visit visit) {
        ForEach(mModule->Spec()->channels(), [&](IDispatch* channel) {
            ForEach(facet<IBase_SpecChannel>(channel)->groups(),
                    [&](IDispatch* group) { visit(*facet<IBase_SpecGroup>(group)); });
        });
    }
    template <class Collection, class Visit>
    static void ForEach(const Collection& collection, Visit visit) {
        const Ref<IEnumVariant> walk = collection->NewEnum();
        for (Variant item; walk->Next(item);) {
            visit(item.AsObject());
        }
    }

    Ref<Module> mModule = MakeObject<Module>();
};

}  // namespace ov::bench
