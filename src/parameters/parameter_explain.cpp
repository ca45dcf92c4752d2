// What a parameter answers to "why".
#include <array>

#include "parameters/explained.h"
#include "parameters/parameter.h"
#include "platform/automation/conversions.h"

namespace ov {

Text Parameter::path() {
    return PathOf(*this);
}

Text Parameter::writtenBy() {
    static constexpr std::array<std::u16string_view, 4> kWords = {u"default", u"user", u"engine", u"rule"};
    return kWords[static_cast<std::size_t>(mWriter)];
}

Ref<ICollection> Parameter::rules() {
    return ExplainRules(*this);
}

Ref<ICollection> Parameter::readers() {
    return ExplainReaders(*this);
}

Text Parameter::refusal() {
    const RuleRecord::Refusal* refusal = mTrace.Refusal();
    return refusal ? refusal->reason : Text();
}

Text Parameter::refusedBy() {
    const RuleRecord::Refusal* refusal = mTrace.Refusal();
    return refusal && refusal->by ? Text(ColumnName(*refusal->by)) : Text();
}

Ref<ICollection> Parameter::remedies() {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    return ExplainRemedies(*this);
}

Text Parameter::RuleText(RuleColumn column) {
    if (!mData) return Text();
    const Variant cell = CellOr(ColumnName(column), Text());
    if (column != RuleColumn::Unit) return ToInvariantText(cell);
    const Ref<ModuleServices> module = Module();
    return module && IsNumeric(cell) ? module->GetTranslatedText(ToLong(cell)) : Text();
}

}  // namespace ov
