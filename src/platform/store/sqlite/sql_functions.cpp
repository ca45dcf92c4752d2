#include "platform/store/sqlite/sql_functions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <unordered_map>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/store/sqlite/engine_error.h"
#include "platform/store/sqlite/sql_aggregates.h"
#include "platform/store/sqlite/sql_function_table.h"
#include "platform/system/deadline.h"

namespace ov::sqlite {

namespace {

// SQLite has fewer types than the functions; what a number is beyond its value goes with it from call to call.
enum Subtype : unsigned { kPlain = 0, kDate = 'D', kSingle = 'S' };

Text StoredText(sqlite3_value* value) {
    const void* text = sqlite3_value_text16(value);
    const auto bytes = static_cast<std::size_t>(sqlite3_value_bytes16(value));
    if (!text) Raise(ErrorNumber::OutOfMemory);
    return std::u16string_view(static_cast<const char16_t*>(text), bytes / sizeof(char16_t));
}

Variant ToVariant(sqlite3_value* value) {
    const unsigned subtype = sqlite3_value_subtype(value);
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER: {
            const std::int64_t number = sqlite3_value_int64(value);
            if (number == static_cast<std::int32_t>(number)) return static_cast<std::int32_t>(number);
            return Decimal(number);
        }
        case SQLITE_FLOAT: {
            const double number = sqlite3_value_double(value);
            if (subtype == kDate) return Date{number};
            if (subtype == kSingle) return static_cast<float>(number);
            return number;
        }
        case SQLITE_NULL:
            return Variant::Null();
        default:
            return StoredText(value);
    }
}

// The Double of the Single's own digits: 0.1, not 0.100000001490116.
double DoubleOf(float single) noexcept {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), single).ptr;
    auto number = static_cast<double>(single);
    std::from_chars(digits.data(), end, number);
    return number;
}

void Return(sqlite3_context* context, const Variant& value) {
    switch (value.Type()) {
        case VarType::Boolean:
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
            return sqlite3_result_int(context, ToLong(value));
        case VarType::Single:
            sqlite3_result_double(context, DoubleOf(value.AsSingle()));
            return sqlite3_result_subtype(context, kSingle);
        case VarType::Date:
            sqlite3_result_double(context, value.AsDate().days);
            return sqlite3_result_subtype(context, kDate);
        case VarType::Double:
        case VarType::Currency:
            return sqlite3_result_double(context, ToDouble(value));
        case VarType::Decimal: {
            const Decimal number = value.AsDecimal().Normalized();
            const bool isWhole = number.Scale() == 0 && number.High() == 0 && number.Low() >> 63 == 0;
            if (isWhole) return sqlite3_result_int64(context, number.ToInt64());
            return sqlite3_result_double(context, number.ToDouble());
        }
        case VarType::String: {
            const Text& text = value.AsText();
            return sqlite3_result_text64(context, reinterpret_cast<const char*>(text.data()),
                                         text.size() * sizeof(char16_t), SQLITE_TRANSIENT, SQLITE_UTF16);
        }
        default:
            return sqlite3_result_null(context);
    }
}

void ReturnError(sqlite3_context* context) noexcept {
    const RuntimeError error = CurrentError();
    if (error.number() == static_cast<std::int32_t>(ErrorNumber::OutOfMemory)) {
        sqlite3_result_error_nomem(context);
    } else {
        sqlite3_result_error(context, error.what(), -1);
    }
}

bool IsNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

std::string Folded(std::string_view name) {
    std::string folded(name);
    std::ranges::transform(folded, folded.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c; });
    return folded;
}

}  // namespace

const SqlFunction* FindSqlFunction(std::string_view name) noexcept {
    static const auto index = [] {
        std::unordered_map<std::string, const SqlFunction*> all;
        for (const SqlFunctionEntry& entry : SqlFunctionTable()) {
            all.emplace(Folded(entry.function.name), &entry.function);
        }
        return all;
    }();
    const auto found = index.find(Folded(name));
    return found != index.end() ? found->second : nullptr;
}

class SqlFunctions::Context final : public SqlCallContext {
public:
    explicit Context(SqlDomainReader& domains) noexcept : mDomains(domains) {}

    void CheckTime() override {
        if (Deadline::IsOver()) throw QueryTimedOut();
    }
    std::uint32_t& RandomSeed() override { return mRandomSeed; }
    Variant CallFunction(const Variant&, std::span<Variant>) override { Raise(ErrorNumber::InternalError); }
    Variant ReadFirst(const std::string& sql) override { return mDomains.ReadFirst(sql); }

private:
    SqlDomainReader& mDomains;
    std::uint32_t mRandomSeed = vbscript::kFirstRandomSeed;
};

struct SqlFunctions::Bound {
    const SqlFunctionEntry* entry;
    Context* context;

    // What SQLite calls: no exception leaves.
    static void Call(sqlite3_context* sqlite, int count, sqlite3_value** given) noexcept {
        const Bound& self = *static_cast<const Bound*>(sqlite3_user_data(sqlite));
        const std::span<sqlite3_value*> values(given, static_cast<std::size_t>(count));
        try {
            if (!self.entry->Takes(values.size())) {
                const std::string name(self.entry->function.name);
                return sqlite3_result_error(sqlite, ("wrong number of arguments to function " + name).c_str(), -1);
            }
            if (self.entry->nullSpreads && std::ranges::any_of(values, IsNull)) return sqlite3_result_null(sqlite);
            std::array<Variant, kUsualArguments> usual;
            std::vector<Variant> many(values.size() > usual.size() ? values.size() : 0);
            const std::span<Variant> arguments = many.empty() ? std::span(usual).first(values.size()) : std::span(many);
            std::ranges::transform(values, arguments.begin(), ToVariant);
            Return(sqlite, self.entry->call(*self.context, arguments));
        } catch (...) {
            ReturnError(sqlite);
        }
    }

    static constexpr std::size_t kUsualArguments = 4;
};

SqlFunctions::SqlFunctions(sqlite3* db, SqlDomainReader& domains) : mContext(std::make_unique<Context>(domains)) {
    // Innocuous: a view of the file may use them although the file is not trusted.
    constexpr int kFlags = SQLITE_UTF16 | SQLITE_INNOCUOUS | SQLITE_SUBTYPE;
    constexpr int kAnyNumber = -1;  // so that SQLite's own of the name never answers
    for (const SqlFunctionEntry& entry : SqlFunctionTable()) {
        if (entry.call) mBound.push_back({&entry, mContext.get()});
    }
    for (Bound& bound : mBound) {
        const std::string name(bound.entry->function.name);
        // "LIKE" looks for a function of two or three arguments, and SQLite's own is one of those.
        const bool isLike = name == "like";
        for (const int arguments : isLike ? std::vector{2, 3} : std::vector{kAnyNumber}) {
            const int code = sqlite3_create_function_v2(db, name.c_str(), arguments, kFlags | SQLITE_DETERMINISTIC,
                                                        &bound, &Bound::Call, nullptr, nullptr, nullptr);
            if (code != SQLITE_OK) RaiseEngineError(db, code);
        }
    }
    const int code = AddSqlAggregates(db);
    if (code != SQLITE_OK) RaiseEngineError(db, code);
}

SqlFunctions::~SqlFunctions() = default;

}  // namespace ov::sqlite
