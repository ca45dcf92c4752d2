/// @file
/// The text of the registry's file: sections of entries, edited line by line so that all else stays as it was.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/text.h"

namespace ov {

/// Names compare without regard to case. Of sections of one name the entries count together; of entries of one name the
/// last one. Lines keep their bytes and their line ends. Texts are UTF-8.
class IniFile {
public:
    explicit IniFile(std::string_view bytes);

    /// What stands behind the "=" of an entry, less blanks around it; nullopt if there is no such entry.
    std::optional<std::string_view> Find(const Text& section, const Text& name) const;
    /// Writes @p value, as it is, behind the "=" of an entry; makes the entry at the end of its section, and the
    /// section at the end of the file, where they are missing. @pre no line break in any of them
    void Set(const Text& section, const Text& name, const Text& value);
    /// Removes a section and those whose names continue it behind a "\". @returns whether there was one.
    bool RemoveTree(const Text& section);

    std::string Bytes() const;

private:
    enum class LineKind { Section, Entry, Remark, Other };
    struct Line {
        std::string bytes;  // with its line end
        LineKind kind = LineKind::Other;
        Text name;                // of a Section or an Entry
        std::size_t valueAt = 0;  // index behind the "=" of an Entry
    };

    static Line ParseLine(std::string bytes);
    std::string_view ValueOf(const Line& line) const;
    /// Index of the last line that is the entry, or nullopt.
    std::optional<std::size_t> FindEntry(const Text& section, const Text& name) const;
    std::optional<std::size_t> FindHeader(const Text& section) const;
    std::size_t SectionEnd(std::size_t header) const;

    std::vector<Line> mLines;
    std::string mLineEnd = "\n";
};

}  // namespace ov
