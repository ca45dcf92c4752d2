// Compiles and runs any text as a script, under the bounds that scripts have: it may fail, and nothing else.
#include <cstdint>
#include <string_view>

#include "platform/automation/dictionary.h"
#include "platform/script/script_control.h"

namespace {

constexpr std::int32_t kMilliseconds = 50;

/// Runs @p use; only errors of scripts may come out of it.
template <class Use>
void Try(Use use) {
    try {
        use();
    } catch (const ov::RuntimeError&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const ov::Text text = ov::Text::FromUtf8({reinterpret_cast<const char*>(data) + 1, size - 1});
    const auto dictionary = ov::MakeObject<ov::Dictionary>();
    ov::ScriptControl control;
    control.SetTimeout(kMilliseconds);
    control.AddObject(u"D", dictionary->Dispatch(), (data[0] & 1) != 0);
    if (data[0] & 2) {
        Try([&] { control.Eval(text); });
    } else {
        Try([&] { control.AddCode(text); });
    }
    // The engine is usable whatever has happened: procedures of the text, and texts of its own.
    Try([&] {
        ov::Arguments none;
        if (control.HasProcedure(u"F")) control.CallProcedure(u"F", none);
    });
    const ov::Variant sum = control.Eval(u"1 + 2");
    if (sum.AsInteger() != 3) __builtin_trap();
    dictionary->RemoveAll();
    return 0;
}
