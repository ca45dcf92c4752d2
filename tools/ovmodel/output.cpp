// How results are written.
#include <algorithm>
#include <iostream>

#include "ovmodel/command.h"

namespace ovmodel {

namespace {

// Number of characters, which is what a terminal shows, of UTF-8 bytes.
std::size_t Width(const std::string& text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace

void Print(const Json& json) {
    std::cout << json.dump(2) << "\n";
}

std::string TableText(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], Width(row[i]));
        }
    }
    std::string text;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i];
            if (i + 1 < row.size()) line.append(widths[i] - Width(row[i]) + 2, ' ');
        }
        text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
}

void PrintTable(const std::vector<std::vector<std::string>>& rows) {
    std::cout << TableText(rows);
}

}  // namespace ovmodel
