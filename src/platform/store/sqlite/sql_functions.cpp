#include "platform/store/sqlite/sql_functions.h"

#include <algorithm>
#include <array>
#include <span>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/locale/locale.h"
#include "platform/store/sqlite/like_pattern.h"
#include "platform/store/sqlite/sql_text.h"

namespace ov::sqlite {

namespace {

using Values = std::span<sqlite3_value*>;

Text StoredText(sqlite3_value* value) {
    const void* text = sqlite3_value_text16(value);
    const auto bytes = static_cast<std::size_t>(sqlite3_value_bytes16(value));
    if (!text) Raise(ErrorNumber::OutOfMemory);
    return std::u16string_view(static_cast<const char16_t*>(text), bytes / sizeof(char16_t));
}

Variant ToVariant(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            return Decimal(std::int64_t{sqlite3_value_int64(value)});
        case SQLITE_FLOAT:
            return sqlite3_value_double(value);
        case SQLITE_NULL:
            return Variant::Null();
        default:
            return StoredText(value);
    }
}

// Numbers in the locale's form, as everywhere where a person may come to see them.
Text TextOf(sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    return type == SQLITE_TEXT || type == SQLITE_BLOB ? StoredText(value) : ToText(ToVariant(value));
}

std::int32_t LongOf(sqlite3_value* value) {
    return ToLong(ToVariant(value));
}

// A position or a count, which must not be below `least`.
std::size_t CountOf(sqlite3_value* value, std::int32_t least) {
    const std::int32_t count = LongOf(value);
    if (count < least) Raise(ErrorNumber::InvalidProcedureCall);
    return static_cast<std::size_t>(count);
}

bool IsNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

void Return(sqlite3_context* context, std::u16string_view text) {
    sqlite3_result_text64(context, reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t),
                          SQLITE_TRANSIENT, SQLITE_UTF16);
}

void Left(sqlite3_context* context, Values values) {
    Return(context, TextOf(values[0]).view().substr(0, CountOf(values[1], 0)));
}

void Right(sqlite3_context* context, Values values) {
    const Text text = TextOf(values[0]);
    Return(context, text.view().substr(text.size() - std::min(text.size(), CountOf(values[1], 0))));
}

void Mid(sqlite3_context* context, Values values) {
    const Text text = TextOf(values[0]);
    const std::size_t start = std::min(CountOf(values[1], 1) - 1, text.size());
    const std::size_t count = values.size() > 2 ? CountOf(values[2], 0) : text.size();
    Return(context, text.view().substr(start, count));
}

void Len(sqlite3_context* context, Values values) {
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(TextOf(values[0]).size()));
}

void Val(sqlite3_context* context, Values values) {
    sqlite3_result_double(context, ValPrefix(ToInvariantText(ToVariant(values[0]))));
}

void CStr(sqlite3_context* context, Values values) {
    Return(context, TextOf(values[0]));
}

void CLng(sqlite3_context* context, Values values) {
    sqlite3_result_int(context, LongOf(values[0]));
}

void UCase(sqlite3_context* context, Values values) {
    Return(context, ToUpperCase(TextOf(values[0])));
}

void LCase(sqlite3_context* context, Values values) {
    Return(context, ToLowerCase(TextOf(values[0])));
}

// InStr([start,] text, searched [, compare]): the start must be there for the compare to be there.
void InStr(sqlite3_context* context, Values values) {
    constexpr std::int32_t kBinary = 0;
    const bool hasStart = values.size() > 2;
    const std::size_t start = hasStart ? CountOf(values[0], 1) - 1 : 0;
    const Text text = TextOf(values[hasStart ? 1 : 0]);
    const Text searched = TextOf(values[hasStart ? 2 : 1]);
    const bool binary = values.size() > 3 && LongOf(values[3]) == kBinary;
    if (text.empty() || start > text.size()) {
        sqlite3_result_int(context, 0);
        return;
    }
    const auto equal = [binary](char16_t a, char16_t b) { return a == b || (!binary && FoldCase(a) == FoldCase(b)); };
    const std::u16string_view where = text.view().substr(start);
    const auto found = std::search(where.begin(), where.end(), searched.view().begin(), searched.view().end(), equal);
    const bool missing = found == where.end() && !searched.empty();
    sqlite3_result_int64(context, missing ? 0 : static_cast<sqlite3_int64>(start) + (found - where.begin()) + 1);
}

