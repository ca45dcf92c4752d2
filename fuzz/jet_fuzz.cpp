/// @file
/// Jet files with anything changed in them: never a crash, no error but a RuntimeError, and no more memory than a
/// multiple of the file's size.
#include <fuzzer/FuzzedDataProvider.h>
#include <sanitizer/allocator_interface.h>
#include <sqlite3.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

#include "platform/automation/errors.h"
#include "platform/store/jet/import.h"
#include "platform/store/jet/jet_writer.h"

namespace {

using ov::jet::ColumnType;
using ov::testing::JetFile;
using ov::testing::JetRow;

std::atomic<std::size_t> gInUse = 0;
std::atomic<std::size_t> gMost = 0;

void CountAllocation(const volatile void* memory, std::size_t) {
    const std::size_t size = __sanitizer_get_allocated_size(memory);
    const std::size_t now = gInUse += size;
    if (now > gMost) gMost = now;
}

void CountFree(const volatile void* memory) {
    gInUse -= __sanitizer_get_allocated_size(memory);
}

JetFile Seed(ov::jet::Version version, std::uint32_t pageKey) {
    const std::string longText(9000, 'x');
    ov::testing::JetTable table{"Every",
                                {{"id", ColumnType::Long, true},
                                 {"flag", ColumnType::Boolean},
                                 {"money", ColumnType::Currency},
                                 {"single", ColumnType::Single},
                                 {"date", ColumnType::Date},
                                 {"guid", ColumnType::Guid},
                                 {"decimal", ColumnType::Decimal, false, 3},
                                 {"text", ColumnType::Text, true},
                                 {"memo", ColumnType::Memo},
                                 {"blob", ColumnType::LongBinary}},
                                {},
                                {{"text", "RowSource", "SELECT x FROM Texts"}}};
    for (std::int64_t i = 0; i < 40; ++i) {
        table.rows.push_back({{i,
                               i % 2 == 0,
                               i * 777,
                               1.5,
                               40000.25,
                               std::vector<std::uint8_t>(16, 7),
                               -i * 12345,
                               "Gerät " + std::to_string(i),
                               i % 10 == 0 ? longText : "short",
                               {}},
                              static_cast<JetRow::Place>(i % 7 == 0 ? i % 3 : 0)});
    }
    return {version, "", pageKey, {table, {"Elsewhere", {}, {}, {}, 6}}};
}

std::vector<std::uint8_t> TakeFile(FuzzedDataProvider& data) {
    using ov::jet::Version;
    static const std::vector<std::vector<std::uint8_t>> kSeeds = {
        WriteJet(Seed(Version::Jet4, 0)), WriteJet(Seed(Version::Jet3, 0)), WriteJet(Seed(Version::Jet4, 0x12345678))};
    const auto choice = data.ConsumeIntegralInRange<std::size_t>(0, kSeeds.size());
    if (choice == kSeeds.size()) return data.ConsumeRemainingBytes<std::uint8_t>();
    std::vector<std::uint8_t> file = kSeeds[choice];
    while (data.remaining_bytes() > 0) {
        const auto at = data.ConsumeIntegralInRange<std::size_t>(0, file.size() - 1);
        const bool cut = data.ConsumeIntegralInRange(0, 63) == 0;
        if (cut) file.resize(at + 1);
        file[at] = data.ConsumeIntegral<std::uint8_t>();
    }
    return file;
}

void Import(const std::vector<std::uint8_t>& content) {
    sqlite3* db = nullptr;
    if (sqlite3_open(":memory:", &db) != SQLITE_OK) std::abort();
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> handle(db, &sqlite3_close);
    try {
        ov::jet::PageFile file(content);
        ov::jet::Import(file, db, "NOCASE");
    } catch (const ov::RuntimeError&) {
        // What a damaged file ends with.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const int kHooked = __sanitizer_install_malloc_and_free_hooks(&CountAllocation, &CountFree);
    if (kHooked == 0) std::abort();
    constexpr std::size_t kTimes = 8;
    constexpr std::size_t kBase = 2 << 20;  // of SQLite and of the converters, whatever the file
    FuzzedDataProvider data(bytes, size);
    const std::vector<std::uint8_t> content = TakeFile(data);
    const std::size_t before = gInUse;
    gMost = before;
    Import(content);
    if (gMost > before && gMost - before > kBase + kTimes * content.size()) {
        std::fprintf(stderr, "%zu bytes for a file of %zu\n", gMost - before, content.size());
        std::abort();
    }
    return 0;
}
