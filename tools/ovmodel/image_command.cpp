// ovmodel image DB TYPE MAP.csv
#include <algorithm>
#include <cctype>
#include <memory>
#include <span>
#include <string_view>

#include "contract/parameter.h"
#include "ovmodel/command.h"
#include "ovmodel/image_map.h"
#include "ovmodel/input_file.h"
#include "ovmodel/output_file.h"
#include "ovmodel/parameter_path.h"

namespace ovmodel {

using ov::Ref;

namespace {

constexpr std::uint64_t kMostImage = 64 * kMebibyte;

struct Options {
    std::string database, type, map, output, import;
    std::size_t size = 0;
    bool asHex = false;
};

struct PlacedParameter {
    MapField field;
    Ref<ov::IBase_SpecParameter> parameter;
};

void AddFault(std::string& faults, const std::string& mapPath, const MapField& field, const std::string& fault) {
    if (!faults.empty()) faults += '\n';
    faults += mapPath + ":" + std::to_string(field.line) + ": " + fault;
}

// All are found before one is moved, since an import may change which parameters there are.
std::vector<PlacedParameter> FindAll(ov::Module& module, const std::string& mapPath, const std::vector<MapField>& map) {
    std::vector<PlacedParameter> placed;
    std::string faults;
    for (const MapField& field : map) {
        try {
            placed.push_back({field, FindParameter(module, field.path)->Spec()});
        } catch (const Failure& failure) {
            AddFault(faults, mapPath, field, failure.what());
        }
    }
    if (!faults.empty()) throw Failure(faults);
    return placed;
}

std::string HexOf(std::span<const std::uint8_t> bytes, const char* between = "") {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string hex;
    for (const std::uint8_t byte : bytes) {
        if (!hex.empty()) hex += between;
        hex += {kDigits[byte >> 4], kDigits[byte & 0xF]};
    }
    return hex;
}

std::vector<std::uint8_t> ReadBytes(const std::string& path, bool asHex) {
    const std::string content = ReadInput(path, kMostImage);
    if (!asHex) return {content.begin(), content.end()};
    std::string digits;
    for (const char c : content) {
        if (std::isspace(static_cast<unsigned char>(c))) continue;
        if (!std::isxdigit(static_cast<unsigned char>(c))) throw Failure("'" + path + "' is no hexadecimal text");
        digits += c;
    }
    if (digits.size() % 2 != 0) throw Failure("'" + path + "' has an odd number of digits");
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(digits.substr(i, 2), nullptr, 16)));
    }
    return bytes;
}

void WriteBytes(const std::string& path, const std::vector<std::uint8_t>& bytes, bool asHex) {
    WriteWhole(path, asHex ? HexOf(bytes) + "\n" : std::string(bytes.begin(), bytes.end()));
}

// Moves each field by @p move, which answers whether it was done.
template <class Move>
void MoveAll(const Options& options, const std::vector<PlacedParameter>& placed, const char* fault, Move move) {
    std::string faults;
    for (const auto& [field, parameter] : placed) {
        if (move(*parameter, field)) continue;
        AddFault(faults, options.map, field, field.path + fault);
    }
    if (!faults.empty()) throw Failure(faults);
}

ov::ByteArray Export(const Options& options, const std::vector<PlacedParameter>& placed, std::size_t size) {
    ov::ByteArray image{std::vector<std::uint8_t>(size), 0};
    MoveAll(options, placed, " has no form of that length",
            [&image](ov::IBase_SpecParameter& parameter, const MapField& field) {
                return parameter.ExportToByteArrayMapByMemory(image, field.startByte, field.bitLength, field.startBit,
                                                              field.byteOrder);
            });
    return image;
}

void Import(const Options& options, const std::vector<PlacedParameter>& placed, const ov::ByteArray& image) {
    MoveAll(options, placed, " does not take what stands there",
            [&image](ov::IBase_SpecParameter& parameter, const MapField& field) {
                return parameter.ImportFromByteArrayMapByMemory(image, field.startByte, field.bitLength, field.startBit,
                                                                field.byteOrder);
            });
}

std::string ShownValue(ov::IBase_GuiParameter& parameter) {
    try {
        return parameter.get_value().ToUtf8();
    } catch (const ov::RuntimeError& error) {
        return std::string("(").append(error.what()).append(")");
    }
}

// The image as a dump: where a field lies, its bytes, and what they mean.
void PrintImage(const std::vector<PlacedParameter>& placed, const ov::ByteArray& image) {
    std::vector<std::vector<std::string>> rows = {{"byte", "bits", "content", "parameter", "name", "value"}};
    for (const auto& [field, parameter] : placed) {
        const std::vector<std::int64_t> bits = field.Bits();
        const auto first = static_cast<std::size_t>(std::ranges::min(bits) / 8);
        const auto last = static_cast<std::size_t>(std::ranges::max(bits) / 8);
        const Ref<ov::IBase_GuiParameter> gui = parameter->Gui();
        const std::string unit = gui->unit().ToUtf8();
        const std::int64_t bit = bits.front() % 8;
        rows.push_back({std::to_string(first),
                        bits.size() >= 8 ? std::to_string(bits.size())
                                         : std::to_string(bits.size()) + " at " + std::to_string(bit),
                        HexOf(std::span(image.bytes).subspan(first, last - first + 1), " "), field.path,
                        gui->name().ToUtf8(), ShownValue(*gui) + (unit.empty() ? "" : " " + unit)});
    }
    PrintTable(rows);
}

}  // namespace

std::string ImageAsHex(ov::Module& module, const std::string& mapPath) {
    const std::vector<MapField> map = ReadImageMap(mapPath);
    CheckPlaces(mapPath, map, SizeOf(map));
    Options options;
    options.map = mapPath;
    return HexOf(Export(options, FindAll(module, mapPath, map), SizeOf(map)).bytes);
}

namespace {

void Run(const Options& options) {
    const std::vector<MapField> map = ReadImageMap(options.map);
    ov::ByteArray image;
    if (!options.import.empty()) image.bytes = ReadBytes(options.import, options.asHex);
    const std::size_t size = !options.import.empty() ? image.bytes.size()
                             : options.size != 0     ? options.size
                                                     : SizeOf(map);
    CheckPlaces(options.map, map, size);
    const Ref<ov::Module> module = OpenDescriptor(options.database);
    LoadType(*module, options.database, options.type);
    {
        const std::vector<PlacedParameter> placed = FindAll(*module, options.map, map);
        if (!options.import.empty()) Import(options, placed, image);
        image = Export(options, placed, size);
        if (options.output.empty()) {
            PrintImage(placed, image);
        } else {
            WriteBytes(options.output, image.bytes, options.asHex);
        }
    }
    module->Unload();
}

}  // namespace

void AddImageCommand(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("image", "Show or write a device image, or read one");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("MAP", options->map, "CSV file: path,startByte,bitLength,startBit,byteOrder")->required();
    command->add_option("-o,--output", options->output, "Write the image to this file instead of showing it");
    command->add_option("--import", options->import, "Let the parameters read this image first");
    command->add_option("--size", options->size, "Bytes of the image (default: as many as the fields need)");
    command->add_flag("--hex", options->asHex, "Files hold hexadecimal digits instead of bytes");
    command->callback([options] { Run(*options); });
}

}  // namespace ovmodel
