// A whole device image, moved field by field, beside shifts and masks on plain integers.
#include <array>
#include <bit>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

#include "contract/callbacks.h"
#include "contract/internal.h"
#include "contract/parameter.h"
#include "figures.h"
#include "parameters/parameter_factory.h"
#include "parameters/parameter_owner.h"
#include "platform/automation/collection.h"
#include "platform/automation/conversions.h"

namespace ov::bench {

namespace {

constexpr std::size_t kFields = 1000;
constexpr double kLimit = 5;

/// A group that hears nothing.
class DeafGroup final : public Object<DeafGroup, Facet<ParameterOwner>, Facet<IBase_CallbackParameter>> {
public:
    static constexpr const char* kClassName = "DeafGroup";

    Ref<ModuleServices> Module() override { return nullptr; }
    Variant GetParameterDescAsScript(const Text& field, Collection& data, const Variant&, VarType) override {
        return data.Get(field);
    }
    std::int32_t GetLongFromScript(const Text& text, const Variant&) override { return ToLong(text); }
    bool GetBoolFromScript(const Text& text, const Variant&) override { return ToBoolean(text); }
    Variant GetDecimalFromScript(const Text& text, const Variant&) override { return ToDecimal(text); }
    float GetSingleFromScript(const Text& text, const Variant&) override { return ToSingle(text); }
    double GetDoubleFromScript(const Text& text, const Variant&) override { return ToDouble(text); }
    void GetStringValueFromScript(Text&, const Variant&) override {}
    Text GetStringFromScript(const Text& text, const Variant&) override { return text; }
    double GetDoubleFromVariantOrScript(const Variant&, double fallback, const Variant&) override { return fallback; }
    bool GetBoolFromVariantOrScript(const Variant&, bool fallback, const Variant&) override { return fallback; }
    void ForgetStaticScript(Text& text, const Text& replacement) override { text = replacement; }
    Variant EvaluateRawScript(const Text&, bool, bool) override { return {}; }
    Variant EvaluateScriptOrLiteral(const Text& text, bool) override { return text; }
    void ExecuteScript(const Text&) override {}
    void UpdateDependencies() override {}
    void OnParameterReconfigured(IBase_GuiParameter*) override {}
    void OnParameterStateChanged(IBase_GuiParameter*) override {}
    void OnParameterValueChanged(IBase_GuiParameter*) override {}
    void OnParameterConfigStateChanged(IBase_GuiParameter*) override {}
};

Ref<IBase_Internal> MakeConfigured(const Text& type, const Text& subtype, DeafGroup& group) {
    const std::array<std::pair<const char16_t*, Variant>, 8> cells = {{{u"idx", 1},
                                                                       {u"ParameterId", u"7"},
                                                                       {u"kind", 2},
                                                                       {u"subtype", subtype},
                                                                       {u"realGain", 1.0},
                                                                       {u"realOffset", 0.0},
                                                                       {u"DefaultValue", 0},
                                                                       {u"actionOnChange", u""}}};
    std::vector<Text> names;
    auto values = std::make_unique<Variant[]>(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        names.emplace_back(cells[i].first);
        values[i] = cells[i].second;
    }
    Ref<IBase_Internal> parameter = MakeParameter(type, subtype);
    parameter->Config(group.Dispatch(), Variant(MakeObject<Collection>(
                                            std::make_shared<const ColumnNames>(std::move(names)), std::move(values))));
    return parameter;
}

struct Kind {
    const char16_t* type;
    const char16_t* subtype;
    std::int32_t width;
    bool isSigned;
};
constexpr std::array kKinds = {Kind{u"INT", u"u8", 8, false},     Kind{u"INT", u"s16", 16, true},
                               Kind{u"INT", u"u3", 3, false},     Kind{u"INT", u"u5", 5, false},
                               Kind{u"FLOAT", u"f32", 32, false}, Kind{u"INT", u"u24", 24, false},
                               Kind{u"INT", u"s32", 32, true},    Kind{u"INT", u"u32", 32, false},
                               Kind{u"INT", u"s8", 8, true},      Kind{u"INT", u"u16", 16, false}};

/// The same fields twice: as parameters, and as integers that are a field's number or a float's bits.
class Image {
public:
    Image() {
        std::int32_t bit = 0;
        for (std::size_t i = 0; i < kFields; ++i) {
            const Kind& kind = kKinds[i % kKinds.size()];
            mParameters.push_back(MakeConfigured(kind.type, kind.subtype, *mGroup));
            mSpecs.push_back(facet<IBase_SpecParameter>(mParameters.back()));
            if (kind.width >= 8) bit = (bit + 7) / 8 * 8;
            mPlaces.push_back({bit, kind.width, kind.isSigned, i % 2 == 0 && kind.width >= 8});
            bit += kind.width;
            const auto number = static_cast<std::int32_t>(i % (kind.width < 8 ? 7 : 100)) - (kind.isSigned ? 50 : 0);
            mSpecs.back()->let_value(number);
            const bool isFloat = Text(kind.type) == u"FLOAT";
            mNumbers.push_back(isFloat ? std::bit_cast<std::int32_t>(static_cast<float>(number)) : number);
        }
        mImage.bytes.resize(static_cast<std::size_t>(bit + 7) / 8);
    }

