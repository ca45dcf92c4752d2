#include "platform/script/vbscript/builtins/regex.h"

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

#include <algorithm>

#include "platform/automation/errors.h"

namespace ov::vbscript {

namespace {

// Bounds of one search from one place. A search that meets them has a pattern that cannot end in sensible time.
constexpr std::uint32_t kMaxSteps = 50'000'000;
constexpr std::uint32_t kMaxDepth = 1'000'000;
constexpr std::uint32_t kMaxMemoryKiB = 64 * 1024;

/// Between two callouts a search may walk the whole text once or twice, so in a long text the time is checked at each.
std::uint32_t CalloutsBetweenChecks(std::size_t textSize) noexcept {
    constexpr std::size_t kCharactersBetweenChecks = std::size_t{1} << 20;
    return static_cast<std::uint32_t>(std::clamp<std::size_t>(kCharactersBetweenChecks / (textSize + 1), 1, 64));
}

PCRE2_SPTR16 CharactersOf(std::u16string_view text) noexcept {
    static_assert(sizeof(PCRE2_UCHAR16) == sizeof(char16_t));
    return reinterpret_cast<PCRE2_SPTR16>(text.data());
}

/// The syntax was checked before, so what the library has to say is about size.
[[noreturn]] void RaiseCompileError(int error) {
    constexpr std::int32_t kSyntaxError = 5017;
    switch (error) {
        case PCRE2_ERROR_PARENTHESES_NEST_TOO_DEEP:
            Raise(ErrorNumber::OutOfStackSpace);
        case PCRE2_ERROR_PATTERN_TOO_LARGE:
        case PCRE2_ERROR_PATTERN_TOO_COMPLICATED:
        case PCRE2_ERROR_PATTERN_STRING_TOO_LONG:
        case PCRE2_ERROR_HEAP_FAILED:
        case PCRE2_ERROR_TOO_MANY_CAPTURES:
            Raise(ErrorNumber::OutOfMemory);
        default:
            throw RuntimeError(kSyntaxError);
    }
}

[[noreturn]] void RaiseMatchError(int error) {
    switch (error) {
        case PCRE2_ERROR_MATCHLIMIT:
            throw RuntimeError(ErrorNumber::InternalError, u"Regular expression takes too many steps");
        case PCRE2_ERROR_DEPTHLIMIT:
            Raise(ErrorNumber::OutOfStackSpace);
        case PCRE2_ERROR_HEAPLIMIT:
        case PCRE2_ERROR_NOMEMORY:
            Raise(ErrorNumber::OutOfMemory);
        default:
            Raise(ErrorNumber::InternalError);
    }
}

}  // namespace

void Regex::Free::operator()(pcre2_code_16* code) const noexcept {
    pcre2_code_free_16(code);
}

void RegexSearch::FreeData::operator()(pcre2_match_data_16* data) const noexcept {
    pcre2_match_data_free_16(data);
}

void RegexSearch::FreeContext::operator()(pcre2_match_context_16* context) const noexcept {
    pcre2_match_context_free_16(context);
}

Regex::Regex(std::u16string_view pattern, RegexFlags flags) {
    const RegexSource source = TranslateRegex(pattern, flags);
    // A reference to a group that took no part matches nothing, successfully.
    std::uint32_t options = PCRE2_MATCH_UNSET_BACKREF | PCRE2_NEVER_UTF;
    if (flags.ignoreCase) options |= PCRE2_CASELESS;
    if (source.unicodeCase) options |= PCRE2_UCP;
    int error = 0;
    PCRE2_SIZE place = 0;
    mCode.reset(
        pcre2_compile_16(CharactersOf(source.pattern), source.pattern.size(), options, &error, &place, nullptr));
    if (!mCode) RaiseCompileError(error);
    std::uint32_t groups = 0;
    pcre2_pattern_info_16(mCode.get(), PCRE2_INFO_CAPTURECOUNT, &groups);
    mGroupCount = groups;
    std::size_t size = 0;
    pcre2_pattern_info_16(mCode.get(), PCRE2_INFO_SIZE, &size);
    mMemory.Resize(sizeof(Regex) + size);
}

RegexSearch::RegexSearch(std::shared_ptr<const Regex> regex, Text text, BuiltinContext::Link link)
    : mRegex(std::move(regex)),
      mText(std::move(text)),
      mLink(std::move(link)),
      mData(pcre2_match_data_create_from_pattern_16(mRegex->mCode.get(), nullptr)),
      mContext(pcre2_match_context_create_16(nullptr)),
      mRanges(mRegex->GroupCount() + 1),
      mStepsToCheck(CalloutsBetweenChecks(mText.size())) {
    if (!mData || !mContext) Raise(ErrorNumber::OutOfMemory);
    pcre2_set_match_limit_16(mContext.get(), kMaxSteps);
    pcre2_set_depth_limit_16(mContext.get(), kMaxDepth);
    pcre2_set_heap_limit_16(mContext.get(), kMaxMemoryKiB);
    pcre2_set_callout_16(
        mContext.get(),
        [](pcre2_callout_block_16*, void* search) noexcept { return static_cast<RegexSearch*>(search)->OnCallout(); },
        this);
}

void RegexSearch::CheckTime() {
    if (--mStepsToCheck > 0) return;
    mStepsToCheck = CalloutsBetweenChecks(mText.size());
    if (mLink && *mLink) (*mLink)->CheckTime();
}

int RegexSearch::OnCallout() noexcept {
    try {
        CheckTime();
        return 0;
    } catch (...) {
        mFailure = std::current_exception();
        return PCRE2_ERROR_CALLOUT;
    }
}

bool RegexSearch::Next() {
    CheckTime();
    if (mFrom > mText.size()) return false;
    const int found =
        pcre2_match_16(mRegex->mCode.get(), CharactersOf(mText), mText.size(), mFrom, 0, mData.get(), mContext.get());
    if (found == PCRE2_ERROR_NOMATCH) return false;
    if (found == PCRE2_ERROR_CALLOUT) std::rethrow_exception(std::exchange(mFailure, nullptr));
    if (found < 0) RaiseMatchError(found);

    const PCRE2_SIZE* offsets = pcre2_get_ovector_pointer_16(mData.get());
    for (std::size_t i = 0; i < mRanges.size(); ++i) {
        const bool isSet = offsets[2 * i] != PCRE2_UNSET;
        mRanges[i] = isSet ? TextRange{static_cast<std::uint32_t>(offsets[2 * i]),
                                       static_cast<std::uint32_t>(offsets[2 * i + 1])}
                           : TextRange{};
    }
    const TextRange& match = mRanges.front();
    mFrom = match.end + (match.begin == match.end ? 1u : 0u);
    return true;
}

}  // namespace ov::vbscript
