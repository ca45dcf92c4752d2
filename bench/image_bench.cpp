// A whole device image, moved field by field, beside shifts and masks on plain numbers.
#include <array>
#include <bit>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <utility>
#include <vector>

#include "contract/callbacks.h"
#include "contract/internal.h"
#include "contract/parameter.h"
#include "figures.h"
#include "heap.h"
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

    bool IsLiteral(const Text&) override { return true; }
    Ref<ModuleServices> Module() override { return nullptr; }
    Variant GetParameterDescAsScript(const Text& field, Collection& data, const Variant&, VarType) override {
        return data.Get(field);
    }
    std::int32_t GetLongFromScript(const Text& text, const Variant&) override { return ToLong(text); }
    Variant GetDecimalFromScript(const Text& text, const Variant&) override { return ToDecimal(text); }
    double GetDoubleFromScript(const Text& text, const Variant&) override { return ToDouble(text); }
    void GetStringValueFromScript(Text&, const Variant&) override {}
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

enum class Form : std::uint8_t { Unsigned, Signed, Single };

struct Kind {
    const char16_t* type;
    const char16_t* subtype;
    std::int32_t width;
    Form form;
};
// Integers of a Long, singles, and integers of a Decimal.
constexpr std::array kKinds = {Kind{u"INT", u"u8", 8, Form::Unsigned},   Kind{u"INT", u"s16", 16, Form::Signed},
                               Kind{u"INT", u"u3", 3, Form::Unsigned},   Kind{u"INT", u"u5", 5, Form::Unsigned},
                               Kind{u"INT", u"s7", 7, Form::Signed},     Kind{u"FLOAT", u"f32", 32, Form::Single},
                               Kind{u"INT", u"u24", 24, Form::Unsigned}, Kind{u"INT", u"s32", 32, Form::Signed},
                               Kind{u"INT", u"s8", 8, Form::Signed},     Kind{u"INT", u"u16", 16, Form::Unsigned},
                               Kind{u"FLOAT", u"f32", 32, Form::Single}, Kind{u"INT", u"u32", 32, Form::Unsigned},
                               Kind{u"INT", u"s40", 40, Form::Signed},   Kind{u"INT", u"u64", 64, Form::Unsigned}};

struct Place {
    std::int32_t byte;
    std::int32_t bit;
    std::int32_t width;
    bool isBig;
    Form form;
};

/// Numbers and their fields, moved by a plain loop.
class PlainFields {
public:
    void Add(const Place& place) {
        mPlaces.push_back(place);
        mNumbers.push_back(0);
        mReals.push_back(0);
    }
    const Place& PlaceOf(std::size_t field) const { return mPlaces[field]; }
    std::int64_t NumberOf(std::size_t field) const { return mNumbers[field]; }
    double RealOf(std::size_t field) const { return mReals[field]; }
    void Set(std::size_t field, std::int64_t number) { mNumbers[field] = number; }
    void Set(std::size_t field, double number) { mReals[field] = number; }

    bool Export(std::vector<std::uint8_t>& image) const {
        for (std::size_t i = 0; i < mPlaces.size(); ++i) {
            const Place& at = mPlaces[i];
            const std::uint64_t pattern = at.form == Form::Single
                                              ? std::bit_cast<std::uint32_t>(static_cast<float>(mReals[i]))
                                              : static_cast<std::uint64_t>(mNumbers[i]);
            if (!(at.width < 8 ? WriteBits(image, at, pattern) : WriteBytes(image, at, pattern))) return false;
        }
        return true;
    }
    bool Import(const std::vector<std::uint8_t>& image) {
        for (std::size_t i = 0; i < mPlaces.size(); ++i) {
            const Place& at = mPlaces[i];
            std::uint64_t pattern = 0;
            if (!(at.width < 8 ? ReadBits(image, at, pattern) : ReadBytes(image, at, pattern))) return false;
            if (at.form == Form::Single) {
                mReals[i] = static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(pattern)));
            } else {
                const int unused = 64 - at.width;
                mNumbers[i] = at.form == Form::Signed ? static_cast<std::int64_t>(pattern << unused) >> unused
                                                      : static_cast<std::int64_t>(pattern);
            }
        }
        return true;
    }

