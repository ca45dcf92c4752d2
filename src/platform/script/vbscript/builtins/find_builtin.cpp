#include <array>

#include "platform/functions/name_index.h"
#include "platform/script/vbscript/builtins/themes.h"

namespace ov::vbscript {

namespace {

NameIndex<Builtin> MakeIndex() {
    const std::array themes = {MathematicsBuiltins(), RandomBuiltins(),     ConversionBuiltins(), CharacterBuiltins(),
                               TextPartBuiltins(),    TextByteBuiltins(),   TextSearchBuiltins(), ListBuiltins(),
                               DateBuiltins(),        IntervalBuiltins(),   FormattingBuiltins(), InspectionBuiltins(),
                               EscapeBuiltins(),      EnvironmentBuiltins()};
    std::size_t count = 0;
    for (const auto& theme : themes) {
        count += theme.size();
    }
    NameIndex<Builtin> index(count);
    for (const auto& theme : themes) {
        for (const Builtin& builtin : theme) {
            index.Enter(builtin);
        }
    }
    return index;
}

}  // namespace

const Builtin* FindBuiltin(std::u16string_view name) noexcept {
    static const NameIndex<Builtin> index = MakeIndex();
    return index.Find(name);
}

}  // namespace ov::vbscript
