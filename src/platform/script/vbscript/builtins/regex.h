/// @file
/// Compiled regular expressions and the search with them.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "platform/automation/memory_account.h"
#include "platform/automation/text.h"
#include "platform/script/vbscript/builtins.h"
#include "platform/script/vbscript/builtins/regex_syntax.h"

// Of the matching library, whose header stays out of this one.
struct pcre2_real_code_16;
struct pcre2_real_match_context_16;
struct pcre2_real_match_data_16;

namespace ov::vbscript {

/// A compiled regular expression.
class Regex {
public:
    /// @throws RuntimeError 5017 to 5021 for an error in the pattern's syntax; 7 or 28 for one that is too large or too
    /// deep, 7 where the script's memory is exhausted
    Regex(std::u16string_view pattern, RegexFlags flags);

    /// Number of capturing groups.
    std::size_t GroupCount() const noexcept { return mGroupCount; }

private:
    friend class RegexSearch;
    struct Free {
        void operator()(pcre2_real_code_16* code) const noexcept;
    };

    std::unique_ptr<pcre2_real_code_16, Free> mCode;
    std::size_t mGroupCount = 0;
    MemoryAccount::Share mMemory;
};

/// Where a match or a group lies in a text.
struct TextRange {
    static constexpr std::uint32_t kUnset = UINT32_MAX;

    std::uint32_t begin = kUnset;  ///< kUnset for a group that took no part
    std::uint32_t end = kUnset;

    bool IsSet() const noexcept { return begin != kUnset; }
    std::u16string_view Of(std::u16string_view text) const noexcept { return text.substr(begin, end - begin); }
};

/// Finds the matches of one expression in one text, from the front.
class RegexSearch {
public:
    /// @p link leads to the engine whose time a search takes; without one a search is bounded by its steps alone.
    RegexSearch(std::shared_ptr<const Regex> regex, Text text, BuiltinContext::Link link);
    RegexSearch(const RegexSearch&) = delete;
    RegexSearch& operator=(const RegexSearch&) = delete;

    /// Finds the next match. Behind an empty one the search goes on one character further.
    /// @throws RuntimeError 7, 28 or 51 where the bounds of memory, depth or steps are met, and what CheckTime raises
    bool Next();
    /// The match, and behind it its groups. Valid until the next call of Next.
    std::span<const TextRange> Ranges() const noexcept { return mRanges; }
    const Text& Subject() const noexcept { return mText; }

private:
    struct FreeData {
        void operator()(pcre2_real_match_data_16* data) const noexcept;
    };
    struct FreeContext {
        void operator()(pcre2_real_match_context_16* context) const noexcept;
    };

    /// Called by the library as it goes; anything but 0 ends the search.
    int OnCallout() noexcept;
    void CheckTime();

    std::shared_ptr<const Regex> mRegex;
    Text mText;
    BuiltinContext::Link mLink;
    std::unique_ptr<pcre2_real_match_data_16, FreeData> mData;
    std::unique_ptr<pcre2_real_match_context_16, FreeContext> mContext;
    std::vector<TextRange> mRanges;
    std::size_t mFrom = 0;
    std::uint32_t mStepsToCheck;
    std::exception_ptr mFailure;  // what a callout met, on its way through the library
};

}  // namespace ov::vbscript
