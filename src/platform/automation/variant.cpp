#include "platform/automation/variant.h"

#include <vector>

#include "platform/automation/dispatch.h"

namespace ov {

Variant::Variant(IDispatch* object) noexcept : mType(VarType::Object), mBits(0) {
    mObject = object;
    if (object) object->AddRef();
}

void Variant::ShareContent(const Variant& other) noexcept {
    switch (other.mType) {
        case VarType::String:
            new (&mText) Text(other.mText);
            break;
        case VarType::Array:
            new (&mArray) Array(other.mArray);
            break;
        default:
            mObject = other.mObject;
            if (mObject) mObject->AddRef();
            break;
    }
}

namespace {

// Arrays hold arrays, and dictionaries hold dictionaries: what ends this deep inside the end of others waits in a list,
// so that a chain of any length takes no more of the stack.
constexpr int kMaxNestedEnds = 64;
int gNestedEnds = 0;

std::vector<Variant>& Waiting() noexcept {
    static std::vector<Variant>& list = *new std::vector<Variant>;  // values may end after everything static
    return list;
}

}  // namespace

void Variant::ReleaseContent() noexcept {
    // The type goes first: ending an object may look at whoever holds this Variant.
    const VarType type = std::exchange(mType, VarType::Empty);
    if (type == VarType::String) {
        mText.~Text();
        return;
    }
    if (gNestedEnds >= kMaxNestedEnds) {
        mType = type;
        Waiting().push_back(std::move(*this));
        return;
    }
    ++gNestedEnds;
    if (type == VarType::Array) {
        mArray.~Array();
    } else if (mObject) {
        mObject->Release();
    }
    while (gNestedEnds == 1 && !Waiting().empty()) {
        const Variant next = std::move(Waiting().back());
        Waiting().pop_back();
    }
    --gNestedEnds;
}

}  // namespace ov