private:
    using Bytes = std::vector<std::uint8_t>;

    static bool Has(const Bytes& image, std::int32_t first, std::int32_t count) {
        return first >= 0 && first + count <= static_cast<std::int32_t>(image.size());
    }
    static bool WriteBytes(Bytes& image, const Place& at, std::uint64_t pattern) {
        const std::int32_t count = at.width / 8;
        if (!Has(image, at.byte, count)) return false;
        std::uint8_t* bytes = image.data() + at.byte;
        for (std::int32_t j = 0; j < count; ++j) {
            bytes[at.isBig ? count - 1 - j : j] = static_cast<std::uint8_t>(pattern >> (8 * j));
        }
        return true;
    }
    static bool ReadBytes(const Bytes& image, const Place& at, std::uint64_t& pattern) {
        const std::int32_t count = at.width / 8;
        if (!Has(image, at.byte, count)) return false;
        const std::uint8_t* bytes = image.data() + at.byte;
        for (std::int32_t j = 0; j < count; ++j) {
            pattern |= std::uint64_t{bytes[at.isBig ? count - 1 - j : j]} << (8 * j);
        }
        return true;
    }
    // A field that crosses a byte's border goes on in the next byte, which is the one before in big endian.
    static bool WriteBits(Bytes& image, const Place& at, std::uint64_t pattern) {
        const unsigned mask = ((1U << at.width) - 1) << at.bit;
        const unsigned bits = static_cast<unsigned>(pattern) << at.bit & mask;
        const std::int32_t next = at.byte + (at.isBig ? -1 : 1);
        if (!Has(image, at.byte, 1) || (mask > 0xFF && !Has(image, next, 1))) return false;
        std::uint8_t* bytes = image.data();
        bytes[at.byte] = static_cast<std::uint8_t>((bytes[at.byte] & ~mask) | bits);
        if (mask > 0xFF) bytes[next] = static_cast<std::uint8_t>((bytes[next] & ~(mask >> 8)) | bits >> 8);
        return true;
    }
    static bool ReadBits(const Bytes& image, const Place& at, std::uint64_t& pattern) {
        const bool crosses = at.bit + at.width > 8;
        const std::int32_t next = at.byte + (at.isBig ? -1 : 1);
        if (!Has(image, at.byte, 1) || (crosses && !Has(image, next, 1))) return false;
        const std::uint8_t* bytes = image.data();
        const unsigned word = bytes[at.byte] | (crosses ? bytes[next] << 8 : 0);
        pattern = word >> at.bit & ((1U << at.width) - 1);
        return true;
    }

    std::vector<Place> mPlaces;
    std::vector<std::int64_t> mNumbers;
    std::vector<double> mReals;
};

/// The same fields as parameters and as plain numbers. Kinds and orders follow each other without a pattern.
class Fields {
public:
    Fields() {
        std::mt19937 random(1);
        std::int32_t bit = 0;
        while (mTransfers.size() < kFields) {
            const Kind& kind = kKinds[random() % kKinds.size()];
            mParameters.push_back(MakeConfigured(kind.type, kind.subtype, *mGroup));
            const bool isBig = random() % 2 == 0;
            const bool isNarrow = kind.width < 8;
            if (!isNarrow) bit = (bit + 7) / 8 * 8;
            const bool goesBack = isNarrow && isBig && bit % 8 + kind.width > 8;
            const Place place{bit / 8 + (goesBack ? 1 : 0), bit % 8, kind.width, isBig, kind.form};
            plain.Add(place);
            mTransfers.push_back({facet<IBase_SpecParameter>(mParameters.back()), place.byte, place.width, place.bit,
                                  isBig ? eByteOrder::eBigEndian : eByteOrder::eLittleEndian});
            bit += goesBack ? 16 - bit % 8 : kind.width;
        }
        image.bytes.resize(static_cast<std::size_t>(bit + 7) / 8);
    }

