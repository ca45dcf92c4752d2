/// @file
/// What the tests of the store share.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/automation/errors.h"
#include "platform/automation/variant_testing.h"
#include "platform/store/store.h"
#include "support/test_database.h"

namespace ov {

using testing::TestDatabase;

/// Runs @p action and expects the RuntimeError @p number with @p text somewhere in its description.
template <class Action>
void ExpectError(std::int32_t number, const std::string& text, Action&& action) {
    try {
        std::forward<Action>(action)();
        ADD_FAILURE() << "no error " << number;
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), number) << error.what();
        EXPECT_NE(std::string(error.what()).find(text), std::string::npos) << error.what();
    }
}

inline Variant ValueOf(const Ref<Recordset>& rows, const char16_t* column) {
    return rows->Fields(column)->Value();
}

/// One column of all rows, from the first to the last: "Long 1, Null".
inline std::string Walk(const Ref<Recordset>& rows, std::size_t column = 0) {
    std::string all;
    for (; !rows->Eof(); rows->MoveNext()) {
        if (!all.empty()) all += ", ";
        all += Describe(rows->ValueAt(column));
    }
    return all;
}

/// The first column of a query's rows, or the error that it ends with.
inline std::string Ask(const Ref<Database>& db, const std::string& sql) {
    try {
        return Walk(db->OpenRecordset(Text::FromUtf8(sql)));
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(error.number());
    }
}

}  // namespace ov
