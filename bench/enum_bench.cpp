// A parameter of a long enumeration beside the two maps that it amounts to.
#include <sqlite3.h>

#include <stdexcept>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "figures.h"
#include "generator.h"
#include "module/module.h"
#include "parameters/parameter_enum.h"

namespace ov::bench {

namespace {

constexpr int kEntries = 500;

/// A generated descriptor with the enumeration "Long" of kEntries entries.
std::string DescriptorWithEnumeration() {
    const std::string path = GenerateDescriptor({.channels = 1, .groups = 1, .parameters = 1});
    sqlite3* db = nullptr;
    std::string sql = "BEGIN;";
    for (int entry = 0; entry < kEntries; ++entry) {
        const std::string text = std::to_string(100'000 + entry), value = std::to_string(entry);
        sql += "INSERT INTO Texts VALUES (" + text + ", 'Eintrag " + value + "', 'Entry " + value + "');";
        sql += "INSERT INTO Enums VALUES ('Long', " + value + ", " + text + ");";
    }
    sql += "COMMIT";
    const bool done = sqlite3_open(path.c_str(), &db) == SQLITE_OK &&
                      sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(db);
    if (!done) throw std::runtime_error("the enumeration cannot be written");
    return path;
}

class EnumeratedDevice {
public:
    EnumeratedDevice() {
        mModule->SetSourcePath(Text::FromUtf8(DescriptorWithEnumeration()));
        if (!mModule->Load(kGeneratedModuleType, {}, {})) throw std::runtime_error("a generated type does not load");
        mGroup = mModule->Spec()->channels()->get_first()->groups()->get_first();
        for (const auto& [column, value] : {std::pair<const char16_t*, Variant>{u"idx", 1},
                                            {u"ParameterId", 1},
                                            {u"kind", 2},
                                            {u"Type", u"ENUM"},
                                            {u"subtype", u"Long"},
                                            {u"DefaultValue", Variant::Null()}}) {
            mRow->TryAdd(column, value);
        }
        if (Configured()->editValues()->Count() != kEntries) throw std::runtime_error("the enumeration is not whole");
    }
    EnumeratedDevice(const EnumeratedDevice&) = delete;
    EnumeratedDevice& operator=(const EnumeratedDevice&) = delete;
    ~EnumeratedDevice() { mModule->Unload(); }

    Ref<ParameterEnum> Configured() {
        Ref<ParameterEnum> parameter = MakeObject<ParameterEnum>();
        parameter->Config(mGroup.get(), Variant(mRow));
        return parameter;
    }

private:
    Ref<Module> mModule = MakeObject<Module>();
    Ref<IBase_SpecGroup> mGroup;
    Ref<Collection> mRow = MakeObject<Collection>();
};

struct TwoMaps {
    std::unordered_map<int, std::u16string> texts;
    std::unordered_map<std::u16string, int> numbers;
};

// The second parameter of an enumeration, which takes it from the module's memory.
void SecondEnumeration(benchmark::State& state) {
    EnumeratedDevice device;
    std::vector<std::pair<int, std::u16string>> entries;
    for (int entry = 0; entry < kEntries; ++entry) {
        entries.emplace_back(entry, u"Eintrag " + std::u16string(Text::FromInteger(entry).view()));
    }
    Compare(
        state, 5, [&] { return device.Configured(); },
        [&] {
            TwoMaps maps;
            for (const auto& [value, text] : entries) {
                maps.texts.emplace(value, text);
                maps.numbers.emplace(text, value);
            }
            return maps;
        });
    state.SetItemsProcessed(state.iterations() * kEntries);
}
BENCHMARK(SecondEnumeration)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace ov::bench
