#include "record/rule_trace.h"

#include "record/recording.h"

namespace ov {

void RuleTrace::Enter(RuleRecord* record, IDispatch* parameter) noexcept {
    if (record == mRecord) return;
    Leave();
    mRecord = record;
    mParameter = parameter;
}

void RuleTrace::Leave() noexcept {
    if (!mRecord) return;
    if (mInput) mRecord->InputOf(mInput).parameter = nullptr;
    if (mNotes) mRecord->NotesOf(mNotes).parameter = nullptr;
    if (mRecord->refusal.parameter == mParameter) mRecord->refusal = {};
    mRecord = nullptr;
    mWork = nullptr;
    mInput = mNotes = 0;
}

void RuleTrace::StandAt(Workload* work, std::size_t position) noexcept {
    if (work && work->record != mRecord) return;
    mWork = work;
    mPosition = static_cast<std::uint32_t>(position);
    mNumbering = work ? work->numbering : 0;
    if (RuleNotes* notes = Notes()) {
        notes->work = work;
        notes->position = position;
    }
}

void RuleTrace::NoteRead() {
    if (!Recording::IsUnderWay()) return;
    if (!mRecord) return Traces::Leave(Unrepeatable::Object);  // it has left its tree, or never had one
    if (!mInput) mInput = mRecord->NewInput(mParameter);
    Recording::NoteRead(*mRecord, mInput);
}

void RuleTrace::NoteChange() noexcept {
    Traces::Leave(Unrepeatable::Change);
    if (mInput) mRecord->Raise(mInput);
    if (mWork) mWork->check.SetToDo(mPosition);
}

void RuleTrace::NoteToDo() noexcept {
    Traces::Leave(Unrepeatable::Change);
    if (mWork) mWork->SetToDo(mPosition);
}

void RuleTrace::NoteReconfiguration() noexcept {
    NoteChange();
    NoteToDo();
}

void RuleTrace::NoteOpenRow() noexcept {
    mIsOpen = true;
    NoteReconfiguration();
}

void RuleTrace::NoteRefusal(const Text& reason, std::optional<RuleColumn> by) {
    if (mRecord) mRecord->refusal = {mParameter, reason, by};
}

void RuleTrace::NoteAccepted() noexcept {
    if (mRecord && mRecord->refusal.parameter) mRecord->refusal = {};
}

const RuleRecord::Refusal* RuleTrace::Refusal() const noexcept {
    return mRecord && mRecord->refusal.parameter == mParameter ? &mRecord->refusal : nullptr;
}

void RuleTrace::ForgetRow() {
    RuleNotes* const notes = Notes();
    if (!notes) return;
    std::erase_if(notes->notes, [&](RuleNote& note) {
        if (note.column == RuleColumn::Dependency) return false;
        mRecord->Subscribe(mNotes, note, {});
        return true;
    });
}

}  // namespace ov
