#include "platform/system/ini_file.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace ov {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// True if `name` is `section` or below it.
bool IsInTree(std::u16string_view name, std::u16string_view section) {
    if (name.size() > section.size() && name[section.size()] != u'\\') return false;
    return EqualNoCase(name.substr(0, section.size()), section);
}

}  // namespace

IniFile::IniFile(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
        mLines.push_back(ParseLine(std::string(bytes.substr(0, length))));
        bytes.remove_prefix(length);
    }
    if (!mLines.empty() && mLines.front().bytes.ends_with("\r\n")) mLineEnd = "\r\n";
}

IniFile::Line IniFile::ParseLine(std::string bytes) {
    Line line;
    line.bytes = std::move(bytes);
    std::string_view content = line.bytes;
    if (content.starts_with(kByteOrderMark)) content.remove_prefix(kByteOrderMark.size());
    content = Trimmed(content);
    if (content.empty()) return line;
    if (content[0] == ';' || content[0] == '#') {
        line.kind = LineKind::Remark;
    } else if (content[0] == '[') {
        // A header that never closes begins a section that nobody asks for: its entries must not fall to the one above.
        const std::size_t end = content.find(']');
        line.kind = LineKind::Section;
        if (end != std::string_view::npos) line.name = Text::FromUtf8(Trimmed(content.substr(1, end - 1)));
    } else if (const std::size_t sign = line.bytes.find('='); sign != std::string::npos) {
        line.kind = LineKind::Entry;
        const std::size_t start = static_cast<std::size_t>(content.data() - line.bytes.data());
        line.name = Text::FromUtf8(Trimmed(std::string_view(line.bytes).substr(start, sign - start)));
        line.valueAt = sign + 1;
    }
    return line;
}

std::string_view IniFile::ValueOf(const Line& line) const {
    return Trimmed(std::string_view(line.bytes).substr(line.valueAt));
}

// Index of the header behind the section that begins at `header`, or of the end.
std::size_t IniFile::SectionEnd(std::size_t header) const {
    std::size_t end = header + 1;
    while (end < mLines.size() && mLines[end].kind != LineKind::Section)
        ++end;
    return end;
}

std::optional<std::size_t> IniFile::FindEntry(const Text& section, const Text& name) const {
    std::optional<std::size_t> found;
    bool inSection = false;
    for (std::size_t i = 0; i < mLines.size(); ++i) {
        const Line& line = mLines[i];
        if (line.kind == LineKind::Section) {
            inSection = EqualNoCase(line.name, section);
        } else if (inSection && line.kind == LineKind::Entry && EqualNoCase(line.name, name)) {
            found = i;
        }
    }
    return found;
}

std::optional<std::size_t> IniFile::FindHeader(const Text& section) const {
    const auto at = std::find_if(mLines.rbegin(), mLines.rend(), [&](const Line& line) {
        return line.kind == LineKind::Section && EqualNoCase(line.name, section);
    });
    if (at == mLines.rend()) return std::nullopt;
    return static_cast<std::size_t>(mLines.rend() - at) - 1;
}

std::optional<std::string_view> IniFile::Find(const Text& section, const Text& name) const {
    const std::optional<std::size_t> entry = FindEntry(section, name);
    if (!entry) return std::nullopt;
    return ValueOf(mLines[*entry]);
}

void IniFile::Set(const Text& section, const Text& name, const Text& value) {
    if (const std::optional<std::size_t> entry = FindEntry(section, name)) {
        Line& line = mLines[*entry];
        const std::size_t contentEnd = line.bytes.find_last_not_of("\r\n") + 1;
        line.bytes.replace(line.valueAt, contentEnd - line.valueAt, value.ToUtf8());
        return;
    }
    const auto makeLine = [&](const Text& content) { return ParseLine(content.ToUtf8() + mLineEnd); };
    if (!mLines.empty() && !mLines.back().bytes.ends_with('\n')) mLines.back().bytes += mLineEnd;
    std::optional<std::size_t> header = FindHeader(section);
    if (!header) {
        if (!mLines.empty()) mLines.push_back(makeLine({}));
        header = mLines.size();
        mLines.push_back(makeLine(u"[" + section + u"]"));
    }
    // Blank lines that part the section from the next one stay below the new entry.
    std::size_t at = SectionEnd(*header);
    while (at > *header + 1 && Trimmed(mLines[at - 1].bytes).empty())
        --at;
    mLines.insert(mLines.begin() + static_cast<std::ptrdiff_t>(at), makeLine(name + u"=" + value));
}

bool IniFile::RemoveTree(const Text& section) {
    bool removed = false;
    for (std::size_t i = 0; i < mLines.size();) {
        if (mLines[i].kind != LineKind::Section || !IsInTree(mLines[i].name, section)) {
            ++i;
            continue;
        }
        std::size_t end = SectionEnd(i);
        if (end < mLines.size()) {
            while (end > i + 1 && mLines[end - 1].kind == LineKind::Remark)
                --end;  // the next section's own remarks
        }
        mLines.erase(mLines.begin() + static_cast<std::ptrdiff_t>(i),
                     mLines.begin() + static_cast<std::ptrdiff_t>(end));
        removed = true;
    }
    return removed;
}

std::string IniFile::Bytes() const {
    std::string bytes;
    for (const Line& line : mLines)
        bytes += line.bytes;
    return bytes;
}

}  // namespace ov
