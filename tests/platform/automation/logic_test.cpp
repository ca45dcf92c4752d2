#include <gtest/gtest.h>

#include <algorithm>

#include "platform/automation/operators.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

using Operator = Variant (*)(const Variant&, const Variant&);

TEST(LogicTest, TruthTables) {
    const Variant values[] = {true, false, Variant::Null()};
    struct Table {
        Operator operation;
        const char* results;  // T F N by rows: True, False, Null on the left
    };
    for (const Table& table : {Table{And, "TFNFFFNFN"}, Table{Or, "TTTTFNTNN"}, Table{Xor, "FTNTFNNNN"},
                               Table{Eqv, "TFNFTNNNN"}, Table{Imp, "TFNTTTTNN"}}) {
        const char* expected = table.results;
        for (const Variant& a : values) {
            for (const Variant& b : values) {
                EXPECT_EQ(Describe(table.operation(a, b)).front(), *expected++)
                    << table.results << ": " << Describe(a) << ", " << Describe(b);
            }
        }
    }
    EXPECT_EQ(Describe(Not(true)), "False");
    EXPECT_EQ(Describe(Not(Variant::Null())), "Null");
}

TEST(LogicTest, WorksBitByBit) {
    ExpectResults(And,
                  "I6, I3 -> Integer 2; I6, B1 -> Integer 6; Y6, Y3 -> Byte 2; Y6, B1 -> Integer 6; "
                  "D6.5, I3 -> Long 2; $7, I3 -> Long 3; E, Y1 -> Long 0");
    ExpectResults(Or, "I6, I3 -> Integer 7; E, B1 -> Long -1; I6, L65536 -> Long 65542");
    ExpectResults(Xor, "I6, I3 -> Integer 5; C6, M3 -> Long 5");
    ExpectResults(Eqv, "I6, I3 -> Integer -6; Y6, Y3 -> Byte 250");
    ExpectResults(Imp, "I6, I3 -> Integer -5");
    ExpectEach("E -> Long -1; Y1 -> Byte 254; I6 -> Integer -7; D2.5 -> Long -3; $1 -> Long -2; $x -> error 13",
               [](const Text& form) { return Outcome([&] { return Not(Value(form.ToUtf8())); }); });
}

TEST(LogicTest, NullLeavesNumbersOpenUnlessTheyDecide) {
    ExpectResults(And, "N, L0 -> Long 0; L5, N -> Null; N, $0 -> Long 0; N, $x -> error 13");
    ExpectResults(Or, "N, L5 -> Long 5; L0, N -> Null");
    ExpectResults(Imp, "L0, N -> Long -1; L5, N -> Null; N, L5 -> Long 5");
}

TEST(LogicTest, RefusesWhatIsNoNumber) {
    const Variant object(ValueObject::Of(Variant(true)));
    for (Operator operation : {And, Or, Xor, Eqv, Imp}) {
        EXPECT_EQ(Outcome([&] { return operation(u"abc", true); }), "error 13");
        EXPECT_EQ(Outcome([&] { return operation(1e10, true); }), "error 6");
        EXPECT_EQ(Outcome([&] { return operation(true, Array()); }), "error 13");
        EXPECT_EQ(Outcome([&] { return operation(Variant::Nothing(), true); }), "error 91");
        EXPECT_EQ(Describe(operation(object, true)), Describe(operation(true, true)));
    }
    EXPECT_EQ(Describe(Not(object)), "False");
}

}  // namespace
}  // namespace ov