    /// Other numbers for another @p seed.
    void Fill(std::uint32_t seed) {
        constexpr std::int32_t kMostBits = 52;  // that a Double has
        std::mt19937_64 random(seed);
        for (std::size_t i = 0; i < kFields; ++i) {
            const Place& at = plain.PlaceOf(i);
            const auto number = static_cast<std::int64_t>(random() >> (64 - std::min(at.width, kMostBits)));
            if (at.form == Form::Single) {
                plain.Set(i, static_cast<double>(static_cast<float>(number)) / 4);
                mTransfers[i].parameter->let_value(plain.RealOf(i));
            } else {
                plain.Set(i, at.form == Form::Signed ? number - (std::int64_t{1} << (at.width - 1)) : number);
                mTransfers[i].parameter->let_value(Decimal(plain.NumberOf(i)));
            }
        }
    }
    bool Export() {
        bool done = true;
        for (const Transfer& each : mTransfers) {
            done &= each.parameter->ExportToByteArrayMapByMemory(image, each.startByte, each.bitlength, each.startBit,
                                                                 each.byteOrder);
        }
        return done;
    }
    bool Import(const ByteArray& source) {
        bool done = true;
        for (const Transfer& each : mTransfers) {
            done &= each.parameter->ImportFromByteArrayMapByMemory(source, each.startByte, each.bitlength,
                                                                   each.startBit, each.byteOrder);
        }
        return done;
    }
    bool AreSame() const {
        for (std::size_t i = 0; i < kFields; ++i) {
            const double value = ToDouble(mTransfers[i].parameter->get_value());
            const bool isSingle = plain.PlaceOf(i).form == Form::Single;
            if (value != (isSingle ? plain.RealOf(i) : static_cast<double>(plain.NumberOf(i)))) return false;
        }
        return true;
    }

    PlainFields plain;
    ByteArray image;

private:
    // The arguments in the form of the call, so that a compiler does not have to make them.
    struct Transfer {
        Ref<IBase_SpecParameter> parameter;
        std::optional<std::int32_t> startByte, bitlength, startBit;
        std::optional<eByteOrder> byteOrder;
    };

    Ref<DeafGroup> mGroup = MakeObject<DeafGroup>();
    std::vector<Ref<IBase_Internal>> mParameters;
    std::vector<Transfer> mTransfers;
};

/// Fields, and two images that differ in nearly every one of them.
class Device {
public:
    // Both ways must make the same images and numbers, or their speeds mean nothing.
    Device() {
        for (std::size_t i = 0; i < 2; ++i) {
            fields.Fill(static_cast<std::uint32_t>(2 + i));
            fields.plain.Export(fields.image.bytes);
            images[i] = fields.image;
            std::ranges::fill(fields.image.bytes, std::uint8_t{0});
            if (!fields.Export() || fields.image.bytes != images[i].bytes) throw std::logic_error("images differ");
        }
        for (const ByteArray& image : images) {
            if (!fields.Import(image) || !fields.plain.Import(image.bytes) || !fields.AreSame()) {
                throw std::logic_error("numbers differ");
            }
        }
    }

    Fields fields;
    std::array<ByteArray, 2> images;
};

void ExportImage(benchmark::State& state) {
    Device device;
    Fields& fields = device.fields;
    Compare(
        state, kLimit, [&] { return fields.Export(); }, [&] { return fields.plain.Export(fields.image.bytes); });
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kFields));
}
BENCHMARK(ExportImage)->UseManualTime();

// Of values that are already there, so that no event is told.
void ImportImage(benchmark::State& state) {
    Device device;
    Fields& fields = device.fields;
    Compare(
        state, kLimit, [&] { return fields.Import(device.images[1]); },
        [&] { return fields.plain.Import(device.images[1].bytes); });
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kFields));
}
BENCHMARK(ImportImage)->UseManualTime();

// Of new values, each of which is told to the group.
void ImportChangedImage(benchmark::State& state) {
    Device device;
    Fields& fields = device.fields;
    std::size_t turn = 0, plainTurn = 0;
    Compare(
        state, std::nullopt, [&] { return fields.Import(device.images[turn++ % 2]); },
        [&] { return fields.plain.Import(device.images[plainTurn++ % 2].bytes); });
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kFields));
}
BENCHMARK(ImportChangedImage)->UseManualTime();

// Both ways, of new values as well.
void ImageAllocations(benchmark::State& state) {
    Device device;
    std::size_t allocations = 0;
    for (auto _ : state) {
        const std::size_t before = AllocationCount();
        for (const ByteArray& image : device.images) {
            if (!device.fields.Import(image) || !device.fields.Export()) return state.SkipWithError("not moved");
        }
        allocations = AllocationCount() - before;
    }
    state.counters["allocations"] = static_cast<double>(allocations);
    state.counters["limit"] = 0;
}
BENCHMARK(ImageAllocations)->Iterations(1);

}  // namespace

}  // namespace ov::bench
