// ovmodel [options] run SCRIPT.vbs [arguments], run --compile-only FILE..., run --dump FILE
#include "ovmodel/run_command.h"

#include <iostream>

#include "contract/enumerations.h"
#include "ovmodel/command.h"
#include "ovmodel/host/script_host_objects.h"
#include "ovmodel/input_file.h"
#include "platform/locale/code_page.h"
#include "platform/script/script_control.h"
#include "platform/script/script_listing.h"

namespace ovmodel {

using ov::Text;

namespace {

constexpr std::uint64_t kMostScript = 64 * kMebibyte;  // more than the engine takes of one

// UTF-8; a file that is none is from the days of the single-byte code page. UTF-16 files tell themselves by their mark.
Text DecodeScript(std::string bytes) {
    if (bytes.starts_with("\xFF\xFE")) {
        std::u16string wide;
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
            const auto low = static_cast<unsigned char>(bytes[i]);
            const auto high = static_cast<unsigned char>(bytes[i + 1]);
            wide += static_cast<char16_t>(low | high << 8);
        }
        return Text(wide);
    }
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    Text text = Text::FromUtf8(bytes);
    const bool malformed =
        text.view().find(u'\uFFFD') != std::u16string_view::npos && bytes.find("\xEF\xBF\xBD") == std::string::npos;
    return malformed ? Text(ov::FromCodePage(bytes)) : text;
}

Text ReadScript(const std::string& path) {
    return DecodeScript(ReadInput(path, kMostScript));
}

void Publish(ov::ScriptControl& control, ScriptShell& shell) {
    control.AddObject(u"WScript", shell.Dispatch(), false);
    control.AddObject(u"OvModelFunctions", ov::MakeObject<GlobalFunctions>()->Dispatch(), true);
    for (const ov::EnumerationConstant& constant : ov::EnumerationConstants()) {
        control.AddConstant(constant.name, ov::Variant(constant.value));
    }
}

void Report(const std::string& path, const ov::RuntimeError& error) {
    std::string place;
    const char* kind = "runtime error";
    if (const auto* placed = dynamic_cast<const ov::ScriptError*>(&error)) {
        if (placed->IsCompileError()) kind = "compile error";
        place = "(" + std::to_string(placed->line()) + ", " + std::to_string(placed->column()) + ")";
    }
    std::cerr << path << place << ": " << kind << " " << error.number() << ": " << error.what() << "\n";
}

}  // namespace

int RunScript(const std::string& path, const std::vector<std::string>& arguments, int timeout) {
    const Text code = ReadScript(path);
    ov::ScriptControl control(ov::ScriptPolicy::Host);
    control.SetLanguage(u"VBScript");
    control.SetTimeout(timeout);
    const ov::Ref<ScriptShell> shell = ov::MakeObject<ScriptShell>(control, path, arguments);
    int status = 0;
    try {
        Publish(control, *shell);
        control.AddCode(code);
    } catch (const ScriptQuit& quit) {
        status = quit.status();
    } catch (const ov::RuntimeError& error) {
        std::cout.flush();
        Report(path, error);
        status = 1;
    }
    shell->DisconnectAll();
    control.Reset();
    std::cout.flush();
    return status;
}

int CompileScripts(const std::vector<std::string>& paths) {
    int status = 0;
    for (const std::string& path : paths) {
        try {
            ov::CheckScript(ReadScript(path));
        } catch (const ov::RuntimeError& error) {
            Report(path, error);
            status = 1;
        }
    }
    return status;
}

int DumpScript(const std::string& path) {
    try {
        std::cout << ov::ListingOf(ReadScript(path));
    } catch (const ov::RuntimeError& error) {
        Report(path, error);
        return 1;
    }
    return 0;
}

CommandLine SplitCommandLine(int argc, char** argv) {
    CommandLine line;
    bool run = false;
    for (int i = 1; i < argc; ++i) {
        line.own.emplace_back(argv[i]);
        const std::string word = line.own.back();
        const bool takesValue = word == "--locale" || word == "--timeout" || word == "--coverage";
        if (takesValue && i + 1 < argc) line.own.emplace_back(argv[++i]);
        if (word.starts_with('-')) continue;
        if (!run && word != "run") {
            line.own.insert(line.own.end(), argv + i + 1, argv + argc);
            break;
        }
        if (run) {
            line.script.assign(argv + i + 1, argv + argc);
            break;
        }
        run = true;
    }
    return line;
}

}  // namespace ovmodel
