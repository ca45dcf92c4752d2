// The values of both sample devices, in all their types: what a host stores of a parameter, as text or in a device
// image, gives the same value in another device.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "contract/group.h"
#include "module/module.h"
#include "platform/automation/conversions.h"
#include "support/elements.h"
#include "support/test_database.h"

namespace ov {
namespace {

using testing::ForEach;

// Calls @p visit with each parameter and its twin in a device of the same type.
template <class Visit>
void ForEachPair(Module& module, Module& twin, Visit visit) {
    ForEach(module.Spec()->channels(), [&](IDispatch* channelObject) {
        const auto channel = facet<IBase_SpecChannel>(channelObject);
        const auto twinChannel = twin.Spec()->channels()->get_Item(ToText(channel->id()));
        ForEach(channel->groups(), [&](IDispatch* groupObject) {
            const auto group = facet<IBase_SpecGroup>(groupObject);
            const auto twinGroup = twinChannel->groups()->get_Item(ToText(group->id()));
            ForEach(group->parameters(), [&](IDispatch* object) {
                const auto parameter = facet<IBase_SpecParameter>(object);
                visit(*parameter, *twinGroup->parameters()->get_Item(ToText(parameter->id())));
            });
        });
    });
}

std::string Word(IBase_SpecParameter& parameter, const char16_t* column) {
    const Variant cell = parameter.desc(column);
    return cell.IsNull() || cell.IsEmpty() ? "" : ToText(cell).ToUtf8();
}

// The bits that the parameter takes in an image: the descriptor's own, else those of its type.
std::int32_t BitsOf(IBase_SpecParameter& parameter) {
    const std::string own = Word(parameter, u"imageBits"), type = Word(parameter, u"Type");
    if (!own.empty()) return std::stoi(own);
    const std::string subtype = Word(parameter, u"subtype");
    if (subtype.starts_with("hex")) return 4 * static_cast<std::int32_t>(ToText(parameter.get_value()).size());
    if (subtype == "hartdate") return 24;
    if (type == "STRING" || type == "ENUMSTR" || type == "SELECTSTR") return 8 * ToLong(parameter.Gui()->Max());
    const std::size_t digit = type == "INT" ? subtype.find_first_of("123456789") : std::string::npos;
    const bool isWide = digit != std::string::npos && std::stoi(subtype.substr(digit)) > 32;
    return isWide ? std::stoi(subtype.substr(digit)) : 32;
}

std::string Exact(const Variant& value) {
    return value.IsNull() ? "Null" : ToText(value).ToUtf8();
}

// Takes the value away, as far as the class lets it.
void Spoil(IBase_SpecParameter& parameter) {
    parameter.let_value(parameter.get_value().IsString() ? Variant(u"") : Variant(1));
}

// Ids of the parameters that do not survive, by way.
struct Losses {
    std::set<std::string> storage, bytes, hex;
};

void Carry(IBase_SpecParameter& from, IBase_SpecParameter& to, Losses& losses) {
    const std::string id = Exact(from.id());
    std::string tag;
    const auto survives = [&](std::set<std::string>& lost, auto carry) {
        Spoil(to);
        const bool carried = carry() && from.Gui()->get_value() == to.Gui()->get_value();
        // An image holds a float as a Single, and a date comes out of it in the locale's form.
        const bool mayDiffer = Word(from, u"Type") == "FLOAT" || Word(from, u"subtype") == "hartdate";
        const bool exact = mayDiffer || Exact(from.get_realvalue()) == Exact(to.get_realvalue());
        if (!carried || !exact) lost.insert(id + tag);
    };
    survives(losses.storage, [&] {
        const auto stored = facet<IBase_SpecParameterStorage>(&from), target = facet<IBase_SpecParameterStorage>(&to);
        const Text text = stored->get_realvalueForStorage();
        target->let_realvalueForStorage(text);
        return target->get_realvalueForStorage() == text;
    });
    const std::int32_t bits = BitsOf(from);
    for (const eByteOrder order : {eByteOrder::eLittleEndian, eByteOrder::eBigEndian}) {
        tag = order == eByteOrder::eBigEndian ? "" : "-little";
        survives(losses.bytes, [&] {
            ByteArray image{std::vector<std::uint8_t>(static_cast<std::size_t>(bits + 7) / 8 + 2), 0};
            return from.ExportToByteArrayMapByMemory(image, 1, bits, 0, order) &&
                   to.ImportFromByteArrayMapByMemory(image, 1, bits, 0, order);
        });
        survives(losses.hex, [&] {
            Text image = Text::Repeat(static_cast<std::size_t>(bits + 7) / 4 + 4, u'0');
            return from.ExportToHexStringMapByMemory(image, 1, bits, 0, order) &&
                   to.ImportFromHexStringMapByMemory(image, 1, bits, 0, order);
        });
    }
}

std::string Joined(const std::set<std::string>& ids) {
    std::string joined;
    for (const std::string& id : ids) {
        joined += id + " ";
    }
    return joined;
}

struct SampleType {
    const char* file;
    const char16_t* type;
    const char *storage, *image;  // the ids that are lost on purpose, in the text and in both byte orders of an image
};

class SampleValues : public ::testing::TestWithParam<SampleType> {};

TEST_P(SampleValues, SurviveTheirStorage) {
    std::ifstream sql(OV_MODEL_SOURCE_DIR "/examples/tt200/" + std::string(GetParam().file));
    const testing::TestDatabase database({std::istreambuf_iterator<char>(sql), {}});
    const auto load = [&] {
        Ref<Module> module = MakeObject<Module>();
        module->SetSourcePath(database.Path());
        EXPECT_TRUE(module->Load(GetParam().type, {}, {}));
        return module;
    };
    const Ref<Module> module = load(), twin = load();
    EXPECT_TRUE(module->consistent({}));
    Losses losses;
    ForEachPair(*module, *twin, [&](IBase_SpecParameter& from, IBase_SpecParameter& to) {
        if (from.valid()) Carry(from, to, losses);
    });
    EXPECT_EQ(Joined(losses.storage), GetParam().storage);
    EXPECT_EQ(Joined(losses.bytes), GetParam().image);
    EXPECT_EQ(Joined(losses.hex), GetParam().image);
    module->Unload();
    twin->Unload();
}

// A text is read as a Double, which rounds 64 bits (1110, 1512). "version8_8_32" turns its pairs round when it is
// written to an image, and not when it is read (1112).
constexpr const char* kRounded = "1110 1512 ";
constexpr const char* kTurned = "1112 1112-little ";
INSTANTIATE_TEST_SUITE_P(AllTypes, SampleValues,
                         ::testing::Values(SampleType{"tt200.sql", u"TT200 HART", kRounded, kTurned},
                                           SampleType{"tt200.sql", u"TT200 PROFINET", kRounded, kTurned},
                                           SampleType{"tt200.sql", u"TT200 HART SIL", kRounded, kTurned},
                                           SampleType{"tt100.sql", u"TT100", "", ""},
                                           SampleType{"tt100.sql", u"TT100 Ex", "", ""}));

}  // namespace
}  // namespace ov
