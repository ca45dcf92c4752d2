#include "platform/script/vbscript/instance.h"

#include "platform/automation/errors.h"
#include "platform/script/vbscript/machine.h"
#include "platform/script/vbscript/run_guard.h"

namespace ov::vbscript {

namespace {

// How many objects may end inside each other's end before the others wait in a list.
constexpr int kMaxNestedEnds = 8;
int gNestedEnds = 0;
Instance* gFirstDying = nullptr;

}  // namespace

Instance::Instance(BoundClass& boundClass) : mSpace(boundClass.space), mClass(&boundClass) {
    const std::vector<Declaration>& fields = boundClass.code.fields;
    mMemory.Resize(sizeof(Instance) + fields.size() * sizeof(Slot));
    mFields = std::make_unique<Slot[]>(fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].isArray) mFields[i].value = fields[i].StartValue();
    }
    mNext = mSpace->mInstances;
    if (mNext) mNext->mPrevious = this;
    mSpace->mInstances = this;
}

Instance::~Instance() {
    Abandon();
}

void* Instance::QueryInterface(const Guid& iid) noexcept {
    if (iid != IUnknown::kIid && iid != IDispatch::kIid) return nullptr;
    ++mReferences;
    return static_cast<IDispatch*>(this);
}

std::uint32_t Instance::Release() noexcept {
    if (mReferences > 1) return --mReferences;
    // The last reference stays until the end is over, so that Class_Terminate sees a whole object.
    if (gNestedEnds >= kMaxNestedEnds) {
        mNextDying = gFirstDying;
        gFirstDying = this;
        return 0;
    }
    const EndGuard guard(mSpace->timeout);
    ++gNestedEnds;
    End();
    --gNestedEnds;
    // A chain of objects of any length ends here, one by one.
    while (gNestedEnds == 0 && gFirstDying) {
        Instance* const dying = gFirstDying;
        gFirstDying = dying->mNextDying;
        ++gNestedEnds;
        dying->End();
        --gNestedEnds;
    }
    return 0;
}

void Instance::End() noexcept {
    if (!mEnded) {
        mEnded = true;
        if (mClass->code.terminate >= 0) Machine::Get().Terminate(*this);
        if (mReferences > 1) {  // Class_Terminate gave it to somebody
            --mReferences;
            return;
        }
    }
    mReferences = 0x40000000;  // what its fields hold may take and drop references to it
    delete this;
}

void Instance::Abandon() noexcept {
    mEnded = true;
    if (mPrevious || mSpace->mInstances == this) {
        (mPrevious ? mPrevious->mNext : mSpace->mInstances) = mNext;
        if (mNext) mNext->mPrevious = mPrevious;
        mPrevious = mNext = nullptr;
    }
    for (std::size_t i = 0; i < mClass->code.fields.size(); ++i) {
        mFields[i].Clear();
    }
}

DispId Instance::GetIDsOfNames(std::u16string_view name) {
    const std::size_t index = mClass->code.members.IndexOf(name, HashNoCase(name));
    if (index == mClass->code.members.kNone || mClass->code.members[index].value.publicKinds == 0)
        return kDispIdUnknown;
    return static_cast<DispId>(index + 1);
}

Variant Instance::Invoke(DispId id, CallKind kind, Arguments& arguments) {
    const ClassCode& code = mClass->code;
    const std::int64_t index = id == kDispIdValue ? code.defaultMember : std::int64_t{id} - 1;
    if (index < 0 || static_cast<std::size_t>(index) >= code.members.size()) Raise(ErrorNumber::NoSuchMember);
    const ClassCode::Member& member = code.members[static_cast<std::size_t>(index)].value;
    return Machine::Get().InvokeInstance(*this, member, kind, arguments);
}

void* FunctionObject::QueryInterface(const Guid& iid) noexcept {
    if (iid != IUnknown::kIid && iid != IDispatch::kIid) return nullptr;
    ++mReferences;
    return static_cast<IDispatch*>(this);
}

std::uint32_t FunctionObject::Release() noexcept {
    if (--mReferences > 0) return mReferences;
    delete this;
    return 0;
}

Variant FunctionObject::Invoke(DispId id, CallKind kind, Arguments& arguments) {
    if (id != kDispIdValue || !Overlap(kind, CallKind::Call)) Raise(ErrorNumber::NoSuchMember);
    const Ref<FunctionObject> keep(this);
    return Machine::Get().CallProcedure(*mProcedure, nullptr, arguments);
}

}  // namespace ov::vbscript
