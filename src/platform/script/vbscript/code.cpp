#include "platform/script/vbscript/code.h"

#include <algorithm>

#include "platform/automation/array.h"

namespace ov::vbscript {

const Mark* Code::MarkAt(std::uint32_t pc) const noexcept {
    const auto behind = std::ranges::upper_bound(marks, pc, {}, &Mark::pc);
    return behind == marks.begin() ? nullptr : &*(behind - 1);
}

Variant Declaration::StartValue() const {
    if (!isArray) return Variant();
    if (bounds.empty()) return Variant(Array());
    Array array(VarType::Empty, bounds);
    array.MarkFixed();
    return Variant(std::move(array));
}

}  // namespace ov::vbscript
