/// @file
/// How the reads of a rule get into the record.
#pragma once

#include <cstddef>
#include <cstdint>

#include "record/rule_trace.h"

namespace ov {

/// Records what is read while it lives, as the reads of one rule of a parameter. Recordings nest as evaluations do. One
/// that saw no evaluation leaves no note: the text was no rule.
class Recording {
public:
    /// A rule of the row in force.
    Recording(RuleTrace& trace, RuleColumn column) noexcept;
    /// The rule `dependency` of an entry of the ring: its number, and the key of its row.
    Recording(RuleTrace& trace, std::uint8_t alternative, std::int32_t row) noexcept;
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    /// What the rule came to.
    template <class Result>
    Result Keep(Result result) {
        mResult = Variant(result);
        return result;
    }

    /// How often anything has been noted as read.
    static std::uint64_t ReadsNoted() noexcept { return sReadsNoted; }
    static bool IsUnderWay() noexcept { return sCurrent != nullptr; }
    /// An input of @p record is read. Another tree's rules cannot be told of its changes: to them that is a trace.
    /// @pre a recording is under way
    static void NoteRead(const RuleRecord& record, std::uint32_t input);
    /// The rule that runs fails, or something that it asked for.
    static void NoteFailure() noexcept {
        if (sCurrent) sCurrent->mHasFailed = true;
    }

private:
    friend class ValueOnTrial;

    // Keeps nothing.
    Recording() noexcept;
    void Commit();
    RuleNote& NoteOf(RuleNotes& notes) const;

    static inline Recording* sCurrent = nullptr;
    static inline std::uint64_t sReadsNoted = 0;

    RuleTrace* mTrace = nullptr;
    const RuleRecord* mRecord;  // whose inputs are read
    Recording* mOuter;
    std::size_t mFirst;  // of its reads among all that are under way
    std::uint64_t mTraces;
    std::int32_t mEvaluations;
    RuleColumn mColumn{};
    std::uint8_t mAlternative = 0;
    bool mHasFailed = false;
    std::int32_t mRow = 0;
    Variant mResult;
};

/// A parameter shows a value on trial while it lives. What rules read meanwhile is not noted, and whatever sweeps they
/// run leave nothing out: the value is no change, and yet seen.
class ValueOnTrial {
public:
    ValueOnTrial() noexcept { ++sDepth; }
    ~ValueOnTrial() { --sDepth; }
    ValueOnTrial(const ValueOnTrial&) = delete;
    ValueOnTrial& operator=(const ValueOnTrial&) = delete;

    static bool IsUnderWay() noexcept { return sDepth != 0; }

private:
    static inline int sDepth = 0;

    Recording mUnrecorded;
};

/// A write by a script, while it lives: to a parameter, which notes who wrote it.
class RuleWrite {
public:
    RuleWrite() noexcept { ++sDepth; }
    ~RuleWrite() { --sDepth; }
    RuleWrite(const RuleWrite&) = delete;
    RuleWrite& operator=(const RuleWrite&) = delete;

    static bool IsUnderWay() noexcept { return sDepth != 0; }

private:
    static inline int sDepth = 0;
};

}  // namespace ov
