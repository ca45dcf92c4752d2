// A parameter of a long enumeration beside the two maps that it amounts to.
#include <sqlite3.h>

#include <stdexcept>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "contract/group.h"
#include "contract/parameter.h"
#include "figures.h"
#include "generator.h"
#include "module/module.h"
#include "parameters/parameter_enum.h"

namespace ov::bench {

namespace {

constexpr int kEntries = 500;

/// A generated descriptor with the enumeration "Long" of kEntries entries, and @p parameters parameters of it.
std::string DescriptorWithEnumeration(int parameters = 0) {
    const std::string path = GenerateDescriptor({.channels = 1, .groups = 1, .parameters = 1});
    sqlite3* db = nullptr;
    std::string sql =
        "BEGIN; CREATE TEMP TABLE enumerated AS SELECT * FROM Parameters LIMIT 1; UPDATE enumerated SET Type = 'ENUM', "
        "subtype = 'Long', DefaultValue = '7', Min = NULL, Max = NULL;";
    for (int id = 1'000; id < 1'000 + parameters; ++id) {
        const std::string number = std::to_string(id);
        sql += "UPDATE enumerated SET idx = " + number + ", ParameterId = " + number + ", [order] = " + number +
               "; INSERT INTO Parameters SELECT * FROM enumerated;";
    }
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

/// A device whose language goes to and fro, and whose enumerations have been read.
class TranslatedDevice {
public:
    explicit TranslatedDevice(int parameters) {
        mModule->SetSourcePath(Text::FromUtf8(DescriptorWithEnumeration(parameters)));
        if (!mModule->Load(kGeneratedModuleType, {}, {})) throw std::runtime_error("a generated type does not load");
        if (CountEntries() < static_cast<std::size_t>(parameters) * kEntries) {
            throw std::runtime_error("the enumerations are not whole");
        }
    }
    TranslatedDevice(const TranslatedDevice&) = delete;
    TranslatedDevice& operator=(const TranslatedDevice&) = delete;
    ~TranslatedDevice() { mModule->Unload(); }

    int ChangeLanguage() {
        constexpr int kChanges = 1'000;
        int changed = 0;
        for (int i = 0; i < kChanges; ++i) {
            changed += mModule->SetLanguage(i % 2 == 0 ? 9 : 7) ? 1 : 0;
        }
        if (changed != kChanges) throw std::runtime_error("the language does not change");
        return changed;
    }

private:
    std::size_t CountEntries() {
        std::size_t count = 0;
        const auto parameters = mModule->Spec()->channels()->get_first()->groups()->get_first()->parameters();
        const Ref<IEnumVariant> walk = parameters->NewEnum();
        for (Variant item; walk->Next(item);) {
            const Ref<ICollection> values = facet<IBase_GuiParameter>(item.AsObject())->editValues();
            if (values) count += static_cast<std::size_t>(values->Count());
        }
        return count;
    }

    Ref<Module> mModule = MakeObject<Module>();
};

// Lists follow the language when they are read again: a change costs the same however many there are.
void LanguageOfManyEnumerations(benchmark::State& state) {
    TranslatedDevice many(2'000), few(20);
    Compare(
        state, 1.5, [&] { return many.ChangeLanguage(); }, [&] { return few.ChangeLanguage(); });
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(LanguageOfManyEnumerations)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace ov::bench
