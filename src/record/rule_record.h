/// @file
/// The record of a tree: what its rules read, and what there is to do after a change.
///
/// A sweep asks of each parameter whether its rules want it otherwise, and mostly they do not. The record knows which
/// of these steps need no second look. The claim: **a step that is done would change nothing if it ran now**, so that a
/// sweep which leaves it out does what one does that runs everything.
///
/// Why it holds. A step is done if its last run left no trace (`Traces`): it told no event, changed nothing that can be
/// read, loaded nothing, had no line for the log, asked for nothing that is not in the record. So all that it found out
/// comes from its own parameter and from the inputs that its rules read, and each of these makes the step to do when it
/// changes: inputs know their readers. By induction over its reads a second run would find the same values, come to the
/// same answer, and leave no trace either. What cannot be known so is a trace, and the step stays to do.
///
/// Changes are noted where the field is written, not by events: imports and engine writes tell otherwise or not at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "platform/automation/dispatch.h"
#include "platform/automation/text.h"
#include "platform/automation/unrepeatable.h"
#include "record/rule_counts.h"
#include "record/work_set.h"

namespace ov {

struct Locale;
class RuleRecord;

/// The steps of the parameters of one group, or the groups of one channel: those of a pass over the rules, and those of
/// the check behind the last pass.
struct Workload {
    explicit Workload(const RuleRecord* ofTree) noexcept : record(ofTree) {}

    const RuleRecord* record;  ///< of the tree
    WorkSet pass, check;
    std::uint64_t epoch = 0;      ///< the record's when the sets were made; 0 before
    std::uint32_t numbering = 0;  ///< changes when positions are given anew: who had one before may be out of the list

    void Reset(std::size_t size) {
        pass.Reset(size);
        check.Reset(size);
    }
    void SetToDo(std::size_t position) noexcept {
        pass.SetToDo(position);
        check.SetToDo(position);
    }
    void StandBelow(Workload* above, std::size_t place) noexcept {
        pass.StandBelow(above ? &above->pass : nullptr, place);
        check.StandBelow(above ? &above->check : nullptr, place);
    }
};

/// What one rule did when it was evaluated last.
struct RuleNote {
    /// The input of a number, at the stamp that it had: the reader is told of its next change as long as that is still
    /// its stamp.
    struct Read {
        std::uint32_t input;
        std::uint32_t stamp;
    };

    Variant result;                 ///< Empty for a failure
    std::unique_ptr<Read[]> reads;  ///< in their order, each once
    std::uint16_t readCount = 0;
    RuleColumn column{};
    std::uint8_t alternative = 0;  ///< which entry of the ring, from 1 on; 0 for the row in force
    Unrepeatable why{};            ///< why it cannot be left out

    std::span<const Read> Reads() const noexcept { return {reads.get(), readCount}; }
};

/// The notes of one parameter's rules. They stay where they are until the record ends.
struct RuleNotes {
    Workload* work = nullptr;
    std::size_t position = 0;
    std::vector<RuleNote> notes;
    IDispatch* parameter = nullptr;  ///< not held; Nothing once it has left the tree
};

/// The record of one tree. It lives as long as anything of the tree does, and nothing in it is freed before.
class RuleRecord {
public:
    /// Something that rules read and that can change.
    struct Input {
        std::uint32_t stamp = 0;             ///< raised with each change
        std::vector<std::uint32_t> readers;  ///< notes to be told of the next change
        IDispatch* parameter = nullptr;      ///< whose value and state it is, not held; else
        Text variable;                       ///< the key of a variable of the environment
    };

    RuleRecord() = default;
    RuleRecord(const RuleRecord&) = delete;
    RuleRecord& operator=(const RuleRecord&) = delete;

    Workload& NewWorkload() { return mWorkloads.emplace_back(this); }
    /// Numbers from 1 on.
    std::uint32_t NewInput(IDispatch* parameter);
    std::uint32_t NewNotes(IDispatch* parameter);
    /// The input of a variable of the environment, made at its first use.
    std::uint32_t VariableInput(const Text& key);
    Input& InputOf(std::uint32_t number) noexcept { return mInputs[number - 1]; }
    RuleNotes& NotesOf(std::uint32_t number) noexcept { return mNotes[number - 1]; }

    /// What @p input stands for has changed: its readers are to do.
    void Raise(std::uint32_t input) noexcept;
    /// The same for a variable, if anything has read it.
    void RaiseVariable(const Text& key) noexcept;
    /// Something has changed that has no input of its own: everything is to do.
    void ForgetAll() noexcept;
    /// Changes with ForgetAll and with the locale; never 0.
    std::uint64_t Epoch() noexcept;

    /// Calls @p visit with the notes of each parameter that has rules.
    template <class Visit>
    void ForEachNotes(Visit visit) const {
        for (const RuleNotes& notes : mNotes) {
            visit(notes);
        }
    }

    /// Why a user's edit was refused.
    struct Refusal {
        IDispatch* parameter = nullptr;  ///< not held; Nothing where the last edit was accepted
        Text reason;
        std::optional<RuleColumn> by;  ///< the limit or rule
    };
    Refusal refusal;

    /// What its rules are counted in; Nothing where nobody wants to know.
    RuleCounts* Counts() const noexcept { return mCounts.get(); }
    void CountIn(std::shared_ptr<RuleCounts> counts) noexcept { mCounts = std::move(counts); }

    /// How many steps sweeps have left out so far, of parameters and of whole groups.
    std::uint64_t StepsLeftOut() const noexcept { return mStepsLeftOut; }
    void NoteLeftOut(std::size_t steps) noexcept { mStepsLeftOut += steps; }

    /// Descriptor rows have been handed out to the host, which may change them at any time.
    void OpenRows() noexcept;
    bool RowsAreOpen() const noexcept { return mRowsAreOpen; }

    /// Makes the notes @p reader a reader of exactly @p inputs in @p note.
    void Subscribe(std::uint32_t reader, RuleNote& note, std::span<const std::uint32_t> inputs);

private:
    void Unsubscribe(std::uint32_t reader, const RuleNote::Read& read) noexcept;

    struct HashOfKey {
        std::size_t operator()(const Text& key) const noexcept { return HashNoCase(key); }
    };
    struct SameKey {
        bool operator()(const Text& a, const Text& b) const noexcept { return EqualNoCase(a, b); }
    };

    std::deque<Workload> mWorkloads;
    std::deque<Input> mInputs;
    std::deque<RuleNotes> mNotes;
    std::unordered_map<Text, std::uint32_t, HashOfKey, SameKey> mVariables;
    std::shared_ptr<RuleCounts> mCounts;
    std::uint64_t mEpoch = 1;
    const Locale* mLocale = nullptr;  // of the epoch
    std::uint64_t mStepsLeftOut = 0;
    bool mRowsAreOpen = false;
};

}  // namespace ov
