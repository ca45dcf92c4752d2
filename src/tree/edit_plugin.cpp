#include "tree/edit_plugin.h"

#include "platform/automation/conversions.h"

namespace ov {

namespace {

Text Column(const Collection& row, std::u16string_view name) {
    const Variant* cell = row.Find(name);
    return cell && !cell->IsNull() ? ToText(*cell) : Text();
}

}  // namespace

Text EditPluginOf(const Collection* row, Text* args) {
    const Text plugin = row ? Column(*row, u"EditPlugin") : Text();
    if (!plugin.empty() && args) *args = Column(*row, u"editPluginArguments");
    return plugin;
}

}  // namespace ov
