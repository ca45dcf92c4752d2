/// @file
/// The object whose end unloads a module.
#pragma once

#include "contract/module.h"
#include "platform/automation/object.h"

namespace ov {

/// CBase_Unload: holds a module strongly and unloads it when its own last reference goes, whoever still holds facets of
/// the module. Unloading goes by name, so that it guards any object with an operation `Unload`.
class UnloadPointer final : public Object<UnloadPointer, Facet<CBase_Unload>> {
public:
    static constexpr const char* kClassName = "CBase_Unload";

    UnloadPointer() = default;
    explicit UnloadPointer(IDispatch* guarded) : mGuarded(guarded) {}
    ~UnloadPointer();

    Ref<IDispatch> get_o() override { return mGuarded; }

private:
    Ref<IDispatch> mGuarded;
};

}  // namespace ov