void Nz(sqlite3_context* context, Values values) {
    if (!IsNull(values[0])) {
        sqlite3_result_value(context, values[0]);
    } else if (values.size() > 1) {
        sqlite3_result_value(context, values[1]);
    } else {
        Return(context, u"");
    }
}

void Join(sqlite3_context* context, Values values) {
    Text joined;
    for (sqlite3_value* value : values) {
        if (!IsNull(value)) joined += TextOf(value);
    }
    Return(context, joined);
}

// "text LIKE pattern" calls like(pattern, text).
void Like(sqlite3_context* context, Values values) {
    char16_t escape = 0;
    if (values.size() > 2) {
        const Text text = TextOf(values[2]);
        if (text.size() != 1) Raise(ErrorNumber::InvalidProcedureCall);
        escape = text[0];
    }
    sqlite3_result_int(context, MatchesLike(TextOf(values[1]), TextOf(values[0]), escape) ? 1 : 0);
}

// What SQLite calls: Null in, Null out, and no exception leaves.
template <void (*Function)(sqlite3_context*, Values), bool NullSpreads>
void Call(sqlite3_context* context, int count, sqlite3_value** arguments) noexcept {
    const Values values(arguments, static_cast<std::size_t>(count));
    if (NullSpreads && std::ranges::any_of(values, IsNull)) {
        sqlite3_result_null(context);
        return;
    }
    try {
        Function(context, values);
    } catch (...) {
        const RuntimeError error = CurrentError();
        if (error.number() == static_cast<std::int32_t>(ErrorNumber::OutOfMemory)) {
            sqlite3_result_error_nomem(context);
        } else {
            sqlite3_result_error(context, error.what(), -1);
        }
    }
}

struct SqlFunction {
    const char* name;
    int arguments;  // -1 for any number
    void (*call)(sqlite3_context*, int, sqlite3_value**);
};

constexpr std::array kFunctions = {
    SqlFunction{"left", 2, Call<Left, true>},   SqlFunction{"right", 2, Call<Right, true>},
    SqlFunction{"mid", 2, Call<Mid, true>},     SqlFunction{"mid", 3, Call<Mid, true>},
    SqlFunction{"len", 1, Call<Len, true>},     SqlFunction{"val", 1, Call<Val, true>},
    SqlFunction{"cstr", 1, Call<CStr, true>},   SqlFunction{"clng", 1, Call<CLng, true>},
    SqlFunction{"ucase", 1, Call<UCase, true>}, SqlFunction{"lcase", 1, Call<LCase, true>},
    SqlFunction{"instr", 2, Call<InStr, true>}, SqlFunction{"instr", 3, Call<InStr, true>},
    SqlFunction{"instr", 4, Call<InStr, true>}, SqlFunction{"nz", 1, Call<Nz, false>},
    SqlFunction{"nz", 2, Call<Nz, false>},      SqlFunction{"like", 2, Call<Like, true>},
    SqlFunction{"like", 3, Call<Like, true>},   SqlFunction{kJoinFunction, -1, Call<Join, false>},
};

}  // namespace

int AddSqlFunctions(sqlite3* db) noexcept {
    // Innocuous: a view of the file may use them although the file is not trusted.
    constexpr int kFlags = SQLITE_UTF16 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    for (const SqlFunction& function : kFunctions) {
        const int code = sqlite3_create_function_v2(db, function.name, function.arguments, kFlags, nullptr,
                                                    function.call, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) return code;
    }
    return SQLITE_OK;
}

}  // namespace ov::sqlite
