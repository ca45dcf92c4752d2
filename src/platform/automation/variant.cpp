#include "platform/automation/variant.h"

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

void Variant::ReleaseContent() noexcept {
    // The type goes first: ending an object may look at whoever holds this Variant.
    switch (std::exchange(mType, VarType::Empty)) {
        case VarType::String:
            mText.~Text();
            break;
        case VarType::Array:
            mArray.~Array();
            break;
        default:
            if (mObject) mObject->Release();
            break;
    }
}

}  // namespace ov
