#include "platform/script/vbscript/code.h"

#include <algorithm>
#include <array>

#include "platform/automation/array.h"

namespace ov::vbscript {

namespace {

struct IntrinsicName {
    std::u16string_view name;
    Intrinsic intrinsic;
};

constexpr std::array kIntrinsics = {
    IntrinsicName{u"Err", Intrinsic::Err},
    IntrinsicName{u"Eval", Intrinsic::Eval},
    IntrinsicName{u"Execute", Intrinsic::Execute},
    IntrinsicName{u"ExecuteGlobal", Intrinsic::ExecuteGlobal},
    IntrinsicName{u"GetRef", Intrinsic::GetRef},
    IntrinsicName{u"CreateObject", Intrinsic::CreateObject},
    IntrinsicName{u"GetObject", Intrinsic::GetObject},
    IntrinsicName{u"MsgBox", Intrinsic::MsgBox},
    IntrinsicName{u"InputBox", Intrinsic::InputBox},
};

Intrinsic FindIntrinsic(std::u16string_view name) noexcept {
    for (const IntrinsicName& entry : kIntrinsics) {
        if (EqualNoCase(entry.name, name)) return entry.intrinsic;
    }
    return Intrinsic::None;
}

}  // namespace

Name Name::Of(std::u16string_view name, std::uint32_t hash) {
    return {Text(name), hash, FindIntrinsic(name), FindBuiltin(name), FindConstant(name)};
}

Text Code::NameOfLocal(std::uint16_t slot) const {
    for (const auto& local : locals) {
        if (local.value.slot == slot) return local.name;
    }
    return Text();
}

const Mark* Code::MarkAt(std::uint32_t pc) const noexcept {
    const auto behind = std::ranges::upper_bound(marks, pc, {}, &Mark::pc);
    return behind == marks.begin() ? nullptr : &*(behind - 1);
}

std::uint32_t Code::ResumeAfter(const Mark& mark) const noexcept {
    if (mark.otherwise != 0) return mark.otherwise;
    const Mark* next = &mark + 1;
    while (!next->resumes) {
        ++next;
    }
    return next->pc;
}

Variant Declaration::StartValue() const {
    if (!isArray) return Variant();
    if (bounds.empty()) return Variant(Array());
    Array array(VarType::Empty, bounds);
    array.MarkFixed();
    return Variant(std::move(array));
}

}  // namespace ov::vbscript
