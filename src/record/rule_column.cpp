#include "record/rule_column.h"

#include <array>
#include <cstddef>

namespace ov {

std::u16string_view ColumnName(RuleColumn column) noexcept {
    static constexpr std::array<std::u16string_view, 9> kNames = {u"dependency", u"realGain",      u"realOffset",
                                                                  u"Min",        u"Max",           u"consistency",
                                                                  u"unit",       u"displayFormat", u"DefaultValue"};
    return kNames[static_cast<std::size_t>(column)];
}

}  // namespace ov
