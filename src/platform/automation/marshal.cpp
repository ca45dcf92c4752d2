#include "platform/automation/marshal.h"

namespace ov {

ByteArray Marshal<ByteArray>::From(const Variant& value) {
    if (value.IsEmpty()) return {};  // a variable that never was allocated
    if (!value.IsArray()) Raise(ErrorNumber::TypeMismatch);
    const Array& array = value.AsArray();
    if (!array.IsAllocated()) return {};
    if (array.Rank() != 1) return {{}, 0, false};
    ByteArray result;
    result.lower = array.LowerBound(1);
    if (array.ElementType() == VarType::Byte) {
        result.bytes.assign(array.Bytes().begin(), array.Bytes().end());
        return result;
    }
    result.bytes.reserve(array.size());
    for (const Variant& element : array.Elements()) {
        result.bytes.push_back(ToByte(element));
    }
    return result;
}

Variant Marshal<ByteArray>::To(ByteArray value) {
    return Variant(value.bytes.empty() ? Array() : Array::OfBytes(std::move(value.bytes), value.lower));
}

void Marshal<ByteArray>::WriteBack(Variant& target, ByteArray value) {
    if (!target.IsArray() || !target.AsArray().IsAllocated()) {
        if (!value.bytes.empty()) target = To(std::move(value));
        return;
    }
    if (!value.isRow) return;
    const VarType element = target.AsArray().ElementType();
    Array array;
    if (element == VarType::Byte) {
        array = Array::OfBytes(std::move(value.bytes), value.lower);
    } else {
        std::vector<Variant> elements;
        elements.reserve(value.bytes.size());
        for (const std::uint8_t byte : value.bytes) {
            elements.push_back(ConvertTo(element, Variant(byte)));
        }
        array = Array::Of(element, std::move(elements), value.lower);
    }
    if (target.AsArray().IsFixed()) array.MarkFixed();
    target = Variant(std::move(array));
}

}  // namespace ov
