#include "platform/script/vbscript/global_object.h"

#include "platform/automation/errors.h"
#include "platform/script/vbscript/machine.h"

namespace ov::vbscript {

GlobalObject::~GlobalObject() {
    mSpace->Forget(*this);
}

void* GlobalObject::QueryInterface(const Guid& iid) noexcept {
    if (iid != IUnknown::kIid && iid != IDispatch::kIid) return nullptr;
    ++mReferences;
    return static_cast<IDispatch*>(this);
}

std::uint32_t GlobalObject::Release() noexcept {
    if (--mReferences > 0) return mReferences;
    delete this;
    return 0;
}

// A member's number is the position of its name among the global ones, plus 1.
DispId GlobalObject::GetIDsOfNames(std::u16string_view name) {
    const std::size_t position = mSpace->MemberPosition(name);
    return position == Globals::kNone ? kDispIdUnknown : static_cast<DispId>(position + 1);
}

Variant GlobalObject::Invoke(DispId id, CallKind kind, Arguments& arguments) {
    const Ref<GlobalObject> keep(this);
    Global* const global = mSpace->MemberAt(static_cast<std::size_t>(std::int64_t{id} - 1));
    if (!global) Raise(ErrorNumber::NoSuchMember);
    return Machine::Get().InvokeGlobal(*global, kind, arguments);
}

}  // namespace ov::vbscript
