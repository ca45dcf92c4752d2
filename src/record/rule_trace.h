/// @file
/// A parameter's place in the record of its tree.
#pragma once

#include <cstdint>

#include "record/rule_record.h"

namespace ov {

/// What a parameter keeps to take part: where its steps stand, the input that its readers know it by, the notes of its
/// own rules. The last two are made at their first use: a parameter that no rule reads and that has none costs nothing.
class RuleTrace {
public:
    RuleTrace() = default;
    RuleTrace(const RuleTrace&) = delete;
    RuleTrace& operator=(const RuleTrace&) = delete;

    /// Enters the record of a tree; @p parameter is the identity by which it is found there.
    void Enter(RuleRecord* record, IDispatch* parameter) noexcept;
    /// Leaves it: nothing is noted from now on.
    void Leave() noexcept;
    /// The parameter's steps stand at @p position of @p work. Those of another tree's parameter, which a host has put
    /// into this one's list, stand nowhere here, and are always to do.
    void StandAt(Workload* work, std::size_t position) noexcept;

    /// The value or the state of the parameter is read, by a rule perhaps.
    void NoteRead();
    /// They have changed: the rules that read them have to run again, and so has the parameter's own check.
    void NoteChange() noexcept;
    /// The parameter goes or comes, or its ring has moved: its steps are to do.
    void NoteToDo() noexcept;
    /// The sweep turns the parameter's ring: a sweep within it finds the step to do. That is no trace, since the ring
    /// comes back to where it was if nothing else changes.
    void NoteTurn() noexcept;
    /// The parameter has another row: a change, and its steps are to do.
    void NoteReconfiguration() noexcept;
    /// The host holds the row or the ring and may change them at any time: the steps are never done.
    void NoteOpenRow() noexcept;
    /// Whether the steps may be left out at all.
    bool MayRest() const noexcept { return !mIsOpen; }

    /// A user's edit of the parameter was refused, or accepted.
    void NoteRefusal(const Text& reason, std::optional<RuleColumn> by);
    void NoteAccepted() noexcept;
    /// Why the last edit was refused; Nothing if it was not, or not one of this parameter.
    const RuleRecord::Refusal* Refusal() const noexcept;

    RuleRecord* Record() const noexcept { return mRecord; }
    /// Where the steps stand; Nothing for a parameter that is in no list.
    Workload* Work() const noexcept { return mWork && mWork->numbering == mNumbering ? mWork : nullptr; }
    std::size_t Position() const noexcept { return mPosition; }
    /// The notes of the rules, or Nothing if none has run.
    RuleNotes* Notes() const noexcept { return mNotes ? &mRecord->NotesOf(mNotes) : nullptr; }
    /// The input of value and state; 0 if no rule has read them.
    std::uint32_t InputNumber() const noexcept { return mInput; }
    /// Drops what is known of the rules of a row that is gone. The ring's rules stay.
    void ForgetRow();
    /// The rules that run now are those of the row with this key.
    void TakeRow(std::int32_t row) noexcept { mRow = row; }

private:
    friend class Recording;

    RuleRecord* mRecord = nullptr;
    Workload* mWork = nullptr;
    IDispatch* mParameter = nullptr;
    std::uint32_t mPosition = 0;
    std::uint32_t mInput = 0;
    std::uint32_t mNotes = 0;
    std::uint32_t mNumbering = 0;  // of the position
    std::int32_t mRow = 0;         // key of the row in force
    bool mIsOpen = false;
};

}  // namespace ov
