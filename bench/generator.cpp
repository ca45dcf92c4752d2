#include "generator.h"

#include <array>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include "generator_schema.h"
#include "sqlite_file.h"

namespace ov::bench {

namespace {

constexpr int kGroupOfTable = 20;     // parameters in a group of a table without descriptor
constexpr int kFirstFreeText = 1000;  // texts below are shared
// Texts of a unit.
constexpr std::int64_t kPercent = 11;
constexpr std::int64_t kSeconds = 12;
constexpr std::int64_t kTemperatureByMode = 13;
constexpr std::int64_t kNameOfMode = 14;

// Numbers that follow from the seed alone; the distributions of the standard library may differ from one to another.
class Random {
public:
    explicit Random(std::uint32_t seed) : mEngine(seed) {}

    /// A number from @p first to @p last.
    int Draw(int first, int last) {
        return first + static_cast<int>(mEngine() % static_cast<std::uint32_t>(last - first + 1));
    }
    template <class List>
    const auto& Pick(const List& list) {
        return list[mEngine() % list.size()];
    }

private:
    std::mt19937 mEngine;
};

// A row of the table of parameters, in the order of its columns.
struct ParameterRow {
    std::int64_t idx = 0;
    std::int64_t groupType = 0;
    std::int64_t order = 0;
    std::int64_t parameterId = 0;
    Cell enable = {};
    std::string type = {};
    Cell subtype = {};
    std::int64_t name = 0;
    std::int64_t description = 0;
    std::int64_t kind = 2;
    std::int64_t direction = 3;
    Cell unit = {};
    Cell min = {};
    Cell max = {};
    Cell defaultValue = {};
    Cell realGain = {};
    Cell realOffset = {};
    std::int64_t reverseMapping = 0;
    Cell displayFormat = {};
    Cell precision = {};
    std::int64_t multiline = 0;
    Cell consistency = {};
    Cell actionOnChange = {};
    Cell dependency = {};
    std::int64_t removeOnDependency = 0;
    std::int64_t editable = -1;
    std::int64_t expertOnly = 0;
    std::int64_t authentification = 0;
    Cell html = {};
    std::int64_t trendvariable = 0;
    Cell editPlugin = {};
    Cell editPluginArguments = {};
    Cell imageByte = {};
    Cell imageBit = std::int64_t{0};
    std::int64_t imageBits = 32;

