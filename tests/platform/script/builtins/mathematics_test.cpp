#include <cmath>
#include <limits>

#include "platform/script/builtins/builtin_call.h"
#include "support/scoped_settings.h"

namespace ov::vbscript {
namespace {

using namespace testing;

TEST(MathematicsBuiltins, KeepTheTypeOfTheNumber) {
    const ov::testing::ScopedLocale english("en-US");
    constexpr std::int32_t kLeastLong = std::numeric_limits<std::int32_t>::min();
    CheckCalls({
        {u"Abs", {-5}, "Long 5"},
        {u"Abs", {Int(-32768)}, "Long 32768"},
        {u"Abs", {kLeastLong}, "Double 2147483648"},
        {u"Abs", {-1.5f}, "Single 1.5"},
        {u"Abs", {-0.0}, "Double 0"},
        {u"Abs", {u"-2.5"}, "Double 2.5"},
        {u"Abs", {true}, "Integer 1"},
        {u"Abs", {Variant()}, "Integer 0"},
        {u"Abs", {Byte(7)}, "Byte 7"},
        {u"Abs", {Currency{-15000}}, "Currency 1.5"},
        {u"Abs", {kNull}, "Null"},
        {u"Abs", {u"abc"}, "error 13"},
        {u"Abs", {Held(-3)}, "Long 3"},
        {u"Abs", {Held(kNull)}, "Null"},
        {u"Abs", {Variant::Nothing()}, "error 91"},
        {u"Int", {-1.5}, "Double -2"},
        {u"Int", {-1.5f}, "Single -2"},
        {u"Int", {u"-8.4"}, "Double -9"},
        {u"Int", {Currency{-15000}}, "Currency -2"},
        {u"Int", {Decimal(true, 0, 15, 1)}, "Decimal -2"},
        {u"Int", {Date{1.75}}, "Date 1899-12-31 00:00:00"},
        {u"Int", {true}, "Integer -1"},
        {u"Int", {40000}, "Long 40000"},
        {u"Int", {kNull}, "Null"},
        {u"Fix", {-1.5}, "Double -1"},
        {u"Fix", {1.5f}, "Single 1"},
        {u"Fix", {Currency{-15000}}, "Currency -1"},
        {u"Fix", {Decimal(true, 0, 15, 1)}, "Decimal -1"},
        {u"Fix", {Variant()}, "Integer 0"},
        {u"Sgn", {-0.1}, "Integer -1"},
        {u"Sgn", {u"12"}, "Integer 1"},
        {u"Sgn", {Variant()}, "Integer 0"},
        {u"Sgn", {kNull}, "error 94"},
    });
}

TEST(MathematicsBuiltins, RoundTakesHalvesToEven) {
    const ov::testing::ScopedLocale english("en-US");
    CheckCalls({
        {u"Round", {2.5}, "Double 2"},
        {u"Round", {-3.5}, "Double -4"},
        {u"Round", {2.675, 2}, "Double 2.68"},
        {u"Round", {0.125, 2}, "Double 0.12"},
        {u"Round", {1234.5678, 20}, "Double 1234.5678"},
        {u"Round", {1.5f}, "Single 2"},
        {u"Round", {7, 2}, "Long 7"},
        {u"Round", {Int(7)}, "Integer 7"},
        {u"Round", {true}, "Integer -1"},
        {u"Round", {u"2.5"}, "Double 2"},
        {u"Round", {Currency{25000}}, "Currency 2"},
        {u"Round", {Currency{-12350}, 2}, "Currency -1.24"},
        {u"Round", {Currency{12345}, 3}, "Currency 1.234"},
        {u"Round", {Currency{12345}, 9}, "Currency 1.2345"},
        {u"Round", {Currency{std::numeric_limits<std::int64_t>::max()}}, "error 6"},
        {u"Round", {Decimal(false, 0, 12345, 4), 3}, "Decimal 1.234"},
        {u"Round", {Decimal(false, 0, 12345, 4), 99}, "Decimal 1.2345"},
        {u"Round", {Date{1.25}}, "Date 1899-12-31 00:00:00"},
        {u"Round", {kNull}, "Null"},
        {u"Round", {1.5, -1}, "error 5"},
        {u"Round", {1.5, kNull}, "error 94"},
    });
}

TEST(MathematicsBuiltins, ComputeInDouble) {
    const ov::testing::ScopedLocale english("en-US");
    CheckCalls({
        {u"Sqr", {16}, "Double 4"},
        {u"Sqr", {u"2.25"}, "Double 1.5"},
        {u"Sqr", {-1}, "error 5"},
        {u"Log", {1}, "Double 0"},
        {u"Log", {0}, "error 5"},
        {u"Exp", {1}, "Double 2.71828182845905"},
        {u"Exp", {710}, "error 6"},
        {u"Exp", {-1000}, "Double 0"},
        {u"Sin", {Variant()}, "Double 0"},
        {u"Cos", {true}, "Double 0.54030230586814"},
        {u"Tan", {1}, "Double 1.5574077246549"},
        {u"Atn", {1}, "Double 0.785398163397448"},
        {u"Sin", {kNull}, "error 94"},
        {u"Cos", {u"x"}, "error 13"},
    });
}

TEST(RandomBuiltins, GiveTheLanguagesOwnSeries) {
    TestContext context;
    const auto rnd = [&](std::vector<Variant> arguments = {}) { return Call(context, u"Rnd", std::move(arguments)); };
    EXPECT_EQ(rnd(), "Single 0.7055475");
    EXPECT_EQ(rnd({1}), "Single 0.533424");
    EXPECT_EQ(rnd({0}), "Single 0.533424");
    EXPECT_EQ(rnd({kMissing}), "Single 0.5795186");
    EXPECT_EQ(rnd({0.5}), "Single 0.2895625");
    EXPECT_EQ(rnd({-1}), "Single 0.224007");
    EXPECT_EQ(rnd(), "Single 3.584582E-02");
    EXPECT_EQ(rnd({-1}), "Single 0.224007");
    EXPECT_EQ(rnd({-3.5}), rnd({-3.5}));
    EXPECT_EQ(rnd({u"x"}), "error 13");
}

TEST(RandomBuiltins, RandomizeReplacesAPartOfTheState) {
    TestContext context;
    EXPECT_EQ(Call(context, u"Randomize", {0}), "Empty");
    EXPECT_EQ(Call(context, u"Rnd", {}), "Single 0.7641413");
    EXPECT_EQ(Call(context, u"Rnd", {}), "Single 0.3576428");

    // The same number again gives another series, unless a negative number set the whole state before.
    const auto series = [](bool restart) {
        TestContext fresh;
        std::vector<std::string> numbers;
        for (int i = 0; i < 2; ++i) {
            if (restart) Call(fresh, u"Rnd", {-1});
            Call(fresh, u"Randomize", {42});
            numbers.push_back(Call(fresh, u"Rnd", {}));
        }
        return numbers;
    };
    EXPECT_EQ(series(true)[0], series(true)[1]);
    EXPECT_NE(series(false)[0], series(false)[1]);

    TestContext byClock;
    Call(byClock, u"Randomize", {});
    EXPECT_NE(byClock.RandomSeed(), kFirstRandomSeed);
}

TEST(RandomBuiltins, StayInTheirRange) {
    TestContext context;
    for (int i = 0; i < 5000; ++i) {
        const Variant number = FindBuiltin(u"Rnd")->call(context, {});
        ASSERT_GE(number.AsSingle(), 0.0f);
        ASSERT_LT(number.AsSingle(), 1.0f);
    }
}

}  // namespace
}  // namespace ov::vbscript
