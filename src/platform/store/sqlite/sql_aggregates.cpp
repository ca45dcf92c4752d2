#include "platform/store/sqlite/sql_aggregates.h"

#include <cmath>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <vector>

namespace ov::sqlite {

namespace {

struct FreeValue {
    void operator()(sqlite3_value* value) const noexcept { sqlite3_value_free(value); }
};

/// The value of the row whose place is the first or the last of all.
class PlacedValue {
public:
    void Offer(std::span<sqlite3_value*> arguments, bool wantsLast) {
        std::vector<sqlite3_int64> place;
        for (sqlite3_value* number : arguments.subspan(1)) {
            place.push_back(sqlite3_value_int64(number));
        }
        const bool isBetter = !mPlace || (wantsLast ? place >= *mPlace : place < *mPlace);
        if (!isBetter) return;
        mPlace = std::move(place);
        mValue.reset(sqlite3_value_dup(arguments.front()));
    }
    sqlite3_value* value() const noexcept { return mValue.get(); }

private:
    std::optional<std::vector<sqlite3_int64>> mPlace;
    std::unique_ptr<sqlite3_value, FreeValue> mValue;
};

constexpr int kPointerSize = sizeof(void*);

template <bool WantsLast>
void PlacedStep(sqlite3_context* context, int count, sqlite3_value** arguments) noexcept {
    auto** held = static_cast<PlacedValue**>(sqlite3_aggregate_context(context, kPointerSize));
    try {
        if (!held) throw std::bad_alloc();
        if (!*held) *held = new PlacedValue;
        (*held)->Offer({arguments, static_cast<std::size_t>(count)}, WantsLast);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

void PlacedFinal(sqlite3_context* context) noexcept {
    auto** held = static_cast<PlacedValue**>(sqlite3_aggregate_context(context, 0));
    if (!held || !*held) return sqlite3_result_null(context);
    const std::unique_ptr<PlacedValue> placed(*held);
    *held = nullptr;
    if (placed->value()) sqlite3_result_value(context, placed->value());
}

/// Mean and sum of squared distances from it, kept exact row by row.
struct Spread {
    sqlite3_int64 count;
    double mean;
    double squares;
};

void SpreadStep(sqlite3_context* context, int, sqlite3_value** arguments) noexcept {
    auto* spread = static_cast<Spread*>(sqlite3_aggregate_context(context, sizeof(Spread)));
    if (!spread) return sqlite3_result_error_nomem(context);
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return;
    const double value = sqlite3_value_double(arguments[0]);
    spread->count += 1;
    const double distance = value - spread->mean;
    spread->mean += distance / static_cast<double>(spread->count);
    spread->squares += distance * (value - spread->mean);
}

enum class Of { Sample, Population };

template <Of Which, bool IsRoot>
void SpreadFinal(sqlite3_context* context) noexcept {
    const auto* spread = static_cast<const Spread*>(sqlite3_aggregate_context(context, 0));
    const sqlite3_int64 count = (spread ? spread->count : 0) - (Which == Of::Sample ? 1 : 0);
    if (count < 1) return sqlite3_result_null(context);
    const double variance = spread->squares / static_cast<double>(count);
    sqlite3_result_double(context, IsRoot ? std::sqrt(variance) : variance);
}

struct Aggregate {
    const char* name;
    int arguments;
    void (*step)(sqlite3_context*, int, sqlite3_value**);
    void (*final)(sqlite3_context*);
};

constexpr Aggregate kAggregates[] = {
    {"first", -1, &PlacedStep<false>, &PlacedFinal},
    {"last", -1, &PlacedStep<true>, &PlacedFinal},
    {"stdev", 1, &SpreadStep, &SpreadFinal<Of::Sample, true>},
    {"stdevp", 1, &SpreadStep, &SpreadFinal<Of::Population, true>},
    {"var", 1, &SpreadStep, &SpreadFinal<Of::Sample, false>},
    {"varp", 1, &SpreadStep, &SpreadFinal<Of::Population, false>},
};

}  // namespace

int AddSqlAggregates(sqlite3* db) noexcept {
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_INNOCUOUS | SQLITE_DETERMINISTIC;
    for (const Aggregate& each : kAggregates) {
        const int code = sqlite3_create_function_v2(db, each.name, each.arguments, kFlags, nullptr, nullptr, each.step,
                                                    each.final, nullptr);
        if (code != SQLITE_OK) return code;
    }
    return SQLITE_OK;
}

}  // namespace ov::sqlite