    void AddTo(Insert& table) const {
        table.Row(idx, groupType, order, parameterId, enable, type, subtype, name, description, kind, direction, unit,
                  min, max, defaultValue, realGain, realOffset, reverseMapping, displayFormat, precision, multiline,
                  consistency, actionOnChange, dependency, removeOnDependency, editable, expertOnly, authentification,
                  html, trendvariable, editPlugin, editPluginArguments, imageByte, imageBit, imageBits);
    }
};

using Alternatives = std::vector<ParameterRow>;

std::string Number(int value) {
    return std::to_string(value);
}

// The two parameters that every group begins with.
Alternatives Mode(Random& random) {
    return {{.type = "ENUM", .subtype = "Mode", .defaultValue = Number(random.Draw(0, 2)), .imageBits = 8}};
}

Alternatives Level(Random& random) {
    return {{.type = "INT",
             .subtype = "u16",
             .unit = kPercent,
             .min = "0",
             .max = "1000",
             .defaultValue = Number(random.Draw(100, 900)),
             .imageBits = 16}};
}

// The kinds of the others, in turn.
Alternatives PlainInteger(Random& random) {
    return {{.type = "INT",
             .subtype = "u16",
             .unit = kSeconds,
             .min = "1",
             .max = "3600",
             .defaultValue = Number(random.Draw(1, 3600)),
             .imageBits = 16}};
}

Alternatives LimitsByRule(Random&) {
    return {{.type = "FLOAT",
             .subtype = "f32",
             .unit = kTemperatureByMode,
             .min = "!:-1 * P(\"2\")",
             .max = "!:P(\"2\") * 2 + 10",
             .defaultValue = "!:P(\"2\") / 4",
             .displayFormat = "0.00"}};
}

Alternatives EnabledByRule(Random& random) {
    return {{.type = "ENUM",
             .subtype = "Mode",
             .defaultValue = Number(random.Draw(0, 2)),
             .dependency = "!:P(\"1\") = 1 And P(\"2\") > 50",
             .imageBits = 8}};
}

Alternatives TwoAlternatives(Random& random) {
    return {{.type = "FLOAT",
             .subtype = "f32",
             .unit = kPercent,
             .min = "0",
             .max = "100",
             .defaultValue = Number(random.Draw(0, 100)),
             .displayFormat = "0.0",
             .dependency = "!:P(\"1\") <> 2"},
            {.type = "FLOAT",
             .subtype = "f32",
             .unit = kNameOfMode,
             .min = "-50",
             .max = "!:P(\"2\")",
             .defaultValue = "0",
             .displayFormat = "0.0",
             .dependency = "!:P(\"1\") = 2"}};
}

Alternatives CheckedText(Random& random) {
    return {{.type = "STRING",
             .subtype = "ascii",
             .max = "32",
             .defaultValue = "TAG " + Number(random.Draw(1000, 9999)),
             .consistency = "!:Len(P()) > 0",
             .imageBits = 256}};
}

Alternatives CheckedInteger(Random& random) {
    return {{.type = "INT",
             .subtype = "s32",
             .min = "0",
             .max = "#:24 * 3600",
             .defaultValue = Number(5 * random.Draw(0, 2000)),
             .consistency = "!:P() Mod 5 = 0 Or P(\"1\") = 0"}};
}

Alternatives Scaled(Random& random) {
    const std::string value = Number(random.Draw(-40, 400));
    return {{.type = "FLOAT",
             .subtype = "f32",
             .kind = 4,
             .unit = kTemperatureByMode,
             .min = "!:-200 * P.script(\"GAIN\") + P.script(\"OFFSET\")",
             .max = "!:850 * P.script(\"GAIN\") + P.script(\"OFFSET\")",
             .defaultValue = "!:" + value + " * P.script(\"GAIN\") + P.script(\"OFFSET\")",
             .realGain = "!:P.script(\"GAIN\")",
             .realOffset = "!:P.script(\"OFFSET\")",
             .displayFormat = "0.0",
             .trendvariable = -1}};
}

Alternatives RemovedByRule(Random& random) {
    return {{.type = "HEX",
             .subtype = "u16",
             .defaultValue = "&H" + Number(random.Draw(1000, 7999)),
             .displayFormat = "hex4",
             .dependency = "!:P(\"1\") > 0",
             .removeOnDependency = -1,
             .imageBits = 16}};
}

Alternatives ListByRule(Random&) {
    return {
        {.type = "ENUM", .subtype = "Mode", .max = "!:Iif(P(\"2\") > 500, 2, 1)", .defaultValue = "0", .imageBits = 8}};
}

// Only of groups behind the first one, which must not ask for itself through its channel.
Alternatives LimitOfFirstGroup(Random&) {
    return {{.type = "INT", .subtype = "s32", .min = "0", .max = "!:G(\"1\")(\"2\") + 1", .defaultValue = "0"}};
}

using Recipe = Alternatives (*)(Random& random);
constexpr std::array<Recipe, 10> kRecipes = {LimitsByRule,   PlainInteger, TwoAlternatives, CheckedText,
                                             CheckedInteger, Scaled,       EnabledByRule,   LimitOfFirstGroup,
                                             RemovedByRule,  ListByRule};

Recipe RecipeOf(int parameter, bool firstGroup, ParameterMix mix) {
    if (mix == ParameterMix::Integers) return PlainInteger;
    if (parameter == 1) return Mode;
    if (parameter == 2) return Level;
    if (mix == ParameterMix::OneRuleEach) return EnabledByRule;
    const Recipe recipe = kRecipes[static_cast<std::size_t>(parameter - 3) % kRecipes.size()];
    return recipe == LimitOfFirstGroup && firstGroup ? PlainInteger : recipe;
}

class ParameterWriter {
public:
    ParameterWriter(SqliteFile& file, Random& random, ParameterMix mix = ParameterMix::All)
        : mTable(file, "Parameters", kParameterColumns), mRandom(random), mMix(mix) {}

    void BeginImage() { mImageByte = 0; }

    // Writes the parameters of a group, but no row beyond mostRows in all.
    void WriteGroup(int groupType, bool firstGroup, int parameters,
                    std::int64_t mostRows = std::numeric_limits<std::int64_t>::max()) {
        std::int64_t order = 0;
        for (int parameter = 1; parameter <= parameters; ++parameter) {
            const Alternatives alternatives = RecipeOf(parameter, firstGroup, mMix)(mRandom);
            ++mParameters;
            for (ParameterRow row : alternatives) {
                if (mRows == mostRows) return;
                row.idx = ++mRows;
                row.groupType = groupType;
                row.order = ++order;
                row.parameterId = parameter;
                row.name = kFirstFreeText + 2 * (mParameters - 1);
                row.description = row.name + 1;
                row.imageByte = mImageByte;
                row.AddTo(mTable);
            }
            mImageByte += alternatives.front().imageBits / 8;
        }
    }

