#include "platform/automation/enumeration.h"

#include <array>

#include "platform/automation/errors.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"

namespace ov {

const InterfaceInfo& IEnumVariant::Members() {
    static constexpr std::array kMembers = {member<&IEnumVariant::Next>("Next"), member<&IEnumVariant::Reset>("Reset")};
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

namespace {

class ItemEnumerator final : public Object<ItemEnumerator, Facet<IEnumVariant>> {
public:
    static constexpr const char* kClassName = "Enumerator";

    explicit ItemEnumerator(std::vector<Variant> items) : mItems(std::move(items)) {}
    bool Next(Variant& item) override {
        if (mNext == mItems.size()) return false;
        item = mItems[mNext++];
        return true;
    }
    void Reset() override { mNext = 0; }

private:
    std::vector<Variant> mItems;
    std::size_t mNext = 0;
};

}  // namespace

Ref<IEnumVariant> EnumerateItems(std::vector<Variant> items) {
    return MakeObject<ItemEnumerator>(std::move(items));
}

Ref<IEnumVariant> Enumerate(IDispatch* object) {
    if (!object) Raise(ErrorNumber::ObjectVariableNotSet);
    Variant enumerator;
    try {
        Arguments none;
        enumerator = object->Invoke(kDispIdNewEnum, CallKind::Call, none);
    } catch (const RuntimeError&) {
        Raise(ErrorNumber::NotACollection);
    }
    Ref<IEnumVariant> found = enumerator.IsObject() ? facet<IEnumVariant>(enumerator.AsObject()) : nullptr;
    if (!found) Raise(ErrorNumber::NotACollection);
    return found;
}

}  // namespace ov
