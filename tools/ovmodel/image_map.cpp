#include "ovmodel/image_map.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <sstream>
#include <string_view>

#include "ovmodel/command.h"
#include "ovmodel/input_file.h"

namespace ovmodel {

namespace {

constexpr std::int64_t kByte = 8;
constexpr std::int32_t kMostBytes = 1 << 20;
constexpr std::size_t kColumns = 5;
constexpr std::uint64_t kMostText = 16 * kMebibyte;

std::string Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    for (std::size_t at = 0; at <= line.size();) {
        const std::size_t end = std::min(line.find(',', at), line.size());
        cells.push_back(Trimmed(std::string_view(line).substr(at, end - at)));
        at = end + 1;
    }
    return cells;
}

// A number of bits or bytes of a file that a person keeps.
std::optional<std::int32_t> Number(const std::string& text) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && number >= 0 && number <= kMostBytes ? std::optional(number) : std::nullopt;
}

// Fills in a field, or tells what is wrong with it.
std::string Parse(const std::vector<std::string>& cells, MapField& field) {
    if (cells.size() != kColumns) return "not " + std::to_string(kColumns) + " columns";
    field.path = cells[0];
    if (std::ranges::count(field.path, '/') != 2) return "'" + field.path + "' is no path CHANNEL/GROUP/PARAMETER";
    const std::optional<std::int32_t> byte = Number(cells[1]), length = Number(cells[2]), bit = Number(cells[3]);
    if (!byte) return "'" + cells[1] + "' is no start byte";
    if (!length || *length == 0) return "'" + cells[2] + "' is no bit length";
    if (!bit) return "'" + cells[3] + "' is no start bit";
    if (cells[4] != "little" && cells[4] != "big") return "'" + cells[4] + "' is neither 'little' nor 'big'";
    field.startByte = *byte;
    field.bitLength = *length;
    field.startBit = *bit;
    field.byteOrder = cells[4] == "big" ? ov::eByteOrder::eBigEndian : ov::eByteOrder::eLittleEndian;
    return {};
}

std::string At(const std::string& path, int line, const std::string& fault) {
    return path + ":" + std::to_string(line) + ": " + fault + "\n";
}

void FailWith(std::string faults) {
    if (faults.empty()) return;
    faults.pop_back();  // the last line's end
    throw Failure(faults);
}

}  // namespace

std::vector<std::int64_t> MapField::Bits() const {
    const std::int64_t first = startByte + startBit / kByte;
    const std::int64_t bit = startBit % kByte;
    std::vector<std::int64_t> bits;
    if (bitLength >= kByte) {
        const std::int64_t bytes = (bitLength + kByte - 1) / kByte;
        for (std::int64_t i = 0; i < bytes * kByte; ++i) {
            bits.push_back(first * kByte + i);
        }
        return bits;
    }
    const std::int64_t next = byteOrder == ov::eByteOrder::eBigEndian ? first - 1 : first + 1;
    for (std::int64_t i = bit; i < bit + bitLength; ++i) {
        bits.push_back(i < kByte ? first * kByte + i : next * kByte + i - kByte);
    }
    return bits;
}

std::vector<MapField> ReadImageMap(const std::string& path) {
    std::istringstream file(ReadInput(path, kMostText));
    std::vector<MapField> map;
    std::string faults, text;
    bool titlesRead = false;
    for (int line = 1; std::getline(file, text); ++line) {
        const std::string content = Trimmed(text);
        if (content.empty() || content.starts_with('#')) continue;
        if (!std::exchange(titlesRead, true)) continue;
        MapField field;
        field.line = line;
        const std::string fault = Parse(Cells(content), field);
        if (fault.empty()) {
            map.push_back(field);
        } else {
            faults += At(path, line, fault);
        }
    }
    FailWith(faults);
    if (map.empty()) throw Failure("'" + path + "' names no field");
    return map;
}

std::size_t SizeOf(const std::vector<MapField>& map) {
    std::int64_t last = -1;
    for (const MapField& field : map) {
        last = std::max(last, std::ranges::max(field.Bits()) / kByte);
    }
    return static_cast<std::size_t>(last + 1);
}

void CheckPlaces(const std::string& path, const std::vector<MapField>& map, std::size_t size) {
    std::string faults;
    std::map<std::int64_t, const MapField*> taken;
    const std::int64_t end = static_cast<std::int64_t>(size) * kByte;
    for (const MapField& field : map) {
        bool isInside = true;
        const MapField* other = nullptr;
        for (const std::int64_t bit : field.Bits()) {
            isInside = isInside && bit >= 0 && bit < end;
            const auto [at, isNew] = taken.try_emplace(bit, &field);
            if (!isNew && !other) other = at->second;
        }
        if (!isInside) {
            faults += At(path, field.line, field.path + " lies outside the " + std::to_string(size) + " bytes");
        }
        if (other && other != &field) {
            faults += At(path, field.line,
                         field.path + " overlaps " + other->path + " of line " + std::to_string(other->line));
        }
    }
    FailWith(faults);
}

}  // namespace ovmodel
