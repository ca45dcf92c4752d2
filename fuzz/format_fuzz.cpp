/// @file
/// Any picture on any value: never a crash, no error but a RuntimeError, and the same text each time.
#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cstdlib>
#include <optional>
#include <string>

#include "platform/automation/errors.h"
#include "platform/automation/variant.h"
#include "platform/format/format.h"
#include "platform/locale/locale.h"

namespace {

ov::Text TakeText(FuzzedDataProvider& data, std::size_t most) {
    const std::string bytes = data.ConsumeRandomLengthString(most);
    // Most marks are ASCII; a byte beyond it becomes a character beyond it.
    std::u16string text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += static_cast<char16_t>(code < 0x80 ? code : code * 0x101);
    }
    return text;
}

ov::Variant TakeValue(FuzzedDataProvider& data) {
    constexpr std::size_t kLongestText = 60;
    switch (data.ConsumeIntegralInRange(0, 11)) {
        case 0:
            return {};
        case 1:
            return ov::Variant::Null();
        case 2:
            return data.ConsumeBool();
        case 3:
            return data.ConsumeIntegral<std::int32_t>();
        case 4:
            return data.ConsumeFloatingPoint<float>();
        case 5:
            return data.ConsumeFloatingPoint<double>();
        case 6:
            return ov::Currency{data.ConsumeIntegral<std::int64_t>()};
        case 7:
            return ov::Date{data.ConsumeFloatingPointInRange(-700000.0, 3000000.0)};
        case 8: {
            const bool negative = data.ConsumeBool();
            const auto high = data.ConsumeIntegral<std::uint32_t>();
            const auto low = data.ConsumeIntegral<std::uint64_t>();
            return ov::Decimal(negative, high, low, data.ConsumeIntegralInRange<std::uint8_t>(0, 28));
        }
        case 9:
            return data.ConsumeFloatingPointInRange(-1e6, 1e6);
        case 10:
            return ov::ErrorCode{7};
        default:
            return TakeText(data, kLongestText);
    }
}

// Nullopt for an error that was raised as it should be.
std::optional<ov::Text> Applied(const ov::Picture& picture, const ov::Variant& value) {
    try {
        return picture.Apply(value);
    } catch (const ov::RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::array<const char*, 4> kLocales = {"en-US", "de-DE", "hi-IN", "ar-EG"};
    constexpr std::size_t kLongestPicture = 4000;
    FuzzedDataProvider data(bytes, size);
    ov::SetCurrentLocale(std::string_view(data.PickValueInArray(kLocales)));
    const ov::Variant value = TakeValue(data);
    const ov::Picture picture(TakeText(data, kLongestPicture));
    if (Applied(picture, value) != Applied(picture, value)) std::abort();
    return 0;
}
