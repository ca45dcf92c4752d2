/// @file
/// Any field of any parameter in any image: never a crash, no error raised, an image that keeps its size and, after a
/// failed export to a text, its content.
#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contract/callbacks.h"
#include "contract/internal.h"
#include "contract/parameter.h"
#include "parameters/parameter_factory.h"
#include "parameters/parameter_owner.h"
#include "platform/automation/collection.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"

namespace {

using ov::ParameterOwner;
using ov::Text;
using ov::Variant;

/// A group without module and scripts.
class LoneGroup final
    : public ov::Object<LoneGroup, ov::Facet<ParameterOwner>, ov::Facet<ov::IBase_CallbackParameter>> {
public:
    static constexpr const char* kClassName = "LoneGroup";

    bool IsLiteral(const Text&) override { return true; }
    ov::Ref<ov::ModuleServices> Module() override { return nullptr; }
    Variant GetParameterDescAsScript(const Text& field, ov::Collection& data, const Variant&, ov::VarType) override {
        return data.Get(field);
    }
    std::int32_t GetLongFromScript(const Text& text, const Variant&) override { return ov::ToLong(text); }
    Variant GetDecimalFromScript(const Text& text, const Variant&) override { return ov::ToDecimal(text); }
    double GetDoubleFromScript(const Text& text, const Variant&) override { return ov::ToDouble(text); }
    void GetStringValueFromScript(Text&, const Variant&) override {}
    void ForgetStaticScript(Text& text, const Text& replacement) override { text = replacement; }
    Variant EvaluateRawScript(const Text&, bool, bool) override { return {}; }
    Variant EvaluateScriptOrLiteral(const Text& text, bool) override { return text; }
    void ExecuteScript(const Text&) override {}
    void UpdateDependencies() override {}
    void OnParameterReconfigured(ov::IBase_GuiParameter*) override {}
    void OnParameterStateChanged(ov::IBase_GuiParameter*) override {}
    void OnParameterValueChanged(ov::IBase_GuiParameter*) override {}
    void OnParameterConfigStateChanged(ov::IBase_GuiParameter*) override {}
};

ov::Ref<ov::Collection> MakeRow(const Text& subtype, double gain) {
    const std::array<std::pair<const char16_t*, Variant>, 10> cells = {{{u"idx", 1},
                                                                        {u"ParameterId", u"7"},
                                                                        {u"kind", 2},
                                                                        {u"subtype", subtype},
                                                                        {u"realGain", gain},
                                                                        {u"realOffset", 0.0},
                                                                        {u"removeOnDependency", false},
                                                                        {u"DefaultValue", 0},
                                                                        {u"unit", 0},
                                                                        {u"editable", true}}};
    std::vector<Text> names;
    auto values = std::make_unique<Variant[]>(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        names.emplace_back(cells[i].first);
        values[i] = cells[i].second;
    }
    return ov::MakeObject<ov::Collection>(std::make_shared<const ov::ColumnNames>(std::move(names)), std::move(values));
}

Variant TakeValue(FuzzedDataProvider& data) {
    switch (data.ConsumeIntegralInRange(0, 4)) {
        case 0:
            return data.ConsumeIntegral<std::int32_t>();
        case 1:
            return data.ConsumeFloatingPoint<double>();
        case 2:
            return ov::Decimal(data.ConsumeBool(), data.ConsumeIntegral<std::uint32_t>(),
                               data.ConsumeIntegral<std::uint64_t>(), data.ConsumeIntegralInRange<std::uint8_t>(0, 28));
        case 3:
            return Text(u"QNAN");
        default:
            return Text::FromAscii(data.ConsumeRandomLengthString(20));
    }
}

// Mostly small, so that it often meets the image.
std::int32_t TakeNumber(FuzzedDataProvider& data) {
    return data.ConsumeBool() ? data.ConsumeIntegralInRange(-9, 90) : data.ConsumeIntegral<std::int32_t>();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::array<const char16_t*, 5> kTypes = {u"INT", u"HEX", u"FLOAT", u"STRING", u"INT"};
    constexpr std::array<const char16_t*, 6> kStringKinds = {u"ascii0",     u"packedascii", u"hartdate",
                                                             u"version8_8", u"hexstream",   u"multiline"};
    FuzzedDataProvider data(bytes, size);
    const Text type = data.PickValueInArray(kTypes);
    Text subtype = type == u"STRING" ? Text(data.PickValueInArray(kStringKinds))
                                     : Text(data.PickValueInArray({u"u", u"s", u"f"})) +
                                           Text::FromInteger(data.ConsumeIntegralInRange(0, 70));
    if (data.ConsumeBool()) subtype += u"reverseMapping";
    const ov::Ref<ov::IBase_Internal> parameter = ov::MakeParameter(type, subtype);
    if (!parameter) return 0;
    const ov::Ref<LoneGroup> group = ov::MakeObject<LoneGroup>();
    try {
        parameter->Config(group->Dispatch(), Variant(MakeRow(subtype, data.PickValueInArray({1.0, 0.1, -3.0}))));
        parameter->CheckConsistency();
    } catch (const ov::RuntimeError&) {
        // A width that the class does not have leaves it half configured, and it must bear that.
    }
    const ov::Ref<ov::IBase_SpecParameter> spec = ov::facet<ov::IBase_SpecParameter>(parameter);
    while (data.remaining_bytes() > 0) {
        spec->let_value(TakeValue(data));
        const std::int32_t startByte = TakeNumber(data), width = TakeNumber(data), startBit = TakeNumber(data);
        const auto order = static_cast<ov::eByteOrder>(data.ConsumeIntegralInRange(-1, 3));
        ov::ByteArray image{data.ConsumeBytes<std::uint8_t>(data.ConsumeIntegralInRange<std::size_t>(0, 20)),
                            data.ConsumeBool() ? 0 : TakeNumber(data)};
        Text text = Text::FromUtf8(data.ConsumeRandomLengthString(40));
        const Text formerText = text;
        const std::size_t formerSize = image.bytes.size();
        spec->ExportToByteArrayMapByMemory(image, startByte, width, startBit, order);
        const bool written = spec->ExportToHexStringMapByMemory(text, startByte, width, startBit, order);
        spec->ImportFromByteArrayMapByMemory(image, startByte, width, startBit, order);
        spec->ImportFromHexStringMapByMemory(text, startByte, width, startBit, order);
        if (image.bytes.size() != formerSize || text.size() != formerText.size()) std::abort();
        if (!written && text != formerText) std::abort();
    }
    parameter->Unload();
    return 0;
}