    std::int64_t Rows() const { return mRows; }
    // Texts that the parameters refer to, from kFirstFreeText on.
    std::int64_t Texts() const { return mParameters * 2; }

private:
    Insert mTable;
    Random& mRandom;
    ParameterMix mMix;
    std::int64_t mRows = 0;
    std::int64_t mParameters = 0;
    std::int64_t mImageByte = 0;
};

struct Word {
    const char* german;
    const char* english;
};
constexpr std::array kWords = {
    Word{"Temperatur", "temperature"}, Word{"Grenzwert", "limit"},    Word{"Dämpfung", "damping"},
    Word{"Messbereich", "range"},      Word{"Ausgang", "output"},     Word{"Eingang", "input"},
    Word{"Störung", "failure"},        Word{"Verzögerung", "delay"},  Word{"Sensor", "sensor"},
    Word{"Kalibrierung", "trim"},      Word{"Anzeige", "display"},    Word{"Zähler", "counter"},
    Word{"Nullpunkt", "zero point"},   Word{"Steigung", "slope"},     Word{"Druck", "pressure"},
    Word{"Durchfluss", "flow"},        Word{"Füllstand", "level"},    Word{"Alarm", "alarm"},
    Word{"Hysterese", "hysteresis"},   Word{"Kennlinie", "curve"},    Word{"Simulation", "simulation"},
    Word{"Betriebsart", "mode"},       Word{"Schleppzeiger", "peak"}, Word{"Mittelwert", "average"},
};

void WriteTexts(SqliteFile& file, Random& random, std::int64_t first, std::int64_t count) {
    Insert table(file, "Texts", 3);
    for (std::int64_t key = first; key < first + count; ++key) {
        std::string german;
        std::string english;
        for (int words = random.Draw(1, 4); words > 0; --words) {
            const Word& word = random.Pick(kWords);
            german += std::string(word.german) + ' ';
            english += std::string(word.english) + ' ';
        }
        const std::string number = std::to_string(key);
        table.Row(key, german + number, key % 8 == 0 ? Cell() : Cell(english + number));
    }
}

void WriteChannels(SqliteFile& file, const DescriptorShape& shape) {
    Insert channels(file, "Channels", 7);
    Insert types(file, "ChannelTypes", 2);
    Insert groups(file, "Groups", 12);
    Insert blocks(file, "Blocks", 3);
    for (int channel = 0; channel < shape.channels; ++channel) {
        const int type = channel + 1;
        channels.Row(1, channel, 3, type, channel, nullptr, nullptr);
        types.Row(type, "G(\"1\")(\"2\")");
        blocks.Row(type, type, 5);
        for (int group = 1; group <= shape.groups; ++group) {
            groups.Row(type, channel * shape.groups + group, group, 4, type, group, nullptr, nullptr, nullptr, nullptr,
                       nullptr, nullptr);
        }
    }
}

}  // namespace

std::string GenerateDescriptor(const DescriptorShape& shape) {
    Random random(shape.seed);
    SqliteFile file;
    file.Run(kTextsTable);
    file.Run(kParametersTable);
    if (shape.isIndexed) file.Run(kParametersIndex);
    file.Run(kFrameTables);
    WriteChannels(file, shape);
    std::int64_t texts = 0;
    {
        ParameterWriter parameters(file, random, shape.mix);
        for (int channel = 0; channel < shape.channels; ++channel) {
            parameters.BeginImage();
            for (int group = 1; group <= shape.groups; ++group) {
                parameters.WriteGroup(channel * shape.groups + group, group == 1, shape.parameters);
            }
        }
        texts = parameters.Texts();
    }
    WriteTexts(file, random, kFirstFreeText, texts);
    return file.Finish();
}

std::string GenerateTextTable(int rows, std::uint32_t seed) {
    Random random(seed);
    SqliteFile file;
    file.Run(kTextsTable);
    WriteTexts(file, random, 1, rows);
    return file.Finish();
}

std::string GenerateParameterTable(int rows, std::uint32_t seed) {
    Random random(seed);
    SqliteFile file;
    file.Run(kParametersTable);
    file.Run(kParametersIndex);
    {
        ParameterWriter parameters(file, random);
        for (int group = 1; parameters.Rows() < rows; ++group) {
            parameters.WriteGroup(group, group == 1, kGroupOfTable, rows);
        }
    }
    return file.Finish();
}

std::string GenerateNumberTable(int rows, std::uint32_t seed) {
    Random random(seed);
    SqliteFile file;
    std::string sql = "CREATE TABLE Numbers (Column1 LONG PRIMARY KEY";
    for (int column = 2; column <= kParameterColumns; ++column) {
        sql += ", Column" + std::to_string(column) + (column % 2 == 0 ? " LONG" : " DOUBLE");
    }
    file.Run((sql + ")").c_str());
    {
        Insert table(file, "Numbers", kParameterColumns);
        for (int row = 1; row <= rows; ++row) {
            table.Bind(1, row);
            for (int column = 2; column <= kParameterColumns; ++column) {
                const int number = random.Draw(-1000000, 1000000);
                if (column % 3 == 0) {
                    table.Bind(column, nullptr);
                } else if (column % 2 == 0) {
                    table.Bind(column, number);
                } else {
                    table.Bind(column, number / 1000.0);
                }
            }
            table.Step();
        }
    }
    return file.Finish();
}

}  // namespace ov::bench