    const ByteArray& ExportParameters() {
        for (std::size_t i = 0; i < kFields; ++i) {
            const Place& at = mPlaces[i];
            mSpecs[i]->ExportToByteArrayMapByMemory(mImage, at.bit / 8, at.width, at.bit % 8, OrderOf(at));
        }
        return mImage;
    }
    bool ImportParameters() {
        bool done = true;
        for (std::size_t i = 0; i < kFields; ++i) {
            const Place& at = mPlaces[i];
            done &= mSpecs[i]->ImportFromByteArrayMapByMemory(mImage, at.bit / 8, at.width, at.bit % 8, OrderOf(at));
        }
        return done;
    }
    const ByteArray& ExportNumbers() {
        for (std::size_t i = 0; i < kFields; ++i) {
            const Place& at = mPlaces[i];
            const auto number = static_cast<std::uint32_t>(mNumbers[i]);
            std::uint8_t* bytes = mImage.bytes.data() + at.bit / 8;
            if (at.width < 8) {
                const unsigned shift = static_cast<unsigned>(at.bit % 8);
                const unsigned mask = ((1U << at.width) - 1) << shift;
                unsigned word = bytes[0] | (shift + static_cast<unsigned>(at.width) > 8 ? bytes[1] << 8 : 0);
                word = (word & ~mask) | (number << shift & mask);
                bytes[0] = static_cast<std::uint8_t>(word);
                if (shift + static_cast<unsigned>(at.width) > 8) bytes[1] = static_cast<std::uint8_t>(word >> 8);
                continue;
            }
            const int count = at.width / 8;
            for (int j = 0; j < count; ++j) {
                bytes[at.isBig ? count - 1 - j : j] = static_cast<std::uint8_t>(number >> (8 * j));
            }
        }
        return mImage;
    }
    std::int32_t ImportNumbers() {
        for (std::size_t i = 0; i < kFields; ++i) {
            const Place& at = mPlaces[i];
            const std::uint8_t* bytes = mImage.bytes.data() + at.bit / 8;
            std::uint32_t number = 0;
            if (at.width < 8) {
                const unsigned shift = static_cast<unsigned>(at.bit % 8);
                const unsigned word = bytes[0] | (shift + static_cast<unsigned>(at.width) > 8 ? bytes[1] << 8 : 0);
                number = word >> shift & ((1U << at.width) - 1);
            } else {
                const int count = at.width / 8;
                for (int j = 0; j < count; ++j) {
                    number |= std::uint32_t{bytes[at.isBig ? count - 1 - j : j]} << (8 * j);
                }
            }
            const int unused = 32 - at.width;
            mNumbers[i] =
                at.isSigned ? static_cast<std::int32_t>(number << unused) >> unused : static_cast<std::int32_t>(number);
        }
        return mNumbers.back();
    }

private:
    struct Place {
        std::int32_t bit;
        std::int32_t width;
        bool isSigned;
        bool isBig;
    };
    static eByteOrder OrderOf(const Place& place) {
        return place.isBig ? eByteOrder::eBigEndian : eByteOrder::eLittleEndian;
    }

    Ref<DeafGroup> mGroup = MakeObject<DeafGroup>();
    std::vector<Ref<IBase_Internal>> mParameters;
    std::vector<Ref<IBase_SpecParameter>> mSpecs;
    std::vector<Place> mPlaces;
    std::vector<std::int32_t> mNumbers;
    ByteArray mImage;
};

// Both ways must make the same image, or their speeds mean nothing.
void CheckSame(Image& image) {
    const std::vector<std::uint8_t> bytes = image.ExportNumbers().bytes;
    if (bytes != image.ExportParameters().bytes || !image.ImportParameters()) std::abort();
}

void ExportImage(benchmark::State& state) {
    Image image;
    CheckSame(image);
    Compare(
        state, kLimit, [&] { return image.ExportParameters().bytes.back(); },
        [&] { return image.ExportNumbers().bytes.back(); });
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kFields));
}
BENCHMARK(ExportImage)->UseManualTime();

// Of values that are already there, so that no event is told.
void ImportImage(benchmark::State& state) {
    Image image;
    CheckSame(image);
    Compare(
        state, kLimit, [&] { return image.ImportParameters(); }, [&] { return image.ImportNumbers(); });
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kFields));
}
BENCHMARK(ImportImage)->UseManualTime();

}  // namespace

}  // namespace ov::bench
