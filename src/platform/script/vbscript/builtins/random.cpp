#include <array>
#include <bit>

#include "platform/automation/unrepeatable.h"
#include "platform/functions/arguments.h"
#include "platform/script/vbscript/builtins/themes.h"
#include "platform/system/clock.h"

namespace ov::vbscript {

namespace {

constexpr std::uint32_t kMask = 0xFFFFFF;

/// The next state of the linear congruential generator that the language has always had.
std::uint32_t NextSeed(std::uint32_t seed) noexcept {
    constexpr std::uint32_t kFactor = 0x43FD43FD;
    constexpr std::uint32_t kIncrement = 0xC39EC3;
    return (seed * kFactor + kIncrement) & kMask;
}

/// A negative number begins the series of its own; 0 repeats the last number.
Variant Rnd(BuiltinContext& context, std::span<Variant> arguments) {
    Traces::Leave(Unrepeatable::Chance);
    std::uint32_t& seed = context.RandomSeed();
    const float number = IsGiven(arguments, 0) ? ToSingle(arguments[0]) : 1.0f;
    if (number < 0) {
        const auto bits = std::bit_cast<std::uint32_t>(number);
        seed = (bits + (bits >> 24)) & kMask;
    }
    if (number != 0) seed = NextSeed(seed);
    return static_cast<float>(seed) / 0x1p24f;
}

/// Replaces the upper 16 bits of the state; the lower 8 stay, so the same number gives another series later on.
Variant Randomize(BuiltinContext& context, std::span<Variant> arguments) {
    const double number = IsGiven(arguments, 0) ? ToDouble(arguments[0]) : SecondsSinceMidnight();
    const auto high = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number) >> 32);
    Traces::Leave(Unrepeatable::Chance);
    std::uint32_t& seed = context.RandomSeed();
    seed = (((high ^ (high >> 16)) & 0xFFFF) << 8) | (seed & 0xFF);
    return Variant();
}

constexpr std::array kBuiltins = {
    Builtin{u"Randomize", 0, 1, &Randomize},
    Builtin{u"Rnd", 0, 1, &Rnd},
};

}  // namespace

std::span<const Builtin> RandomBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
